// The exact route: reads the catalog by a few statements in the server's own SQL.
#pragma once

#include <string>

#include "session/session.h"

namespace odbcimport::exact {

// Asks the server in the dialect that the host gave, or in the built-in one for its product, and
// keeps what it answered in `server.finding`. The dialect's name; empty, with one English sentence
// part in `why`, where none fits. The handles are borrowed.
[[nodiscard]] std::string FindDialectFor(void* henv, void* hdbc, const LcImportChoices& choices,
                                         ServerFacts& server, std::string& why);

// Reads the catalog of the server that was found and fills the workbook. `status` as in
// LcODBCWorkbookImport::ImportItems. Lets no exception out.
[[nodiscard]] bool ImportExactItems(ImportSession& session, unsigned short& status);

}  // namespace odbcimport::exact
