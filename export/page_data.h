// The schema as the page's scripts read it: compact JSON, made into pages when a reader asks for
// them. export/html/model.js reads it.
#pragma once

#include <ostream>

#include "export/writer.h"

namespace wbexport {

// `around` is the table that the page starts with, or null.
void WritePageData(const Document& document, const Options& options, const LcWorkbookTable* around,
                   std::ostream& out);

}  // namespace wbexport
