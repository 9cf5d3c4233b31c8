// See scripted_driver.h.
#include "fuzz/scripted_driver.h"

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "platform/platform.h"

namespace {

using fuzz::Input;

// What a catalog says, so that rows of one result mean something to those of another.
constexpr std::u16string_view kWords[] = {
    u"a",        u"b",           u"T",       u"V",
    u"O",        u"id",          u"TABLE",   u"VIEW",
    u"0",        u"1",           u"2",       u"3",
    u"10",       u"-1",          u"Y",       u"N",
    u"P",        u"R",           u"U",       u"S",
    u"integer",  u"varchar(20)", u"",        u"char",
    u"table",    u"view",        u"public",  u"main",
    u"a_b",      u"NO",          u"YES",     u"CREATE TABLE \"T\" (\"a\" int)",
    u"x%",       u"'",           u"SYNONYM", u"100.5",
    u"99999999", u"pk",          u"fk",      u"2 [1], -1 [1]"};
constexpr const char16_t* kServers[] = {u"Informix Dynamic Server",
                                        u"Microsoft SQL Server",
                                        u"Oracle",
                                        u"DB2/NT",
                                        u"Red Brick Warehouse",
                                        u"nobody's",
                                        u"SQLite",
                                        u"PostgreSQL",
                                        u"MariaDB",
                                        u"Access"};
constexpr const char16_t* kVersions[] = {u"09.40.0000", u"15.00.2000", u"3.45.1", u"160002",
                                         u"7.31",       u"11.8.1",     u""};

struct Binding {
  SQLSMALLINT type = 0;
  char* buffer = nullptr;
  SQLLEN bytes = 0;
  SQLLEN* indicator = nullptr;
};

struct Statement {
  std::map<SQLUSMALLINT, Binding> columns;
  SQLULEN rowset = 1;
};

Input* script = nullptr;
std::map<SQLHSTMT, std::unique_ptr<Statement>> statements;  // a driver may refuse to let one go
std::u16string heading;  // of the statement that is run: how many columns it has to give

template <class T, std::size_t kCount>
const T& Choose(const T (&values)[kCount]) {
  return values[script->Take<std::uint8_t>() % kCount];
}

SQLRETURN Result() {
  constexpr SQLRETURN kOdd[] = {
      SQL_SUCCESS_WITH_INFO, SQL_ERROR,     SQL_NO_DATA, SQL_INVALID_HANDLE,
      SQL_STILL_EXECUTING,   SQL_NEED_DATA, 77,          -3};
  if (script->IsEmpty()) return SQL_NO_DATA;
  return script->Take<std::uint8_t>() < 230 ? SQL_SUCCESS : Choose(kOdd);
}

// Null, which a driver manager refuses before the driver sees it, for what is no statement.
Statement* Find(SQLHSTMT handle) {
  const auto found = statements.find(handle);
  return found != statements.end() ? found->second.get() : nullptr;
}

// How many columns the heading of a dialect has, and how many parts the first of them.
std::size_t Count(char16_t mark, std::u16string_view text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), mark)) + 1;
}

std::u16string Text(SQLUSMALLINT column) {
  const auto kind = script->Take<std::uint8_t>();
  if (kind >= 250) return std::u16string(script->Take<std::uint16_t>() % 2000, u'x');
  if (kind >= 220) return script->TakeText(20);
  std::u16string text(kWords[kind % std::size(kWords)]);
  if (column == 1 && !heading.empty()) {
    const std::u16string_view first = std::u16string_view(heading).substr(0, heading.find(u','));
    for (std::size_t part = Count(u'|', first); part > 1; --part) (text += u'|') += Choose(kWords);
  }
  return text;
}

