// The table of routes: what there is to know of each, and how it runs.
#pragma once

#include "importer/odbc_workbook_import.h"
#include "session/session.h"

namespace odbcimport {

struct RouteRow : LcODBCWorkbookImport::Route {
  bool (*run)(ImportSession& session, unsigned short& status);
};

[[nodiscard]] const RouteRow& FindRoute(LcODBCWorkbookImport::RouteKind kind);

}  // namespace odbcimport
