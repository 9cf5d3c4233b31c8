// Lists of names.
#include "host/lists.h"

#include <fmt/format.h>

#include <functional>
#include <nlohmann/json.hpp>
#include <set>
#include <utility>

#include "export/model.h"
#include "host/selection.h"
#include "host/text.h"

namespace wbhost {
namespace {

// Runs an import and takes the names out of the workbook that it filled. A result of false without
// an error shown means that the server has none of what was asked for.
class Reader {
 public:
  Reader(const LcImportChoices& choices, ImportRunner& runner, Outcome& outcome, bool traced)
      : choices_(choices), runner_(runner), outcome_(outcome), traced_(traced) {}

  ImportResult Run(std::uint32_t items) { return Run(choices_, items); }
  ImportResult Run(const LcImportChoices& choices, std::uint32_t items) {
    ImportResult result = runner_.Run(choices, items, traced_);
    const bool has_none = !result.info.result && result.info.errors_shown == 0;
    result.info.result = result.info.result || has_none;
    runner_.Judge(result, outcome_);
    result.info.result = result.info.result && !has_none;
    return result;
  }
  const LcODBCWorkbookImport::Route& Route() {
    return LcODBCWorkbookImport::GetRoute(runner_.DecideRoute(choices_).route);
  }
  const LcImportChoices& choices() const { return choices_; }
  const Connection& connection() const { return runner_.connection(); }
  // A sentence part about what the list leaves out.
  void LeaveOut(const std::string& note) { left_out_ = note; }
  const std::string& left_out() const { return left_out_; }

