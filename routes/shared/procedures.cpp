// Reads the names of the stored procedures.
#include <memory>
#include <string>

#include "odbc/record_list.h"
#include "routes/shared/function_queries.h"
#include "routes/shared/readers.h"

namespace odbcimport {

bool GetProcedures(ImportSession& session, LcWorkbookProcedureList& procedures) {
  const std::optional<std::u16string> sql =
      BuildProcedureQuery(session.choices, session.server().dbms_type);
  if (!sql) return false;
  session.progress.StatusDialog(inPhaseStart, iiProcedures);
  const QueryResult query = session.RunQuery(*sql);
  const LcODBCRecordList& rows = query.RowsEvenIfFailed();
  session.progress.StatusDialog(inPhaseEnd);
  const int count = rows.GetRowCount();
  if (count > 0) {
    session.progress.StatusDialog(inLoopStart, iiProcedures, static_cast<unsigned long>(count));
    for (int row = 1; row <= count; ++row) {
      const std::u16string owner(rows.View(row, 1));
      const std::u16string name(rows.View(row, 2));
      session.progress.StatusDialog(inProcedureItem, iiNone, 0, owner.c_str(), name.c_str());
      procedures.Append(std::make_unique<LcWorkbookProcedure>(owner, name));
    }
  }
  // Required (functions_servers_test): sent without a loop start when there is no procedure. Hosts
  // end their progress display of the procedures with it.
  session.progress.StatusDialog(inLoopEnd);
  return true;
}

}  // namespace odbcimport
