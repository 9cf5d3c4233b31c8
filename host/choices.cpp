// What the user chose to import: the item names, the default items, and options over a request
// file.
#include "host/choices.h"

#include <fmt/format.h>

#include <iostream>
#include <iterator>

#include "host/outcome.h"

namespace wbhost {
namespace {

constexpr std::uint32_t kDefaultItems = ibTables | ibViews | ibSynonyms | ibProcedures |
                                        ibDataTypes | ibOperators | ibBooleanFunctions |
                                        ibFunctions | ibAggregates;

QualifiedName ParseSelection(const std::string& text, const char* option) {
  QualifiedName name = ParseQualifiedName(text);
  if (name.name.empty()) {
    throw Failure(ExitCode::kUsage,
                  fmt::format("{}: '{}' has no name; it takes [OWNER.]NAME", option, text));
  }
  return name;
}

std::uint32_t ParseItems(const std::vector<std::string>& names) {
  std::uint32_t mask = 0;
  for (const std::string& name : names) {
    const std::optional<LeItemBit> bit = FindItem(name);
    if (!bit) {
      std::string known;
      for (const Item& item : AllItems()) known += fmt::format(" {}", item.name);
      throw Failure(ExitCode::kUsage,
                    fmt::format("--items: there is no item '{}'; there are{}", name, known));
    }
    mask |= *bit;
  }
  return mask;
}

void AppendTables(const std::vector<std::string>& names, const char* option, enumTableType type,
                  LcTableInfoList& list) {
  for (const std::string& text : names) {
    const QualifiedName name = ParseSelection(text, option);
    auto entry = std::make_unique<LcTableInfo>();
    entry->owner = name.owner;
    entry->name = name.name;
    entry->type = type;
    list.Append(std::move(entry));
  }
}

void ApplyOptions(const ChoiceOptions& options, Choices& choices) {
  LcImportChoices& importer = choices.importer;
  if (!options.items.empty()) choices.items = ParseItems(options.items);
  if (options.owner) importer.owner_restriction = ToUtf16(*options.owner);
  if (options.catalog) importer.catalog = ToUtf16(*options.catalog);
  if (options.system) importer.include_system = *options.system;
  if (options.keys) importer.keys = *options.keys;
  if (options.foreign_keys) importer.foreign_keys = *options.foreign_keys;
  if (options.dbms_type) importer.dbms_type = static_cast<LeDBMSType>(*options.dbms_type);
  if (options.generic) choices.settings[u"GenericWorkbookImport"] = std::uint32_t{1};
  if (options.table) {
    const QualifiedName name = ParseSelection(*options.table, "--table");
    importer.single_item_owner = name.owner;
    importer.single_table_name = name.name;
  }
  if (!options.select_owner.empty()) {
    importer.selected_owners.EmptyList();
    for (const std::string& owner : options.select_owner) {
      auto entry = std::make_unique<LcOwnerInfo>();
      entry->name = ToUtf16(owner);
      importer.selected_owners.Append(std::move(entry));
    }
  }
  if (!options.select_table.empty() || !options.select_view.empty()) {
    importer.selected_tables.EmptyList();
    AppendTables(options.select_table, "--select-table", ttTable, importer.selected_tables);
    AppendTables(options.select_view, "--select-view", ttView, importer.selected_tables);
  }
  if (!options.select_synonym.empty()) {
    importer.selected_synonyms.EmptyList();
    for (const std::string& synonym : options.select_synonym) {
      choices.synonyms_to_find.push_back(ParseSelection(synonym, "--select-synonym"));
    }
  }
}

std::string ReadRequestText(const std::string& file) {
  if (file == "-") return {std::istreambuf_iterator<char>(std::cin), {}};
  const std::optional<std::string> text = ReadWholeFile(file);
  if (!text) throw Failure(ExitCode::kUsage, fmt::format("cannot read the request file {}", file));
  return *text;
}

}  // namespace

const std::vector<Item>& AllItems() {
  static const std::vector<Item> items = {
      {"tables", ibTables},
      {"views", ibViews},
      {"synonyms", ibSynonyms},
      {"procedures", ibProcedures},
      {"data-types", ibDataTypes},
      {"operators", ibOperators},
      {"boolean-functions", ibBooleanFunctions},
      {"functions", ibFunctions},
      {"aggregates", ibAggregates},
      {"owner-names", ibOwnerNames},
      {"table-names", ibTableNames},
      {"view-names", ibViewNames},
      {"synonym-names", ibSynonymNames},
      {"column-names", ibColumnNames},
  };
  return items;
}

std::optional<LeItemBit> FindItem(std::string_view name) {
  for (const Item& item : AllItems()) {
    if (name == item.name) return item.bit;
  }
  return std::nullopt;
}

Choices::Choices() {
  importer.keys = true;
  importer.foreign_keys = true;
}

std::uint32_t Choices::ItemMask() const {
  if (items) return *items;
  const bool synonym_selected = !importer.selected_synonyms.IsEmpty() || !synonyms_to_find.empty();
  const bool any_selected = synonym_selected || !importer.selected_owners.IsEmpty() ||
                            !importer.selected_tables.IsEmpty();
  return any_selected && !synonym_selected ? kDefaultItems & ~std::uint32_t{ibSynonyms}
                                           : kDefaultItems;
}

Choices ReadChoices(const ChoiceOptions& options) {
  Choices choices;
  if (options.request) {
    choices = ParseRequest(ReadRequestText(*options.request),
                           *options.request == "-" ? "standard input" : *options.request);
  }
  ApplyOptions(options, choices);
  return choices;
}

}  // namespace wbhost
