// See driver_calls.h. Every output is emptied before the call: drivers leave outputs unwritten or
// write half of them.
#include "host/driver_calls.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "base/secret_names.h"
#include "host/text.h"
#include "recording/replay_interface.h"

namespace wbhost {

using platform::DriverCall;
using platform::DriverField;

namespace {

constexpr std::size_t kTextCharacters = 256;
// A database may be a file, whose path SQLite's driver gives as a URI.
constexpr std::size_t kInfoCharacters = 8192;
using Text = std::array<char16_t, kTextCharacters>;

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));

template <std::size_t kCharacters>
std::u16string Whole(std::array<char16_t, kCharacters>& text) {
  text.back() = 0;
  return text.data();
}

}  // namespace

void DriverCalls::Start(const char* function) const {
  if (log_ != nullptr) {
    log_->OnCallStart({.function = function, .handle = connection_, .on_statement = false});
  }
}

void DriverCalls::EndUnheard(const char* function) const {
  if (log_ != nullptr) {
    log_->OnCallEnd({.function = function, .handle = connection_, .on_statement = false});
  }
}

void DriverCalls::Report(const char* function, SQLRETURN result, std::span<const DriverField> asked,
                         std::span<const DriverField> answered) const {
  if (log_ == nullptr) return;
  log_->OnCall({.function = function,
                .handle = connection_,
                .on_statement = false,
                .result = result,
                .asked = asked,
                .answered = answered});
}

// A call that was made on a statement; returns what it returned.
SQLRETURN DriverCalls::ReportOn(SQLHSTMT statement, DriverCall call, SQLRETURN result) const {
  call.handle = statement;
  call.result = result;
  if (log_ != nullptr) log_->OnCall(call);
  return result;
}

SQLRETURN DriverCalls::Connect(const std::string& connection_string) const {
  std::u16string text = ToUtf16(connection_string);
  // No output string is asked for: mdbtools leaves it unwritten, and the driver manager reads it.
  Start("SQLDriverConnectW");
  const SQLRETURN result =
      SQLDriverConnectW(connection_, nullptr, reinterpret_cast<SQLWCHAR*>(text.data()), SQL_NTS,
                        nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
  base::Wipe(text);
  // Without the text, which holds secrets.
  Report("SQLDriverConnectW", result, {}, {});
  return result;
}

void DriverCalls::MakeReadOnly() const {
  struct ReadOnly {
    std::u16string_view dbms;
    const char16_t* statement;
  };
  constexpr ReadOnly kStatements[] = {
      {u"PostgreSQL", u"SET SESSION CHARACTERISTICS AS TRANSACTION READ ONLY"},
      {u"MariaDB", u"SET SESSION TRANSACTION READ ONLY"},
      {u"MySQL", u"SET SESSION TRANSACTION READ ONLY"},
  };
  const Watched watched(*this, "SQLExecDirectW");
  std::array<SQLWCHAR, kTextCharacters> name{};
  SQLGetInfoW(connection_, SQL_DBMS_NAME, name.data(), sizeof name, nullptr);
  name.back() = 0;
  const std::u16string dbms(name.begin(), std::find(name.begin(), name.end(), SQLWCHAR{0}));
  for (const ReadOnly& known : kStatements) {
    SQLHSTMT statement = SQL_NULL_HSTMT;
    if (dbms != known.dbms ||
        !Succeeded(SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement))) {
      continue;
    }
    std::u16string text = known.statement;
    SQLExecDirectW(statement, reinterpret_cast<SQLWCHAR*>(text.data()), SQL_NTS);
    SQLFreeHandle(SQL_HANDLE_STMT, statement);
  }
}

void DriverCalls::Disconnect() const {
  const Watched watched(*this, "SQLDisconnect");
  SQLDisconnect(connection_);
}

