// What the importer knows of a route, and the three that there are.
#pragma once

#include "importer/session.h"

namespace odbcimport {

// Each reads the catalog in its own way and fills the workbook. Returns the result of the last
// phase that has one; `status` as in LcODBCWorkbookImport::ImportItems. Lets no exception out.
bool ImportODBCItems(ImportSession& session, unsigned short& status);
bool ImportInformixItems(ImportSession& session, unsigned short& status);
bool ImportNativeItems(ImportSession& session, unsigned short& status);

// The connection facts that the route decision needs; the generic route's readers of them.
void SetupDBMSNameODBC(ImportSession& session);
void SetupDBMSVersionODBC(ImportSession& session);
bool OwnerSupported(ImportSession& session);

}  // namespace odbcimport
