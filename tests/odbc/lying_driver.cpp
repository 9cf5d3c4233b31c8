// An ODBC driver whose answers are wrong in the way that the connection string asks for
// ("Driver=...;Lie=name"): what no real server does on demand, and some driver did once. Its one
// result has two text columns, "first" and "second", and three rows.
#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <algorithm>
#include <cstring>
#include <string>

#define DRIVER_ENTRY extern "C" __attribute__((visibility("default"))) SQLRETURN SQL_API

namespace {

constexpr SQLSMALLINT kColumns = 2;
constexpr int kRows = 3;

std::string lie;
int statements = 0;

struct Binding {
  char* buffer = nullptr;
  SQLLEN bytes = 0;
  SQLLEN* indicator = nullptr;
};

struct Statement {
  Binding bindings[kColumns];
  SQLULEN rowset = 1;
  int row = 0;
  int fetches = 0;
  int column_questions = 0;
};

void Fill(const Statement& statement, SQLULEN slot, int row) {
  for (int column = 0; column < kColumns; ++column) {
    const Binding& binding = statement.bindings[column];
    if (binding.buffer == nullptr) continue;
    char* text = binding.buffer + slot * static_cast<SQLULEN>(binding.bytes);
    SQLLEN* indicator = &binding.indicator[slot];
    if (lie == "no-terminator" || lie == "huge-indicator" || lie == "endless-cell" ||
        lie.ends_with("-bytes")) {
      std::fill_n(reinterpret_cast<char16_t*>(text), binding.bytes / 2, u'x');
      *indicator = lie != "no-terminator" ? 0x7fffffffffffffff : binding.bytes;
      continue;
    }
    const char16_t cell[] = {static_cast<char16_t>(u'a' + column),
                             static_cast<char16_t>(u'1' + row), 0};
    std::memcpy(text, cell, sizeof cell);
    *indicator = 4;
    if (lie == "half-indicator" && column == 1) {
      const int null = SQL_NULL_DATA;  // written as 32 bits: the upper half stays as it is
      std::memcpy(indicator, &null, sizeof null);
    }
    if (lie == "negative-indicator" && row == 1) *indicator = -7;
  }
}

}  // namespace

DRIVER_ENTRY SQLAllocHandle(SQLSMALLINT kind, SQLHANDLE, SQLHANDLE* out) {
  *out = kind == SQL_HANDLE_STMT ? static_cast<SQLHANDLE>(new Statement) : new char;
  if (kind == SQL_HANDLE_STMT) ++statements;
  if (kind == SQL_HANDLE_STMT && lie == "remark-on-allocation") return SQL_SUCCESS_WITH_INFO;
  return SQL_SUCCESS;
}

DRIVER_ENTRY SQLFreeHandle(SQLSMALLINT kind, SQLHANDLE handle) {
  if (kind != SQL_HANDLE_STMT) {
    delete static_cast<char*>(handle);
    return SQL_SUCCESS;
  }
  static int refusals = 0;
  if (lie == "refused-drop" && refusals++ % 2 == 0) return SQL_ERROR;
  delete static_cast<Statement*>(handle);
  --statements;
  return SQL_SUCCESS;
}

DRIVER_ENTRY SQLFreeStmt(SQLHSTMT, SQLUSMALLINT) { return SQL_SUCCESS; }
// A connection can be closed only when every statement is gone.
DRIVER_ENTRY SQLDisconnect(SQLHDBC) { return statements == 0 ? SQL_SUCCESS : SQL_ERROR; }
DRIVER_ENTRY SQLSetEnvAttr(SQLHENV, SQLINTEGER, SQLPOINTER, SQLINTEGER) { return SQL_SUCCESS; }

DRIVER_ENTRY SQLDriverConnectW(SQLHDBC, SQLHWND, SQLWCHAR* text, SQLSMALLINT length, SQLWCHAR* out,
                               SQLSMALLINT, SQLSMALLINT* out_length, SQLUSMALLINT) {
  // The driver manager reads these on, whether its caller wants them or not.
  if (out != nullptr) *out = 0;
  if (out_length != nullptr) *out_length = 0;
  std::string narrow;
  for (int i = 0; length == SQL_NTS ? text[i] != 0 : i < length; ++i) {
    narrow += static_cast<char>(text[i]);
  }
  const std::size_t begin = narrow.find("Lie=") + 4;
  lie = narrow.substr(begin, narrow.find(';', begin) - begin);
  return SQL_SUCCESS;
}

DRIVER_ENTRY SQLSetStmtAttrW(SQLHSTMT handle, SQLINTEGER attribute, SQLPOINTER value, SQLINTEGER) {
  if (attribute == SQL_ROWSET_SIZE) {
    static_cast<Statement*>(handle)->rowset = reinterpret_cast<SQLULEN>(value);
  }
  return SQL_SUCCESS;
}

DRIVER_ENTRY SQLGetDiagRecW(SQLSMALLINT, SQLHANDLE, SQLSMALLINT record, SQLWCHAR* state,
                            SQLINTEGER*, SQLWCHAR* message, SQLSMALLINT room, SQLSMALLINT* length) {
  const int records = lie.ends_with("-reasons") ? std::stoi(lie) : lie.ends_with("-state") ? 1 : 0;
  if (record > records) return SQL_NO_DATA;
  if (lie == "unended-state") std::fill_n(state, 5, SQLWCHAR{u'X'});
  // The driver manager puts several in order by their states.
  if (lie.ends_with("-reasons")) std::copy_n(u"HY000", 6, state);
  std::fill_n(message, room, SQLWCHAR{0});
  message[0] = u'm';
  *length = 1;
  return SQL_SUCCESS;
}

