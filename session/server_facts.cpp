// What is known of a server, and how it becomes known.
#include "session/server_facts.h"

#include "base/text.h"
#include "odbc/server_info.h"

namespace odbcimport {

void SetupDBMSNameODBC(void* hdbc, ServerFacts& server) {
  server.dbms_name = odbc::GetDBMSName(hdbc);
}

void SetupDBMSVersionODBC(void* hdbc, ServerFacts& server) {
  const std::u16string version = odbc::GetDBMSVersion(hdbc);
  const std::size_t stop = version.find(u'.');
  // Without a full stop the text is no version (or there is none), and what was known stays.
  if (stop == std::u16string::npos) return;
  server.dbms_version =
      static_cast<std::int32_t>(base::ParseInteger(std::u16string_view(version).substr(0, stop)));
}

void SetupOwnerSupportedODBC(void* hdbc, ServerFacts& server) {
  server.owner_support_known = true;
  server.owner_supported = odbc::SupportsOwners(hdbc);
}

bool OwnerSupported(void* hdbc, ServerFacts& server) {
  if (!server.owner_support_known) SetupOwnerSupportedODBC(hdbc, server);
  return server.owner_supported;
}

}  // namespace odbcimport
