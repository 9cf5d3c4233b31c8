// Foreign keys of SQL Server, Oracle, DB2 and Red Brick: the readers. Each runs its queries,
// reports the rows and adds key pairs to the tables in the list; rows of tables and columns that
// are not there are passed over. What was read before the import was stopped is kept.
#pragma once

#include "importer/workbook/table.h"
#include "session/session.h"

namespace odbcimport::native {

void GetNativeForeignKeys(ImportSession& session, LcWorkbookTableList& tables);  // DB2
void GetNativeForeignKeysOracle(ImportSession& session, LcWorkbookTableList& tables);
void GetNativeForeignKeysRedBrick(ImportSession& session, LcWorkbookTableList& tables);
void GetNativeForeignKeysSQLServer(ImportSession& session, LcWorkbookTableList& tables);

}  // namespace odbcimport::native
