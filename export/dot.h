// The Graphviz text of a diagram, which the dot format writes and the svg and png formats lay out.
#pragma once

#include <string>

#include "export/diagram.h"

namespace wbexport {

[[nodiscard]] std::string DotText(const Diagram& diagram);

// Text between tags or in an attribute; what no XML text may hold becomes U+FFFD.
[[nodiscard]] std::string EscapeXml(const std::string& text);

}  // namespace wbexport