// The driver manager asks for records where there is this function, too.
DRIVER_ENTRY SQLGetDiagFieldW(SQLSMALLINT, SQLHANDLE, SQLSMALLINT, SQLSMALLINT, SQLPOINTER,
                              SQLSMALLINT, SQLSMALLINT*) {
  return SQL_NO_DATA;
}

DRIVER_ENTRY SQLExecDirectW(SQLHSTMT, SQLWCHAR*, SQLINTEGER) {
  return lie.ends_with("-state") || lie.ends_with("-reasons") ? SQL_ERROR : SQL_SUCCESS;
}

DRIVER_ENTRY SQLNumResultCols(SQLHSTMT handle, SQLSMALLINT* count) {
  const int question = ++static_cast<Statement*>(handle)->column_questions;
  *count = kColumns;
  if (lie == "many-columns") *count = 32767;
  if (lie == "negative-columns") *count = question == 1 ? kColumns : SQLSMALLINT{-5};
  if (lie == "columns-go") *count = question == 1 ? kColumns : SQLSMALLINT{0};
  if (lie == "columns-come") *count = question == 1 ? SQLSMALLINT{1} : SQLSMALLINT{9};
  return SQL_SUCCESS;
}

DRIVER_ENTRY SQLDescribeColW(SQLHSTMT, SQLUSMALLINT column, SQLWCHAR* name, SQLSMALLINT room,
                             SQLSMALLINT*, SQLSMALLINT* type, SQLULEN*, SQLSMALLINT*,
                             SQLSMALLINT*) {
  if (column > kColumns && lie != "many-columns") return SQL_ERROR;
  if (lie == "endless-name") {
    std::fill_n(name, room, SQLWCHAR{u'n'});
  } else {
    const char16_t text[] = u"name";
    std::memcpy(name, text, sizeof text);
  }
  *type = SQL_VARCHAR;
  return SQL_SUCCESS;
}

DRIVER_ENTRY SQLBindCol(SQLHSTMT handle, SQLUSMALLINT column, SQLSMALLINT, SQLPOINTER buffer,
                        SQLLEN bytes, SQLLEN* indicator) {
  if (column > kColumns) return lie == "columns-come" ? SQL_ERROR : SQL_SUCCESS;
  static_cast<Statement*>(handle)->bindings[column - 1] = {static_cast<char*>(buffer), bytes,
                                                           indicator};
  return SQL_SUCCESS;
}

// Rows of cells that do not fit, whose rest is longer than any memory, or that never end.
DRIVER_ENTRY SQLFetch(SQLHSTMT handle) {
  Statement& statement = *static_cast<Statement*>(handle);
  if (statement.row == kRows) return SQL_NO_DATA;
  Fill(statement, 0, statement.row++);
  return SQL_SUCCESS;
}

DRIVER_ENTRY SQLGetData(SQLHSTMT, SQLUSMALLINT, SQLSMALLINT, SQLPOINTER buffer, SQLLEN bytes,
                        SQLLEN* indicator) {
  static int pieces = 0;
  static SQLLEN given = 0;
  std::fill_n(static_cast<char16_t*>(buffer), bytes / 2, u'x');
  if (lie.ends_with("-bytes")) {
    const SQLLEN left = std::stoll(lie) - given;
    *indicator = left;
    const bool fits = left + SQLLEN{2} <= bytes;
    given = fits ? 0 : given + bytes - 2;
    return fits ? SQL_SUCCESS : SQL_SUCCESS_WITH_INFO;
  }
  const bool ends = lie == "huge-indicator" && ++pieces % 3 == 0;
  *indicator = ends ? 4 : 0x7fffffffffffffff;
  return ends ? SQL_SUCCESS : SQL_SUCCESS_WITH_INFO;
}

DRIVER_ENTRY SQLExtendedFetch(SQLHSTMT handle, SQLUSMALLINT, SQLLEN, SQLULEN* rows,
                              SQLUSMALLINT* status) {
  Statement& statement = *static_cast<Statement*>(handle);
  ++statement.fetches;
  if (lie == "no-rows-for-ever") return SQL_SUCCESS;
  if (lie == "errors-for-ever") return SQL_ERROR;
  if (lie == "strange-code") return 77;
  if (lie == "errors-between-rows" && statement.fetches % 90 != 0) return SQL_ERROR;
  if (statement.row == kRows) return SQL_NO_DATA;
  // Every rowset brings one row, so that a fault between rows can show.
  status[0] = SQL_ROW_SUCCESS;
  Fill(statement, 0, statement.row++);
  *rows = 1;
  if (lie == "many-rows") {
    *rows = 1000000;
    for (SQLULEN slot = 1; slot < statement.rowset; ++slot) {
      status[slot] = SQL_ROW_SUCCESS;
      Fill(statement, slot, 0);
    }
  }
  return SQL_SUCCESS;
}
