// The reader of tables and views with their columns.
#pragma once

#include "odbc/record_list.h"
#include "routes/shared/name_boundary.h"
#include "session/session.h"

namespace odbcimport::native {

// Turns the rows of the table-column queries into tables and columns, one record list after the
// other. A row with the owner and the name of the row before it adds to that row's table, any other
// makes a new table, also of a name that was there before.
class NativeTableReader {
 public:
  // `tables` stays the caller's.
  NativeTableReader(ImportSession& session, LcWorkbookTableList& tables)
      : session_(session), tables_(tables) {}

  // False when the import was stopped or cancelled after a column: it has to end then. A stop that
  // is noticed before a column only leaves out the rest of the list, and the answer is true.
  [[nodiscard]] bool Read(const LcODBCRecordList& rows);

 private:
  void StartTable(const LcODBCRecordList& rows, int row);

  ImportSession& session_;
  LcWorkbookTableList& tables_;
  LcWorkbookTable* table_ = nullptr;
  NameBoundary boundary_{NameBoundary::Nameless::kBelongsToNothing};
};

}  // namespace odbcimport::native
