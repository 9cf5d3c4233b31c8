// The fetch layer under a driver that answers anything: wrong return codes, any number of columns,
// any types, row counts beyond the rowset, indicators that lie, cells without terminators.
//
// The program defines the ODBC functions itself, so the module's calls come here and not to a
// driver manager. What it writes stays inside the buffers that it was given: a driver that writes
// beyond them is past help.
#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>

#include "fuzz/input.h"
#include "odbc/fetch.h"
#include "platform/platform.h"

namespace {

struct Binding {
  char* text;
  SQLLEN bytes;
  SQLLEN* indicators;
};

fuzz::Input* g_input = nullptr;
std::map<SQLUSMALLINT, Binding> g_bindings;
SQLULEN g_rowset = 1;
int g_open_statements = 0;
bool g_refused_drop = false;
int g_calls_left = 0;

SQLRETURN AnyCode() {
  static constexpr SQLRETURN kCodes[] = {SQL_SUCCESS,
                                         SQL_SUCCESS,
                                         SQL_SUCCESS,
                                         SQL_SUCCESS_WITH_INFO,
                                         SQL_NO_DATA,
                                         SQL_ERROR,
                                         SQL_INVALID_HANDLE,
                                         99,
                                         -7,
                                         2};
  if (g_input->IsEmpty() || --g_calls_left < 0) return SQL_NO_DATA;
  return kCodes[g_input->Take<std::uint8_t>() % 10];
}

SQLRETURN AnyRow(SQLULEN row) {
  for (auto& [column, binding] : g_bindings) {
    static constexpr SQLLEN kLengths[] = {0, -1, -4, 2, 10, 1022, 1024, 5000, -100, 1LL << 40};
    const auto choice = g_input->Take<std::uint8_t>();
    // Some drivers write the lower half of the slot only.
    if ((choice & 0x80) != 0) {
      const auto half = static_cast<std::int32_t>(kLengths[choice % 10]);
      std::memcpy(&binding.indicators[row], &half, sizeof half);
    } else {
      binding.indicators[row] = kLengths[choice % 10];
    }
    if (binding.text != nullptr) {
      char* cell = binding.text + row * static_cast<SQLULEN>(binding.bytes);
      const auto fill = g_input->Take<std::uint8_t>();
      std::memset(cell, fill, static_cast<std::size_t>(binding.bytes));  // often without terminator
    }
  }
  return SQL_SUCCESS;
}

class SilentBox : public platform::MessageBox {
 public:
  void Show(const std::u16string& /*text*/, int /*help_context*/) override {}
};

}  // namespace

