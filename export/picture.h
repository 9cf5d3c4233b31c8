// How much is drawn at most.
#pragma once

#include <cstddef>
#include <string>

#include "export/diagram.h"

namespace wbexport {

// Beyond these no computer comes near a layout within ten seconds, whatever refers to what. One of
// three GHz took 46 s for 3,000 tables that nothing relates and 9 s for a table of 20,000 rows,
// each growing with the square; for 210,000 rows of tables that are easily laid out, 12 s.
constexpr std::size_t kMostUnrelated = 3'000;
constexpr std::size_t kMostRowsOfTable = 50'000;
constexpr std::size_t kMostRowsOfAll = 500'000;  // names of tables too

// What of the diagram is too much to be tried, as a part of a sentence; empty for nothing.
[[nodiscard]] std::string BeyondLayout(const Diagram& diagram);

}  // namespace wbexport
