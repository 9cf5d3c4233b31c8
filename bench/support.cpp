// Connections and plain loops for the benchmark programs.
#include "bench/support.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "odbc/driver.h"

namespace bench {

Connection::Connection(const std::string& connection_string) {
  SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &henv);
  SQLSetEnvAttr(henv, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC2), 0);
  SQLAllocHandle(SQL_HANDLE_DBC, henv, &hdbc);
  std::u16string text(connection_string.begin(), connection_string.end());
  const SQLRETURN result =
      SQLDriverConnectW(hdbc, nullptr, reinterpret_cast<SQLWCHAR*>(text.data()), SQL_NTS, nullptr,
                        0, nullptr, SQL_DRIVER_NOPROMPT);
  if (!odbc::Succeeded(result)) {
    SQLCHAR state[6] = {};
    SQLCHAR message[512] = {};
    SQLGetDiagRec(SQL_HANDLE_DBC, hdbc, 1, state, nullptr, message, sizeof message, nullptr);
    Die("no connection: " + std::string(reinterpret_cast<char*>(message)));
  }
}

Connection::~Connection() {
  SQLDisconnect(hdbc);
  SQLFreeHandle(SQL_HANDLE_DBC, hdbc);
  SQLFreeHandle(SQL_HANDLE_ENV, henv);
}

namespace {

// A catalog call's result: text columns of 129 characters bound with 128 bytes, and numbers.
struct CatalogRow {
  char16_t text[8][129];
  SQLLEN indicator[16];
  SQLINTEGER number[8];
};

const char16_t* OrNull(const std::u16string& text) { return text.empty() ? nullptr : text.c_str(); }

std::size_t FetchAll(odbc::Statement& statement, CatalogRow& row) {
  std::size_t rows = 0;
  for (;;) {
    row.text[0][0] = 0;
    row.text[1][0] = 0;
    if (!odbc::Succeeded(statement.Fetch())) break;
    ++rows;
  }
  statement.Cancel();
  statement.Close();
  return rows;
}

struct Name {
  std::u16string owner;
  std::u16string name;
};

// A statement of the plain loop with its bindings, which hold for all its calls.
class BoundStatement {
 public:
  explicit BoundStatement(CatalogRow& row) : row_(row) {}

  void BindText(SQLUSMALLINT column, int target) {
    statement.BindCol(column, SQL_C_WCHAR, row_.text[target], 128, &row_.indicator[target]);
  }
  void BindLong(SQLUSMALLINT column, int target) {
    statement.BindCol(column, SQL_C_LONG, &row_.number[target], 4, &row_.indicator[8 + target]);
  }

  odbc::Statement statement;

 private:
  CatalogRow& row_;
};

std::vector<Name> ReadTables(void* hdbc, const std::u16string& catalog, CatalogRow& row) {
  std::vector<Name> tables;
  BoundStatement bound(row);
  odbc::Statement& statement = bound.statement;
  statement.Allocate(hdbc);
  statement.Tables(OrNull(catalog), nullptr, nullptr, u"'TABLE','VIEW'");
  bound.BindText(2, 0);
  bound.BindText(3, 1);
  bound.BindText(4, 2);
  for (;;) {
    row.text[0][0] = row.text[1][0] = row.text[2][0] = 0;
    if (!odbc::Succeeded(statement.Fetch())) break;
    tables.push_back({row.text[0], row.text[1]});
  }
  statement.Cancel();
  statement.Close();
  return tables;
}

}  // namespace

void WarmCatalog(void* hdbc, const std::u16string& catalog) {
  odbc::Statement statement;
  statement.Allocate(hdbc);
  statement.Columns(OrNull(catalog), nullptr, nullptr, nullptr);
  while (odbc::Succeeded(statement.Fetch())) {
  }
  statement.Close();
}

