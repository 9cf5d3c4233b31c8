// Primary keys of SQL Server, Oracle, DB2 and Red Brick: the query and its reader.
#pragma once

#include <optional>
#include <string>

#include "importer/workbook/table.h"
#include "session/session.h"

namespace odbcimport::native {

// Owner, table, key position, column. None for a server that is not read here.
[[nodiscard]] std::optional<std::u16string> BuildPrimaryKeyQuery(const LcImportChoices& choices,
                                                                 int dbms_type);

// Marks the key columns of the tables in the list and appends them to the tables' primary keys, in
// the order of the rows. Rows of unknown tables and columns are passed over. False only when there
// are rows of a server that is not read here; true also when the import was stopped.
[[nodiscard]] bool GetNativePrimaryKeys(const ImportSession& session, LcWorkbookTableList& tables);

}  // namespace odbcimport::native
