// The named types of SQL Server (types made from a system type) and DB2 (distinct types).
#pragma once

#include <optional>
#include <string>

#include "session/session.h"

namespace odbcimport::native {

// Appends the server's named types to `types`, until the import is stopped; nothing for a server
// without named types. `owners` restricts DB2 to these schemas; null or empty: all. Sends no
// notification.
void GetNativeNamedDataTypes(const ImportSession& session, const LcOwnerInfoList* owners,
                             LcWorkbookDatatypeList& types);

// None for a server without named types. Owners go in as they stand.
[[nodiscard]] std::optional<std::u16string> BuildNativeGetNamedDataTypes(
    int dbms_type, const LcOwnerInfoList* owners);

// Runs the query and appends a type for each row, until the import is stopped.
void GetNativeDataTypes(const ImportSession& session, const std::u16string& sql,
                        LcWorkbookDatatypeList& types);

}  // namespace odbcimport::native
