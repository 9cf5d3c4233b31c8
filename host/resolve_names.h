// Names that options and request files give, against those that the server has.
#pragma once

#include <optional>
#include <string>

#include "host/choices.h"
#include "host/import_run.h"
#include "host/screen.h"

namespace wbhost {

// Puts the names that the patterns of the choices match in their place, so that the queries of an
// import of `items` ask for nothing else. An exact match goes before one that ignores case. Reads
// only the lists of names that it needs. A pattern that matches nothing, or several where one is
// wanted, is a Failure (wrong usage) that offers the nearest names; so is `around` (of `--around`,
// UTF-8) when it will not be among the tables, and a connection without a database where one is
// needed. A name of the request file that is not there is only warned of on the screen. Where the
// names cannot be read, names without wildcards are passed on as they stand.
void ResolveNames(Choices& choices, std::uint32_t items, const std::optional<std::string>& around,
                  ImportRunner& runner, Screen& screen);

}  // namespace wbhost
