// Tells a host whether its connection suits the importer.
#pragma once

#include <string>

#include "platform/platform.h"

// Whether the importer reads the connection as it should, for a host to ask before it lends the
// handles (an environment and a connection of ODBC, which stay the host's). False with the reason
// in `why`, one line of English in UTF-8, when a handle is missing, the environment asks for
// another version than ODBC 2 or the connection is not open. An import does not ask: under ODBC 3
// it runs and gives columns of dates and times as CHAR.
[[nodiscard]] LC_EXPORT bool OdbcImportCheckConnection(void* henv, void* hdbc, std::string& why);
