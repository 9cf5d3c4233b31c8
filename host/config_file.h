// The configuration file, for the options that one repeats: wbimport/config.toml in
// $XDG_CONFIG_HOME (or ~/.config) and in $XDG_CONFIG_DIRS (or /etc/xdg), the first that there is.
#pragma once

#include <optional>
#include <string>

#include "host/options.h"

namespace wbhost {

// Fills what the command line left open. A connection in the file counts only where the command
// line names none. `file` names another file, which must exist. Throws a Failure for a file that
// cannot be read, an unknown key or a wrong type.
void ApplyConfigFile(const std::optional<std::string>& file, Options& options);

}  // namespace wbhost
