// The queries for Universal Server's extended types. Pure functions.
#pragma once

#include <string>

#include "importer/workbook/info.h"

namespace odbcimport::informix {

// Named types: extended id, mode, owner, name, type number, source, maximum length, length, and
// mode, owner, name and type number of the base type. `owners` (null or empty: all owners) go in
// without quotes.
[[nodiscard]] std::u16string BuildSQLGetNamedDataTypes(const LcOwnerInfoList* owners);

// The parts of one row or collection type: parent number, name, type number, length, extended id of
// the part's own type, and mode, owner, name, source, maximum length and length of that type.
[[nodiscard]] std::u16string BuildSQLGetComplexType(int extended_id);

}  // namespace odbcimport::informix
