// Universal Server's text of an index's keys, such as "3 [1], -1 [1]": a list of items that end
// with
// "]", each a column number (negative: descending) or, beginning with "<", a function of columns.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace odbcimport::informix {

// Appends the column numbers (from 1) to `out`, in key order. What is no item is left out.
void ParseOnlineIndexKeys(std::u16string_view index_keys, std::vector<std::int16_t>& out);
// Appends the number of a column item, 0 for an item without "[". The order is not kept.
void ParseOnlineColKey(std::u16string_view item, std::vector<std::int16_t>& out);
// Appends the arguments of a functional item but the last, and none at all for an item without "-".
// Required (decoders_test): an index on a function bears no constraint, and to read its columns as
// a key's would invent keys in odd catalogs.
void ParseOnlineFuncKey(std::u16string_view item, std::vector<std::int16_t>& out);

}  // namespace odbcimport::informix