// Fills what the driver was given for a cell, and what it says of it, which may be something else.
void Answer(SQLUSMALLINT column, SQLSMALLINT type, char* buffer, SQLLEN bytes, SQLLEN* indicator) {
  if (buffer == nullptr || bytes <= 0) return;
  SQLLEN length = bytes;
  if (type == SQL_C_WCHAR || type == SQL_C_CHAR) {
    const std::u16string text = Text(column);
    const std::size_t unit = type == SQL_C_WCHAR ? 2 : 1;
    const std::size_t room = static_cast<std::size_t>(bytes) / unit;
    for (std::size_t i = 0; i < std::min(text.size() + 1, room); ++i) {
      if (unit == 2) {
        const char16_t character = i < text.size() ? text[i] : u'\0';
        std::memcpy(buffer + 2 * i, &character, 2);
      } else {
        buffer[i] = i < text.size() ? static_cast<char>(text[i]) : '\0';
      }
    }
    length = static_cast<SQLLEN>(text.size() * unit);
  } else {
    const auto number = script->Take<std::uint64_t>();
    std::memcpy(buffer, &number, static_cast<std::size_t>(std::min<SQLLEN>(bytes, sizeof number)));
  }
  if (indicator == nullptr) return;
  const auto said = script->Take<std::uint8_t>();
  if (said < 200) {
    *indicator = length;
  } else if (said < 230) {
    *indicator = SQL_NULL_DATA;
  } else if (said < 240) {
    *indicator = SQL_NO_TOTAL;
  } else {
    *indicator = script->Take<SQLLEN>();
  }
}

void FillRow(const Statement& statement, SQLULEN slot) {
  for (const auto& [number, column] : statement.columns) {
    if (column.buffer == nullptr) continue;
    Answer(number, column.type, column.buffer + static_cast<SQLLEN>(slot) * column.bytes,
           column.bytes, column.indicator != nullptr ? column.indicator + slot : nullptr);
  }
}

// Hears what a statement is meant to give, which its text alone does not tell.
struct Headings : platform::CallLog {
  void OnCallStart(const platform::DriverCall& call) override {
    if (std::string_view(call.function) != "SQLExecDirectW") return;
    heading.clear();
    for (const platform::DriverField& field : call.asked) {
      const auto* text = std::get_if<std::u16string_view>(&field.value);
      if (text != nullptr && std::string_view(field.name) == "heading") heading = *text;
    }
  }
  void OnCall(const platform::DriverCall& /*call*/) override {}
};

}  // namespace

namespace fuzz {

ScriptedDriver::ScriptedDriver(Input& input) {
  script = &input;
  platform::GetServices().call_log = std::make_shared<Headings>();
}

ScriptedDriver::~ScriptedDriver() {
  statements.clear();
  platform::GetServices().call_log = nullptr;
  script = nullptr;
}

}  // namespace fuzz

