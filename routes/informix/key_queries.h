// The queries for keys. Pure functions. Universal Server describes an index
// by one text of its keys, Dynamic Server by sixteen column numbers.
#pragma once

#include <string>

#include "importer/workbook/table.h"

namespace odbcimport::informix {

// Primary key and unique constraints of the tables in the list; of the whole database when it is
// empty or null. Columns: table name, owner, constraint id, table id, constraint type, then the
// index key text or the part numbers.
[[nodiscard]] std::u16string BuildOnlineSQLGetPrimaryKeys(const LcWorkbookTableList* tables,
                                                          bool is_ius);

// Every foreign key that refers to the table, whichever of its constraints it refers to (so
// `constraint_id` is not used). Columns: name and owner of the referring table, then its key
// columns as above.
[[nodiscard]] std::u16string BuildOnlineSQLGetForeignKeys(int parent_tabid, int constraint_id,
                                                          bool is_ius);

}  // namespace odbcimport::informix
