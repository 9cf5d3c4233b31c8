// Cells of the Informix catalogs.
#pragma once

#include <string_view>

#include "base/text.h"
#include "odbc/record_list.h"

namespace odbcimport::informix {

// The cell without the white space at its end, valid as long as the list is; empty out of range.
[[nodiscard]] inline std::u16string_view Cell(const LcODBCRecordList& rows, int row, int column) {
  return base::TrimRightSpace(rows.View(row, column));
}

}  // namespace odbcimport::informix
