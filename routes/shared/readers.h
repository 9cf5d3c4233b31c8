// Readers of what a server offers besides tables, shared by the Informix and the native route. Each
// sends its own notifications, appends to the targets and, where it can fail, returns its phase's
// result. A query that failed was shown by the fetch layer and reads as one without rows.
#pragma once

#include <string>

#include "session/session.h"

namespace odbcimport {

// The operators that every server has; the route reports the phase.
void GetOperators(ImportSession& session);
// Functions of exactly two parameters from the catalog. False where the server lists none.
[[nodiscard]] bool GetBooleanFunctions(ImportSession& session);
// The built-in functions of the server, then all functions of its catalog but the boolean ones.
// False where the server lists no functions, also when built-in ones were added.
[[nodiscard]] bool GetGeneralFunctions(ImportSession& session);
// The users' aggregates, then the built-in ones.
void GetAggregates(ImportSession& session);
// Owner and name of the stored procedures. False where the server has no catalog of them.
[[nodiscard]] bool GetProcedures(ImportSession& session, LcWorkbookProcedureList& procedures);

// Whether the Informix catalog has a table of that name and, unless it is empty, that owner; false
// on every other server. Meant for hosts' extensions; no route asks.
[[nodiscard]] bool DoesTableExist(ImportSession& session, const std::u16string& owner,
                                  const std::u16string& table);
// Whether columns of the type have a size of their own: built-in types do, named ones do not.
[[nodiscard]] bool DoesExtendedTypeHaveSize(const LcWorkbookDatatype* type);

}  // namespace odbcimport
