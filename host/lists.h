// Lists of names: what `wbimport list` reads, and how it finds names that a route has no phase for.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/choices.h"
#include "host/import_run.h"

namespace wbhost {

// The names of the lists.
[[nodiscard]] std::vector<std::string> ListNames();

struct ListedName {
  std::u16string owner;  // empty: none
  std::u16string name;
};

// The items that a list is read from; none where it needs no database.
[[nodiscard]] std::uint32_t ItemsOfList(std::string_view list);

// Reads a list of that name, without the tables that the choices do not select. What its imports
// mean for the exit code goes into `outcome`, what was left out is said on the screen.
[[nodiscard]] std::vector<ListedName> ReadList(std::string_view list, const Choices& choices,
                                               ImportRunner& runner, Outcome& outcome,
                                               Screen& screen);
// The names of the owners, for another import, so without a trace; nothing when they cannot be
// read.
[[nodiscard]] std::optional<std::vector<std::u16string>> ReadOwners(const Choices& choices,
                                                                    ImportRunner& runner);

// One name a line; control characters, which would break the lines, are written as \xNN.
[[nodiscard]] std::string FormatListAsText(const std::vector<ListedName>& names);
// An array of {"owner", "name"}.
[[nodiscard]] std::string FormatListAsJson(const std::vector<ListedName>& names);

}  // namespace wbhost
