// A host of the importer in one file: connects through ODBC, imports the tables and views with
// their keys, prints them, and stops after the item in hand on Ctrl-C.
//
// Usage: embed CONNECTION-STRING
#include <sql.h>
#include <sqlext.h>

#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "importer/odbc_workbook_import.h"
#include "importer/workbook/utf8.h"
#include "odbc/connection_check.h"

namespace {

volatile std::sig_atomic_t g_interrupted = 0;
LcODBCWorkbookImport* g_importer = nullptr;

// Called by the module on this thread before each phase and for each item.
void OnNotify(enumImpNotify notify, void* record) {
  if (g_interrupted != 0) g_importer->running = false;  // the import ends after this item
  if (notify == inLoopStart) {
    const auto* start = static_cast<const LcImpProgStartInfo*>(record);
    std::fprintf(stderr, "%u items\n", start->count);
  }
}

// An open connection that closes itself. It must outlive every importer that borrowed it.
struct Connection {
  SQLHENV henv = SQL_NULL_HENV;
  SQLHDBC hdbc = SQL_NULL_HDBC;
  bool open = false;

  void Open(const char* connection_string) {
    SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &henv);
    // The importer speaks ODBC 2, whose type codes it expects.
    SQLSetEnvAttr(henv, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC2), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, henv, &hdbc);
    std::string text = connection_string;
    const SQLRETURN result =
        SQLDriverConnect(hdbc, nullptr, reinterpret_cast<SQLCHAR*>(text.data()), SQL_NTS, nullptr,
                         0, nullptr, SQL_DRIVER_NOPROMPT);
    open = SQL_SUCCEEDED(result);
  }
  ~Connection() {
    if (open) SQLDisconnect(hdbc);
    if (hdbc != SQL_NULL_HDBC) SQLFreeHandle(SQL_HANDLE_DBC, hdbc);
    if (henv != SQL_NULL_HENV) SQLFreeHandle(SQL_HANDLE_ENV, henv);
  }
};

void Print(const LcWorkbook& workbook) {
  for (const LcWorkbookTable* table : workbook.tables) {
    if (table == nullptr) continue;
    std::printf("%s %s\n", table->GetType() == ttView ? "view" : "table",
                LcToUtf8(table->GetName()).c_str());
    for (int i = 0; i < table->GetColumnCount(); ++i) {
      const LcWorkbookColumn* column = table->GetColumn(i);
      const LcWorkbookDatatype* type = column->GetDataType();  // null: not known
      std::printf("  %s%s %s%s\n", column->IsPrimaryKey() ? "*" : " ",
                  LcToUtf8(column->GetName()).c_str(),
                  type != nullptr ? LcToUtf8(type->GetTypeName()).c_str() : "?",
                  column->IsRequired() ? " not null" : "");
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: embed CONNECTION-STRING\n");
    return 2;
  }
  setenv("LC_ALL", "C.UTF-8", 1);  // PostgreSQL's driver takes the locale from there
  std::setlocale(LC_ALL, "C.UTF-8");
  std::string why;
  if (!OdbcImportStart(nullptr, why)) {
    std::fprintf(stderr, "embed: %s\n", why.c_str());
    return 5;
  }
  Connection connection;
  connection.Open(argv[1]);
  if (!OdbcImportCheckConnection(connection.henv, connection.hdbc, why)) {
    std::fprintf(stderr, "embed: %s\n", why.c_str());
    return 5;
  }
  LcWorkbook workbook;
  LcODBCWorkbookImport importer(OnNotify, &workbook);
  g_importer = &importer;
  std::signal(SIGINT, [](int) { g_interrupted = 1; });

  importer.SyncLogin(connection.henv, connection.hdbc);
  importer.choices.item_mask = ibTables | ibViews;
  importer.choices.keys = true;
  importer.choices.foreign_keys = true;
  unsigned short status = 0;
  const bool result = importer.ImportItems(status);
  importer.UnSyncLogin();

  Print(workbook);
  if (status != 0) std::fprintf(stderr, "embed: stopped early, what was read is shown\n");
  return status == 9 ? 9 : result ? 0 : 1;
}
