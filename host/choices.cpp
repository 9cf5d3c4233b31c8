// What the user chose to import: the item names, the default items, and options over a request
// file.
#include "host/choices.h"

#include <fmt/format.h>

#include "host/limits.h"
#include "host/nearest.h"
#include "host/outcome.h"
#include "host/text.h"

namespace wbhost {
namespace {

constexpr std::uint32_t kDefaultItems = ibTables | ibViews | ibSynonyms | ibProcedures |
                                        ibDataTypes | ibOperators | ibBooleanFunctions |
                                        ibFunctions | ibAggregates;

std::uint32_t ParseItems(const std::vector<std::string>& names) {
  std::uint32_t mask = 0;
  for (const std::string& name : names) {
    const std::optional<LeItemBit> bit = FindItem(name);
    if (!bit) {
      std::vector<std::string> known;
      for (const Item& item : AllItems()) known.emplace_back(item.name);
      throw Failure(ExitCode::kUsage,
                    fmt::format("--items: there is no item '{}'{}", name, DidYouMean(name, known)));
    }
    mask |= *bit;
  }
  return mask;
}

// An empty text takes back what a request file says.
void ReadName(const std::optional<std::string>& text, const char* option, std::u16string& from_file,
              std::optional<NamePattern>& pattern) {
  if (!text) return;
  from_file.clear();
  if (!text->empty()) pattern = NamePattern::OfName(*text, option);
}

std::vector<NamePattern> ReadTables(const std::vector<std::string>& texts, const char* option) {
  std::vector<NamePattern> patterns;
  for (const std::string& text : texts) patterns.push_back(NamePattern::OfTable(text, option));
  return patterns;
}

void ApplyNames(const ChoiceOptions& options, Choices& choices) {
  LcImportChoices& importer = choices.importer;
  NamePatterns& names = choices.names;
  ReadName(options.owner, "--owner", importer.owner_restriction, names.owner);
  ReadName(options.catalog, "--catalog", importer.catalog, names.catalog);
  if (options.table) {
    names.table = NamePattern::OfTable(*options.table, "--table");
    importer.single_item_owner.clear();
    importer.single_table_name.clear();
  }
  for (const std::string& owner : options.select_owner) {
    names.owners.push_back(NamePattern::OfName(owner, "--select-owner"));
  }
  names.tables = ReadTables(options.select_table, "--select-table");
  names.views = ReadTables(options.select_view, "--select-view");
  names.synonyms = ReadTables(options.select_synonym, "--select-synonym");
  names.excluded = ReadTables(options.exclude, "--exclude");
  if (!names.owners.empty()) importer.selected_owners.EmptyList();
  if (!names.tables.empty() || !names.views.empty()) importer.selected_tables.EmptyList();
  if (!names.synonyms.empty()) importer.selected_synonyms.EmptyList();
}

void ApplyOptions(const ChoiceOptions& options, Choices& choices) {
  LcImportChoices& importer = choices.importer;
  if (!options.items.empty()) choices.items = ParseItems(options.items);
  if (options.system) importer.include_system = *options.system;
  if (options.keys) importer.keys = *options.keys;
  if (options.foreign_keys) importer.foreign_keys = *options.foreign_keys;
  if (options.dbms_type) importer.dbms_type = static_cast<LeDBMSType>(*options.dbms_type);
  if (options.generic) choices.settings[u"GenericWorkbookImport"] = std::uint32_t{1};
  if (options.unsafe_names) choices.unsafe_names = true;
  if (options.reading) choices.reading = *FindReading(*options.reading);
  if (options.dialect) {
    // Who names a dialect means it to be used.
    if (!options.reading) choices.reading = Choices::Reading::kExact;
    choices.dialect_file = options.dialect;
  }
  ApplyNames(options, choices);
}

std::string ReadRequestText(const std::string& file) {
  std::string why;
  std::optional<std::string> text = ReadWholeFile(file, kMostRequestBytes, why);
  if (!text) {
    throw Failure(ExitCode::kUsage, fmt::format("cannot read the request file {}: {}", file, why));
  }
  return std::move(*text);
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

std::optional<Choices::Reading> FindReading(std::string_view name) {
  if (name == "auto") return Choices::Reading::kAuto;
  if (name == "exact") return Choices::Reading::kExact;
  if (name == "compatible") return Choices::Reading::kCompatible;
  return std::nullopt;
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

bool Choices::HasSingleTable() const { return names.table || !importer.single_table_name.empty(); }

std::uint32_t Choices::ItemMask() const {
  if (items) return *items;
  const bool synonym_selected = !importer.selected_synonyms.IsEmpty() || !names.synonyms.empty();
  const bool any_selected = synonym_selected || !names.owners.empty() || !names.tables.empty() ||
                            !names.views.empty() || !importer.selected_owners.IsEmpty() ||
                            !importer.selected_tables.IsEmpty();
  return any_selected && !synonym_selected ? kDefaultItems & ~std::uint32_t{ibSynonyms}
                                           : kDefaultItems;
}

Choices ReadChoices(const ChoiceOptions& options) { return ReadChoices(options, {}); }

Choices ReadChoices(const ChoiceOptions& options, Choices otherwise) {
  Choices choices = std::move(otherwise);
  if (options.request) {
    const std::string name = *options.request == "-" ? "standard input" : *options.request;
    choices = ParseRequest(ReadRequestText(*options.request), name);
    choices.request = name;
  }
  ApplyOptions(options, choices);
  choices.importer.reading =
      choices.reading == Choices::Reading::kCompatible ? rdCompatible : rdExact;
  return choices;
}

}  // namespace wbhost
