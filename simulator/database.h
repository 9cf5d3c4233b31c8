// The SQLite side of a connection: the server's catalog in databases of its own, opened by script.
#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>

#include "simulator/server_traits.h"
#include "simulator/settings.h"

namespace catalogsim {

struct CloseDatabase {
  void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
};
using Database = std::unique_ptr<sqlite3, CloseDatabase>;

struct FinalizeStatement {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using PreparedStatement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

// Null, with `why`, when a script fails; `why` then names the script.
[[nodiscard]] Database OpenServer(const ServerTraits& traits, const Settings& settings,
                                  std::string& why);

// Null, with `state` and `why`, when the text cannot be prepared.
[[nodiscard]] PreparedStatement Prepare(sqlite3* database, const std::string& sql,
                                        std::string& state, std::string& why);

}  // namespace catalogsim
