// The Informix route: reads the system catalog of Dynamic Server and Universal Server with own SQL.
#pragma once

#include "session/session.h"

namespace odbcimport::informix {

// Returns the result of the last phase that has one; `status` as in
// LcODBCWorkbookImport::ImportItems. Lets no exception out.
[[nodiscard]] bool ImportInformixItems(ImportSession& session, unsigned short& status);

}  // namespace odbcimport::informix
