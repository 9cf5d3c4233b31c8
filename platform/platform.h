// What the module needs from the host's surroundings, one small interface per service. A host
// replaces any of them in GetServices() before it starts an import; the defaults suit a command
// line.
//
// Texts of the module are UTF-16; a path is in the encoding of the file system (UTF-8 on Linux).
// The services are used on the importing thread only.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "importer/workbook/enums.h"
#include "platform/driver_call.h"

#define LC_EXPORT __attribute__((visibility("default")))

namespace platform {

// The settings of the host's family, one table of values per key.
class LC_EXPORT SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  // The value as 32 bits. Empty when key or value are missing, or when the value is no number.
  [[nodiscard]] virtual std::optional<std::uint32_t> ReadDWORD(const std::u16string& key,
                                                               const std::u16string& value) = 0;
};

// Modal messages to the user.
class LC_EXPORT MessageBox {
 public:
  virtual ~MessageBox() = default;
  // Shows the text with an OK button. `help_context` is 0 for a database error, -1 otherwise.
  virtual void Show(const std::u16string& text, int help_context) = 0;
};

// The shared message library: texts by number.
class LC_EXPORT MessageLibrary {
 public:
  virtual ~MessageLibrary() = default;
  // The text with the number; empty when the library has none.
  [[nodiscard]] virtual std::u16string GetText(unsigned id) = 0;
};

// The host's wait cursor, shown while a route runs.
class LC_EXPORT BusyCursor {
 public:
  virtual ~BusyCursor() = default;
  virtual void Show() = 0;
  virtual void Hide() = 0;
};

// What is known of data sources outside of the connection itself.
class LC_EXPORT DatabaseUtilities {
 public:
  virtual ~DatabaseUtilities() = default;
  // Classifies the text of SQL_DBMS_NAME; dbmsUnknown for a name that is not known.
  [[nodiscard]] virtual LeDBMSType DeterineDBMSTypeByName(const char16_t* dbms_name) = 0;
  // Fills the five parameters of the current log-in; an unknown one stays as it was. The fourth is
  // the name of the data source.
  virtual void RecoverLoginParameters(void* hdbc, const char16_t* connect_text,
                                      std::u16string& driver, std::u16string& database,
                                      std::u16string& user, std::u16string& data_source,
                                      std::u16string& server) = 0;
  // The DB2 CLI catalog schema that is configured for the data source. False, with an empty schema,
  // when there is none.
  [[nodiscard]] virtual bool GetDB2CLISchema(const char16_t* data_source,
                                             std::u16string& schema) = 0;
};

// Watches every call that the module makes of the driver.
class LC_EXPORT CallLog {
 public:
  virtual ~CallLog() = default;
  // Before the call, which may not come back; nothing is answered yet.
  virtual void OnCallStart(const DriverCall& /*call*/) {}
  // In place of OnCall for a host's own call that is not to be kept or judged.
  virtual void OnCallEnd(const DriverCall& /*call*/) {}
  // After the call. It must not call back into the module.
  virtual void OnCall(const DriverCall& call) = 0;
};

// What one result of a driver may have before reading it ends with an error: far more than a
// catalog has, but a server that never stops sending does not fill the memory. 0: no limit.
struct LC_EXPORT ResultLimits {
  std::uint64_t rows = 50'000'000;
  std::uint64_t bytes = std::uint64_t{8} << 30;
};

struct LC_EXPORT Services {
  std::shared_ptr<SettingsStore> settings;
  std::shared_ptr<MessageBox> message_box;
  std::shared_ptr<MessageLibrary> messages;  // set by the module's start-up
  std::shared_ptr<BusyCursor> busy_cursor;
  std::shared_ptr<DatabaseUtilities> database;  // set by the module's start-up
  std::shared_ptr<CallLog> call_log;            // null: nobody listens
  ResultLimits result_limits;
};

// The services in force, with the defaults where a host has installed nothing. Never null, but for
// `messages` and `database` before the module was started and `call_log`.
[[nodiscard]] LC_EXPORT Services& GetServices();

}  // namespace platform
