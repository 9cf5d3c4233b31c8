// The fetch layer: execute, describe, bind, fetch in rowsets, load the cells. Each step is done
// once for a statement; a step that fails drops the statement but not the marks of the steps before
// it, so an object that failed cannot run again.
#include "odbc/fetch.h"

#include <cxxabi.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <vector>

#include "odbc/driver.h"
#include "odbc/error_report.h"

namespace {

using odbc::OtherError;
using odbc::PostError;
using odbc::PostOtherError;

constexpr unsigned long kRowsetSize = 10;
constexpr SQLULEN kQueryTimeoutSeconds = 10;
constexpr SQLSMALLINT kNameCharacters = 30;
// A column's block has this many bytes per row, twice what the driver is told. The Informix driver
// needs them: see RowStride.
constexpr std::size_t kBlockBytesPerRow = 2048;
constexpr SQLLEN kBoundBytes = 1024;
constexpr std::size_t kMaxCellCharacters = kBoundBytes / sizeof(char16_t) - 1;
// A driver whose fetch fails for ever, or succeeds for ever without a row, is left after this many
// calls in a row.
constexpr int kMaxBarrenFetches = 100;

// The distance between the rows of a column's block in characters. The Informix driver places the
// rows of a column-wise bound rowset 2048 bytes apart, all others at the bound length.
std::size_t RowStride(int dbms_type) {
  return (dbms_type == dbmsInformix ? kBlockBytesPerRow : std::size_t{kBoundBytes}) /
         sizeof(char16_t);
}

// Drivers built for 32-bit indicators (mdbtools 1.0) write the lower half of a slot only, which
// leaves a negative number without its sign.
SQLLEN IndicatorValue(SQLLEN slot) {
  constexpr SQLLEN kSignBit = SQLLEN{1} << 31;
  constexpr SQLLEN kHalf = SQLLEN{1} << 32;
  return slot >= kSignBit && slot < kHalf ? slot - kHalf : slot;
}

// The length of a text that ends with its terminator or after `limit` characters. Four characters
// at a time, since catalogs of fixed-width names make this the longest walk of an import.
std::size_t TextLength(const char16_t* text, std::size_t limit) {
  constexpr std::uint64_t kOnes = 0x0001000100010001;
  constexpr std::uint64_t kHighBits = 0x8000800080008000;
  std::size_t length = 0;
  for (; length + 4 <= limit; length += 4) {
    std::uint64_t four;
    std::memcpy(&four, text + length, sizeof four);
    if (((four - kOnes) & ~four & kHighBits) != 0) break;  // one of them is zero
  }
  while (length < limit && text[length] != u'\0') ++length;
  return length;
}

// The text of a cell whose indicator is positive. The indicator counts bytes but limits characters,
// which never cuts a text that ends with its terminator; a text without one ends with its slot.
std::u16string_view CellText(const char16_t* slot, SQLLEN indicator) {
  const std::size_t limit = std::min(static_cast<std::size_t>(indicator), kMaxCellCharacters);
  return {slot, TextLength(slot, limit)};
}

struct FreeMemory {
  void operator()(void* memory) const { std::free(memory); }
};
template <class T>
using ZeroedArray = std::unique_ptr<T[], FreeMemory>;

// Zeroed memory that takes no room before it is touched. Null when there is none.
template <class T>
ZeroedArray<T> AllocateZeroed(std::size_t count) {
  return ZeroedArray<T>(static_cast<T*>(std::calloc(count, sizeof(T))));
}

// Where the driver puts one column of a rowset. A long column has no text block and is not bound.
struct ColumnBuffer {
  ZeroedArray<char16_t> text;
  ZeroedArray<SQLLEN> indicators;
};

}  // namespace

struct __attribute__((visibility("hidden"))) LcODBCFetch::State {
  SQLHENV henv;
  SQLHDBC hdbc;
  int dbms_type;
  std::u16string sql;
  unsigned long rowset_size;
  SQLULEN concurrency;
  SQLULEN cursor_type;

  odbc::Statement statement;
  bool executed = false;
  bool described = false;
  bool bound = false;
  std::uint16_t column_count = 65535;  // this value until described
  LcODBCRecordList columns;
  std::vector<ColumnBuffer> buffers;
  ZeroedArray<SQLUSMALLINT> row_status;
  std::vector<std::u16string_view> cells;  // of the row in hand
  int barren_fetches = 0;
  bool failed = false;

