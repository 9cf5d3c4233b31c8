// Every call of the ODBC driver manager that the module makes.
#include "odbc/driver.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <span>
#include <utility>

#include "platform/platform.h"

namespace odbc {

using platform::DriverBuffer;
using platform::DriverCall;
using platform::DriverField;
using platform::DriverRows;

// SQLWCHAR is a 16-bit integer of another name than char16_t; texts are handed over as they lie.
static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));

namespace {

// Info texts arrive in a buffer of this many characters; half of it is offered to the driver, so
// that one which takes the size in bytes for characters stays inside.
constexpr std::size_t kInfoCharacters = 256;
constexpr std::size_t kMaxMessageCharacters = 1024;

// The one place that a driver call passes through. `report` adds what came back to the report of
// the call; it runs only where somebody listens.
template <class Report, class Function, class... Arguments>
SQLRETURN Call(const DriverCall& made, const Report& report, Function function,
               Arguments... arguments) {
  const auto& log = platform::GetServices().call_log;
  if (log != nullptr) log->OnCallStart(made);
  const SQLRETURN result = function(arguments...);
  if (log != nullptr) {
    DriverCall call = made;
    call.result = result;
    report(call);
    log->OnCall(call);
  }
  return result;
}

constexpr auto kNoAnswer = [](DriverCall&) {};

// Reports a fetch that is not made because its result has grown beyond the limits.
SQLRETURN Refuse(const char* function, SQLHSTMT handle) {
  DriverCall call = {.function = function, .handle = handle, .result = SQL_ERROR};
  call.refused = "the result has more rows or bytes than may be read of one";
  if (const auto& log = platform::GetServices().call_log; log != nullptr) {
    log->OnCallStart(call);
    log->OnCall(call);
  }
  return SQL_ERROR;
}

SQLWCHAR* Wide(char16_t* text) { return reinterpret_cast<SQLWCHAR*>(text); }

// The driver manager takes texts as non-const and does not change them.
SQLWCHAR* WideInput(const char16_t* text) {
  return reinterpret_cast<SQLWCHAR*>(const_cast<char16_t*>(text));
}

SQLSMALLINT LengthOf(const char16_t* text) { return text != nullptr ? SQL_NTS : 0; }

// The indicators of ODBC under the name that the reports have for their type.
static_assert(sizeof(SQLLEN) == sizeof(std::int64_t));
std::int64_t* Indicator(SQLLEN* indicator) { return reinterpret_cast<std::int64_t*>(indicator); }

using InfoText = std::array<char16_t, kInfoCharacters>;

SQLRETURN AskInfoText(SQLHDBC hdbc, SQLUSMALLINT info, InfoText& text) {
  SQLSMALLINT bytes = 0;
  const auto room = static_cast<SQLSMALLINT>(kInfoCharacters);
  const std::array asked = {DriverField{"info", info}, DriverField{"room", room}};
  std::array<DriverField, 2> answered{};
  const SQLRETURN result = Call(
      {.function = "SQLGetInfoW", .handle = hdbc, .on_statement = false, .asked = asked},
      [&](DriverCall& call) {
        text.back() = 0;
        answered = {DriverField{"text", text.data()}, DriverField{"bytes", bytes}};
        call.answered = answered;
      },
      SQLGetInfoW, hdbc, info, static_cast<SQLPOINTER>(text.data()), room, &bytes);
  text.back() = 0;
  return result;
}

// SQLFreeStmt with one of its options.
SQLRETURN FreeStatement(SQLHSTMT handle, SQLUSMALLINT option) {
  const std::array asked = {DriverField{"option", option}};
  return Call({.function = "SQLFreeStmt", .handle = handle, .asked = asked}, kNoAnswer, SQLFreeStmt,
              handle, option);
}

}  // namespace

std::u16string GetInfoText(SQLHDBC hdbc, SQLUSMALLINT info) {
  InfoText text{};
  // The return code does not matter: a failed call leaves the text empty.
  AskInfoText(hdbc, info, text);
  return text.data();
}

SQLRETURN GetInfoMask(SQLHDBC hdbc, SQLUSMALLINT info, SQLUINTEGER* mask) {
  *mask = 0;
  SQLSMALLINT bytes = 0;
  const auto room = static_cast<SQLSMALLINT>(sizeof *mask);
  const std::array asked = {DriverField{"info", info}, DriverField{"room", room}};
  std::array<DriverField, 2> answered{};
  return Call(
      {.function = "SQLGetInfoW", .handle = hdbc, .on_statement = false, .asked = asked},
      [&](DriverCall& call) {
        answered = {DriverField{"number", *mask}, DriverField{"bytes", bytes}};
        call.answered = answered;
      },
      SQLGetInfoW, hdbc, info, static_cast<SQLPOINTER>(mask), room, &bytes);
}

