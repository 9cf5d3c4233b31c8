// Every call of the ODBC driver manager that the module makes.
#include "odbc/driver.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "platform/platform.h"

namespace odbc {

// SQLWCHAR is a 16-bit integer of another name than char16_t; texts are handed over as they lie.
static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));

namespace {

// Info texts arrive in a buffer of this many characters; half of it is offered to the driver, so
// that one which takes the size in bytes for characters stays inside.
constexpr std::size_t kInfoCharacters = 256;
constexpr std::size_t kMaxMessageCharacters = 1024;

// The one place that a driver call passes through.
template <class Function, class... Arguments>
SQLRETURN Call(const char* name, SQLHANDLE handle, Function function, Arguments... arguments) {
  const SQLRETURN result = function(arguments...);
  if (const auto& log = platform::GetServices().call_log; log != nullptr) {
    log->OnCall(name, handle, result);
  }
  return result;
}

SQLWCHAR* Wide(char16_t* text) { return reinterpret_cast<SQLWCHAR*>(text); }

// The driver manager takes texts as non-const and does not change them.
SQLWCHAR* WideInput(const char16_t* text) {
  return reinterpret_cast<SQLWCHAR*>(const_cast<char16_t*>(text));
}

SQLSMALLINT LengthOf(const char16_t* text) { return text != nullptr ? SQL_NTS : 0; }

}  // namespace

std::u16string GetInfoText(SQLHDBC hdbc, SQLUSMALLINT info) {
  std::array<char16_t, kInfoCharacters> text{};
  SQLSMALLINT bytes = 0;
  // The return code does not matter: a failed call leaves the text empty.
  Call("SQLGetInfoW", hdbc, SQLGetInfoW, hdbc, info, static_cast<SQLPOINTER>(text.data()),
       static_cast<SQLSMALLINT>(kInfoCharacters), &bytes);
  text.back() = 0;
  return text.data();
}

SQLRETURN GetInfoMask(SQLHDBC hdbc, SQLUSMALLINT info, SQLUINTEGER* mask) {
  *mask = 0;
  SQLSMALLINT bytes = 0;
  return Call("SQLGetInfoW", hdbc, SQLGetInfoW, hdbc, info, static_cast<SQLPOINTER>(mask),
              static_cast<SQLSMALLINT>(sizeof *mask), &bytes);
}

bool HasFunction(SQLHDBC hdbc, SQLUSMALLINT function) {
  SQLUSMALLINT there = 0;
  const SQLRETURN result = Call("SQLGetFunctions", hdbc, SQLGetFunctions, hdbc, function, &there);
  return Succeeded(result) && there != 0;
}

void GetAllFunctions(SQLHDBC hdbc, SQLUSMALLINT table[100]) {
  std::fill_n(table, 100, SQLUSMALLINT{0});
  Call("SQLGetFunctions", hdbc, SQLGetFunctions, hdbc,
       static_cast<SQLUSMALLINT>(SQL_API_ALL_FUNCTIONS), table);
}

SQLULEN GetConnectOption(SQLHDBC hdbc, SQLUSMALLINT option, SQLULEN fallback) {
  SQLULEN value = 0;
  const SQLRETURN result = Call("SQLGetConnectOption", hdbc, SQLGetConnectOption, hdbc, option,
                                static_cast<SQLPOINTER>(&value));
  return Succeeded(result) ? value : fallback;
}

SQLINTEGER GetRequestedVersion(SQLHENV henv) {
  SQLINTEGER version = 0;
  const SQLRETURN result =
      Call("SQLGetEnvAttr", henv, SQLGetEnvAttr, henv, SQLINTEGER{SQL_ATTR_ODBC_VERSION},
           static_cast<SQLPOINTER>(&version), SQLINTEGER{0}, static_cast<SQLINTEGER*>(nullptr));
  return Succeeded(result) ? version : 0;
}

bool IsOpen(SQLHDBC hdbc) {
  // The driver manager answers neither for a handle that is not connected; a driver that does not
  // know the second leaves the connection alive.
  std::array<char16_t, kInfoCharacters> name{};
  SQLSMALLINT bytes = 0;
  const SQLRETURN result =
      Call("SQLGetInfoW", hdbc, SQLGetInfoW, hdbc, static_cast<SQLUSMALLINT>(SQL_DRIVER_NAME),
           static_cast<SQLPOINTER>(name.data()), static_cast<SQLSMALLINT>(kInfoCharacters), &bytes);
  SQLUINTEGER dead = SQL_CD_FALSE;
  const SQLRETURN told = Call("SQLGetConnectAttr", hdbc, SQLGetConnectAttr, hdbc,
                              SQLINTEGER{SQL_ATTR_CONNECTION_DEAD}, static_cast<SQLPOINTER>(&dead),
                              SQLINTEGER{SQL_IS_UINTEGER}, static_cast<SQLINTEGER*>(nullptr));
  return Succeeded(result) && !(Succeeded(told) && dead == SQL_CD_TRUE);
}

