// The names that a server has.
#include "host/server_names.h"

#include <algorithm>
#include <memory>

#include "host/lists.h"

namespace wbhost {
namespace {

constexpr std::uint32_t kTablesAndViews = ibTableNames | ibViewNames;

LcImportChoices Unselected(LcImportChoices choices) {
  choices.selected_owners.EmptyList();
  choices.selected_tables.EmptyList();
  choices.selected_synonyms.EmptyList();
  choices.single_item_owner.clear();
  choices.single_table_name.clear();
  return choices;
}

}  // namespace

std::optional<ServerNames::Entries> ServerNames::Read(const LcImportChoices& choices,
                                                      std::uint32_t items) {
  results_.push_back(runner_.Run(choices, items, false));
  const ImportResult& result = results_.back();
  const bool failed = result.info.incomplete || result.info.errors_shown > errors_shown_;
  errors_shown_ = result.info.errors_shown;
  if (failed) return std::nullopt;
  Entries entries;
  for (const LcTableInfo* name : result.workbook->table_names) {
    if (name != nullptr) entries.push_back(name);
  }
  return entries;
}

const std::optional<ServerNames::Entries>& ServerNames::TablesAndViews() {
  if (!tables_and_views_) tables_and_views_ = Read(Unselected(choices_), kTablesAndViews);
  return *tables_and_views_;
}

const std::optional<ServerNames::Entries>& ServerNames::Synonyms() {
  if (synonyms_) return *synonyms_;
  synonyms_ = Read(Unselected(choices_), ibSynonymNames);
  if (std::optional<Entries>& names = *synonyms_) {
    const auto is_none = [](const LcTableInfo* name) { return name->type != ttSynonym; };
    names->erase(std::remove_if(names->begin(), names->end(), is_none), names->end());
  }
  return *synonyms_;
}

ServerNames::Entries ServerNames::LookUp(const std::vector<LcTableInfo>& names) {
  if (tables_and_views_ || !choices_.owner_restriction.empty() || runner_.IsRecordedOrPlayed() ||
      runner_.DecideRoute(choices_).route != LcODBCWorkbookImport::RouteKind::kExact) {
    return {};
  }
  LcImportChoices search = Unselected(choices_);
  for (const LcTableInfo& name : names) {
    search.selected_tables.Append(std::make_unique<LcTableInfo>(name));
  }
  return Read(search, kTablesAndViews).value_or(Entries());
}

std::optional<ServerNames::Texts> ServerNames::Owners() {
  Choices search;
  search.importer = Unselected(choices_);
  search.importer.owner_restriction.clear();
  return ReadOwners(search, runner_);
}

bool ServerNames::OwnerHasTables(const std::u16string& owner) {
  LcImportChoices search = Unselected(choices_);
  search.owner_restriction = owner;
  const std::optional<Entries> names = Read(search, kTablesAndViews);
  // A driver that knows no owners gives the tables of any.
  return names && std::any_of(names->begin(), names->end(),
                              [&](const LcTableInfo* name) { return name->owner == owner; });
}

}  // namespace wbhost
