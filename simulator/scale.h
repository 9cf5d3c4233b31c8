// Catalogs of any size: generated tables beside those of a server's script. They take seconds to
// make, so they are made once and kept in files that every later connection reads.
#pragma once

#include <sqlite3.h>

#include <string>
#include <vector>

#include "simulator/server_traits.h"
#include "simulator/settings.h"

namespace catalogsim {

// The SQL that adds the tables to the open databases of a server.
[[nodiscard]] std::string ScaleScript(const ServerTraits& traits, const Scale& scale);

// The folder in which the catalog that the scripts make is kept: below the user's own folder for
// caches, which nobody else can write, named after the server and a hash of everything that goes
// into it. Empty where there is no such folder.
[[nodiscard]] std::string CacheFolder(const ServerTraits& traits,
                                      const std::vector<std::string>& scripts);

// The file of the database `number` in such a folder; 0 is the main one.
[[nodiscard]] std::string CacheFile(const std::string& folder, int number);

// Whether it is there; it then counts as used last.
[[nodiscard]] bool UseCache(const std::string& folder);
// Makes a new folder beside `folder` to build in; empty when that fails.
[[nodiscard]] std::string BeginCache(const std::string& folder);
// Moves what was built to its place. When another process was quicker, its catalog stays. Removes
// those that were not used for the longest time: 16 are kept.
void FinishCache(const std::string& built, const std::string& folder);

}  // namespace catalogsim
