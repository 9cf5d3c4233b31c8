// From the column pairs of foreign keys to key pairs in the workbook.
#include "routes/native/key_assembly.h"

#include <memory>

#include "base/ascii.h"
#include "catalogues/conversions.h"
#include "routes/native/key_pair.h"
#include "routes/shared/lost_keys.h"

namespace odbcimport::native {
namespace {

class KeyAssembly {
 public:
  KeyAssembly(ImportSession& session, LcWorkbookTableList& tables)
      : session_(session),
        tables_(tables),
        is_red_brick_(session.server().dbms_type == dbmsRedBrick),
        keys_(session),
        lost_(session, u"foreign keys",
              u"its columns are not paired as the server has them; the exact reading has it") {}

  void Add(const LcFKInfo& entry);

 private:
  void FindReferencingTable(const LcFKInfo& entry);
  LcWorkbookTable* FindReferencedTable(const LcFKInfo& entry);
  bool HasForwardKey();
  void Lose(const LcFKInfo& entry);

  ImportSession& session_;
  LcWorkbookTableList& tables_;
  const bool is_red_brick_;
  std::u16string_view previous_owner_;  // in an entry, which outlives the assembly
  std::u16string_view previous_table_;
  LcWorkbookTable* referencing_table_ = nullptr;
  KeyPair keys_;
  // Forward keys that no table holds; they only serve to classify their mirror keys.
  std::vector<std::unique_ptr<LcWorkbookForeignKey>> loose_keys_;
  LostKeys lost_;
  bool is_lost_ = false;  // the key in hand has been told
  // The names of the side in hand, for look-ups and reports; kept for their storage.
  std::u16string owner_, table_, column_;
};

// Red Brick does not tell owners, so a table is whichever has the name first, and only the first
// pair of a key says which it is. Elsewhere the pairs of one table follow one another.
void KeyAssembly::FindReferencingTable(const LcFKInfo& entry) {
  if (is_red_brick_) {
    if (entry.sequence != u"1") return;
    referencing_table_ = tables_.FindTableNoOwner(table_);
    keys_.ForgetForward();
    return;
  }
  if (base::EqualIgnoringCase(entry.owner, previous_owner_) &&
      base::EqualIgnoringCase(entry.table, previous_table_)) {
    return;
  }
  previous_owner_ = entry.owner;
  previous_table_ = entry.table;
  referencing_table_ = tables_.FindTable(owner_, table_);
  keys_.ForgetForward();
}

LcWorkbookTable* KeyAssembly::FindReferencedTable(const LcFKInfo& entry) {
  owner_ = entry.referenced_owner;
  table_ = entry.referenced_table;
  return is_red_brick_ ? tables_.FindTableNoOwner(table_) : tables_.FindTable(owner_, table_);
}

// Whether there is a forward key for a further pair. A Red Brick key whose first pair was passed
// over gets one that no table holds, and its pairs join the mirror key in hand, that of the last
// first pair that made one. Required (RedBrickContinuesWithoutAFirstPair): rows of the two queries
// are matched by place alone, and without such a pair the mirror key would be shorter than the
// server's.
bool KeyAssembly::HasForwardKey() {
  if (keys_.forward() != nullptr) return true;
  if (!is_red_brick_) return false;
  loose_keys_.push_back(std::make_unique<LcWorkbookForeignKey>());
  keys_.SetForward(loose_keys_.back().get());
  return true;
}

void KeyAssembly::Lose(const LcFKInfo& entry) {
  if (!is_lost_) lost_.Add(entry.owner, entry.table);
  is_lost_ = true;
}

void KeyAssembly::Add(const LcFKInfo& entry) {
  if (entry.sequence == u"1") is_lost_ = false;
  owner_ = entry.owner;
  table_ = entry.table;
  column_ = entry.column;
  FindReferencingTable(entry);
  if (referencing_table_ == nullptr || entry.table.empty()) return;
  if (entry.column.empty() || entry.referenced_table.empty() || entry.referenced_column.empty()) {
    return Lose(entry);
  }
  session_.progress.StatusDialog(inTableItem, iiNone, 0, owner_.c_str(), table_.c_str(),
                                 column_.c_str());
  LcWorkbookColumn* referencing = referencing_table_->FindColumn(column_);
  if (referencing == nullptr) return Lose(entry);
  LcWorkbookTable* referenced_table = FindReferencedTable(entry);
  if (referenced_table == nullptr) return;
  column_ = entry.referenced_column;
  LcWorkbookColumn* referenced = referenced_table->FindColumn(column_);
  if (referenced == nullptr) return Lose(entry);
  if (entry.sequence == u"1") {
    keys_.Start(*referenced_table, *referenced, *referencing_table_, *referencing);
  } else {
    if (!HasForwardKey()) return Lose(entry);
    keys_.Continue(*referenced, *referencing);
  }
  keys_.ApplyOneToOneRule();
}

}  // namespace

void AssembleForeignKeys(ImportSession& session, const LcFKInfoList& entries,
                         LcWorkbookTableList& tables) {
  KeyAssembly assembly(session, tables);
  for (const LcFKInfo& entry : entries) assembly.Add(entry);
}

}  // namespace odbcimport::native
