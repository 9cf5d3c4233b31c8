// The Graphviz text of a diagram, which the dot format writes and the svg and png formats lay out.
#pragma once

#include <string>

#include "export/diagram.h"

namespace wbexport {

[[nodiscard]] std::string DotText(const Diagram& diagram);

}  // namespace wbexport
