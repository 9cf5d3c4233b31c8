// Making a relationship: two keys, one for each of its tables.
#pragma once

#include "importer/workbook/table.h"
#include "session/session.h"

namespace odbcimport {

// The keys belong to their tables.
struct Relationship {
  LcWorkbookForeignKey* forward = nullptr;  // of the referenced table
  LcWorkbookForeignKey* mirror = nullptr;   // of the referencing table

  // Marks the mirror key one-to-one when neither key is. Required (simulated_route_test, native
  // reading_test): hosts draw a relationship from its mirror key, which leads from one row to one
  // row.
  void ApplyOneToOneRule() const;
};

// Gives the tables the two keys, and both keys their type. The column forms make a relationship of
// one pair of columns.
Relationship AddRelationship(const ImportSession& session, LcWorkbookTable& referenced_table,
                             const LcWorkbookKeyList& referenced,
                             LcWorkbookTable& referencing_table,
                             const LcWorkbookKeyList& referencing);
Relationship AddRelationship(const ImportSession& session, LcWorkbookTable& referenced_table,
                             LcWorkbookColumn& referenced, LcWorkbookTable& referencing_table,
                             LcWorkbookColumn& referencing);

}  // namespace odbcimport
