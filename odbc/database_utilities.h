// The module's own DatabaseUtilities, which serve where a host has installed none: they know the
// names of servers, and read connection strings and odbc.ini.
#pragma once

#include <memory>

#include "platform/platform.h"

namespace odbc {

[[nodiscard]] std::shared_ptr<platform::DatabaseUtilities> MakeDatabaseUtilities();
// Those in force: the host's, or the module's own while the services have none.
[[nodiscard]] platform::DatabaseUtilities& GetDatabaseUtilities();

}  // namespace odbc
