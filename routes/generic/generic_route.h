// The generic route: reads a catalog through the ODBC catalog functions alone, for every server
// that has no route of its own and wherever the host's settings ask for it.
#pragma once

#include "routes/generic/catalog_statement.h"
#include "routes/generic/column_reader.h"
#include "routes/generic/foreign_key_reader.h"
#include "routes/generic/primary_key_reader.h"
#include "routes/generic/table_reader.h"
#include "session/session.h"

namespace odbcimport::generic {

// Failures of the driver are consumed: a phase goes on or ends, and nothing is shown.
class GenericRoute {
 public:
  explicit GenericRoute(ImportSession& session);

  // The result of the last phase that has one, true when none ran.
  bool Run(unsigned short& status);

 private:
  struct Phase;
  static const Phase kPhases[];

  void RunPhases();

  // The phases. Each sets result_, unless it says otherwise, and returns whether the route goes on.
  bool ReadOwnerNames();
  bool AddDataTypes();  // leaves result_ alone
  bool ReadTableNames();
  bool ReadSynonymNames();
  bool ReadColumnNames();
  bool AddOperators();
  bool ReadBooleanFunctions();
  bool AddFunctions();
  bool ReadProcedures();
  bool AddAggregates();
  bool ReadTables();

  // The steps of ReadTables.
  bool ReadTableList();
  bool ReadColumnsAndKeys();
  bool ReadForeignKeys();

  // Reports the end of a phase; false when the host has stopped or cancelled.
  bool EndPhase() const;
  bool GoesOn() const { return !session_.WasImportStoppedOrCancelled(); }

  ImportSession& session_;
  // Used for all tables, and released at the end of the route whatever ended it.
  CatalogStatement column_statement_;
  CatalogStatement primary_key_statement_;
  CatalogStatement index_statement_;
  CatalogStatement foreign_key_statement_;
  TableReader tables_;
  ColumnReader columns_;
  PrimaryKeyReader primary_keys_;
  ForeignKeyReader foreign_keys_;
  bool result_ = true;
};

// Returns the result of the last phase that has one; `status` as in
// LcODBCWorkbookImport::ImportItems. Lets no exception out.
bool ImportODBCItems(ImportSession& session, unsigned short& status);

// What an early end leaves of the tables. Removes those behind the first empty entry of the list,
// up to the next one, and keeps all others, also those without columns. Deliberate: hosts part the
// tables of an earlier import from the new ones by an empty entry, and offer a broken import's
// tables for another try.
void RemoveNoColTables(LcWorkbookTableList* tables);

}  // namespace odbcimport::generic