void DriverCalls::SetTimeouts(const Timeouts& timeouts) const {
  const auto set = [this](SQLINTEGER attribute, int seconds) {
    if (seconds == 0) return;
    const auto value = static_cast<SQLULEN>(seconds);
    SQLSetConnectAttr(connection_, attribute, reinterpret_cast<SQLPOINTER>(value), 0);
  };
  const auto read_only = static_cast<SQLULEN>(SQL_MODE_READ_ONLY);
  SQLSetConnectAttr(connection_, SQL_ATTR_ACCESS_MODE, reinterpret_cast<SQLPOINTER>(read_only), 0);
  set(SQL_ATTR_LOGIN_TIMEOUT, timeouts.login);
  set(SQL_ATTR_CONNECTION_TIMEOUT, timeouts.call);
}

std::optional<std::u16string> DriverCalls::InfoText(SQLUSMALLINT info) const {
  std::array<char16_t, kInfoCharacters> text{};
  SQLSMALLINT bytes = 0;
  constexpr auto kRoom = static_cast<SQLSMALLINT>(sizeof text);
  Start("SQLGetInfoW");
  const SQLRETURN result = SQLGetInfoW(connection_, info, text.data(), kRoom, &bytes);
  const std::u16string answer = Whole(text);
  const std::array asked = {DriverField{"info", info}, DriverField{"room", kRoom}};
  const std::array answered = {DriverField{"text", answer.c_str()}, DriverField{"bytes", bytes}};
  Report("SQLGetInfoW", result, asked, answered);
  return Succeeded(result) ? std::optional(answer) : std::nullopt;
}

std::pair<SQLUINTEGER, std::string> DriverCalls::QuestionsNotHeld() const {
  SQLUINTEGER count = 0;
  SQLGetInfoW(connection_, recording::kInfoNotHeld, &count, sizeof count, nullptr);
  std::vector<char16_t> why(INT16_MAX / 2);
  const auto room = static_cast<SQLSMALLINT>(why.size() * sizeof(char16_t));
  if (count > 0) {
    SQLGetInfoW(connection_, recording::kInfoFirstNotHeld, why.data(), room, nullptr);
    why.back() = 0;
  }
  return {count, ToUtf8(why.data())};
}

std::optional<SQLUINTEGER> DriverCalls::InfoNumber(SQLUSMALLINT info) const {
  SQLUINTEGER number = 0;
  SQLSMALLINT bytes = 0;
  constexpr auto kRoom = static_cast<SQLSMALLINT>(sizeof number);
  Start("SQLGetInfoW");
  const SQLRETURN result = SQLGetInfoW(connection_, info, &number, kRoom, &bytes);
  const std::array asked = {DriverField{"info", info}, DriverField{"room", kRoom}};
  const std::array answered = {DriverField{"number", number}, DriverField{"bytes", bytes}};
  Report("SQLGetInfoW", result, asked, answered);
  return Succeeded(result) ? std::optional(number) : std::nullopt;
}

std::optional<std::u16string> DriverCalls::AttributeText(SQLINTEGER attribute) const {
  Text text{};
  SQLINTEGER bytes = 0;
  constexpr auto kRoom = static_cast<SQLINTEGER>(sizeof text);
  Start("SQLGetConnectAttrW");
  const SQLRETURN result = SQLGetConnectAttrW(connection_, attribute, text.data(), kRoom, &bytes);
  const std::u16string answer = Whole(text);
  const std::array asked = {DriverField{"attribute", attribute}, DriverField{"room", kRoom}};
  const std::array answered = {DriverField{"text", answer.c_str()}, DriverField{"bytes", bytes}};
  Report("SQLGetConnectAttrW", result, asked, answered);
  return Succeeded(result) ? std::optional(answer) : std::nullopt;
}