bool TakeDiagnostic(SQLHENV henv, SQLHDBC hdbc, SQLHSTMT hstmt, Diagnostic* diagnostic,
                    SQLSMALLINT max_characters) {
  std::array<char16_t, kMaxMessageCharacters + 1> message{};
  const auto room =
      static_cast<SQLSMALLINT>(std::clamp<int>(max_characters, 1, kMaxMessageCharacters));
  SQLSMALLINT length = 0;
  *diagnostic = Diagnostic{};
  const SQLRETURN result =
      Call("SQLErrorW", hstmt != SQL_NULL_HSTMT ? hstmt : hdbc, SQLErrorW, henv, hdbc, hstmt,
           Wide(diagnostic->state), &diagnostic->native_error, Wide(message.data()), room, &length);
  diagnostic->state[5] = 0;
  message[static_cast<std::size_t>(room)] = 0;
  if (!Succeeded(result)) return false;
  diagnostic->message = message.data();
  return true;
}

Statement::Statement(Statement&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}

Statement& Statement::operator=(Statement&& other) noexcept {
  if (this != &other) {
    Drop();
    handle_ = std::exchange(other.handle_, nullptr);
  }
  return *this;
}

SQLRETURN Statement::Allocate(SQLHDBC hdbc) {
  Drop();
  SQLHSTMT handle = SQL_NULL_HSTMT;
  const SQLRETURN result = Call("SQLAllocStmt", hdbc, SQLAllocStmt, hdbc, &handle);
  if (Succeeded(result)) handle_ = handle;
  return result;
}

SQLRETURN Statement::SetOption(SQLUSMALLINT option, SQLULEN value) {
  return Call("SQLSetStmtOption", handle_, SQLSetStmtOption, handle_, option, value);
}

SQLRETURN Statement::ExecDirect(const std::u16string& sql) {
  return Call("SQLExecDirectW", handle_, SQLExecDirectW, handle_, WideInput(sql.c_str()),
              static_cast<SQLINTEGER>(sql.size()));
}

SQLRETURN Statement::Tables(const char16_t* catalog, const char16_t* owner, const char16_t* table,
                            const char16_t* types) {
  return Call("SQLTablesW", handle_, SQLTablesW, handle_, WideInput(catalog), LengthOf(catalog),
              WideInput(owner), LengthOf(owner), WideInput(table), LengthOf(table),
              WideInput(types), LengthOf(types));
}

SQLRETURN Statement::Columns(const char16_t* catalog, const char16_t* owner, const char16_t* table,
                             const char16_t* column) {
  return Call("SQLColumnsW", handle_, SQLColumnsW, handle_, WideInput(catalog), LengthOf(catalog),
              WideInput(owner), LengthOf(owner), WideInput(table), LengthOf(table),
              WideInput(column), LengthOf(column));
}

SQLRETURN Statement::Statistics(const char16_t* catalog, const char16_t* owner,
                                const char16_t* table, SQLUSMALLINT unique, SQLUSMALLINT accuracy) {
  return Call("SQLStatisticsW", handle_, SQLStatisticsW, handle_, WideInput(catalog),
              LengthOf(catalog), WideInput(owner), LengthOf(owner), WideInput(table),
              LengthOf(table), unique, accuracy);
}

SQLRETURN Statement::PrimaryKeys(const char16_t* catalog, const char16_t* owner,
                                 const char16_t* table) {
  return Call("SQLPrimaryKeysW", handle_, SQLPrimaryKeysW, handle_, WideInput(catalog),
              LengthOf(catalog), WideInput(owner), LengthOf(owner), WideInput(table),
              LengthOf(table));
}

SQLRETURN Statement::ForeignKeysTo(const char16_t* catalog, const char16_t* owner,
                                   const char16_t* table) {
  return Call("SQLForeignKeysW", handle_, SQLForeignKeysW, handle_, WideInput(catalog),
              LengthOf(catalog), WideInput(owner), LengthOf(owner), WideInput(table),
              LengthOf(table), WideInput(nullptr), LengthOf(nullptr), WideInput(nullptr),
              LengthOf(nullptr), WideInput(nullptr), LengthOf(nullptr));
}