  std::array<SQLUSMALLINT, 100> functions{};
  bool extended_fetch_supported = false;
  bool positioned_update_supported = false;
  bool multiple_results_supported = false;

  State(SQLHENV environment, SQLHDBC connection, int type, const char16_t* text,
        unsigned long rowset, SQLULEN concurrency_option, SQLULEN cursor_option);
  ~State() { DropStatement(); }

  bool ExecuteCommand(int* has_results);
  bool DescribeResults();
  bool FetchData(LcODBCRecordList& rows, unsigned long max_rows);

  bool AllocateStatement();
  void SetFetchOptions();
  bool ExecuteFetch();
  bool DescribeColumns();
  bool AllocateBindSpaceAndLengths(std::size_t column);
  bool BindFetchResult();
  bool FetchRows(LcODBCRecordList& rows);
  OtherError loadRecords(LcODBCRecordList& rows, SQLULEN rows_fetched);
  bool LoadRow(LcODBCRecordList& rows, std::size_t row);
  void DropStatement();
  bool AskPositionedUpdate() const;
  void ShowError() {
    failed = true;
    PostError(henv, hdbc, statement.Get());
  }
  void ShowOtherError(OtherError error) {
    failed = true;
    PostOtherError(error);
  }
  template <class Operation>
  int Guarded(Operation operation);
};

// The boundary: no exception of the library or of a host's services goes past an operation, but for
// that of a service which ends its thread. Memory that runs out is told like any other failure.
template <class Operation>
int LcODBCFetch::State::Guarded(Operation operation) {
  const auto run = [this](const auto& what) {
    try {
      return what() ? 1 : 0;
    } catch (const abi::__forced_unwind&) {
      throw;
    } catch (const std::bad_alloc&) {
      failed = true;
      return -1;
    } catch (...) {
      failed = true;
      return 0;
    }
  };
  const int result = run(operation);
  if (result >= 0) return result;
  run([this] {
    ShowOtherError(OtherError::kNoMemory);
    return true;
  });
  return 0;
}

LcODBCFetch::State::State(SQLHENV environment, SQLHDBC connection, int type, const char16_t* text,
                          unsigned long rowset, SQLULEN concurrency_option, SQLULEN cursor_option)
    : henv(environment),
      hdbc(connection),
      dbms_type(type),
      sql(text != nullptr ? text : u""),
      rowset_size(std::max(rowset, 1UL)),
      concurrency(concurrency_option),
      cursor_type(cursor_option) {
  odbc::GetAllFunctions(hdbc, functions.data());
  extended_fetch_supported = functions[SQL_API_SQLEXTENDEDFETCH] != 0;
  positioned_update_supported = AskPositionedUpdate();
  multiple_results_supported = functions[SQL_API_SQLMORERESULTS] != 0;
}

bool LcODBCFetch::State::AskPositionedUpdate() const {
  if (functions[SQL_API_SQLSETPOS] == 0) return false;
  SQLUINTEGER operations = 0;
  return odbc::GetInfoMask(hdbc, SQL_POS_OPERATIONS, &operations) == SQL_SUCCESS &&
         (operations & SQL_POS_UPDATE) != 0;
}

bool LcODBCFetch::State::ExecuteCommand(int* has_results) {
  if (executed) {
    ShowOtherError(OtherError::kCalledTwice);
    return false;
  }
  SQLSMALLINT count = 0;
  const bool done = ExecuteFetch();
  if (done) statement.NumResultCols(&count);
  if (has_results != nullptr) *has_results = count > 0 ? 1 : 0;
  return done;
}

bool LcODBCFetch::State::DescribeResults() {
  if (described) {
    ShowOtherError(OtherError::kCalledTwice);
    return false;
  }
  return (executed || ExecuteFetch()) && DescribeColumns();
}

bool LcODBCFetch::State::FetchData(LcODBCRecordList& rows, unsigned long max_rows) {
  if (!executed && !ExecuteFetch()) return false;
  if ((!described && !DescribeColumns()) || (!bound && !BindFetchResult())) {
    DropStatement();
    return false;
  }
  // Required (fetch_test, faulty_server_test): an exact multiple gets one call more. A host that
  // pages by these numbers would lose its place if the rule were mended.
  unsigned long calls = 1;
  if (max_rows > rowset_size) {
    calls = max_rows / rowset_size + (max_rows % rowset_size == 0 ? 1 : 0);
  }
  bool more = true;
  while (more) {
    more = FetchRows(rows);
    if (max_rows != 0 && --calls == 0) break;
  }
  return more;
}

