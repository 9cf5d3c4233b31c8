// The generic route: reads a catalog through the ODBC catalog functions alone, for every server
// that has no route of its own and wherever the host's settings ask for it.
#pragma once

#include "session/session.h"

namespace odbcimport::generic {

// Returns the result of the last phase that has one; `status` as in
// LcODBCWorkbookImport::ImportItems. Lets no exception out. Failures of the driver are consumed: a
// phase goes on or ends, and nothing is shown.
[[nodiscard]] bool ImportODBCItems(ImportSession& session, unsigned short& status);

// What an early end leaves of the tables. Removes those behind the first empty entry of the list,
// up to the next one, and keeps all others, also those without columns. Required (generic
// readers_test): hosts part the tables of an earlier import from the new ones by an empty entry,
// and offer a broken import's tables for another try.
void RemoveNoColTables(LcWorkbookTableList* tables);

}  // namespace odbcimport::generic
