// Making a relationship.
#include "routes/shared/relationship.h"

#include <memory>

namespace odbcimport {
namespace {

// The lists go to the key that they are made for.
LcWorkbookKeyList* NewList(const LcWorkbookKeyList& columns) {
  return std::make_unique<LcWorkbookKeyList>(columns).release();
}
LcWorkbookKeyList* NewList(LcWorkbookColumn& column) {
  auto list = std::make_unique<LcWorkbookKeyList>();
  list->AddKeyColumn(&column);
  return list.release();
}

template <class Columns>
Relationship Add(const ImportSession& session, LcWorkbookTable& referenced_table,
                 Columns& referenced, LcWorkbookTable& referencing_table, Columns& referencing) {
  auto forward = std::make_unique<LcWorkbookForeignKey>();
  auto mirror = std::make_unique<LcWorkbookForeignKey>();
  forward->SetKey(NewList(referenced));
  forward->SetForeignKey(NewList(referencing));
  mirror->SetKey(NewList(referencing));
  mirror->SetForeignKey(NewList(referenced));
  const Relationship made = {forward.get(), mirror.get()};
  LcWorkbookForeignKey::Pair(made.forward, made.mirror);
  referenced_table.AddForeignKey(forward.release());
  referencing_table.AddForeignKey(mirror.release());
  session.sink.SetKeyType(made.forward);
  session.sink.SetKeyType(made.mirror);
  return made;
}

}  // namespace

void Relationship::ApplyOneToOneRule() const {
  if (forward == nullptr || mirror == nullptr) return;
  if (!forward->IsOneToOne() && !mirror->IsOneToOne()) mirror->SetOneToOne(true);
}

Relationship AddRelationship(const ImportSession& session, LcWorkbookTable& referenced_table,
                             const LcWorkbookKeyList& referenced,
                             LcWorkbookTable& referencing_table,
                             const LcWorkbookKeyList& referencing) {
  return Add(session, referenced_table, referenced, referencing_table, referencing);
}

Relationship AddRelationship(const ImportSession& session, LcWorkbookTable& referenced_table,
                             LcWorkbookColumn& referenced, LcWorkbookTable& referencing_table,
                             LcWorkbookColumn& referencing) {
  return Add(session, referenced_table, referenced, referencing_table, referencing);
}

}  // namespace odbcimport
