// Reads what a server offers besides tables. ODBC knows only its procedures; operators and
// aggregates come from short lists, functions from the catalogue of Access alone.
#pragma once

#include "session/session.h"

namespace odbcimport::generic {

// False without a list for procedures; true otherwise, also when the driver failed.
[[nodiscard]] bool GetProceduresODBC(ImportSession& session);
void GetOperatorsODBC(ImportSession& session);
void GetAggregatesODBC(ImportSession& session);
// Reads nothing and returns false.
[[nodiscard]] bool GetBooleanFunctionsODBC(ImportSession& session);
// False for any server but Access.
[[nodiscard]] bool GetGeneralFunctionsODBC(ImportSession& session);

}  // namespace odbcimport::generic
