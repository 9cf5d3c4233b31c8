// Reads the functions of a server: the built-in ones from their catalogue, the users' ones from the
// server's own catalog.
#include "catalogues/function_walk.h"
#include "routes/shared/function_assembly.h"
#include "routes/shared/function_queries.h"
#include "routes/shared/readers.h"

namespace odbcimport {
namespace {

// Runs the query as a phase, and reports the number of rows when there are any.
void FetchFunctions(const ImportSession& session, const std::u16string& query,
                    enumImpItemType item_type, LcODBCRecordList& rows) {
  session.StatusDialog(inPhaseStart, item_type);
  session.RunQuery(query, rows);
  session.StatusDialog(inPhaseEnd);
  if (rows.GetRowCount() > 0) {
    session.StatusDialog(inLoopStart, item_type, static_cast<unsigned long>(rows.GetRowCount()));
  }
}

}  // namespace

bool GetBooleanFunctions(ImportSession& session) {
  LcWorkbookFunctionList* functions = session.targets.boolean_functions;
  const LeDBMSType dbms_type = session.server.dbms_type;
  std::u16string query;
  if (functions == nullptr ||
      !BuildBooleanFunctionsQuery(session.choices, query, dbms_type, session.IsIUS())) {
    return false;
  }
  LcODBCRecordList rows;
  FetchFunctions(session, query, iiBooleanFunctions, rows);
  if (rows.GetRowCount() == 0) return true;
  bool result = true;
  if (dbms_type == dbmsInformix) {
    AssembleFunctionsInformix(session, rows, {inFunctionItem, true, false}, *functions);
  } else {
    result = AssembleFunctionsDB2(session, rows, *functions);
  }
  session.StatusDialog(inLoopEnd);
  return result;
}

bool GetGeneralFunctions(ImportSession& session) {
  const LeDBMSType dbms_type = session.server.dbms_type;
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
  LcWorkbookFunctionList* functions = session.targets.functions;
  std::u16string query;
  // False for SQL Server too, although its catalogue was added: it lists no users' functions.
  if (functions == nullptr ||
      !BuildGeneralFunctionsQuery(session.choices, query, dbms_type, session.IsIUS())) {
    return false;
  }
  const bool merge = !functions->IsEmpty();
  LcODBCRecordList rows;
  FetchFunctions(session, query, iiGeneralFunctions, rows);
  if (rows.GetRowCount() == 0) return true;
  bool result = true;
  if (dbms_type == dbmsInformix) {
    AssembleFunctionsInformix(session, rows, {inSystemFunctionItem, session.IsIUS(), merge},
                              *functions);
  } else {
    result = AssembleFunctionsDB2(session, rows, *functions);
  }
  session.StatusDialog(inLoopEnd);
  return result;
}

}  // namespace odbcimport
