// The generic route: its phases in the order in which they run.
#include "routes/generic/generic_route.h"

#include "catalogues/type_lists.h"
#include "routes/generic/catalog_statement.h"
#include "routes/generic/column_reader.h"
#include "routes/generic/connection_facts.h"
#include "routes/generic/foreign_key_reader.h"
#include "routes/generic/offer_reader.h"
#include "routes/generic/primary_key_reader.h"
#include "routes/generic/table_reader.h"
#include "routes/shared/phases.h"
#include "routes/shared/restrictions.h"
#include "session/server_facts.h"

namespace odbcimport::generic {
namespace {

class GenericRoute {
 public:
  // Required (sqlite_route_test): no notification of the import's end, which the other routes send.
  // Hosts close their progress window when this call returns.
  static constexpr bool kReportsEnd = false;

  explicit GenericRoute(ImportSession& session);
  void Release();

  // The phases. Each sets the result, unless it says otherwise.
  bool FindSystemOwner();  // leaves it alone
  bool ReadOwnerNames();
  bool AddDataTypes();  // leaves it alone
  bool ReadTableNames();
  bool ReadSynonymNames();
  bool ReadColumnNames();
  bool AddOperators();
  bool ReadBooleanFunctions();
  bool AddFunctions();
  bool ReadProcedures();
  bool AddAggregates();
  bool ReadTables();

  bool result = true;

 private:
  // The steps of ReadTables.
  bool ReadTableList();
  bool ReadColumnsAndKeys();
  bool ReadForeignKeys();

