// The two keys of one relationship while its column pairs arrive.
#pragma once

#include <memory>

#include "importer/workbook/table.h"
#include "session/session.h"

namespace odbcimport::native {

// Refers to keys that their tables own: the forward key of the referenced table and the mirror key
// of the referencing table. Both null until a first column pair was given.
class KeyPair {
 public:
  explicit KeyPair(const ImportSession& session) : session_(session) {}

  // A new relationship with this column pair; both tables get their keys.
  void Start(LcWorkbookTable& referenced_table, LcWorkbookColumn* referenced,
             LcWorkbookTable& referencing_table, LcWorkbookColumn* referencing);
  // One more column pair. A side whose key is missing is left alone.
  void Continue(LcWorkbookColumn* referenced, LcWorkbookColumn* referencing);
  // Marks the mirror key one-to-one when neither key is classified so: deliberate, hosts draw a
  // relationship from its mirror key, which leads from one row to one row.
  void ApplyOneToOneRule();

  // Takes both keys out of their tables and deletes them.
  void TakeBack();

  LcWorkbookForeignKey* forward() const { return forward_; }
  // Lets go of the forward key only; the mirror key stays in hand.
  void ForgetForward() { forward_ = nullptr; }
  // Takes a forward key that no table holds, which stays the caller's.
  void SetForward(LcWorkbookForeignKey* key) { forward_ = key; }

 private:
  const ImportSession& session_;
  LcWorkbookForeignKey* forward_ = nullptr;
  LcWorkbookForeignKey* mirror_ = nullptr;
};

}  // namespace odbcimport::native
