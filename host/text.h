// Texts of the command line, and what of base/ the whole program uses.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/ascii.h"
#include "base/qualified_name.h"
#include "base/utf.h"

namespace wbhost {

using base::DisplayName;
using base::EqualIgnoringCase;
using base::ParseQualifiedName;
using base::QualifiedName;
using base::ToUtf16;
using base::ToUtf8;

// The text for one line of a terminal: control characters, line ends among them, become blanks.
[[nodiscard]] std::string OneLine(std::string_view text);

// The whole of a file, as it is; `-` is standard input. Empty, with a reason for a sentence that
// ends in ": reason", where it cannot be read or has more than `most` bytes.
[[nodiscard]] std::optional<std::string> ReadWholeFile(const std::string& file, std::uintmax_t most,
                                                       std::string& why);

}  // namespace wbhost
