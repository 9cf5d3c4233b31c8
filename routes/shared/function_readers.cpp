// Reads the functions of a server: the built-in ones from their catalogue, the users' ones from the
// server's own catalog.
#include "catalogues/function_walk.h"
#include "routes/shared/function_assembly.h"
#include "routes/shared/function_queries.h"
#include "routes/shared/readers.h"

namespace odbcimport {
namespace {

// Runs the query as the phase that ReportFunctions ends.
QueryResult FetchFunctions(const ImportSession& session, const std::u16string& query,
                           enumImpItemType item_type) {
  session.progress.StatusDialog(inPhaseStart, item_type);
  return session.RunQuery(query);
}

// Ends the phase, and reports the number of rows when there are any.
void ReportFunctions(const ImportSession& session, const LcODBCRecordList& rows,
                     enumImpItemType item_type) {
  session.progress.StatusDialog(inPhaseEnd);
  if (rows.GetRowCount() > 0) {
    session.progress.StatusDialog(inLoopStart, item_type,
                                  static_cast<unsigned long>(rows.GetRowCount()));
  }
}

}  // namespace

bool GetBooleanFunctions(ImportSession& session) {
  LcWorkbookFunctionList* functions = session.sink.boolean_functions();
  const LeDBMSType dbms_type = session.server().dbms_type;
  const std::optional<std::u16string> query =
      BuildBooleanFunctionsQuery(session.choices, dbms_type, session.IsIUS());
  if (functions == nullptr || !query) return false;
  const QueryResult result_set = FetchFunctions(session, *query, iiBooleanFunctions);
  const LcODBCRecordList& rows = result_set.RowsEvenIfFailed();
  ReportFunctions(session, rows, iiBooleanFunctions);
  if (rows.GetRowCount() == 0) return true;
  if (dbms_type == dbmsInformix) {
    AssembleFunctionsInformix(session, rows, {inFunctionItem, true, false}, *functions);
  } else {
    AssembleFunctionsDB2(session, rows, *functions);
  }
  session.progress.StatusDialog(inLoopEnd);
  return true;
}

bool GetGeneralFunctions(ImportSession& session) {
  const LeDBMSType dbms_type = session.server().dbms_type;
  switch (dbms_type) {
    case dbmsRedBrick:
      GetGeneralFunctionsRedBrick(session);
      return true;
    case dbmsOracle:
      GetSystemFunctionsOracle(session);
      return true;
    case dbmsAccess:
      GetSystemFunctionsAccess(session);
      return true;
    case dbmsInformix:
      session.IsIUS() ? GetSystemFunctionsIUS(session) : GetSystemFunctionsIDS(session);
      break;
    case dbmsDB2:
      GetSystemFunctionsDB2(session);
      break;
    case dbmsMSSQLServer:
      GetSystemFunctionsMSSQL(session);
      break;
    default:
      break;
  }
  LcWorkbookFunctionList* functions = session.sink.functions();
  const std::optional<std::u16string> query =
      BuildGeneralFunctionsQuery(session.choices, dbms_type, session.IsIUS());
  // False for SQL Server too, although its catalogue was added: it lists no users' functions.
  if (functions == nullptr || !query) return false;
  const bool merge = !functions->IsEmpty();
  const QueryResult result_set = FetchFunctions(session, *query, iiGeneralFunctions);
  const LcODBCRecordList& rows = result_set.RowsEvenIfFailed();
  ReportFunctions(session, rows, iiGeneralFunctions);
  if (rows.GetRowCount() == 0) return true;
  if (dbms_type == dbmsInformix) {
    AssembleFunctionsInformix(session, rows, {inSystemFunctionItem, session.IsIUS(), merge},
                              *functions);
  } else {
    AssembleFunctionsDB2(session, rows, *functions);
  }
  session.progress.StatusDialog(inLoopEnd);
  return true;
}

}  // namespace odbcimport
