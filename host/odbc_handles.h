// Owned ODBC handles of the host, and the diagnostics behind them.
#pragma once

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <string>
#include <vector>

#include "recording/call_bytes.h"

namespace wbhost {

// An environment for a client of ODBC 2, which is what the module's calls and type codes are.
class Environment {
 public:
  Environment();  // throws a Failure
  ~Environment();
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;
  [[nodiscard]] SQLHENV Get() const { return handle_; }

 private:
  SQLHENV handle_ = SQL_NULL_HENV;
};

// Every diagnostic record of a handle's last call, whole; they stay with the handle.
[[nodiscard]] std::vector<recording::Diagnostic> ReadDiagnosticRecords(SQLSMALLINT handle_type,
                                                                       SQLHANDLE handle);

// What the driver manager says of a handle's last failure, in one line: message and SQLSTATE of
// every record. Sets `state` to the first SQLSTATE.
[[nodiscard]] std::string ReadDiagnostics(SQLSMALLINT handle_type, SQLHANDLE handle,
                                          std::string& state);

[[nodiscard]] inline bool Succeeded(SQLRETURN result) {
  return result == SQL_SUCCESS || result == SQL_SUCCESS_WITH_INFO;
}

// A text of ODBC, which is UTF-16 of 16-bit units here.
[[nodiscard]] std::string FromWide(const SQLWCHAR* text, std::size_t characters);

}  // namespace wbhost
