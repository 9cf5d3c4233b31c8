// Owned ODBC handles of the host.
#include "host/odbc_handles.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/limits.h"
#include "host/outcome.h"
#include "host/text.h"

namespace wbhost {

Environment::Environment() {
  if (!Succeeded(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &handle_))) {
    throw Failure(ExitCode::kConnection, "the ODBC driver manager gives no environment");
  }
  // The attribute is passed as a pointer by ODBC's own definition.
  SQLSetEnvAttr(handle_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC2), 0);
}

Environment::~Environment() { SQLFreeHandle(SQL_HANDLE_ENV, handle_); }

std::string FromWide(const SQLWCHAR* text, std::size_t characters) {
  std::u16string wide(characters, u'\0');
  std::transform(text, text + characters, wide.begin(),
                 [](SQLWCHAR unit) { return static_cast<char16_t>(unit); });
  return ToUtf8(wide);
}

namespace {

// What a driver wrote of an SQLSTATE: five characters, whether it ended them or not, or fewer.
std::string StateText(const SQLWCHAR (&state)[6]) {
  return FromWide(state,
                  static_cast<std::size_t>(std::find(state, state + 5, SQLWCHAR{0}) - state));
}

}  // namespace

std::vector<recording::Diagnostic> ReadDiagnosticRecords(SQLSMALLINT handle_type,
                                                         SQLHANDLE handle) {
  // A driver may give the same one for ever. The one beyond the limit tells that there are more.
  constexpr SQLSMALLINT kMostRecords = kMostDiagnostics + 1;
  constexpr SQLSMALLINT kMessageCharacters = 8192;
  std::vector<recording::Diagnostic> records;
  std::vector<SQLWCHAR> message(kMessageCharacters);
  for (SQLSMALLINT record = 1; record <= kMostRecords; ++record) {
    SQLWCHAR sql_state[6] = {};
    SQLINTEGER native_error = 0;
    SQLSMALLINT length = 0;
    message.front() = 0;
    if (!Succeeded(SQLGetDiagRecW(handle_type, handle, record, sql_state, &native_error,
                                  message.data(), kMessageCharacters, &length))) {
      break;
    }
    const auto end = std::find(message.begin(), message.end() - 1, SQLWCHAR{0});
    records.push_back({StateText(sql_state), native_error, std::u16string(message.begin(), end)});
  }
  return records;
}

std::string ReadDiagnostics(SQLSMALLINT handle_type, SQLHANDLE handle, std::string& state) {
  std::string all;
  std::vector<recording::Diagnostic> records = ReadDiagnosticRecords(handle_type, handle);
  const bool has_more = records.size() > kMostDiagnostics;
  if (has_more) records.pop_back();
  for (const recording::Diagnostic& record : records) {
    const std::string code = OneLine(record.state);
    if (state.empty()) state = code;
    const std::string text = fmt::format("{} [{}]", OneLine(ToUtf8(record.message)),
                                         code.empty() ? "no SQLSTATE" : code);
    if (all.find(text) != std::string::npos) continue;  // drivers repeat themselves
    all += (all.empty() ? "" : "; ") + text;
  }
  if (has_more) all += "; and more";
  return all.empty() ? "the driver manager gives no reason" : all;
}

}  // namespace wbhost
