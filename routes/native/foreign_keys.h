// Foreign keys of SQL Server, Oracle, DB2 and Red Brick: the readers. Each runs its queries,
// reports the rows and adds key pairs to the tables in the list; rows of tables and columns that
// are not there are passed over. All return true, also when the import was stopped.
#pragma once

#include "importer/workbook/table.h"
#include "session/session.h"

namespace odbcimport::native {

bool GetNativeForeignKeys(const ImportSession& session, LcWorkbookTableList& tables);  // DB2
bool GetNativeForeignKeysOracle(const ImportSession& session, LcWorkbookTableList& tables);
bool GetNativeForeignKeysRedBrick(const ImportSession& session, LcWorkbookTableList& tables);
bool GetNativeForeignKeysSQLServer(const ImportSession& session, LcWorkbookTableList& tables);

}  // namespace odbcimport::native
