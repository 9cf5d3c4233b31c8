// SQL functions for the views of a server's script (docs/simulator.md).
#pragma once

#include <sqlite3.h>

#include <string>

namespace catalogsim {

[[nodiscard]] bool RegisterHelperFunctions(sqlite3* database);
// SERVERPROPERTY of SQL Server, which tells the version.
[[nodiscard]] bool RegisterServerProperty(sqlite3* database, const std::string& version);

}  // namespace catalogsim
