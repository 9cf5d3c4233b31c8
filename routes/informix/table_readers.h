// The phases that read tables, views and synonyms with their columns. Each sends its own
// notifications and appends to the list of tables. False when the host stopped the import.
#pragma once

#include "routes/informix/complex_types.h"
#include "session/session.h"

namespace odbcimport::informix {

[[nodiscard]] bool ReadTablesAndViews(ImportSession& session, ComplexTypes& complex_types,
                                      LcWorkbookTableList& tables);
[[nodiscard]] bool ReadLocalSynonyms(ImportSession& session, ComplexTypes& complex_types,
                                     LcWorkbookTableList& tables);
// The selected synonyms of tables in other databases, one statement each; one more for each
// database, which tells whether it is a Universal Server's.
[[nodiscard]] bool ReadRemoteSynonyms(ImportSession& session, ComplexTypes& complex_types,
                                      LcWorkbookTableList& tables);

}  // namespace odbcimport::informix