bool LcODBCFetch::State::AllocateStatement() {
  if (statement.Allocate(hdbc) != SQL_SUCCESS) {
    ShowError();
    return false;
  }
  SetFetchOptions();
  return true;
}

// Drivers refuse some of the options or take another value; both is fine.
void LcODBCFetch::State::SetFetchOptions() {
  statement.SetOption(SQL_QUERY_TIMEOUT, kQueryTimeoutSeconds);
  statement.SetOption(SQL_CURSOR_TYPE, cursor_type);
  statement.SetOption(SQL_CONCURRENCY, concurrency);
  // On SQLite and MariaDB a plain SQLFetch fills a whole rowset, whose rows after the first would
  // be lost.
  statement.SetOption(SQL_ROWSET_SIZE, extended_fetch_supported ? rowset_size : 1);
}

bool LcODBCFetch::State::ExecuteFetch() {
  if (!AllocateStatement()) return false;
  // Every other code counts as executed: SQL_NO_DATA comes from a text that changed no row.
  if (statement.ExecDirect(sql) == SQL_ERROR) {
    ShowError();
    DropStatement();
    return false;
  }
  executed = true;
  return true;
}

bool LcODBCFetch::State::DescribeColumns() {
  SQLSMALLINT count = 0;
  if (statement.NumResultCols(&count) != SQL_SUCCESS) {
    ShowError();
    return false;
  }
  column_count = static_cast<std::uint16_t>(std::max<SQLSMALLINT>(count, 0));
  described = true;
  for (std::uint16_t column = 1; column <= column_count; ++column) {
    std::array<char16_t, kNameCharacters> name{};
    SQLSMALLINT sql_type = 0;
    if (statement.DescribeCol(column, name.data(), kNameCharacters, &sql_type) != SQL_SUCCESS) {
      ShowError();
      break;
    }
    columns.AppendColumn(std::make_unique<LcODBCColumn>(name.data(), sql_type));
  }
  return true;
}

// The memory of one column. Columns get theirs as they are bound, so that a driver that claims
// thousands of columns is found out by its first refusal, not by the memory they would take.
bool LcODBCFetch::State::AllocateBindSpaceAndLengths(std::size_t column) {
  ColumnBuffer& buffer = buffers.emplace_back();
  buffer.indicators = AllocateZeroed<SQLLEN>(rowset_size);
  if (buffer.indicators == nullptr) return false;
  // A column whose description failed is not long.
  const LcODBCColumn* description = columns.GetColumn(static_cast<int>(column));
  if (description != nullptr && description->IsLong() != 0) return true;
  buffer.text = AllocateZeroed<char16_t>(rowset_size * (kBlockBytesPerRow / sizeof(char16_t)));
  return buffer.text != nullptr;
}

bool LcODBCFetch::State::BindFetchResult() {
  buffers.clear();
  row_status = AllocateZeroed<SQLUSMALLINT>(rowset_size);
  if (row_status == nullptr) {
    ShowOtherError(OtherError::kNoMemory);
    return false;
  }
  for (std::size_t column = 0; column < column_count; ++column) {
    if (!AllocateBindSpaceAndLengths(column)) {
      ShowOtherError(OtherError::kNoMemory);
      return false;
    }
    const ColumnBuffer& buffer = buffers.back();
    if (buffer.text == nullptr) continue;  // long: always reads as empty
    if (statement.BindCol(static_cast<SQLUSMALLINT>(column + 1), SQL_C_WCHAR, buffer.text.get(),
                          kBoundBytes, buffer.indicators.get(), kBlockBytesPerRow) != SQL_SUCCESS) {
      ShowError();
      return false;
    }
  }
  bound = true;
  return true;
}

