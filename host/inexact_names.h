// Names that a reading through the catalog functions cannot treat exactly.
#pragma once

#include <vector>

#include "importer/workbook/workbook.h"

namespace wbhost {

// One entry a name, the first hundred of each kind, with what it may have cost: a pattern character
// where another table has a name that it fits (with a part of the tables read, `is_part`, any
// pattern character: the others are not known), a backslash, which drivers take for an escape, and
// a name so long that it may have been cut. What is whole costs no failure: all are withheld.
[[nodiscard]] std::vector<LcNotRead> FindInexactNames(const LcWorkbook& workbook, bool is_part);

}  // namespace wbhost
