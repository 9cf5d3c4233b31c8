// Timing, memory, child processes and plain loops for the benchmark programs.
#include "bench/support.h"

#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <new>

#include "odbc/driver.h"

namespace {

std::atomic<std::uint64_t> g_allocations{0};

void* Allocate(std::size_t size) {
  g_allocations.fetch_add(1, std::memory_order_relaxed);
  void* memory = std::malloc(size != 0 ? size : 1);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

[[noreturn]] void Die(const std::string& why) {
  std::fprintf(stderr, "bench: %s\n", why.c_str());
  std::exit(1);
}

std::size_t StatusBytes(const char* field) {
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line)) {
    if (line.rfind(field, 0) == 0) {
      return std::strtoull(line.c_str() + std::char_traits<char>::length(field), nullptr, 10) *
             1024;
    }
  }
  Die(std::string("no ") + field + " in /proc/self/status");
}

}  // namespace

// Every allocation of the program and of the C++ libraries that it loads comes through here.
void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

namespace bench {

double Seconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double Quantile(std::vector<double> values, double share) {
  std::sort(values.begin(), values.end());
  const auto at = static_cast<std::size_t>(share * static_cast<double>(values.size()));
  return values[std::min(at, values.size() - 1)];
}

std::size_t ResidentBytes() { return StatusBytes("VmRSS:"); }
std::size_t PeakResidentBytes() { return StatusBytes("VmHWM:"); }

void ResetPeak() {
  std::ofstream refs("/proc/self/clear_refs");
  refs << "5";
}

std::uint64_t Allocations() { return g_allocations.load(std::memory_order_relaxed); }

std::string InChild(const std::function<std::string()>& work) {
  int ends[2];
  if (pipe(ends) != 0) Die("no pipe");
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child < 0) Die("no child process");
  if (child == 0) {
    close(ends[0]);
    const std::string text = work();
    const bool written =
        write(ends[1], text.data(), text.size()) == static_cast<ssize_t>(text.size());
    _exit(written ? 0 : 1);
  }
  close(ends[1]);
  std::string text;
  char buffer[4096];
  ssize_t n = 0;
  while ((n = read(ends[0], buffer, sizeof buffer)) > 0)
    text.append(buffer, static_cast<std::size_t>(n));
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  if (status != 0) Die("the measuring process failed");
  return text;
}

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
  struct Name {
    std::u16string owner;
    std::u16string name;
  };
  std::vector<Name> tables;
  CatalogRow row = {};
  std::size_t rows = 0;
  const auto bind_text = [&row](odbc::Statement& statement, SQLUSMALLINT column, int target) {
    statement.BindCol(column, SQL_C_WCHAR, row.text[target], 128, &row.indicator[target]);
  };
  const auto bind_long = [&row](odbc::Statement& statement, SQLUSMALLINT column, int target) {
    statement.BindCol(column, SQL_C_LONG, &row.number[target], 4, &row.indicator[8 + target]);
  };
  {
    odbc::Statement statement;
    statement.Allocate(hdbc);
    statement.Tables(OrNull(catalog), nullptr, nullptr, u"'TABLE','VIEW'");
    bind_text(statement, 2, 0);
    bind_text(statement, 3, 1);
    bind_text(statement, 4, 2);
    for (;;) {
      row.text[0][0] = row.text[1][0] = row.text[2][0] = 0;
      if (!odbc::Succeeded(statement.Fetch())) break;
      tables.push_back({row.text[0], row.text[1]});
      ++rows;
    }
    statement.Cancel();
    statement.Close();
  }
  odbc::Statement columns;
  odbc::Statement primary_keys;
  bool first = true;
  for (const Name& table : tables) {
    if (first) columns.Allocate(hdbc);
    columns.Columns(OrNull(catalog), OrNull(table.owner), table.name.c_str(), nullptr);
    if (first) {
      bind_text(columns, 4, 0);
      bind_long(columns, 5, 0);
      bind_text(columns, 6, 1);
      bind_long(columns, 7, 1);
      bind_long(columns, 8, 2);
      bind_long(columns, 9, 3);
      bind_long(columns, 11, 4);
    }
    rows += FetchAll(columns, row);
    if (first) primary_keys.Allocate(hdbc);
    primary_keys.PrimaryKeys(OrNull(catalog), table.owner.c_str(), table.name.c_str());
    if (first) {
      bind_text(primary_keys, 2, 0);
      bind_text(primary_keys, 3, 1);
      bind_text(primary_keys, 4, 2);
      bind_long(primary_keys, 5, 0);
    }
    rows += FetchAll(primary_keys, row);
    first = false;
  }
  if (!with_foreign_keys) return rows;
  odbc::Statement foreign_keys;
  first = true;
  for (const Name& table : tables) {
    if (first) foreign_keys.Allocate(hdbc);
    foreign_keys.ForeignKeysTo(OrNull(catalog), table.owner.c_str(), table.name.c_str());
    if (first) {
      for (SQLUSMALLINT column = 1; column <= 8; ++column)
        bind_text(foreign_keys, column, column - 1);
    }
    rows += FetchAll(foreign_keys, row);
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
