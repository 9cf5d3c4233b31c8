// The host's ODBC connection: where to connect to, opening and closing it, and what the driver says
// of itself. No header of ODBC is needed to use it.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/options.h"
#include "host/samples.h"
#include "host/secrets.h"
#include "platform/platform.h"

namespace wbhost {

// Where to connect to, settled from the options.
struct Target {
  std::string description;  // for messages: "SQLite file shop.db"
  std::string connect_string;
  bool is_sample_database = false;
  std::string recording = {};  // the file, where one is played
};
// Reads the password where the options say one is to be had, and tells `secrets` of it. Throws a
// Failure.
[[nodiscard]] Target ResolveTarget(const ConnectionOptions& options, Secrets& secrets);

// `file:` form of a SQLite file's name, opened read-only.
[[nodiscard]] std::string SqliteReadOnlyUri(const std::string& absolute_path, bool immutable);

class DriverCalls;

// How long the driver may wait for the server, in seconds; 0: for ever.
struct Timeouts {
  int login = 15;
  int call = 300;
};

// An open connection. Everything that borrowed its handles must be gone before it.
class Connection {
 public:
  // Throws a Failure of one line: what was tried, what the driver manager said, what to try.
  // `log`, which may be null, hears of every call that is made here.
  Connection(const Target& target, const Timeouts& timeouts, platform::CallLog* log);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  [[nodiscard]] void* henv() const;
  [[nodiscard]] void* hdbc() const;
  // The connection string without its password.
  [[nodiscard]] const std::string& connect_text() const { return connect_text_; }

  [[nodiscard]] const DriverCalls& calls() const;

  // Has the server refuse to write, where it knows a statement for that.
  void MakeReadOnly() const;
  // Whether the driver knows that the connection is lost; false where it cannot tell.
  [[nodiscard]] bool IsDead() const;
  // Whether statements may name an owner in front of a table.
  [[nodiscard]] bool SupportsOwners() const;
  // The catalog that the connection is in, where catalogs mean something to the driver; else empty.
  [[nodiscard]] std::u16string CurrentCatalog() const { return KnownCatalog().value_or(u""); }
  // The name of the database that the connection is in; of one that is a file the file's name
  // without its folder. Empty where the driver does not tell.
  [[nodiscard]] std::u16string DatabaseName() const;
  // Whether the connection is in no catalog although the server has catalogs instead of owners.
  [[nodiscard]] bool LacksCatalog() const;
  // The catalogs of the server, as its driver lists them; nothing where it does not.
  [[nodiscard]] std::optional<std::vector<std::u16string>> Catalogs() const;

  struct FunctionOffer {
    const char* name;
    bool offered;
  };
  // The catalog functions, and the others that decide how an import reads.
  [[nodiscard]] std::vector<FunctionOffer> OfferedFunctions() const;
  // Of a played recording: how many questions it did not hold so far, and why for the first.
  [[nodiscard]] std::pair<std::uint32_t, std::string> QuestionsNotHeld() const;
  [[nodiscard]] std::string DbmsVersionText() const;
  [[nodiscard]] std::string DriverText() const;  // the driver's name and version

 private:
  // Nothing where catalogs mean nothing or the driver does not tell.
  [[nodiscard]] const std::optional<std::u16string>& KnownCatalog() const;
  [[nodiscard]] std::optional<std::u16string> AskCurrentCatalog() const;

  struct Handles;
  std::string connect_text_;
  std::unique_ptr<SampleDatabase> sample_;  // outlives the connection to it
  std::unique_ptr<DriverCalls> calls_;      // outlives the handles, which are closed through it
  std::unique_ptr<Handles> handles_;
  // Asked once: a recording holds an answer once, whoever wants to know it.
  mutable std::optional<bool> supports_owners_;
  mutable std::optional<std::optional<std::u16string>> catalog_;
};

// The diagnostics of a call that was just made, in one line; they stay with the handle.
[[nodiscard]] std::string DiagnosticsOfCall(const platform::DriverCall& call);
// The same; `state` becomes the first SQLSTATE.
[[nodiscard]] std::string DiagnosticsOfCall(const platform::DriverCall& call, std::string& state);
// Ends what the statement does, from any thread, where its driver can.
void CancelStatement(void* statement);

// An installed driver, or a data source of odbc.ini with its driver.
struct Installed {
  std::string name;
  std::string driver;  // of a data source; empty for a driver
};
[[nodiscard]] std::vector<Installed> InstalledDrivers();
[[nodiscard]] std::vector<Installed> DataSources();
// What odbc.ini has for a key of a data source; empty where it has nothing.
[[nodiscard]] std::string DataSourceValue(const std::string& source, const char* key);

}  // namespace wbhost
