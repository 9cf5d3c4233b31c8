// Which route reads the catalog of a server.
#pragma once

#include "importer/odbc_workbook_import.h"
#include "session/server_facts.h"

namespace odbcimport {

// What a decision rests on.
struct RouteQuestion {
  const LcImportChoices& choices;
  void* henv;
  void* hdbc;                          // null: nobody to ask
  const std::u16string* connect_text;  // of the host's log-in; null when there is none
};

// Settles name, version and type of the server in `server` (asking the driver where name or type
// are not known) and picks the route, host settings included. Reports nothing: a driver without
// answers leaves the type as the host set it.
[[nodiscard]] LcODBCWorkbookImport::RouteDecision DecideRoute(const RouteQuestion& question,
                                                              ServerFacts& server);

}  // namespace odbcimport
