// Lists of names: what `wbimport list` reads, and how it finds names that a route has no phase for.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/choices.h"
#include "host/import_run.h"

namespace wbhost {

// The names of the lists.
std::vector<std::string> ListNames();

struct ListedName {
  std::u16string owner;  // empty: none
  std::u16string name;
};

// Reads a list of that name; what its imports mean for the exit code goes into `outcome`.
std::vector<ListedName> ReadList(std::string_view list, const Choices& choices,
                                 ImportRunner& runner, Outcome& outcome);

// One name a line; control characters, which would break the lines, are written as \xNN.
std::string FormatListAsText(const std::vector<ListedName>& names);
// An array of {"owner", "name"}.
std::string FormatListAsJson(const std::vector<ListedName>& names);

}  // namespace wbhost
