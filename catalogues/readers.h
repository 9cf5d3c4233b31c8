// Readers of what a server offers besides tables, shared by the Informix and the native route. Each
// sends its own notifications, appends to the targets and returns its phase's result.
#pragma once

#include "importer/session.h"

namespace odbcimport {

bool GetOperators(ImportSession& session);
bool GetBooleanFunctions(ImportSession& session);
bool GetGeneralFunctions(ImportSession& session);
bool GetAggregates(ImportSession& session);
bool GetProcedures(ImportSession& session, LcWorkbookProcedureList& procedures);
// The built-in functions of Microsoft Access, which the generic route adds too.
bool GetSystemFunctionsAccess(ImportSession& session);

}  // namespace odbcimport