bool HasFunction(SQLHDBC hdbc, SQLUSMALLINT function) {
  SQLUSMALLINT there = 0;
  const std::array asked = {DriverField{"function", function}};
  std::array<DriverField, 1> answered{};
  const SQLRETURN result = Call(
      {.function = "SQLGetFunctions", .handle = hdbc, .on_statement = false, .asked = asked},
      [&](DriverCall& call) {
        answered = {DriverField{"supported", there}};
        call.answered = answered;
      },
      SQLGetFunctions, hdbc, function, &there);
  return Succeeded(result) && there != 0;
}

void GetAllFunctions(SQLHDBC hdbc, SQLUSMALLINT table[100]) {
  constexpr std::size_t kEntries = 100;
  constexpr SQLUSMALLINT kAll = SQL_API_ALL_FUNCTIONS;
  std::fill_n(table, kEntries, SQLUSMALLINT{0});
  const std::array asked = {DriverField{"function", kAll}};
  std::array<DriverField, 1> answered{};
  Call(
      {.function = "SQLGetFunctions", .handle = hdbc, .on_statement = false, .asked = asked},
      [&](DriverCall& call) {
        answered = {DriverField{"table", std::span<const std::uint16_t>(table, kEntries)}};
        call.answered = answered;
      },
      SQLGetFunctions, hdbc, kAll, table);
}

SQLULEN GetConnectOption(SQLHDBC hdbc, SQLUSMALLINT option, SQLULEN fallback) {
  SQLULEN value = 0;
  const std::array asked = {DriverField{"option", option}};
  std::array<DriverField, 1> answered{};
  const SQLRETURN result = Call(
      {.function = "SQLGetConnectOption", .handle = hdbc, .on_statement = false, .asked = asked},
      [&](DriverCall& call) {
        answered = {DriverField{"number", static_cast<std::int64_t>(value)}};
        call.answered = answered;
      },
      SQLGetConnectOption, hdbc, option, static_cast<SQLPOINTER>(&value));
  return Succeeded(result) ? value : fallback;
}

SQLINTEGER GetRequestedVersion(SQLHENV henv) {
  constexpr SQLINTEGER kAttribute = SQL_ATTR_ODBC_VERSION;
  SQLINTEGER version = 0;
  const std::array asked = {DriverField{"attribute", kAttribute}};
  std::array<DriverField, 1> answered{};
  const SQLRETURN result = Call(
      {.function = "SQLGetEnvAttr", .handle = henv, .on_statement = false, .asked = asked},
      [&](DriverCall& call) {
        answered = {DriverField{"number", version}};
        call.answered = answered;
      },
      SQLGetEnvAttr, henv, kAttribute, static_cast<SQLPOINTER>(&version), SQLINTEGER{0},
      static_cast<SQLINTEGER*>(nullptr));
  return Succeeded(result) ? version : 0;
}

