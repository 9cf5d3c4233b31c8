// See database.h.
#include "simulator/database.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

#include "embedded_catalogsim.h"
#include "simulator/helper_functions.h"
#include "simulator/scale.h"

namespace catalogsim {
namespace {

bool Run(sqlite3* database, const std::string& sql, const std::string& name, std::string& why) {
  char* message = nullptr;
  if (sqlite3_exec(database, sql.c_str(), nullptr, nullptr, &message) == SQLITE_OK) return true;
  why = name + ": " + (message != nullptr ? message : "out of memory");
  sqlite3_free(message);
  return false;
}

bool ReadFile(const std::string& file, std::string& text) {
  std::ifstream input(file, std::ios::binary);
  std::ostringstream read;
  read << input.rdbuf();
  text = read.str();
  return static_cast<bool>(input);
}

struct NamedScript {
  std::string name;  // for the message of a failure
  std::string sql;
};

// Names in quotes are names and nothing else, as on a server; SQLite would take an unknown one for
// a text. LIKE tells upper from lower case, as the patterns of catalog functions do.
bool Configure(sqlite3* database, std::string& why) {
  sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  return RegisterHelperFunctions(database) &&
         Run(database, "PRAGMA case_sensitive_like=ON", "pragma", why);
}

// Opens the main database and attaches those of the server's schemas: in memory, or, where there
// is a folder, in its files. `read_only`: the files are complete, and nobody changes them.
Database OpenDatabases(const ServerTraits& traits, const std::string& folder, bool read_only,
                       std::string& why) {
  const auto name = [&](int number) {
    if (folder.empty()) return std::string(":memory:");
    return "file:" + CacheFile(folder, number) + (read_only ? "?mode=ro&immutable=1" : "?mode=rwc");
  };
  sqlite3* opened = nullptr;
  const int result = sqlite3_open_v2(
      name(0).c_str(), &opened,
      SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_URI, nullptr);
  Database database(opened);
  if (result != SQLITE_OK) {
    why = name(0) + " cannot be opened";
    return nullptr;
  }
  if (!Configure(opened, why)) return nullptr;
  int number = 0;
  for (const std::string_view schema : traits.schemas) {
    ++number;
    if (schema.empty()) continue;
    const std::string attach = "ATTACH '" + name(number) + "' AS \"" + std::string(schema) + '"';
    if (!Run(opened, attach, "attach", why)) return nullptr;
  }
  return database;
}

bool RunScripts(sqlite3* database, const std::vector<NamedScript>& scripts, std::string& why) {
  for (const NamedScript& script : scripts)
    if (!Run(database, script.sql, script.name, why)) return false;
  return true;
}

Database OpenInMemory(const ServerTraits& traits, const std::vector<NamedScript>& scripts,
                      std::string& why) {
  Database database = OpenDatabases(traits, "", false, why);
  if (!database || !RunScripts(database.get(), scripts, why)) return nullptr;
  return database;
}

// A large catalog is built in files once, and only read after that. Without a place of one's own
// for them it is built in memory, each time.
Database OpenCached(const ServerTraits& traits, const std::vector<NamedScript>& scripts,
                    std::string& why) {
  std::vector<std::string> texts;
  texts.reserve(scripts.size());
  for (const NamedScript& script : scripts) texts.push_back(script.sql);
  const std::string folder = CacheFolder(traits, texts);
  if (folder.empty()) return OpenInMemory(traits, scripts, why);
  if (!UseCache(folder)) {
    const std::string built = BeginCache(folder);
    if (built.empty()) {
      why = "no folder can be made beside " + folder;
      return nullptr;
    }
    Database database = OpenDatabases(traits, built, false, why);
    // A crash leaves a folder that nobody looks for: no journal is needed.
    const bool made =
        database &&
        Run(database.get(), "PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF", "pragma", why) &&
        RunScripts(database.get(), scripts, why);
    database.reset();
    if (!made) {
      std::error_code error;
      std::filesystem::remove_all(built, error);
      return nullptr;
    }
    FinishCache(built, folder);
  }
  Database database = OpenDatabases(traits, folder, true, why);
  if (!database || !Run(database.get(), "PRAGMA mmap_size=4294967296", "pragma", why))
    return nullptr;
  return database;
}

}  // namespace

Database OpenServer(const ServerTraits& traits, const Settings& settings, std::string& why) {
  std::vector<NamedScript> scripts;
  if (traits.library) scripts.push_back({"the library", std::string(kLibrary)});
  if (traits.shop) scripts.push_back({"the shop", std::string(kShop)});
  scripts.push_back({"the script of " + std::string(traits.name), std::string(*traits.script)});
  const bool large = settings.scale.tables > 0;
  if (large && traits.scale_script == nullptr) {
    why = "Scale: the server " + std::string(traits.name) + " has no generated tables";
    return nullptr;
  }
  if (large) scripts.push_back({"Scale", ScaleScript(traits, settings.scale)});
  if (!settings.add_script.empty()) {
    std::string text;
    if (!ReadFile(settings.add_script, text)) {
      why = "the script " + settings.add_script + " cannot be read";
      return nullptr;
    }
    scripts.push_back({settings.add_script, text});
  }
  if (!settings.sql.empty()) scripts.push_back({"Sql", settings.sql});
  return large ? OpenCached(traits, scripts, why) : OpenInMemory(traits, scripts, why);
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
