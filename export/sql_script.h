// A script that makes a schema again on the kind of server it was read from, from what the exact
// reading knows.
#pragma once

#include "export/sql_target.h"
#include "export/writers.h"

namespace wbexport::sql {

// `target` is the server that the script is for. Where it is not the one that the workbook was read
// from, types are translated, and what has no counterpart is a comment and a note.
void WriteScript(const Document& document, const Target& target, std::ostream& out, Notes& notes);

}  // namespace wbexport::sql
