// How deep a TOML text nests, before a parser that recurses is given it.
#pragma once

#include <string_view>

namespace base {

// Whether values nest in one another, or a dotted key has parts, beyond what a file written by
// people has: 32 of each. toml++ (3.3) limits values itself but not keys, and ends the program
// where 100,000 tables lie in one another.
[[nodiscard]] bool IsTomlNestedTooDeep(std::string_view text);

}  // namespace base
