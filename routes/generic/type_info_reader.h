// Reads the data types that a driver describes in SQLGetTypeInfo. The routes take the hard-coded
// lists instead, which say more; this is for servers without one.
#pragma once

#include "session/session.h"

namespace odbcimport::generic {

// Appends one type per row to `types`. False when the driver failed; what it gave is kept.
[[nodiscard]] bool GetDataTypesODBC(ImportSession& session, LcWorkbookDatatypeList& types);
// Sets generic code and group of every type in the list by its physical code.
void SetupGenericDataTypeCodes(LcWorkbookDatatypeList& types);

}  // namespace odbcimport::generic