// True: keep fetching. Failing calls are neither shown nor an end, up to a bound.
bool LcODBCFetch::State::FetchRows(LcODBCRecordList& rows) {
  SQLULEN rows_fetched = 0;
  SQLRETURN result;
  if (extended_fetch_supported) {
    result = statement.ExtendedFetch(&rows_fetched, row_status.get());
  } else {
    result = statement.Fetch();
    row_status[0] = SQL_ROW_SUCCESS;
    rows_fetched = 1;
  }
  if (result == SQL_NO_DATA_FOUND) return false;
  if (!odbc::Succeeded(result) || rows_fetched == 0) {
    failed = ++barren_fetches >= kMaxBarrenFetches;
    return !failed;
  }
  barren_fetches = 0;
  const OtherError error = loadRecords(rows, rows_fetched);
  if (error == OtherError::kNone) return true;
  ShowOtherError(error);
  return false;
}

OtherError LcODBCFetch::State::loadRecords(LcODBCRecordList& rows, SQLULEN rows_fetched) {
  try {
    const std::size_t count = std::min<std::size_t>(rows_fetched, rowset_size);
    for (std::size_t row = 0; row < count; ++row) {
      if (row_status[row] == SQL_ROW_DELETED) continue;
      if (row_status[row] == SQL_ROW_ERROR) return OtherError::kRowError;
      if (!LoadRow(rows, row)) return OtherError::kBadLength;
    }
    return OtherError::kNone;
  } catch (const std::bad_alloc&) {
    return OtherError::kNoMemory;
  }
}

// False, with no row added, when a length indicator is of no use, such as SQL_NO_TOTAL.
bool LcODBCFetch::State::LoadRow(LcODBCRecordList& rows, std::size_t row) {
  const std::size_t offset = row * RowStride(dbms_type);
  cells.clear();
  for (const ColumnBuffer& buffer : buffers) {
    const SQLLEN indicator = IndicatorValue(buffer.indicators[row]);
    if (indicator < SQL_NULL_DATA) return false;
    // The indicator alone tells a NULL: PostgreSQL and MariaDB leave the text of the row before.
    const bool has_text = indicator > 0 && buffer.text != nullptr;
    cells.push_back(has_text ? CellText(buffer.text.get() + offset, indicator)
                             : std::u16string_view());
  }
  rows.AddRow(cells);
  return true;
}

void LcODBCFetch::State::DropStatement() {
  if (!statement.IsAllocated()) return;
  statement.Close();
  statement.Unbind();
  statement.Drop();
}

LcODBCFetch::LcODBCFetch(const char16_t* sql, LcODBCRecordList& rows, void* henv, void* hdbc,
                         int dbms_type)
    : state_(std::make_unique<State>(henv, hdbc, dbms_type, sql, kRowsetSize, SQL_CONCUR_READ_ONLY,
                                     SQL_CURSOR_KEYSET_DRIVEN)) {
  if (!state_->extended_fetch_supported) state_->rowset_size = 1;
  int has_results = 0;
  ExecuteCommand(&has_results);
  if (has_results != 0) FetchData(rows, 0);
}

LcODBCFetch::LcODBCFetch(void* henv, void* hdbc, int dbms_type, const char16_t* sql,
                         unsigned long rowset_size, unsigned long concurrency,
                         unsigned long cursor_type)
    : state_(std::make_unique<State>(henv, hdbc, dbms_type, sql, rowset_size, concurrency,
                                     cursor_type)) {}

LcODBCFetch::~LcODBCFetch() = default;
const char* LcODBCFetch::GetRuntimeClass() const { return "LcODBCFetch"; }

int LcODBCFetch::ExecuteCommand(int* has_results) {
  return state_->Guarded([&] { return state_->ExecuteCommand(has_results); });
}
int LcODBCFetch::DescribeResults() {
  return state_->Guarded([&] { return state_->DescribeResults(); });
}
int LcODBCFetch::FetchData(LcODBCRecordList& rows, unsigned long max_rows) {
  return state_->Guarded([&] { return state_->FetchData(rows, max_rows); });
}
const LcODBCRecordList& LcODBCFetch::GetColumns() const { return state_->columns; }
int LcODBCFetch::HasFailed() const { return state_->failed ? 1 : 0; }
int LcODBCFetch::IsExtendedFetchSupported() const {
  return state_->extended_fetch_supported ? 1 : 0;
}
int LcODBCFetch::AreMultipleResultSetsSupported() const {
  return state_->multiple_results_supported ? 1 : 0;
}
int LcODBCFetch::IsPositionalUpdateThruAPISupported() const {
  return state_->positioned_update_supported ? 1 : 0;
}