std::size_t PlainCatalogLoop(void* hdbc, const std::u16string& catalog, bool with_foreign_keys) {
  CatalogRow row = {};
  const std::vector<Name> tables = ReadTables(hdbc, catalog, row);
  std::size_t rows = tables.size();
  BoundStatement columns(row);
  BoundStatement primary_keys(row);
  bool first = true;
  for (const Name& table : tables) {
    if (first) columns.statement.Allocate(hdbc);
    columns.statement.Columns(OrNull(catalog), OrNull(table.owner), table.name.c_str(), nullptr);
    if (first) {
      columns.BindText(4, 0);
      columns.BindLong(5, 0);
      columns.BindText(6, 1);
      columns.BindLong(7, 1);
      columns.BindLong(8, 2);
      columns.BindLong(9, 3);
      columns.BindLong(11, 4);
    }
    rows += FetchAll(columns.statement, row);
    if (first) primary_keys.statement.Allocate(hdbc);
    primary_keys.statement.PrimaryKeys(OrNull(catalog), table.owner.c_str(), table.name.c_str());
    if (first) {
      primary_keys.BindText(2, 0);
      primary_keys.BindText(3, 1);
      primary_keys.BindText(4, 2);
      primary_keys.BindLong(5, 0);
    }
    rows += FetchAll(primary_keys.statement, row);
    first = false;
  }
  if (!with_foreign_keys) return rows;
  BoundStatement foreign_keys(row);
  first = true;
  for (const Name& table : tables) {
    if (first) foreign_keys.statement.Allocate(hdbc);
    foreign_keys.statement.ForeignKeysTo(OrNull(catalog), table.owner.c_str(), table.name.c_str());
    if (first) {
      for (SQLUSMALLINT column = 1; column <= 8; ++column)
        foreign_keys.BindText(column, column - 1);
    }
    rows += FetchAll(foreign_keys.statement, row);
    first = false;
  }
  return rows;
}

std::size_t PlainQueryLoop(void* hdbc, const std::vector<std::u16string>& texts) {
  constexpr SQLULEN kRowset = 10;
  constexpr SQLLEN kBytes = 1024;
  std::size_t rows = 0;
  for (const std::u16string& text : texts) {
    odbc::Statement statement;
    statement.Allocate(hdbc);
    statement.SetOption(SQL_CURSOR_TYPE, SQL_CURSOR_KEYSET_DRIVEN);
    statement.SetOption(SQL_CONCURRENCY, SQL_CONCUR_READ_ONLY);
    statement.SetOption(SQL_ROWSET_SIZE, kRowset);
    if (!odbc::Succeeded(statement.ExecDirect(text))) Die("a query of the plain loop failed");
    SQLSMALLINT count = 0;
    statement.NumResultCols(&count);
    // 2048 bytes a row, since one of the drivers lays its rows that far apart.
    std::vector<std::vector<char>> cells(static_cast<std::size_t>(count),
                                         std::vector<char>(kRowset * 2048));
    std::vector<std::vector<SQLLEN>> lengths(static_cast<std::size_t>(count),
                                             std::vector<SQLLEN>(kRowset));
    for (SQLUSMALLINT i = 0; i < count; ++i) {
      statement.BindCol(static_cast<SQLUSMALLINT>(i + 1), SQL_C_WCHAR, cells[i].data(), kBytes,
                        lengths[i].data());
    }
    SQLULEN fetched = 0;
    SQLUSMALLINT status[kRowset] = {};
    while (odbc::Succeeded(statement.ExtendedFetch(&fetched, status))) rows += fetched;
    statement.Close();
    statement.Unbind();
  }
  return rows;
}

void MakeSQLiteFile(const std::string& path, int tables, int columns) {
  std::remove(path.c_str());
  sqlite3* db = nullptr;
  if (sqlite3_open(path.c_str(), &db) != SQLITE_OK) Die("cannot make " + path);
  // SQL::Translator cannot read DOUBLE PRECISION.
  static const char* const kTypes[] = {"INTEGER",   "VARCHAR(40)", "NUMERIC(12,3)", "DATE",
                                       "TIMESTAMP", "CHAR(8)",     "REAL",          "TEXT",
                                       "DOUBLE",    "SMALLINT"};
  std::string sql = "BEGIN;";
  for (int t = 0; t < tables; ++t) {
    const std::string n = std::to_string(t);
    sql += "CREATE TABLE table_" + n + "(id INTEGER NOT NULL PRIMARY KEY";
    const int others = columns - 2 + t % 3 - 1;  // columns - 1, columns or columns + 1 in all
    for (int c = 0; c < others; ++c) {
      sql += ", column_" + std::to_string(c) + " " + kTypes[(t + c) % 10];
    }
    sql += ", parent_id INTEGER";
    if (t % 8 == 0) sql += " REFERENCES table_" + std::to_string(t / 2) + "(id)";
    sql += ");";
  }
  sql += "COMMIT;";
  char* message = nullptr;
  if (sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &message) != SQLITE_OK) {
    Die(message != nullptr ? message : "cannot fill the file");
  }
  sqlite3_close(db);
}

}  // namespace bench