SQLRETURN Statement::Procedures(const char16_t* catalog, const char16_t* owner,
                                const char16_t* procedure) {
  return Call("SQLProceduresW", handle_, SQLProceduresW, handle_, WideInput(catalog),
              LengthOf(catalog), WideInput(owner), LengthOf(owner), WideInput(procedure),
              LengthOf(procedure));
}

SQLRETURN Statement::GetTypeInfo(SQLSMALLINT type) {
  return Call("SQLGetTypeInfoW", handle_, SQLGetTypeInfoW, handle_, type);
}

SQLRETURN Statement::NumResultCols(SQLSMALLINT* count) {
  *count = 0;
  return Call("SQLNumResultCols", handle_, SQLNumResultCols, handle_, count);
}

SQLRETURN Statement::DescribeCol(SQLUSMALLINT column, char16_t* name, SQLSMALLINT name_characters,
                                 SQLSMALLINT* sql_type) {
  std::fill_n(name, name_characters, char16_t{0});
  *sql_type = 0;
  SQLSMALLINT name_length = 0;
  SQLULEN size = 0;
  SQLSMALLINT scale = 0;
  SQLSMALLINT nullable = 0;
  const SQLRETURN result =
      Call("SQLDescribeColW", handle_, SQLDescribeColW, handle_, column, Wide(name),
           name_characters, &name_length, sql_type, &size, &scale, &nullable);
  name[name_characters - 1] = 0;
  return result;
}

SQLRETURN Statement::BindCol(SQLUSMALLINT column, SQLSMALLINT c_type, void* buffer, SQLLEN bytes,
                             SQLLEN* indicator) {
  return Call("SQLBindCol", handle_, SQLBindCol, handle_, column, c_type, buffer, bytes, indicator);
}

SQLRETURN Statement::BindParameter(SQLUSMALLINT number, SQLSMALLINT c_type, SQLSMALLINT sql_type,
                                   SQLULEN size, const void* buffer, SQLLEN bytes,
                                   SQLLEN* indicator) {
  // The value is an input; only the interface says otherwise.
  return Call("SQLBindParameter", handle_, SQLBindParameter, handle_, number,
              static_cast<SQLSMALLINT>(SQL_PARAM_INPUT), c_type, sql_type, size, SQLSMALLINT{0},
              const_cast<void*>(buffer), bytes, indicator);
}

SQLRETURN Statement::GetData(SQLUSMALLINT column, SQLSMALLINT c_type, void* buffer, SQLLEN bytes,
                             SQLLEN* indicator) {
  *indicator = 0;
  return Call("SQLGetData", handle_, SQLGetData, handle_, column, c_type, buffer, bytes, indicator);
}

SQLRETURN Statement::Fetch() { return Call("SQLFetch", handle_, SQLFetch, handle_); }

SQLRETURN Statement::ExtendedFetch(SQLULEN* rows, SQLUSMALLINT* row_status) {
  *rows = 0;
  return Call("SQLExtendedFetch", handle_, SQLExtendedFetch, handle_,
              static_cast<SQLUSMALLINT>(SQL_FETCH_NEXT), SQLLEN{1}, rows, row_status);
}

SQLRETURN Statement::Cancel() { return Call("SQLCancel", handle_, SQLCancel, handle_); }

SQLRETURN Statement::Close() {
  return Call("SQLFreeStmt", handle_, SQLFreeStmt, handle_, static_cast<SQLUSMALLINT>(SQL_CLOSE));
}

SQLRETURN Statement::Unbind() {
  return Call("SQLFreeStmt", handle_, SQLFreeStmt, handle_, static_cast<SQLUSMALLINT>(SQL_UNBIND));
}

void Statement::Drop() {
  if (handle_ == SQL_NULL_HSTMT) return;
  const auto drop = [this] {
    return Call("SQLFreeStmt", handle_, SQLFreeStmt, handle_, static_cast<SQLUSMALLINT>(SQL_DROP));
  };
  // A statement that is in the middle of something refuses to go; SQLite's connection then cannot
  // be closed. Ending what it does makes it go.
  if (!Succeeded(drop())) {
    Cancel();
    Close();
    drop();
  }
  handle_ = SQL_NULL_HSTMT;
}

}  // namespace odbc
