// The route for SQL Server, Oracle, DB2 and Red Brick, which reads their own catalogs with SQL
// written for each.
#pragma once

#include "routes/native/query_results.h"
#include "session/session.h"

namespace odbcimport::native {

// One run. A phase is run when the host asked for its items; it returns true when the import goes
// on, false when it has to end early: the host stopped or cancelled it, or a key reader failed.
class NativeImport {
 public:
  explicit NativeImport(ImportSession& session) : session_(session) {}

  // What the last phase with a result returned, true when none had. What was read before an early
  // end stays in the workbook.
  bool Run(unsigned short& status);

 private:
  bool RunPhases();

  bool ReadOwnerNames();
  bool ReadDataTypes();
  bool ReadTableAndViewNames();
  bool ReadSynonymNames();
  bool ReadOperators();
  bool ReadFunctions();
  bool ReadTablesAndViews();
  bool ReadPrimaryKeys();
  bool ReadForeignKeys();
  bool ReadLocalSynonyms();
  bool ReadRemoteSynonyms();
  bool ReadProcedures();

  bool GoesOn() const { return !session_.WasImportStoppedOrCancelled(); }

  ImportSession& session_;
  bool result_ = true;
  QueryResults table_results_;
  QueryResults synonym_results_;
};

// Returns the result of the last phase that has one; `status` as in
// LcODBCWorkbookImport::ImportItems. Lets no exception out.
bool ImportNativeItems(ImportSession& session, unsigned short& status);

}  // namespace odbcimport::native
