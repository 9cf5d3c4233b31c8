// What is known of the server that a session is connected to, and how it becomes known.
#pragma once

#include "session/session.h"

namespace odbcimport {

// Ask the driver; without an answer the name becomes empty, and the version stays as it was.
void SetupDBMSNameODBC(void* hdbc, ServerFacts& server);
void SetupDBMSVersionODBC(void* hdbc, ServerFacts& server);
// Whether the driver has owners, asked once per importer.
bool OwnerSupported(ImportSession& session);
void SetupOwnerSupportedODBC(ImportSession& session);

}  // namespace odbcimport
