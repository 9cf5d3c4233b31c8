// What differs in a table that both sides have: its own properties, its columns, keys, indexes,
// checks and triggers.
#pragma once

#include <unordered_map>
#include <vector>

#include "compare/context.h"
#include "compare/tables.h"

namespace wbcompare {

// The foreign keys that a table holds as the referencing one. A key whose referencing side was
// never told to that table is found at the table that it refers to.
class ForeignKeys {
 public:
  explicit ForeignKeys(const LcWorkbook& workbook) {
    for (const LcWorkbookTable* table : workbook.tables.Present()) {
      for (const auto& key : table->GetForeignKeys()) {
        if (key->GetRole() != fkForward || key->GetPartner() != nullptr) continue;
        const LcWorkbookKeyList* side = key->GetForeignKey();
        if (side == nullptr || side->IsEmpty()) continue;
        lone_[side->GetColumns().front()->GetParentTable()].push_back(key.get());
      }
    }
  }

  // `in_pairs`: a key of several columns as the pairs that the generic route makes of it.
  template <class Use>
  void ForEach(const LcWorkbookTable& table, bool in_pairs, Use use) const {
    const auto tell = [&](const LcWorkbookForeignKey* key) {
      const LcWorkbookKeyList* side = key->GetKey();
      const int columns = side == nullptr ? 0 : side->GetCount();
      if (!in_pairs || columns < 2) {
        use(ForeignKeyRef{key, nullptr, -1});
        return;
      }
      for (int i = 0; i < columns; ++i) use(ForeignKeyRef{key, nullptr, i});
    };
    for (const auto& key : table.GetForeignKeys()) {
      if (key->GetRole() == fkMirror) tell(key.get());
    }
    const auto lone = lone_.find(&table);
    if (lone != lone_.end()) {
      for (const LcWorkbookForeignKey* key : lone->second) tell(key);
    }
    if (table.GetDetails() == nullptr) return;
    for (const LcOutsideKey& key : table.GetDetails()->outside_keys) {
      use(ForeignKeyRef{nullptr, &key, -1});
    }
  }

 private:
  std::unordered_map<const LcWorkbookTable*, std::vector<const LcWorkbookForeignKey*>> lone_;
};

class PairComparison {
 public:
  explicit PairComparison(Context& context);

  // False where one side read no keys at all and the other is read another way.
  [[nodiscard]] bool ComparesKeys() const { return keys_known_; }
  void Compare(const TablePair& pair);

 private:
  void CompareKeys(const LcWorkbookTable& before, const LcWorkbookTable& after);
  void CompareForeignKeys(const LcWorkbookTable& before, const LcWorkbookTable& after);
  void CompareIndexes(const LcWorkbookTable& before, const LcWorkbookTable& after);
  template <class Entry>
  void CompareLists(Object object, const LcWorkbookTable& before, const LcWorkbookTable& after,
                    std::vector<Entry> LcTableDetails::*list);

  Context& context_;
  const ForeignKeys old_foreign_keys_;
  const ForeignKeys new_foreign_keys_;
  const bool in_pairs_;
  const bool keys_known_;
};

}  // namespace wbcompare
