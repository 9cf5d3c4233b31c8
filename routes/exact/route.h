// The exact route: its phases in the order in which they run, one statement a kind of object.
#pragma once

#include "routes/exact/catalog.h"
#include "session/session.h"

namespace odbcimport::exact {

// Reads what the host asked for from that server. `status` as in
// LcODBCWorkbookImport::ImportItems. False where the connection was lost or memory ran out; what
// could not be read is in the workbook's details.
[[nodiscard]] bool ReadExactly(ImportSession& session, const Server& server,
                               unsigned short& status);

}  // namespace odbcimport::exact
