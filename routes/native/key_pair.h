// The two keys of one relationship while its column pairs arrive.
#pragma once

#include "routes/shared/relationship.h"

namespace odbcimport::native {

// Refers to keys that their tables own: the forward key of the referenced table and the mirror key
// of the referencing table. Both null until a first column pair was given.
class KeyPair {
 public:
  explicit KeyPair(const ImportSession& session) : session_(session) {}

  // A new relationship with this column pair; both tables get their keys.
  void Start(LcWorkbookTable& referenced_table, LcWorkbookColumn& referenced,
             LcWorkbookTable& referencing_table, LcWorkbookColumn& referencing);
  // One more column pair. A side whose key is missing is left alone.
  void Continue(LcWorkbookColumn& referenced, LcWorkbookColumn& referencing);
  void ApplyOneToOneRule() const { keys_.ApplyOneToOneRule(); }

  // Takes both keys out of their tables and deletes them.
  void TakeBack();

  [[nodiscard]] LcWorkbookForeignKey* forward() const { return keys_.forward; }
  // Lets go of the forward key only; the mirror key stays in hand.
  void ForgetForward() { keys_.forward = nullptr; }
  // Takes a forward key that no table holds, which stays the caller's.
  void SetForward(LcWorkbookForeignKey* key) { keys_.forward = key; }

 private:
  const ImportSession& session_;
  Relationship keys_;
};

}  // namespace odbcimport::native
