// The configuration file, for the options that one repeats: wbimport/config.toml in
// $XDG_CONFIG_HOME (or ~/.config) and in $XDG_CONFIG_DIRS (or /etc/xdg), the first that there is.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/options.h"

namespace wbhost {

// The keys that the file can have, at its top for all commands and in a table named after one for
// that command alone.
[[nodiscard]] std::vector<std::string> ConfigKeys();

// Fills what the command line left open: first from the table of `command`, one of `commands`, then
// from the top of the file. A connection counts only where none was named before. `file` names
// another file, which must exist. Throws a Failure for a file that cannot be read, an unknown key
// or a wrong type.
void ApplyConfigFile(const std::optional<std::string>& file,
                     const std::vector<std::string>& commands, const std::string& command,
                     Options& options);

}  // namespace wbhost
