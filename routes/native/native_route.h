// The route for SQL Server, Oracle, DB2 and Red Brick, which reads their own catalogs with SQL
// written for each.
#pragma once

#include "session/session.h"

namespace odbcimport::native {

// Returns the result of the last phase that has one; `status` as in
// LcODBCWorkbookImport::ImportItems. Lets no exception out.
[[nodiscard]] bool ImportNativeItems(ImportSession& session, unsigned short& status);

}  // namespace odbcimport::native
