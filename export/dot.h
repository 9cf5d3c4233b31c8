// The Graphviz text of a diagram, which the dot format writes and the svg format lays out.
#pragma once

#include <string>

#include "export/diagram.h"

namespace wbexport {

std::string DotText(const Diagram& diagram);

}  // namespace wbexport