  // Reports the end of a phase; false when the host has stopped or cancelled.
  bool EndPhase() const;
  bool GoesOn() const { return !session_.progress.WasImportStoppedOrCancelled(); }

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
};

// clang-format off
constexpr Phase<GenericRoute> kPhases[] = {
    {kWhateverIsWanted,                "system owner",      &GenericRoute::FindSystemOwner},
    {ibOwnerNames,                     "owner names",       &GenericRoute::ReadOwnerNames},
    {ibDataTypes,                      "data types",        &GenericRoute::AddDataTypes},
    {ibTableNames | ibViewNames,       "table names",       &GenericRoute::ReadTableNames},
    {ibSynonymNames,                   "synonym names",     &GenericRoute::ReadSynonymNames},
    {ibColumnNames,                    "column names",      &GenericRoute::ReadColumnNames},
    {ibOperators,                      "operators",         &GenericRoute::AddOperators},
    {ibBooleanFunctions,               "boolean functions", &GenericRoute::ReadBooleanFunctions},
    {ibFunctions,                      "functions",         &GenericRoute::AddFunctions},
    {ibProcedures,                     "procedures",        &GenericRoute::ReadProcedures},
    {ibAggregates,                     "aggregates",        &GenericRoute::AddAggregates},
    {ibTables | ibViews | ibSynonyms,  "tables",            &GenericRoute::ReadTables},
};
// clang-format on

GenericRoute::GenericRoute(ImportSession& session)
    : session_(session),
      tables_(session),
      columns_(session, column_statement_),
      primary_keys_(session, column_statement_, primary_key_statement_, index_statement_),
      foreign_keys_(session, foreign_key_statement_) {}

void GenericRoute::Release() {
  column_statement_.Release();
  primary_key_statement_.Release();
  index_statement_.Release();
  foreign_key_statement_.Release();
}

bool GenericRoute::FindSystemOwner() {
  if (session_.choices.include_system) GetSystemOwnerODBC(session_);
  return true;
}

bool GenericRoute::EndPhase() const {
  session_.progress.StatusDialog(inPhaseEnd);
  return GoesOn();
}

bool GenericRoute::ReadOwnerNames() {
  session_.progress.StatusDialog(inPhaseStart, iiOwnerNames);
  if (!OwnerSupported(session_.connection.hdbc(), session_.server())) {
    // Required (sqlite_route_test): the route ends without the end of the phase. A host that asked
    // for owners first has to ask again without them.
    result = false;
    return false;
  }
  result = tables_.GetOwnerNamesODBC();
  return EndPhase();
}

bool GenericRoute::AddDataTypes() {
  session_.progress.StatusDialog(inPhaseStart, iiDataTypes);
  if (session_.sink.data_types() != nullptr) {
    LcODBCDatatypeList(session_.choices.dbms_type, session_.server().dbms_version)
        .GetHardcodedDataTypes(session_.sink.data_types());
  }
  return EndPhase();
}

bool GenericRoute::ReadTableNames() {
  session_.progress.StatusDialog(inPhaseStart, iiTableNames);
  tables_.GetTablesAndViewsODBC(true);
  result = true;
  return EndPhase();
}

bool GenericRoute::ReadSynonymNames() {
  session_.progress.StatusDialog(inPhaseStart, iiSynonymNames);
  result = tables_.GetSynonymsODBC(true);
  return EndPhase();
}

bool GenericRoute::ReadColumnNames() {
  session_.progress.StatusDialog(inPhaseStart, iiColumnNames);
  result = columns_.GetColumnNamesForTableODBC();
  return EndPhase();
}

bool GenericRoute::AddOperators() {
  session_.progress.StatusDialog(inPhaseStart, iiOperators);
  GetOperatorsODBC(session_);
  result = true;
  return EndPhase();
}

bool GenericRoute::ReadBooleanFunctions() {
  result = GetBooleanFunctionsODBC(session_);
  return GoesOn();
}

bool GenericRoute::AddFunctions() {
  result = GetGeneralFunctionsODBC(session_);
  return GoesOn();
}

bool GenericRoute::ReadProcedures() {
  result = GetProceduresODBC(session_);
  return GoesOn();
}

bool GenericRoute::AddAggregates() {
  GetAggregatesODBC(session_);
  result = true;
  return GoesOn();
}

bool GenericRoute::ReadTables() {
  return ReadTableList() && session_.sink.tables() != nullptr && ReadColumnsAndKeys() &&
         ReadForeignKeys();
}

bool GenericRoute::ReadTableList() {
  const LcImportChoices& choices = session_.choices;
  session_.progress.StatusDialog(inPhaseStart, iiTablesAndViews);
  if (session_.HasItem(ibTables | ibViews)) {
    if (AnySpecificTablesOrViews(choices)) {
      tables_.GetRequestedTablesAndViewsODBC(false);
    } else {
      tables_.GetTablesAndViewsODBC(false);
    }
    result = true;
    if (!GoesOn()) return false;
  }
  if (session_.HasItem(ibSynonyms)) {
    result = AnySpecificSynonyms(choices) ? tables_.GetRequestedSynonymsODBC(false)
                                          : tables_.GetSynonymsODBC(false);
  }
  session_.progress.StatusDialog(inPhaseEnd);
  if (!result) return false;
  if (!GoesOn()) {
    // Nothing but names was read so far: not worth keeping.
    if (session_.sink.tables() != nullptr) session_.sink.tables()->EmptyList();
    return false;
  }
  return true;
}

bool GenericRoute::ReadColumnsAndKeys() {
  const bool has_primary_keys =
      odbc::HasFunction(session_.connection.hdbc(), SQL_API_SQLPRIMARYKEYS);
  // Asked so that a trace of the calls shows what the driver claims. Foreign keys are read whatever
  // it says: a driver without them only fails the calls.
  static_cast<void>(odbc::HasFunction(session_.connection.hdbc(), SQL_API_SQLFOREIGNKEYS));

  LcWorkbookTableList& tables = *session_.sink.tables();
  const std::size_t count = tables.GetCount();
  session_.progress.StatusDialog(inLoopStart, iiTablesAndViews, count);
  for (std::size_t i = 0; i < count; ++i) {
    LcWorkbookTable* table = tables.GetAt(i);
    if (table == nullptr) continue;
    result = columns_.GetTableColumnsODBC(*table);
    if (!result || !GoesOn()) {
      RemoveNoColTables(&tables);
      return false;
    }
    if (session_.choices.keys) {
      if (has_primary_keys) {
        primary_keys_.GetTablePrimaryKeysODBC(*table);
      } else {
        primary_keys_.GetIndexesODBC(*table);
      }
      if (!GoesOn()) {
        RemoveNoColTables(&tables);
        return false;
      }
    }
    session_.progress.StatusDialog(inItemDone);
  }
  session_.progress.StatusDialog(inLoopEnd);
  return true;
}

bool GenericRoute::ReadForeignKeys() {
  if (!session_.choices.foreign_keys) return true;
  LcWorkbookTableList& tables = *session_.sink.tables();
  const std::size_t count = tables.GetCount();
  session_.progress.StatusDialog(inLoopStart, iiForeignKeys, count);
  for (std::size_t i = 0; i < count; ++i) {
    LcWorkbookTable* table = tables.GetAt(i);
    if (table == nullptr) continue;
    session_.progress.StatusDialog(inTableItem, iiNone, 0, table->GetOwner(true).c_str(),
                                   table->GetName().c_str(), u"", true);
    foreign_keys_.GetTableForeignKeysODBC(*table, tables);
    if (!GoesOn()) return false;
  }
  session_.progress.StatusDialog(inLoopEnd);
  return true;
}

}  // namespace

bool ImportODBCItems(ImportSession& session, unsigned short& status) {
  GenericRoute route(session);
  return RunRoute(session, route, kPhases, status);
}

void RemoveNoColTables(LcWorkbookTableList* tables) {
  for (std::size_t i = 0; i < tables->GetCount(); ++i) {
    if (tables->GetAt(i) != nullptr) continue;
    tables->RemoveTablesFrom(i + 1);
    return;
  }
}

}  // namespace odbcimport::generic
