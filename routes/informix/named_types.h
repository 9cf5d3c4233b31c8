// The data type phase: the built-in types of the server and, on Universal Server, its named types.
#pragma once

#include "routes/informix/complex_types.h"
#include "session/session.h"

namespace odbcimport::informix {

// Appends the server's built-in types to the target list.
void GetBuiltInDataTypes(ImportSession& session);

// Appends every extended type that has a name, then reads what the row and collection types among
// them are made of. Always true.
[[nodiscard]] bool GetNamedDataTypes(const ImportSession& session, const LcOwnerInfoList* owners,
                                     LcWorkbookDatatypeList* types, ComplexTypes& complex_types);

}  // namespace odbcimport::informix