extern "C" {

SQLRETURN SQL_API SQLGetFunctions(SQLHDBC, SQLUSMALLINT function, SQLUSMALLINT* supported) {
  const int count = function == SQL_API_ALL_FUNCTIONS ? 100 : 1;
  for (int i = 0; i < count; ++i) supported[i] = g_input->Take<std::uint8_t>() % 4 != 0;
  return SQL_SUCCESS;
}
SQLRETURN SQL_API SQLGetInfoW(SQLHDBC, SQLUSMALLINT, SQLPOINTER value, SQLSMALLINT bytes,
                              SQLSMALLINT* length) {
  for (SQLSMALLINT i = 0; i < bytes; ++i) {
    static_cast<char*>(value)[i] = g_input->Take<char>();
  }
  if (length != nullptr) *length = g_input->Take<SQLSMALLINT>();
  return AnyCode();
}
SQLRETURN SQL_API SQLAllocStmt(SQLHDBC, SQLHSTMT* statement) {
  if (g_input->Take<std::uint8_t>() % 16 == 15) return SQL_ERROR;
  ++g_open_statements;
  *statement = &g_open_statements;
  return SQL_SUCCESS;
}
SQLRETURN SQL_API SQLFreeStmt(SQLHSTMT, SQLUSMALLINT option) {
  if (option != SQL_CLOSE) g_bindings.clear();
  if (option != SQL_DROP) return AnyCode();
  // A busy statement refuses to go once, as SQLite's does.
  if (!g_refused_drop && g_input->Take<std::uint8_t>() % 4 == 3) {
    g_refused_drop = true;
    return SQL_ERROR;
  }
  g_refused_drop = false;
  --g_open_statements;
  return SQL_SUCCESS;
}
SQLRETURN SQL_API SQLSetStmtOption(SQLHSTMT, SQLUSMALLINT option, SQLULEN value) {
  if (option == SQL_ROWSET_SIZE) g_rowset = value;
  return AnyCode();
}
SQLRETURN SQL_API SQLExecDirectW(SQLHSTMT, SQLWCHAR*, SQLINTEGER) { return AnyCode(); }
SQLRETURN SQL_API SQLNumResultCols(SQLHSTMT, SQLSMALLINT* count) {
  static constexpr SQLSMALLINT kCounts[] = {1, 2, 3, 9, 35, 0, -1, 300};
  *count = kCounts[g_input->Take<std::uint8_t>() % 8];
  return AnyCode();
}
SQLRETURN SQL_API SQLDescribeColW(SQLHSTMT, SQLUSMALLINT, SQLWCHAR* name, SQLSMALLINT characters,
                                  SQLSMALLINT* length, SQLSMALLINT* type, SQLULEN* size,
                                  SQLSMALLINT* scale, SQLSMALLINT* nullable) {
  for (SQLSMALLINT i = 0; i < characters; ++i) name[i] = g_input->Take<SQLWCHAR>();
  name[characters - 1] = 0;  // a name without an end is not a thing that any driver sends
  if (length != nullptr) *length = g_input->Take<SQLSMALLINT>();
  if (type != nullptr) *type = static_cast<SQLSMALLINT>(g_input->Take<std::uint8_t>() % 24 - 11);
  if (size != nullptr) *size = g_input->Take<std::uint16_t>();
  if (scale != nullptr) *scale = g_input->Take<SQLSMALLINT>();
  if (nullable != nullptr) *nullable = 1;
  return AnyCode();
}
SQLRETURN SQL_API SQLBindCol(SQLHSTMT, SQLUSMALLINT column, SQLSMALLINT, SQLPOINTER buffer,
                             SQLLEN bytes, SQLLEN* indicators) {
  g_bindings[column] = {static_cast<char*>(buffer), bytes, indicators};
  return g_input->Take<std::uint8_t>() % 32 == 31 ? SQL_ERROR : SQL_SUCCESS;
}
SQLRETURN SQL_API SQLCancel(SQLHSTMT) { return AnyCode(); }
SQLRETURN SQL_API SQLFetch(SQLHSTMT) {
  const SQLRETURN code = AnyCode();
  if (SQL_SUCCEEDED(code)) AnyRow(0);
  return code;
}
SQLRETURN SQL_API SQLExtendedFetch(SQLHSTMT, SQLUSMALLINT, SQLLEN, SQLULEN* fetched,
                                   SQLUSMALLINT* status) {
  const SQLRETURN code = AnyCode();
  if (!SQL_SUCCEEDED(code)) return code;
  for (SQLULEN row = 0; row < g_rowset; ++row) {
    AnyRow(row);
    status[row] = g_input->Take<std::uint8_t>() % 8;
  }
  static constexpr SQLULEN kFetched[] = {1, 10, 3, 0, 11, 100000, ~SQLULEN{0}};
  *fetched = kFetched[g_input->Take<std::uint8_t>() % 7];
  return code;
}
SQLRETURN SQL_API SQLErrorW(SQLHENV, SQLHDBC, SQLHSTMT, SQLWCHAR* state, SQLINTEGER* native,
                            SQLWCHAR* message, SQLSMALLINT characters, SQLSMALLINT* length) {
  for (int i = 0; i < 6; ++i) state[i] = g_input->Take<SQLWCHAR>();
  if (native != nullptr) *native = g_input->Take<SQLINTEGER>();
  for (SQLSMALLINT i = 0; i < characters; ++i) message[i] = g_input->Take<SQLWCHAR>();
  if (length != nullptr) *length = g_input->Take<SQLSMALLINT>();
  return AnyCode();
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool quiet = [] {
    platform::GetServices().message_box = std::make_shared<SilentBox>();
    return true;
  }();
  static_cast<void>(quiet);
  fuzz::Input input(data, size);
  g_input = &input;
  g_bindings.clear();
  g_rowset = 1;
  g_open_statements = 0;
  g_refused_drop = false;
  g_calls_left = 2000;

  int handle = 0;
  LcODBCRecordList rows;
  const int dbms_type = input.Take<std::uint8_t>() % 10;
  { LcODBCFetch fetch(u"SELECT 1", rows, &handle, &handle, dbms_type); }
  {
    LcODBCFetch paged(&handle, &handle, dbms_type, u"SELECT 1", input.Take<std::uint8_t>() % 12,
                      SQL_CONCUR_READ_ONLY, SQL_CURSOR_STATIC);
    paged.DescribeResults();
    paged.FetchData(rows, input.Take<std::uint8_t>());
    paged.FetchData(rows, 0);
  }
  if (g_open_statements != 0) std::abort();
  // Every cell is readable, and nothing is readable beyond the last one.
  std::u16string cell;
  for (int row = 1; row <= rows.GetRowCount(); ++row) {
    for (int column = 1; column <= 40; ++column) {
      const bool there = rows.GetData(row, column, cell);
      if (cell.size() > 511) std::abort();
      const std::u16string_view view = rows.View(row, column);
      if (cell != std::u16string(view) + std::u16string(cell.size() - view.size(), u' ')) {
        std::abort();
      }
      if (!there && !cell.empty()) std::abort();
    }
  }
  if (rows.GetData(rows.GetRowCount() + 1, 1, cell) || rows.GetData(0, 1, cell)) std::abort();
  g_input = nullptr;
  return 0;
}

}  // extern "C"
