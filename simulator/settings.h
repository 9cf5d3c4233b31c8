// What a connection string says: which server to play, how large a catalog, and which faults.
#pragma once

#include <optional>
#include <string>

#include "simulator/faults.h"

namespace catalogsim {

// Generated tables beside those of the script.
struct Scale {
  int tables = 0;
  int columns = 20;      // per table
  int foreign_keys = 0;  // per table
};

struct Settings {
  std::string server;
  std::string version;     // that the server tells of itself; empty: its own
  std::string file;        // the recording, where the server is one
  std::string add_script;  // a file of SQL that is run after the server's script
  std::string sql;         // SQL that is run after that
  Scale scale;
  FaultPlan faults;
};

// False, with `why` telling the keyword and what is wrong with it. Keywords that belong to the
// driver manager or to a log-in (Driver, DSN, UID, PWD, ...) are accepted and ignored.
[[nodiscard]] bool ParseConnectionString(std::string_view text, Settings& settings,
                                         std::string& why);

}  // namespace catalogsim
