// What the host chose.
#include "routes/exact/selection.h"

#include <algorithm>

#include "base/utf.h"

namespace odbcimport::exact {

std::string Selection::KeyOf(std::string_view owner, std::string_view name) {
  std::string key(owner);
  key += '\0';
  return key.append(name);
}

Selection::Selection(const LcImportChoices& choices) {
  for (const LcOwnerInfo* owner : choices.selected_owners) {
    if (owner != nullptr) owners_.push_back(base::ToUtf8(owner->name));
  }
  for (const LcTableInfo* table : choices.selected_tables) {
    if (table == nullptr) continue;
    tables_.push_back({base::ToUtf8(table->owner), base::ToUtf8(table->name)});
  }
  if (IsEmpty() && !choices.owner_restriction.empty()) {
    owners_.push_back(base::ToUtf8(choices.owner_restriction));
  }
  owner_set_.insert(owners_.begin(), owners_.end());
  for (const Table& table : tables_) table_set_.insert(KeyOf(table.owner, table.name));
}

Selection::Selection(std::string owner, std::string table) {
  table_set_.insert(KeyOf(owner, table));
  tables_.push_back({std::move(owner), std::move(table)});
}

Selection::Selection(std::vector<std::pair<std::string, std::string>> tables) {
  for (auto& [owner, name] : tables) {
    table_set_.insert(KeyOf(owner, name));
    tables_.push_back({std::move(owner), std::move(name)});
  }
}

Selection Selection::OfOwner(const std::string& owner) {
  Selection selection;
  selection.owners_ = {owner};
  selection.owner_set_ = {owner};
  return selection;
}

bool Selection::Wants(std::string_view schema, std::string_view table) const {
  if (IsEmpty() || owner_set_.contains(std::string(schema))) return true;
  return table_set_.contains(KeyOf(schema, table)) || table_set_.contains(KeyOf("", table));
}

bool Selection::WantsSchema(std::string_view schema) const {
  if (IsEmpty() || owner_set_.contains(std::string(schema))) return true;
  return std::any_of(tables_.begin(), tables_.end(), [schema](const Table& table) {
    return table.owner.empty() || table.owner == schema;
  });
}

void Selection::FillMarks(const std::string* schema, MarkValues& values) const {
  values.owners.clear();
  values.table_owners.clear();
  values.table_names.clear();
  if (tables_.empty()) {
    values.owners = owners_;
    return;
  }
  // Whole schemas beside single tables: no statement is narrowed by names, the rest is dropped.
  if (!owners_.empty()) return;
  for (const Table& table : tables_) {
    if (schema != nullptr && !table.owner.empty() && table.owner != *schema) continue;
    values.table_owners.push_back(table.owner);
    values.table_names.push_back(table.name);
  }
}

std::vector<std::string> Selection::Schemas() const {
  std::vector<std::string> schemas = owners_;
  for (const Table& table : tables_) {
    if (table.owner.empty()) return {};
    schemas.push_back(table.owner);
  }
  std::sort(schemas.begin(), schemas.end());
  schemas.erase(std::unique(schemas.begin(), schemas.end()), schemas.end());
  return schemas;
}

}  // namespace odbcimport::exact
