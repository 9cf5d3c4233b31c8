// Texts in XML and HTML.
#pragma once

#include <string>
#include <string_view>

namespace base {

// A text (UTF-8) as it stands between tags or in an attribute's double quotes. The two characters
// that no XML text may hold, U+FFFE and U+FFFF, become U+FFFD.
[[nodiscard]] std::string EscapeMarkup(std::string_view text);

}  // namespace base
