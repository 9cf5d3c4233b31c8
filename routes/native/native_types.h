// The named types of SQL Server (types made from a system type) and DB2 (distinct types).
#pragma once

#include <string>

#include "session/session.h"

namespace odbcimport::native {

// Appends the server's named types to `types`. `owners` restricts DB2 to these schemas; null or
// empty: all. False for a server without named types and when one could not be made; true also
// when the import was stopped. Sends no notification.
bool GetNativeNamedDataTypes(const ImportSession& session, const LcOwnerInfoList* owners,
                             LcWorkbookDatatypeList& types);

// Appends the query to `sql`, which stays as it is for a server without named types. Owners go in
// as they stand.
void BuildNativeGetNamedDataTypes(int dbms_type, const LcOwnerInfoList* owners,
                                  std::u16string& sql);

// Runs the query and appends a type for each row, until the import is stopped.
bool GetNativeDataTypes(const ImportSession& session, const std::u16string& sql,
                        LcWorkbookDatatypeList& types);

}  // namespace odbcimport::native
