// Lists of texts in expressions of PostgreSQL's.
#pragma once

#include <string>
#include <string_view>

namespace wbexport::sql {

// PostgreSQL shows `x IN ('a', 'b')` of a varchar as `(x)::text = ANY ((ARRAY['a'::character
// varying,
// ...])::text[])`, and that, read again, as something else once more. The text with such lists as
// they were written, so that a copy's are shown as the original's.
[[nodiscard]] std::string WithPlainLists(std::string_view text);

}  // namespace wbexport::sql
