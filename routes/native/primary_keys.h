// Primary keys of SQL Server, Oracle, DB2 and Red Brick: the query and its reader.
#pragma once

#include <string>

#include "importer/workbook/table.h"
#include "session/session.h"

namespace odbcimport::native {

// Sets `sql`, which starts empty, to the server's query: owner, table, key position, column. True
// for SQL Server, Sybase and Oracle, false otherwise: for DB2 and Red Brick too, although they get
// a text. Callers run what `sql` holds and do not look at the result.
bool BuildPrimaryKeyQuery(const LcImportChoices& choices, std::u16string& sql, int dbms_type);

// Marks the key columns of the tables in the list and appends them to the tables' primary keys, in
// the order of the rows. Rows of unknown tables and columns are passed over. False only when there
// are rows of a server that is not read here; true also when the import was stopped.
bool GetNativePrimaryKeys(const ImportSession& session, LcWorkbookTableList& tables);

}  // namespace odbcimport::native