 private:
  const LcImportChoices& choices_;
  ImportRunner& runner_;
  Outcome& outcome_;
  const bool traced_;
  std::string left_out_;
};

std::vector<ListedName> TableNames(Reader& reader, std::uint32_t items) {
  std::vector<ListedName> names;
  const ImportResult result = reader.Run(items);
  const Selection selection(reader.choices());
  for (const LcTableInfo* table : result.workbook->table_names.Present()) {
    if (!selection.IsEmpty() && !selection.Holds(*table)) continue;
    names.push_back({table->owner, table->name});
  }
  return names;
}

std::vector<ListedName> CatalogNames(Reader& reader) {
  std::vector<ListedName> names;
  const std::optional<std::vector<std::u16string>> catalogs = reader.connection().Catalogs();
  if (!catalogs) return names;
  for (const std::u16string& catalog : *catalogs) names.push_back({u"", catalog});
  return names;
}

// The routes with their own SQL have no statement for owners and would only show the error of an
// empty one; there, and where the list stays empty, the owners of tables and views are taken.
std::vector<ListedName> OwnerNames(Reader& reader) {
  std::vector<ListedName> owners;
  if (reader.Route().lists_owners) {
    const ImportResult result = reader.Run(ibOwnerNames);
    for (const LcOwnerInfo* owner : result.workbook->owner_names.Present())
      owners.push_back({u"", owner->name});
    if (!owners.empty() || !result.info.result) return owners;
  }
  std::set<std::u16string> seen;
  for (const ListedName& table : TableNames(reader, ibTableNames | ibViewNames)) {
    if (!table.owner.empty() && seen.insert(table.owner).second)
      owners.push_back({u"", table.owner});
  }
  return owners;
}

// The native route has no phase for the columns of one table: the table is imported.
std::vector<ListedName> ColumnsOfImportedTable(Reader& reader) {
  LcImportChoices choices = reader.choices();
  choices.selected_owners.EmptyList();
  choices.selected_tables.EmptyList();
  choices.selected_synonyms.EmptyList();
  choices.keys = false;
  choices.foreign_keys = false;
  std::vector<ListedName> columns;
  const ImportResult names = reader.Run(choices, ibTableNames | ibViewNames);
  for (const LcTableInfo* table : names.workbook->table_names.Present()) {
    if (table->name != choices.single_table_name ||
        (!choices.single_item_owner.empty() && table->owner != choices.single_item_owner)) {
      continue;
    }
    auto entry = std::make_unique<LcTableInfo>();
    entry->owner = table->owner;
    entry->name = table->name;
    entry->type = table->type;
    choices.selected_tables.Append(std::move(entry));
    break;
  }
  if (choices.selected_tables.IsEmpty()) return columns;
  const ImportResult result = reader.Run(choices, ibTables | ibViews);
  for (const LcWorkbookTable* table : result.workbook->tables.Present()) {
    if (table->GetName() != choices.single_table_name) continue;
    for (int i = 0; i < table->GetColumnCount(); ++i) {
      columns.push_back({u"", table->GetColumn(i)->GetName()});
    }
    break;
  }
  return columns;
}

std::vector<ListedName> ColumnNames(Reader& reader) {
  if (reader.choices().single_table_name.empty()) {
    throw Failure(ExitCode::kUsage, "list columns needs --table [OWNER.]NAME");
  }
  if (!reader.Route().lists_columns) return ColumnsOfImportedTable(reader);
  std::vector<ListedName> columns;
  const ImportResult result = reader.Run(ibColumnNames);
  for (const LcWBColumnInfo* column : result.workbook->column_names.Present())
    columns.push_back({u"", column->name});
  return columns;
}

std::vector<ListedName> TypeNames(Reader& reader) {
  std::vector<ListedName> names;
  const ImportResult result = reader.Run(ibDataTypes);
  for (const LcWorkbookDatatype* type : result.workbook->data_types.Present()) {
    const std::u16string& name = type->GetTypeName();
    names.push_back({type->GetOwner(), name.empty() ? type->GetExtendedTypeName(0) : name});
  }
  return names;
}

// Boolean functions are those that a condition may call; the server keeps them in one list with the
// others, so that a name can come twice.
std::vector<ListedName> FunctionNames(Reader& reader) {
  std::vector<ListedName> names;
  std::set<std::pair<std::u16string, std::u16string>> seen;
  const ImportResult result = reader.Run(ibBooleanFunctions | ibFunctions);
  for (const LcWorkbookFunctionList* list :
       {&result.workbook->functions, &result.workbook->boolean_functions}) {
    for (const LcWorkbookFunction* function : list->Present()) {
      if (!seen.emplace(function->GetOwner(), function->GetName()).second) {
        continue;
      }
      names.push_back({function->GetOwner(), function->GetName()});
    }
  }
  return names;
}

template <class Entries>
std::vector<ListedName> PlainNames(const Entries& entries) {
  std::vector<ListedName> names;
  for (const auto* entry : entries.Present()) names.push_back({u"", entry->GetName()});
  return names;
}

std::vector<ListedName> ProcedureNames(Reader& reader) {
  std::vector<ListedName> names;
  const ImportResult result = reader.Run(ibProcedures);
  std::size_t left_out = 0;
  for (const LcWorkbookProcedure* procedure : result.workbook->procedures.Present()) {
    if (!reader.choices().include_system && wbexport::IsOfSystem(*procedure, result.info)) {
      ++left_out;
    } else {
      names.push_back({procedure->GetOwner(), procedure->GetName()});
    }
  }
  if (left_out > 0) {
    reader.LeaveOut(
        fmt::format("{} of the server's own are left out: --system lists them", left_out));
  }
  return names;
}

struct ListReader {
  const char* name;
  std::uint32_t items;  // none: no database has to be chosen
  std::function<std::vector<ListedName>(Reader&)> read;
};

const std::vector<ListReader>& ListReaders() {
  static const std::vector<ListReader> readers = {
      {"catalogs", 0, CatalogNames},
      {"owners", ibOwnerNames, OwnerNames},
      {"tables", ibTables, [](Reader& reader) { return TableNames(reader, ibTableNames); }},
      {"views", ibViews, [](Reader& reader) { return TableNames(reader, ibViewNames); }},
      {"synonyms", ibSynonyms, [](Reader& reader) { return TableNames(reader, ibSynonymNames); }},
      {"columns", ibColumnNames, ColumnNames},
      {"types", ibDataTypes, TypeNames},
      {"operators", ibOperators,
       [](Reader& reader) { return PlainNames(reader.Run(ibOperators).workbook->operators); }},
      {"functions", ibFunctions | ibBooleanFunctions, FunctionNames},
      {"aggregates", ibAggregates,
       [](Reader& reader) { return PlainNames(reader.Run(ibAggregates).workbook->aggregates); }},
      {"procedures", ibProcedures, ProcedureNames},
  };
  return readers;
}

const ListReader& FindList(std::string_view list) {
  for (const ListReader& candidate : ListReaders()) {
    if (list == candidate.name) return candidate;
  }
  throw Failure(ExitCode::kUsage, fmt::format("there is no list '{}'", list));
}

}  // namespace

std::vector<std::string> ListNames() {
  std::vector<std::string> names;
  for (const ListReader& list : ListReaders()) names.emplace_back(list.name);
  return names;
}

std::uint32_t ItemsOfList(std::string_view list) { return FindList(list).items; }

std::vector<ListedName> ReadList(std::string_view list, const Choices& choices,
                                 ImportRunner& runner, Outcome& outcome, Screen& screen) {
  Reader reader(choices.importer, runner, outcome, true);
  std::vector<ListedName> names = FindList(list).read(reader);
  if (!reader.left_out().empty()) screen.Say(reader.left_out());
  return names;
}

std::optional<std::vector<std::u16string>> ReadOwners(const Choices& choices,
                                                      ImportRunner& runner) {
  Outcome outcome;
  Reader reader(choices.importer, runner, outcome, false);
  std::vector<std::u16string> owners;
  for (const ListedName& owner : OwnerNames(reader)) {
    if (!owner.name.empty()) owners.push_back(owner.name);
  }
  return outcome.IsOk() ? std::optional(owners) : std::nullopt;
}

std::string FormatListAsText(const std::vector<ListedName>& names) {
  std::string text;
  for (const ListedName& name : names) {
    for (const char c : DisplayName(name.owner, name.name)) {
      const auto byte = static_cast<unsigned char>(c);
      text += byte < 0x20 || byte == 0x7f ? fmt::format("\\x{:02x}", byte) : std::string(1, c);
    }
    text += '\n';
  }
  return text;
}

std::string FormatListAsJson(const std::vector<ListedName>& names) {
  std::string text = "[";
  for (const ListedName& name : names) {
    nlohmann::ordered_json entry;
    entry["owner"] = ToUtf8(name.owner);
    entry["name"] = ToUtf8(name.name);
    text += (text.size() == 1 ? "\n  " : ",\n  ") + entry.dump();
  }
  return text + (names.empty() ? "]\n" : "\n]\n");
}

}  // namespace wbhost
