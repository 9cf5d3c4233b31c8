// The two keys of one relationship while its column pairs arrive.
#include "routes/native/key_pair.h"

namespace odbcimport::native {
namespace {

void AddColumns(const ImportSession& session, LcWorkbookForeignKey* key, LcWorkbookColumn& own,
                LcWorkbookColumn& other) {
  if (key == nullptr) return;
  key->SetKey(&own);
  key->SetForeignKey(&other);
  session.sink.SetKeyType(key);
}

void Remove(LcWorkbookForeignKey* key) {
  if (key == nullptr || key->GetTable() == nullptr) return;
  key->GetTable()->RemoveForeignKey(key);
}

}  // namespace

void KeyPair::Start(LcWorkbookTable& referenced_table, LcWorkbookColumn& referenced,
                    LcWorkbookTable& referencing_table, LcWorkbookColumn& referencing) {
  keys_ = AddRelationship(session_, referenced_table, referenced, referencing_table, referencing);
}

void KeyPair::Continue(LcWorkbookColumn& referenced, LcWorkbookColumn& referencing) {
  AddColumns(session_, keys_.forward, referenced, referencing);
  AddColumns(session_, keys_.mirror, referencing, referenced);
}

void KeyPair::TakeBack() {
  Remove(keys_.forward);
  Remove(keys_.mirror);
  keys_ = {};
}

}  // namespace odbcimport::native
