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
  std::u16string query;
  if (functions == nullptr ||
      !BuildBooleanFunctionsQuery(session.choices, query, dbms_type, session.IsIUS())) {
    return false;
  }
  const QueryResult result_set = FetchFunctions(session, query, iiBooleanFunctions);
  const LcODBCRecordList& rows = result_set.RowsEvenIfFailed();
  ReportFunctions(session, rows, iiBooleanFunctions);
  if (rows.GetRowCount() == 0) return true;
  bool result = true;
  if (dbms_type == dbmsInformix) {
    AssembleFunctionsInformix(session, rows, {inFunctionItem, true, false}, *functions);
  } else {
    result = AssembleFunctionsDB2(session, rows, *functions);
  }
  session.progress.StatusDialog(inLoopEnd);
  return result;
}

bool GetGeneralFunctions(ImportSession& session) {
  const LeDBMSType dbms_type = session.server().dbms_type;
  switch (dbms_type) {
    case dbmsRedBrick:
      return GetGeneralFunctionsRedBrick(session);
    case dbmsOracle:
      return GetSystemFunctionsOracle(session);
    case dbmsAccess:
      return GetSystemFunctionsAccess(session);
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
  std::u16string query;
  // False for SQL Server too, although its catalogue was added: it lists no users' functions.
  if (functions == nullptr ||
      !BuildGeneralFunctionsQuery(session.choices, query, dbms_type, session.IsIUS())) {
    return false;
  }
  const bool merge = !functions->IsEmpty();
  const QueryResult result_set = FetchFunctions(session, query, iiGeneralFunctions);
  const LcODBCRecordList& rows = result_set.RowsEvenIfFailed();
  ReportFunctions(session, rows, iiGeneralFunctions);
  if (rows.GetRowCount() == 0) return true;
  bool result = true;
  if (dbms_type == dbmsInformix) {
    AssembleFunctionsInformix(session, rows, {inSystemFunctionItem, session.IsIUS(), merge},
                              *functions);
  } else {
    result = AssembleFunctionsDB2(session, rows, *functions);
  }
  session.progress.StatusDialog(inLoopEnd);
  return result;
}

}  // namespace odbcimport
