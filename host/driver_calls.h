// The calls that the program itself makes of the driver, each reported to a call log as the
// module's are.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "host/connection.h"
#include "host/odbc_handles.h"
#include "platform/platform.h"

namespace wbhost {

// Calls on one connection.
class DriverCalls {
 public:
  // Calls that are made without it, watched for its lifetime as one that nobody keeps.
  class Watched {
   public:
    Watched(const DriverCalls& calls, const char* function) : calls_(calls), function_(function) {
      calls_.Start(function_);
    }
    ~Watched() { calls_.EndUnheard(function_); }
    Watched(const Watched&) = delete;
    Watched& operator=(const Watched&) = delete;

   private:
    const DriverCalls& calls_;
    const char* const function_;
  };

  // `log` may be null.
  DriverCalls(SQLHDBC connection, platform::CallLog* log) : connection_(connection), log_(log) {}

  // Before connecting: seconds, as the driver keeps them, 0 for none; and that nothing is written.
  // What a driver cannot do it does without.
  void SetTimeouts(const Timeouts& timeouts) const;
  SQLRETURN Connect(const std::string& connection_string) const;
  void Disconnect() const;
  // Has the server refuse to write on this connection, where it knows a statement for that.
  void MakeReadOnly() const;
  // Empty where the driver has no answer.
  [[nodiscard]] std::optional<std::u16string> InfoText(SQLUSMALLINT info) const;
  [[nodiscard]] std::optional<SQLUINTEGER> InfoNumber(SQLUSMALLINT info) const;
  [[nodiscard]] std::optional<std::u16string> AttributeText(SQLINTEGER attribute) const;
  [[nodiscard]] std::optional<SQLUINTEGER> AttributeNumber(SQLINTEGER attribute) const;
  [[nodiscard]] bool HasFunction(SQLUSMALLINT function) const;
  // The names of the server's catalogs; empty where the driver does not list them.
  [[nodiscard]] std::optional<std::vector<std::u16string>> Catalogs() const;
  // Of a played recording: how many questions it did not hold so far, and why for the first, UTF-8.
  [[nodiscard]] std::pair<SQLUINTEGER, std::string> QuestionsNotHeld() const;
  // Asks for the whole table of functions, so that a log has it.
  void AskFunctions() const;

 private:
  SQLRETURN ReportOn(SQLHSTMT statement, platform::DriverCall call, SQLRETURN result) const;
  void Start(const char* function) const;
  void EndUnheard(const char* function) const;
  void Report(const char* function, SQLRETURN result, std::span<const platform::DriverField> asked,
              std::span<const platform::DriverField> answered) const;

  SQLHDBC connection_;
  platform::CallLog* log_;
};

}  // namespace wbhost
