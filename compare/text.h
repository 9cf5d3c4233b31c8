// Small helpers for UTF-8 texts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wbcompare {

// For people: control characters as their pictures (U+2400 and on), so that no name moves a
// terminal's cursor or breaks a line.
[[nodiscard]] std::string Shown(std::string_view text);

// The lines of a text without their ends.
[[nodiscard]] std::vector<std::string> LinesOf(std::string_view text);

// What differs between two texts, in the unified form with three lines around: "@@ -1,4 +1,5 @@"
// and so on, a line each.
[[nodiscard]] std::vector<std::string> UnifiedDiff(std::string_view from, std::string_view to);

}  // namespace wbcompare
