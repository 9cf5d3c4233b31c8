// Reads what a server offers besides tables. ODBC knows only its procedures; operators and
// aggregates come from short lists, functions from the catalogue of Access alone.
#pragma once

#include "session/session.h"

namespace odbcimport::generic {

// False without a list for procedures; true otherwise, also when the driver failed.
bool GetProceduresODBC(ImportSession& session);
bool GetOperatorsODBC(ImportSession& session);   // always true
bool GetAggregatesODBC(ImportSession& session);  // always true
// Reads nothing and returns false.
bool GetBooleanFunctionsODBC(ImportSession& session);
// False for any server but Access.
bool GetGeneralFunctionsODBC(ImportSession& session);

}  // namespace odbcimport::generic
