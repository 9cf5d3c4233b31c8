// From the column pairs of foreign keys to key pairs in the workbook: the same for DB2, Oracle and
// Red Brick, which deliver keys pair by pair.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "importer/workbook/object.h"
#include "importer/workbook/table.h"
#include "session/session.h"

namespace odbcimport::native {

// One column pair of one foreign key. The names lie in the record lists that it was read from,
// which live until the keys are assembled.
struct LcFKInfo : LcObject {
  const char* GetRuntimeClass() const override { return "LcFKInfo"; }

  std::u16string_view owner;  // of the referencing table; empty where the server does not tell
  std::u16string_view table;
  std::u16string_view column;
  std::u16string_view referenced_owner;
  std::u16string_view referenced_table;
  std::u16string_view referenced_column;
  std::u16string sequence;  // place in its key, as decimal text; "1" starts a new key
};
using LcFKInfoList = std::vector<LcFKInfo>;

// Reports each pair whose referencing table is known, and adds the keys to the tables. A key that
// names a column which its table does not have is left out, as one with other columns is, and told.
void AssembleForeignKeys(ImportSession& session, const LcFKInfoList& entries,
                         LcWorkbookTableList& tables);

}  // namespace odbcimport::native
