// What is known of a server, and how it becomes known.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "importer/workbook/enums.h"

namespace odbcimport {

// What a route found out about the server when it was decided on; each route that asks has its own.
struct RouteFinding {
  virtual ~RouteFinding() = default;
};

// Facts about the server that persist between runs of one importer.
struct ServerFacts {
  std::u16string dbms_name;            // SQL_DBMS_NAME; empty until asked
  LeDBMSType dbms_type = dbmsUnknown;  // the type that the route decision settled on
  std::int32_t dbms_version = 0;       // major version; 0 until known
  bool is_ius = false;                 // Informix Universal Server
  std::u16string system_owner;         // owner of the system tables; empty: none found
  bool owner_support_known = false;
  bool owner_supported = false;
  std::uint16_t foreign_key_counter = 0;
  std::shared_ptr<const RouteFinding> finding;  // of the last decision; null: there was none
};

// Ask the driver; without an answer the name becomes empty, and the version stays as it was.
void SetupDBMSNameODBC(void* hdbc, ServerFacts& server);
void SetupDBMSVersionODBC(void* hdbc, ServerFacts& server);
void SetupOwnerSupportedODBC(void* hdbc, ServerFacts& server);
// Whether the driver has owners, asked once per importer.
[[nodiscard]] bool OwnerSupported(void* hdbc, ServerFacts& server);

}  // namespace odbcimport