bool IsOpen(SQLHDBC hdbc) {
  // The driver manager answers neither for a handle that is not connected; a driver that does not
  // know the second leaves the connection alive.
  InfoText name{};
  const SQLRETURN result = AskInfoText(hdbc, SQL_DRIVER_NAME, name);
  constexpr SQLINTEGER kAttribute = SQL_ATTR_CONNECTION_DEAD;
  SQLUINTEGER dead = SQL_CD_FALSE;
  const std::array asked = {DriverField{"attribute", kAttribute}};
  std::array<DriverField, 1> answered{};
  const SQLRETURN told = Call(
      {.function = "SQLGetConnectAttr", .handle = hdbc, .on_statement = false, .asked = asked},
      [&](DriverCall& call) {
        answered = {DriverField{"number", dead}};
        call.answered = answered;
      },
      SQLGetConnectAttr, hdbc, kAttribute, static_cast<SQLPOINTER>(&dead),
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
  const bool on_statement = hstmt != SQL_NULL_HSTMT;
  const SQLRETURN result = Call({.function = "SQLErrorW",
                                 .handle = on_statement ? hstmt : hdbc,
                                 .on_statement = on_statement},
                                kNoAnswer, SQLErrorW, henv, hdbc, hstmt, Wide(diagnostic->state),
                                &diagnostic->native_error, Wide(message.data()), room, &length);
  diagnostic->state[5] = 0;
  message[static_cast<std::size_t>(room)] = 0;
  if (!Succeeded(result)) return false;
  diagnostic->message = message.data();
  return true;
}

void ResultSize::Bind(SQLUSMALLINT column, const SQLLEN* indicator, SQLLEN bytes) {
  if (column >= cells_.size()) cells_.resize(column + std::size_t{1});
  cells_[column] = {indicator, bytes};
}

void ResultSize::AddRows(std::uint64_t rows) {
  rows_ += rows;
  for (const Cell& cell : cells_) {
    if (cell.indicator == nullptr) continue;
    // Drivers with indicators of 32 bits leave the rest as it was.
    const SQLLEN length = std::clamp<SQLLEN>(*cell.indicator, 0, cell.bytes);
    bytes_ += static_cast<std::uint64_t>(length) * rows;
  }
}

bool ResultSize::IsExceeded() const {
  const platform::ResultLimits& limits = platform::GetServices().result_limits;
  return (limits.rows != 0 && rows_ > limits.rows) || (limits.bytes != 0 && bytes_ > limits.bytes);
}

Statement::Statement(Statement&& other) noexcept
    : handle_(std::exchange(other.handle_, nullptr)), size_(std::move(other.size_)) {}

Statement& Statement::operator=(Statement&& other) noexcept {
  if (this != &other) {
    Drop();
    handle_ = std::exchange(other.handle_, nullptr);
    size_ = std::move(other.size_);
  }
  return *this;
}

SQLRETURN Statement::Allocate(SQLHDBC hdbc) {
  Drop();
  SQLHSTMT handle = SQL_NULL_HSTMT;
  const SQLRETURN result = Call(
      {.function = "SQLAllocStmt", .handle = hdbc, .on_statement = false},
      [&](DriverCall& call) { call.made = handle; }, SQLAllocStmt, hdbc, &handle);
  if (Succeeded(result)) handle_ = handle;
  return result;
}

SQLRETURN Statement::SetOption(SQLUSMALLINT option, SQLULEN value) {
  const std::array asked = {DriverField{"option", option},
                            DriverField{"value", static_cast<std::int64_t>(value)}};
  return Call({.function = "SQLSetStmtOption", .handle = handle_, .asked = asked}, kNoAnswer,
              SQLSetStmtOption, handle_, option, value);
}

SQLRETURN Statement::ExecDirect(const std::u16string& sql, std::u16string_view heading) {
  size_.Restart();
  const std::array fields = {DriverField{"heading", heading},
                             DriverField{"sql", std::u16string_view(sql)}};
  const std::span asked = std::span(fields).subspan(heading.empty() ? 1 : 0);
  return Call({.function = "SQLExecDirectW", .handle = handle_, .asked = asked}, kNoAnswer,
              SQLExecDirectW, handle_, WideInput(sql.c_str()), static_cast<SQLINTEGER>(sql.size()));
}

SQLRETURN Statement::Tables(const char16_t* catalog, const char16_t* owner, const char16_t* table,
                            const char16_t* types) {
  size_.Restart();
  const std::array asked = {DriverField{"catalog", catalog}, DriverField{"owner", owner},
                            DriverField{"table", table}, DriverField{"types", types}};
  return Call({.function = "SQLTablesW", .handle = handle_, .asked = asked}, kNoAnswer, SQLTablesW,
              handle_, WideInput(catalog), LengthOf(catalog), WideInput(owner), LengthOf(owner),
              WideInput(table), LengthOf(table), WideInput(types), LengthOf(types));
}

SQLRETURN Statement::Columns(const char16_t* catalog, const char16_t* owner, const char16_t* table,
                             const char16_t* column) {
  size_.Restart();
  const std::array asked = {DriverField{"catalog", catalog}, DriverField{"owner", owner},
                            DriverField{"table", table}, DriverField{"column", column}};
  return Call({.function = "SQLColumnsW", .handle = handle_, .asked = asked}, kNoAnswer,
              SQLColumnsW, handle_, WideInput(catalog), LengthOf(catalog), WideInput(owner),
              LengthOf(owner), WideInput(table), LengthOf(table), WideInput(column),
              LengthOf(column));
}

SQLRETURN Statement::Statistics(const char16_t* catalog, const char16_t* owner,
                                const char16_t* table, SQLUSMALLINT unique, SQLUSMALLINT accuracy) {
  size_.Restart();
  const std::array asked = {DriverField{"catalog", catalog}, DriverField{"owner", owner},
                            DriverField{"table", table}, DriverField{"unique", unique},
                            DriverField{"accuracy", accuracy}};
  return Call({.function = "SQLStatisticsW", .handle = handle_, .asked = asked}, kNoAnswer,
              SQLStatisticsW, handle_, WideInput(catalog), LengthOf(catalog), WideInput(owner),
              LengthOf(owner), WideInput(table), LengthOf(table), unique, accuracy);
}

SQLRETURN Statement::PrimaryKeys(const char16_t* catalog, const char16_t* owner,
                                 const char16_t* table) {
  size_.Restart();
  const std::array asked = {DriverField{"catalog", catalog}, DriverField{"owner", owner},
                            DriverField{"table", table}};
  return Call({.function = "SQLPrimaryKeysW", .handle = handle_, .asked = asked}, kNoAnswer,
              SQLPrimaryKeysW, handle_, WideInput(catalog), LengthOf(catalog), WideInput(owner),
              LengthOf(owner), WideInput(table), LengthOf(table));
}

SQLRETURN Statement::ForeignKeysTo(const char16_t* catalog, const char16_t* owner,
                                   const char16_t* table) {
  size_.Restart();
  constexpr const char16_t* kNone = nullptr;
  const std::array asked = {
      DriverField{"catalog", catalog},    DriverField{"owner", owner},
      DriverField{"table", table},        DriverField{"foreignCatalog", kNone},
      DriverField{"foreignOwner", kNone}, DriverField{"foreignTable", kNone}};
  return Call({.function = "SQLForeignKeysW", .handle = handle_, .asked = asked}, kNoAnswer,
              SQLForeignKeysW, handle_, WideInput(catalog), LengthOf(catalog), WideInput(owner),
              LengthOf(owner), WideInput(table), LengthOf(table), WideInput(kNone), LengthOf(kNone),
              WideInput(kNone), LengthOf(kNone), WideInput(kNone), LengthOf(kNone));
}

SQLRETURN Statement::Procedures(const char16_t* catalog, const char16_t* owner,
                                const char16_t* procedure) {
  size_.Restart();
  const std::array asked = {DriverField{"catalog", catalog}, DriverField{"owner", owner},
                            DriverField{"procedure", procedure}};
  return Call({.function = "SQLProceduresW", .handle = handle_, .asked = asked}, kNoAnswer,
              SQLProceduresW, handle_, WideInput(catalog), LengthOf(catalog), WideInput(owner),
              LengthOf(owner), WideInput(procedure), LengthOf(procedure));
}

SQLRETURN Statement::GetTypeInfo(SQLSMALLINT type) {
  size_.Restart();
  const std::array asked = {DriverField{"type", type}};
  return Call({.function = "SQLGetTypeInfoW", .handle = handle_, .asked = asked}, kNoAnswer,
              SQLGetTypeInfoW, handle_, type);
}

SQLRETURN Statement::NumResultCols(SQLSMALLINT* count) {
  *count = 0;
  std::array<DriverField, 1> answered{};
  return Call(
      {.function = "SQLNumResultCols", .handle = handle_},
      [&](DriverCall& call) {
        answered = {DriverField{"count", *count}};
        call.answered = answered;
      },
      SQLNumResultCols, handle_, count);
}

SQLRETURN Statement::DescribeCol(SQLUSMALLINT column, char16_t* name, SQLSMALLINT name_characters,
                                 SQLSMALLINT* sql_type) {
  std::fill_n(name, name_characters, char16_t{0});
  *sql_type = 0;
  SQLSMALLINT name_length = 0;
  SQLULEN size = 0;
  SQLSMALLINT scale = 0;
  SQLSMALLINT nullable = 0;
  const std::array asked = {DriverField{"column", column}, DriverField{"room", name_characters}};
  std::array<DriverField, 6> answered{};
  const SQLRETURN result = Call(
      {.function = "SQLDescribeColW", .handle = handle_, .asked = asked},
      [&](DriverCall& call) {
        name[name_characters - 1] = 0;
        answered = {
            DriverField{"name", name},      DriverField{"length", name_length},
            DriverField{"type", *sql_type}, DriverField{"size", static_cast<std::int64_t>(size)},
            DriverField{"scale", scale},    DriverField{"nullable", nullable}};
        call.answered = answered;
      },
      SQLDescribeColW, handle_, column, Wide(name), name_characters, &name_length, sql_type, &size,
      &scale, &nullable);
  name[name_characters - 1] = 0;
  return result;
}

SQLRETURN Statement::BindCol(SQLUSMALLINT column, SQLSMALLINT c_type, void* buffer, SQLLEN bytes,
                             SQLLEN* indicator, SQLLEN row_bytes) {
  const DriverBuffer bound = {.number = column,
                              .c_type = c_type,
                              .data = buffer,
                              .bytes = bytes,
                              .indicator = Indicator(indicator),
                              .row_bytes = std::max(bytes, row_bytes)};
  size_.Bind(column, buffer != nullptr ? indicator : nullptr, bytes);
  return Call({.function = "SQLBindCol", .handle = handle_, .buffer = &bound}, kNoAnswer,
              SQLBindCol, handle_, column, c_type, buffer, bytes, indicator);
}

SQLRETURN Statement::BindParameter(SQLUSMALLINT number, SQLSMALLINT c_type, SQLSMALLINT sql_type,
                                   SQLULEN size, const void* buffer, SQLLEN bytes,
                                   SQLLEN* indicator) {
  // The value is an input; only the interface says otherwise.
  void* const value = const_cast<void*>(buffer);
  const DriverBuffer bound = {.number = number,
                              .c_type = c_type,
                              .data = value,
                              .bytes = bytes,
                              .indicator = Indicator(indicator),
                              .row_bytes = bytes};
  const std::array asked = {DriverField{"sqlType", sql_type},
                            DriverField{"size", static_cast<std::int64_t>(size)}};
  return Call({.function = "SQLBindParameter", .handle = handle_, .asked = asked, .buffer = &bound},
              kNoAnswer, SQLBindParameter, handle_, number,
              static_cast<SQLSMALLINT>(SQL_PARAM_INPUT), c_type, sql_type, size, SQLSMALLINT{0},
              value, bytes, indicator);
}

SQLRETURN Statement::GetData(SQLUSMALLINT column, SQLSMALLINT c_type, void* buffer, SQLLEN bytes,
                             SQLLEN* indicator) {
  *indicator = 0;
  const DriverBuffer piece = {.number = column,
                              .c_type = c_type,
                              .data = buffer,
                              .bytes = bytes,
                              .indicator = Indicator(indicator),
                              .row_bytes = bytes};
  if (size_.IsExceeded()) return Refuse("SQLGetData", handle_);
  const SQLRETURN result =
      Call({.function = "SQLGetData", .handle = handle_, .buffer = &piece}, kNoAnswer, SQLGetData,
           handle_, column, c_type, buffer, bytes, indicator);
  // Without a length the piece was filled.
  if (Succeeded(result)) size_.AddBytes(*indicator >= 0 ? std::min(*indicator, bytes) : bytes);
  return result;
}

SQLRETURN Statement::Fetch() {
  constexpr DriverRows kOneRow = {.count = 1, .status = nullptr};
  if (size_.IsExceeded()) return Refuse("SQLFetch", handle_);
  const SQLRETURN result = Call({.function = "SQLFetch", .handle = handle_, .rows = &kOneRow},
                                kNoAnswer, SQLFetch, handle_);
  if (Succeeded(result)) size_.AddRows(1);
  return result;
}

SQLRETURN Statement::ExtendedFetch(SQLULEN* rows, SQLUSMALLINT* row_status) {
  *rows = 0;
  if (size_.IsExceeded()) return Refuse("SQLExtendedFetch", handle_);
  DriverRows fetched = {.count = 0, .status = row_status};
  const SQLRETURN result = Call(
      {.function = "SQLExtendedFetch", .handle = handle_, .rows = &fetched},
      [&](DriverCall&) { fetched.count = *rows; }, SQLExtendedFetch, handle_,
      static_cast<SQLUSMALLINT>(SQL_FETCH_NEXT), SQLLEN{1}, rows, row_status);
  if (Succeeded(result)) size_.AddRows(*rows);
  return result;
}

SQLRETURN Statement::Cancel() {
  return Call({.function = "SQLCancel", .handle = handle_}, kNoAnswer, SQLCancel, handle_);
}

SQLRETURN Statement::Close() {
  size_.Restart();
  return FreeStatement(handle_, SQL_CLOSE);
}

SQLRETURN Statement::Unbind() {
  size_.Unbind();
  return FreeStatement(handle_, SQL_UNBIND);
}

void Statement::Drop() {
  size_ = {};
  if (handle_ == SQL_NULL_HSTMT) return;
  const auto drop = [this] { return FreeStatement(handle_, SQL_DROP); };
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
