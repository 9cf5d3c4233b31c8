// What the user chose to import: a request file, options over it, and what both mean to the
// importer.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "host/options.h"
#include "host/text.h"
#include "importer/workbook/import.h"

namespace wbhost {

struct Item {
  const char* name;
  LeItemBit bit;
};
// The kinds of items by the names that the command line and the request file use.
const std::vector<Item>& AllItems();
// Empty when there is no item of that name.
std::optional<LeItemBit> FindItem(std::string_view name);

// A setting of this run: a DWORD, or a text, which the settings store holds as a value of another
// type and which therefore counts as not set.
using Setting = std::variant<std::uint32_t, std::u16string>;
using Settings = std::map<std::u16string, Setting>;

struct Choices {
  Choices();
  LcImportChoices importer;            // all but the item mask, which ItemMask() gives
  std::optional<std::uint32_t> items;  // empty: left to the default
  Settings settings;
  // Synonyms selected by options. The entries of importer.selected_synonyms for them are put
  // together from the server's synonym names.
  std::vector<QualifiedName> synonyms_to_find;

  // The items to import: those chosen, or the first nine kinds, of which synonyms are left out when
  // something is selected and no synonym is.
  std::uint32_t ItemMask() const;
};

// Reads a request file (JSON). Throws a Failure that names the file and the field.
Choices ParseRequest(std::string_view json, const std::string& file_name);

// The request file, if any, with the options over it. Throws a Failure.
Choices ReadChoices(const ChoiceOptions& options);

}  // namespace wbhost
