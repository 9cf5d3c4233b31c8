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

#include "host/name_pattern.h"
#include "host/options.h"
#include "importer/workbook/import.h"

namespace wbhost {

struct Item {
  const char* name;
  LeItemBit bit;
};
// The kinds of items by the names that the command line and the request file use.
[[nodiscard]] const std::vector<Item>& AllItems();
// Empty when there is no item of that name.
[[nodiscard]] std::optional<LeItemBit> FindItem(std::string_view name);

// A setting of this run: a DWORD, or a text, which the settings store holds as a value of another
// type and which therefore counts as not set.
using Setting = std::variant<std::uint32_t, std::u16string>;
using Settings = std::map<std::u16string, Setting>;

// What options name. The server's names that they match replace them before an import, so that its
// queries ask for those alone.
struct NamePatterns {
  std::optional<NamePattern> catalog;
  std::optional<NamePattern> owner;  // the restriction
  std::optional<NamePattern> table;  // the single one
  std::vector<NamePattern> owners;
  std::vector<NamePattern> tables;
  std::vector<NamePattern> views;
  std::vector<NamePattern> synonyms;
  std::vector<NamePattern> excluded;  // tables and views
};

struct Choices {
  Choices();
  LcImportChoices importer;            // all but the item mask, which ItemMask() gives
  std::optional<std::uint32_t> items;  // empty: left to the default
  Settings settings;
  // How the catalog is read; importer.reading is what it comes to.
  enum class Reading { kAuto, kExact, kCompatible };
  Reading reading = Reading::kAuto;
  std::optional<std::string> dialect_file;  // its text goes into importer.dialect
  NamePatterns names;
  bool unsafe_names = false;  // names that could leave their quotes pass as they stand
  std::string request;        // the request file's name, for messages; empty: none was given

  [[nodiscard]] bool HasSingleTable() const;
  // The items to import: those chosen, or the first nine kinds, of which synonyms are left out when
  // something is selected and no synonym is.
  [[nodiscard]] std::uint32_t ItemMask() const;
};

[[nodiscard]] const char* NameOf(Choices::Reading reading);
// Empty when there is no reading of that name.
[[nodiscard]] std::optional<Choices::Reading> FindReading(std::string_view name);

// Reads a request file (JSON). Throws a Failure that names the file and the field.
[[nodiscard]] Choices ParseRequest(std::string_view json, const std::string& file_name);

// The request file, if any, with the options over it. Throws a Failure.
[[nodiscard]] Choices ReadChoices(const ChoiceOptions& options);
// The same with other choices than the usual ones where no request file is given.
[[nodiscard]] Choices ReadChoices(const ChoiceOptions& options, Choices otherwise);

// The choices in the form of a request file: a JSON object that asks for the same import. Choices
// that are as they are without a file are left out.
[[nodiscard]] std::string WriteRequest(const Choices& choices);

}  // namespace wbhost
