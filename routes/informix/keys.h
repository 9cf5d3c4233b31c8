// Primary keys, unique constraints and foreign keys of the tables that an import has made.
#pragma once

#include <string_view>

#include "session/session.h"

namespace odbcimport::informix {

// Reads the constraints of the tables in one statement and, with foreign keys wanted, one more for
// each constraint. On Dynamic Server no columns become keys, see keys.cpp. True, also
// when the host stopped the import.
[[nodiscard]] bool GetOnlinePrimaryForeignKeys(ImportSession& session, LcWorkbookTableList& tables,
                                               bool with_foreign_keys);

// Marks the columns that the index keys name, and appends them to the table's primary key. Numbers
// that name no column are skipped.
void SetOnlinePrimaryKey(LcWorkbookTable& table, std::u16string_view index_keys);

}  // namespace odbcimport::informix
