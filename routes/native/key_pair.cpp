// The two keys of one relationship while its column pairs arrive.
#include "routes/native/key_pair.h"

namespace odbcimport::native {
namespace {

// A key with one column on either side, given to its table.
LcWorkbookForeignKey* AddKey(const ImportSession& session, LcWorkbookTable& table,
                             LcWorkbookColumn* own, LcWorkbookColumn* other) {
  auto key_side = std::make_unique<LcWorkbookKeyList>();
  key_side->AddKeyColumn(own);
  auto foreign_side = std::make_unique<LcWorkbookKeyList>();
  foreign_side->AddKeyColumn(other);
  auto key = std::make_unique<LcWorkbookForeignKey>();
  key->SetKey(key_side.release());
  key->SetForeignKey(foreign_side.release());
  LcWorkbookForeignKey* added = key.get();
  table.AddForeignKey(key.release());
  session.SetKeyType(added);
  return added;
}

void AddColumns(const ImportSession& session, LcWorkbookForeignKey* key, LcWorkbookColumn* own,
                LcWorkbookColumn* other) {
  if (key == nullptr) return;
  key->SetKey(own);
  key->SetForeignKey(other);
  session.SetKeyType(key);
}

void Remove(LcWorkbookForeignKey* key) {
  if (key == nullptr || key->GetTable() == nullptr) return;
  key->GetTable()->RemoveForeignKey(key);
}

}  // namespace

void KeyPair::Start(LcWorkbookTable& referenced_table, LcWorkbookColumn* referenced,
                    LcWorkbookTable& referencing_table, LcWorkbookColumn* referencing) {
  forward_ = AddKey(session_, referenced_table, referenced, referencing);
  mirror_ = AddKey(session_, referencing_table, referencing, referenced);
  LcWorkbookForeignKey::Pair(forward_, mirror_);
}

void KeyPair::Continue(LcWorkbookColumn* referenced, LcWorkbookColumn* referencing) {
  AddColumns(session_, forward_, referenced, referencing);
  AddColumns(session_, mirror_, referencing, referenced);
}

void KeyPair::ApplyOneToOneRule() {
  if (forward_ == nullptr || mirror_ == nullptr) return;
  if (!forward_->IsOneToOne() && !mirror_->IsOneToOne()) mirror_->SetOneToOne(true);
}

void KeyPair::TakeBack() {
  Remove(forward_);
  Remove(mirror_);
  forward_ = nullptr;
  mirror_ = nullptr;
}

}  // namespace odbcimport::native
