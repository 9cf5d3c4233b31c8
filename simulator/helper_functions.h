// SQL functions for the views of a server's script (docs/simulator.md).
#pragma once

#include <sqlite3.h>

namespace catalogsim {

bool RegisterHelperFunctions(sqlite3* database);

}  // namespace catalogsim
