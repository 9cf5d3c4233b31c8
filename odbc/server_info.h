// What a driver says of the server that a connection was made to. Needs no header of ODBC.
#pragma once

#include <string>

namespace odbc {

// SQL_DBMS_NAME and SQL_DBMS_VER, at most 127 characters. Empty when the driver has no answer.
[[nodiscard]] std::u16string GetDBMSName(void* hdbc);
[[nodiscard]] std::u16string GetDBMSVersion(void* hdbc);
// The data source that the connection was made to; empty for one without.
[[nodiscard]] std::u16string GetDataSourceName(void* hdbc);
// Whether statements may name an owner in front of a table; false when the driver has no answer.
[[nodiscard]] bool SupportsOwners(void* hdbc);
// Whether each statement is a transaction of its own; true when the driver has no answer.
[[nodiscard]] bool IsAutocommitOn(void* hdbc);

}  // namespace odbc
