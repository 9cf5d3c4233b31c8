// The declared command line, for what parses it and for what is made of it: man page and
// completions.
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "host/options.h"

namespace wbhost {

// Declares every command and option with its help in the empty `app`. Parsing fills `options` and
// `config`, which must outlive it.
void DeclareCommandLine(CLI::App& app, Options& options, std::optional<std::string>& config);

}  // namespace wbhost
