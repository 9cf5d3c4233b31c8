// Texts of the command line, and what of base/ the whole program uses.
#pragma once

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
std::string OneLine(std::string_view text);

// The whole of a file, as it is; empty where it cannot be read.
std::optional<std::string> ReadWholeFile(const std::string& file);

}  // namespace wbhost