extern "C" {

SQLRETURN SQLAllocStmt(SQLHDBC, SQLHSTMT* statement) {
  const SQLRETURN result = Result();
  if (SQL_SUCCEEDED(result)) {
    auto made = std::make_unique<Statement>();
    *statement = made.get();
    statements.emplace(*statement, std::move(made));
  }
  return result;
}

SQLRETURN SQLFreeStmt(SQLHSTMT handle, SQLUSMALLINT option) {
  Statement* const statement = Find(handle);
  if (statement == nullptr) return SQL_INVALID_HANDLE;
  if (option == SQL_UNBIND) statement->columns.clear();
  const SQLRETURN result = script->IsEmpty() ? SQL_SUCCESS : Result();
  if (option == SQL_DROP && SQL_SUCCEEDED(result)) {
    statements.erase(handle);
  }
  return result;
}

SQLRETURN SQLSetStmtOption(SQLHSTMT handle, SQLUSMALLINT option, SQLULEN value) {
  Statement* const statement = Find(handle);
  if (statement == nullptr) return SQL_INVALID_HANDLE;
  const SQLRETURN result = Result();
  if (option == SQL_ROWSET_SIZE && SQL_SUCCEEDED(result)) statement->rowset = value;
  return result;
}

SQLRETURN SQLBindCol(SQLHSTMT handle, SQLUSMALLINT column, SQLSMALLINT type, SQLPOINTER buffer,
                     SQLLEN bytes, SQLLEN* indicator) {
  Statement* const statement = Find(handle);
  if (statement == nullptr) return SQL_INVALID_HANDLE;
  const SQLRETURN result = Result();
  if (SQL_SUCCEEDED(result)) {
    statement->columns[column] = {type, static_cast<char*>(buffer), bytes, indicator};
  }
  return result;
}

SQLRETURN SQLBindParameter(SQLHSTMT, SQLUSMALLINT, SQLSMALLINT, SQLSMALLINT, SQLSMALLINT, SQLULEN,
                           SQLSMALLINT, SQLPOINTER, SQLLEN, SQLLEN*) {
  return Result();
}

SQLRETURN SQLExecDirectW(SQLHSTMT, SQLWCHAR*, SQLINTEGER) { return Result(); }
SQLRETURN SQLTablesW(SQLHSTMT, SQLWCHAR*, SQLSMALLINT, SQLWCHAR*, SQLSMALLINT, SQLWCHAR*,
                     SQLSMALLINT, SQLWCHAR*, SQLSMALLINT) {
  return Result();
}
SQLRETURN SQLColumnsW(SQLHSTMT, SQLWCHAR*, SQLSMALLINT, SQLWCHAR*, SQLSMALLINT, SQLWCHAR*,
                      SQLSMALLINT, SQLWCHAR*, SQLSMALLINT) {
  return Result();
}
SQLRETURN SQLStatisticsW(SQLHSTMT, SQLWCHAR*, SQLSMALLINT, SQLWCHAR*, SQLSMALLINT, SQLWCHAR*,
                         SQLSMALLINT, SQLUSMALLINT, SQLUSMALLINT) {
  return Result();
}
SQLRETURN SQLPrimaryKeysW(SQLHSTMT, SQLWCHAR*, SQLSMALLINT, SQLWCHAR*, SQLSMALLINT, SQLWCHAR*,
                          SQLSMALLINT) {
  return Result();
}
SQLRETURN SQLForeignKeysW(SQLHSTMT, SQLWCHAR*, SQLSMALLINT, SQLWCHAR*, SQLSMALLINT, SQLWCHAR*,
                          SQLSMALLINT, SQLWCHAR*, SQLSMALLINT, SQLWCHAR*, SQLSMALLINT, SQLWCHAR*,
                          SQLSMALLINT) {
  return Result();
}
SQLRETURN SQLProceduresW(SQLHSTMT, SQLWCHAR*, SQLSMALLINT, SQLWCHAR*, SQLSMALLINT, SQLWCHAR*,
                         SQLSMALLINT) {
  return Result();
}
SQLRETURN SQLGetTypeInfoW(SQLHSTMT, SQLSMALLINT) { return Result(); }
SQLRETURN SQLCancel(SQLHSTMT) { return Result(); }

SQLRETURN SQLNumResultCols(SQLHSTMT, SQLSMALLINT* count) {
  const auto how = script->Take<std::uint8_t>();
  *count = how >= 240         ? script->Take<SQLSMALLINT>()
           : !heading.empty() ? static_cast<SQLSMALLINT>(Count(u',', heading))
                              : static_cast<SQLSMALLINT>(how % 40);
  return Result();
}

SQLRETURN SQLDescribeColW(SQLHSTMT, SQLUSMALLINT, SQLWCHAR* name, SQLSMALLINT room,
                          SQLSMALLINT* length, SQLSMALLINT* type, SQLULEN* size, SQLSMALLINT* scale,
                          SQLSMALLINT* nullable) {
  Answer(0, SQL_C_WCHAR, reinterpret_cast<char*>(name), room * SQLLEN{2}, nullptr);
  *length = script->Take<SQLSMALLINT>();
  constexpr SQLSMALLINT kTypes[] = {SQL_VARCHAR, SQL_INTEGER, SQL_LONGVARCHAR, SQL_WLONGVARCHAR};
  *type = Choose(kTypes);
  *size = script->Take<std::uint16_t>();
  *scale = *nullable = script->Take<SQLSMALLINT>();
  return Result();
}

SQLRETURN SQLFetch(SQLHSTMT handle) {
  const Statement* const statement = Find(handle);
  if (statement == nullptr) return SQL_INVALID_HANDLE;
  const SQLRETURN result = Result();
  if (SQL_SUCCEEDED(result)) FillRow(*statement, 0);
  return result;
}

SQLRETURN SQLExtendedFetch(SQLHSTMT handle, SQLUSMALLINT, SQLLEN, SQLULEN* rows,
                           SQLUSMALLINT* status) {
  const Statement* const found = Find(handle);
  if (found == nullptr) return SQL_INVALID_HANDLE;
  const Statement& statement = *found;
  const SQLRETURN result = Result();
  if (!SQL_SUCCEEDED(result)) return result;
  const auto how = script->Take<std::uint8_t>();
  *rows = how >= 240 ? script->Take<SQLULEN>() : how % (statement.rowset + 1);
  for (SQLULEN slot = 0; slot < statement.rowset && (how >= 240 || slot < *rows); ++slot) {
    const auto row = script->Take<std::uint8_t>();
    status[slot] = row < 230 ? SQL_ROW_SUCCESS : static_cast<SQLUSMALLINT>(row % 7);
    FillRow(statement, slot);
  }
  return result;
}

SQLRETURN SQLGetData(SQLHSTMT, SQLUSMALLINT column, SQLSMALLINT type, SQLPOINTER buffer,
                     SQLLEN bytes, SQLLEN* indicator) {
  Answer(column, type, static_cast<char*>(buffer), bytes, indicator);
  return Result();
}

SQLRETURN SQLGetInfoW(SQLHDBC, SQLUSMALLINT info, SQLPOINTER buffer, SQLSMALLINT bytes,
                      SQLSMALLINT* length) {
  if (info == SQL_DBMS_NAME || info == SQL_DBMS_VER) {
    const std::u16string_view text = info == SQL_DBMS_NAME ? Choose(kServers) : Choose(kVersions);
    const std::size_t room = static_cast<std::size_t>(bytes) / 2;
    const std::size_t taken = std::min(text.size(), room - 1);
    std::memcpy(buffer, text.data(), 2 * taken);
    std::memset(static_cast<char*>(buffer) + 2 * taken, 0, 2);
    if (length != nullptr) *length = static_cast<SQLSMALLINT>(2 * text.size());
    return SQL_SUCCESS;
  }
  Answer(0, bytes == 4 ? SQL_C_LONG : SQL_C_WCHAR, static_cast<char*>(buffer), bytes, nullptr);
  if (length != nullptr) *length = script->Take<SQLSMALLINT>();
  return Result();
}

SQLRETURN SQLGetFunctions(SQLHDBC, SQLUSMALLINT function, SQLUSMALLINT* there) {
  const std::size_t count = function == SQL_API_ALL_FUNCTIONS ? 100 : 1;
  for (std::size_t i = 0; i < count; ++i) there[i] = script->Take<std::uint8_t>() % 4 != 0 ? 1 : 0;
  return Result();
}

SQLRETURN SQLGetConnectOption(SQLHDBC, SQLUSMALLINT, SQLPOINTER value) {
  const SQLULEN number = script->Take<std::uint8_t>() % 3;
  std::memcpy(value, &number, sizeof number);
  return Result();
}
SQLRETURN SQLGetConnectAttr(SQLHDBC, SQLINTEGER, SQLPOINTER value, SQLINTEGER, SQLINTEGER*) {
  const SQLUINTEGER number = script->Take<std::uint8_t>() % 3;
  std::memcpy(value, &number, sizeof number);
  return Result();
}
SQLRETURN SQLGetEnvAttr(SQLHENV, SQLINTEGER, SQLPOINTER value, SQLINTEGER, SQLINTEGER*) {
  const SQLINTEGER number = script->Take<std::uint8_t>() % 4;
  std::memcpy(value, &number, sizeof number);
  return Result();
}

// A driver that fails for ever gives the same reason for ever; a state without an end, a text that
// fills its room.
SQLRETURN SQLErrorW(SQLHENV, SQLHDBC, SQLHSTMT, SQLWCHAR* state, SQLINTEGER* native,
                    SQLWCHAR* message, SQLSMALLINT room, SQLSMALLINT* length) {
  std::fill_n(state, 6, SQLWCHAR{script->Take<std::uint8_t>()});
  *native = script->Take<SQLINTEGER>();
  Answer(0, SQL_C_WCHAR, reinterpret_cast<char*>(message), room * SQLLEN{2}, nullptr);
  *length = script->Take<SQLSMALLINT>();
  return Result();
}

}  // extern "C"
