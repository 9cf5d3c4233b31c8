// The owners, tables and views that choices select.
#pragma once

#include <set>
#include <string>
#include <utility>

#include "importer/workbook/import.h"

namespace wbhost {

// Looks tables and views up. An entry without an owner selects those of any.
class Selection {
 public:
  explicit Selection(const LcImportChoices& choices) {
    for (const LcOwnerInfo* owner : choices.selected_owners) {
      if (owner != nullptr) owners_.insert(owner->name);
    }
    for (const LcTableInfo* table : choices.selected_tables) {
      if (table != nullptr) tables_.emplace(table->owner, table->name);
    }
  }
  [[nodiscard]] bool IsEmpty() const { return owners_.empty() && tables_.empty(); }
  [[nodiscard]] bool Holds(const LcTableInfo& table) const {
    return owners_.count(table.owner) != 0 || tables_.count({table.owner, table.name}) != 0 ||
           tables_.count({u"", table.name}) != 0;
  }

 private:
  std::set<std::u16string> owners_;
  std::set<std::pair<std::u16string, std::u16string>> tables_;
};

}  // namespace wbhost
