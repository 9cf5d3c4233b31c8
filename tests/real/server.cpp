// What a real server itself says that it holds, and what an import finds there.
#include "tests/real/server.h"

#include <odbcinst.h>

#include <clocale>
#include <cstdlib>

#include "importer/odbc_workbook_import.h"

namespace real {
namespace {

// The driver manager converts names by it; PostgreSQL's driver takes it from the environment.
[[maybe_unused]] const char* const kLocale =
    setenv("LC_ALL", "C.UTF-8", 1) == 0 ? std::setlocale(LC_ALL, "") : nullptr;

const std::function<void(int)>* listener = nullptr;  // the callback has no context
int events = 0;

void Listen(enumImpNotify /*notify*/, void* /*record*/) { (*listener)(events++); }

}  // namespace

bool IsDriverInstalled(const std::string& driver) {
  char section[256] = {};
  return SQLGetPrivateProfileString(driver.c_str(), "Driver", "", section, sizeof section,
                                    "odbcinst.ini") > 0;
}

wbtest::Facts Ask(const wbtest::Connection& server, const SchemaQueries& queries) {
  return wbtest::FactsOf({server.Execute(queries.tables), server.Execute(queries.columns),
                          server.Execute(queries.keys), server.Execute(queries.pairs)});
}

Import::Import(const wbtest::Connection& server, const std::u16string& catalog,
               const std::function<void(int)>& on_event, std::uint32_t items) {
  listener = &on_event;
  events = 0;
  LcODBCWorkbookImport importer(on_event ? &Listen : nullptr, &workbook);
  importer.SyncLogin(server.henv(), server.hdbc());
  importer.choices.item_mask = items;
  importer.choices.keys = true;
  importer.choices.foreign_keys = true;
  importer.choices.catalog = catalog;
  result = importer.ImportItems(status);
  importer.UnSyncLogin();
}

}  // namespace real
