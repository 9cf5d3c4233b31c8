// SQL functions for the views of a server's script (docs/simulator.md).
#pragma once

#include <sqlite3.h>

#include <string>

namespace catalogsim {

bool RegisterHelperFunctions(sqlite3* database);
// SERVERPROPERTY of SQL Server, which tells the version.
bool RegisterServerProperty(sqlite3* database, const std::string& version);

}  // namespace catalogsim
