// See database.h.
#include "simulator/database.h"

#include <fstream>
#include <sstream>

#include "embedded_catalogsim.h"
#include "simulator/helper_functions.h"

namespace catalogsim {
namespace {

bool Run(sqlite3* database, const std::string& sql, const std::string& name, std::string& why) {
  char* message = nullptr;
  if (sqlite3_exec(database, sql.c_str(), nullptr, nullptr, &message) == SQLITE_OK) return true;
  why = name + ": " + (message != nullptr ? message : "out of memory");
  sqlite3_free(message);
  return false;
}

bool RunFile(sqlite3* database, const std::string& file, std::string& why) {
  std::ifstream input(file, std::ios::binary);
  std::ostringstream text;
  text << input.rdbuf();
  if (!input) {
    why = "the script " + file + " cannot be read";
    return false;
  }
  return Run(database, text.str(), file, why);
}

// Names in quotes are names and nothing else, as on a server; SQLite would take an unknown one for
// a text. LIKE tells upper from lower case, as the patterns of catalog functions do.
bool Configure(sqlite3* database, std::string& why) {
  sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  return RegisterHelperFunctions(database) &&
         Run(database, "PRAGMA case_sensitive_like=ON", "pragma", why);
}

// The tables of Scale=, Columns= and ForeignKeys=, beside those of the script.
bool AddGeneratedTables(sqlite3* database, const ServerTraits& traits, const Scale& scale,
                        std::string& why) {
  if (scale.tables == 0) return true;
  if (traits.scale_script == nullptr) {
    why = "Scale: the server " + std::string(traits.name) + " has no generated tables";
    return false;
  }
  const std::string numbers = std::to_string(scale.tables) + "," + std::to_string(scale.columns) +
                              "," + std::to_string(scale.foreign_keys);
  return Run(database,
             "BEGIN; CREATE TEMP TABLE sim_scale AS SELECT column1 AS tables, column2 AS columns,"
             " column3 AS foreign_keys FROM (VALUES (" + numbers + "));" +
                 std::string(kScaleNumbers) + std::string(*traits.scale_script) +
                 "DROP TABLE scale_key; DROP TABLE scale_column; DROP TABLE scale_table;"
                 "DROP TABLE sim_scale; COMMIT;",
             "Scale", why);
}

}  // namespace

Database OpenServer(const ServerTraits& traits, const Settings& settings, std::string& why) {
  sqlite3* opened = nullptr;
  const int result =
      sqlite3_open_v2(":memory:", &opened,
                      SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
  Database database(opened);
  if (result != SQLITE_OK || !Configure(opened, why)) return nullptr;
  for (const std::string_view schema : traits.schemas) {
    if (schema.empty()) continue;
    if (!Run(opened, "ATTACH ':memory:' AS \"" + std::string(schema) + "\"", "attach", why))
      return nullptr;
  }
  if (traits.library && !Run(opened, std::string(kLibrary), "the library", why)) return nullptr;
  if (!Run(opened, std::string(*traits.script), "the script of " + std::string(traits.name), why))
    return nullptr;
  if (!AddGeneratedTables(opened, traits, settings.scale, why)) return nullptr;
  if (!settings.add_script.empty() && !RunFile(opened, settings.add_script, why)) return nullptr;
  if (!settings.sql.empty() && !Run(opened, settings.sql, "Sql", why)) return nullptr;
  return database;
}

PreparedStatement Prepare(sqlite3* database, const std::string& sql, std::string& state,
                          std::string& why) {
  sqlite3_stmt* statement = nullptr;
  const int result =
      sqlite3_prepare_v2(database, sql.c_str(), static_cast<int>(sql.size()), &statement, nullptr);
  PreparedStatement prepared(statement);
  if (result == SQLITE_OK && statement != nullptr) return prepared;
  why = result == SQLITE_OK ? "the statement is empty" : sqlite3_errmsg(database);
  state = why.starts_with("no such table") || why.starts_with("unknown database") ? "42S02"
          : why.starts_with("no such column")                                     ? "42S22"
                                                                                  : "42000";
  return nullptr;
}

}  // namespace catalogsim
