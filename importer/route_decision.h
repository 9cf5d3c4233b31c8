// Which route reads the catalog of the server that the session is connected to.
#pragma once

#include <string>

#include "importer/odbc_workbook_import.h"
#include "session/session.h"

namespace odbcimport {

// Settles name, version and type of the server in `session` (asking the driver where name or type
// are not known) and picks the route, host settings included. `connect_text` is the connection
// string of the host's log-in, null when there is none. Reports nothing: a driver without answers
// leaves the type as the host set it.
LcODBCWorkbookImport::RouteDecision DecideRoute(ImportSession& session,
                                                const std::u16string* connect_text);

}  // namespace odbcimport