std::optional<SQLUINTEGER> DriverCalls::AttributeNumber(SQLINTEGER attribute) const {
  SQLUINTEGER number = 0;
  Start("SQLGetConnectAttr");
  const SQLRETURN result =
      SQLGetConnectAttr(connection_, attribute, &number, sizeof number, nullptr);
  const std::array asked = {DriverField{"attribute", attribute}};
  const std::array answered = {DriverField{"number", number}};
  Report("SQLGetConnectAttr", result, asked, answered);
  return Succeeded(result) ? std::optional(number) : std::nullopt;
}

bool DriverCalls::HasFunction(SQLUSMALLINT function) const {
  SQLUSMALLINT there = SQL_FALSE;
  Start("SQLGetFunctions");
  const SQLRETURN result = SQLGetFunctions(connection_, function, &there);
  const std::array asked = {DriverField{"function", function}};
  const std::array answered = {DriverField{"supported", there}};
  Report("SQLGetFunctions", result, asked, answered);
  return Succeeded(result) && there == SQL_TRUE;
}

std::optional<std::vector<std::u16string>> DriverCalls::Catalogs() const {
  SQLHSTMT statement = SQL_NULL_HSTMT;
  const SQLRETURN allocated = SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement);
  if (log_ != nullptr) {
    log_->OnCall({.function = "SQLAllocStmt",
                  .handle = connection_,
                  .on_statement = false,
                  .result = allocated,
                  .made = statement});
  }
  if (!Succeeded(allocated)) return std::nullopt;
  std::optional<std::vector<std::u16string>> catalogs;
  // A pattern for every catalog beside empty texts is ODBC's way of asking for the catalogs.
  SQLWCHAR all[] = {'%', 0};
  SQLWCHAR none[] = {0};
  const std::array asked = {DriverField{"catalog", u"%"}, DriverField{"owner", u""},
                            DriverField{"table", u""}, DriverField{"types", u""}};
  Text name{};
  SQLLEN length = 0;
  const platform::DriverBuffer bound = {.number = 1,
                                        .c_type = SQL_C_WCHAR,
                                        .data = name.data(),
                                        .bytes = sizeof name,
                                        .indicator = &length,
                                        .row_bytes = sizeof name};
  const platform::DriverRows one_row = {.count = 1, .status = nullptr};
  Start("SQLTablesW");
  if (Succeeded(ReportOn(statement, {.function = "SQLTablesW", .handle = statement, .asked = asked},
                         SQLTablesW(statement, all, SQL_NTS, none, 0, none, 0, none, 0))) &&
      Succeeded(
          ReportOn(statement, {.function = "SQLBindCol", .handle = statement, .buffer = &bound},
                   SQLBindCol(statement, 1, SQL_C_WCHAR, name.data(), sizeof name, &length)))) {
    catalogs.emplace();
    for (;;) {
      Start("SQLFetch");
      if (!Succeeded(ReportOn(statement,
                              {.function = "SQLFetch", .handle = statement, .rows = &one_row},
                              SQLFetch(statement)))) {
        break;
      }
      const std::u16string catalog = Whole(name);
      if (length != SQL_NULL_DATA && !catalog.empty()) catalogs->push_back(catalog);
    }
  }
  const std::array dropped = {DriverField{"option", SQL_DROP}};
  ReportOn(statement, {.function = "SQLFreeStmt", .handle = statement, .asked = dropped},
           SQLFreeHandle(SQL_HANDLE_STMT, statement));
  return catalogs;
}

void DriverCalls::AskFunctions() const {
  std::array<SQLUSMALLINT, SQL_API_ODBC3_ALL_FUNCTIONS_SIZE> table{};
  constexpr SQLUSMALLINT kAll = SQL_API_ODBC3_ALL_FUNCTIONS;
  Start("SQLGetFunctions");
  const SQLRETURN result = SQLGetFunctions(connection_, kAll, table.data());
  const std::array asked = {DriverField{"function", kAll}};
  const std::array answered = {DriverField{"table", std::span<const std::uint16_t>(table)}};
  Report("SQLGetFunctions", result, asked, answered);
}

}  // namespace wbhost
