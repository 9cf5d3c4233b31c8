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
#include "routes/shared/restrictions.h"
#include "session/server_facts.h"

namespace odbcimport::generic {
namespace {

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

struct GenericRoute::Phase {
  std::uint32_t items;  // runs when any of these bits is set
  bool (GenericRoute::*run)();
};

// clang-format off
const GenericRoute::Phase GenericRoute::kPhases[] = {
    {ibOwnerNames,                     &GenericRoute::ReadOwnerNames},
    {ibDataTypes,                      &GenericRoute::AddDataTypes},
    {ibTableNames | ibViewNames,       &GenericRoute::ReadTableNames},
    {ibSynonymNames,                   &GenericRoute::ReadSynonymNames},
    {ibColumnNames,                    &GenericRoute::ReadColumnNames},
    {ibOperators,                      &GenericRoute::AddOperators},
    {ibBooleanFunctions,               &GenericRoute::ReadBooleanFunctions},
    {ibFunctions,                      &GenericRoute::AddFunctions},
    {ibProcedures,                     &GenericRoute::ReadProcedures},
    {ibAggregates,                     &GenericRoute::AddAggregates},
    {ibTables | ibViews | ibSynonyms,  &GenericRoute::ReadTables},
};
// clang-format on

GenericRoute::GenericRoute(ImportSession& session)
    : session_(session),
      tables_(session),
      columns_(session, column_statement_),
      primary_keys_(session, column_statement_, primary_key_statement_, index_statement_),
      foreign_keys_(session, foreign_key_statement_) {}

bool GenericRoute::Run(unsigned short& status) {
  session_.BeginRoute();
  try {
    RunPhases();
  } catch (...) {  // memory is used up, or the host's callback threw
    result_ = false;
  }
  column_statement_.Release();
  primary_key_statement_.Release();
  index_statement_.Release();
  foreign_key_statement_.Release();
  // Deliberately without the notification of the import's end, which the other routes send: hosts
  // close their progress window when this call returns.
  session_.EndRoute(status);
  return result_;
}

void GenericRoute::RunPhases() {
  session_.StatusDialog(inImportStart);
  if (session_.choices.include_system) GetSystemOwnerODBC(session_);
  for (const Phase& phase : kPhases) {
    if (session_.HasItem(phase.items) && !(this->*phase.run)()) return;
  }
}

bool GenericRoute::EndPhase() const {
  session_.StatusDialog(inPhaseEnd);
  return GoesOn();
}

bool GenericRoute::ReadOwnerNames() {
  session_.StatusDialog(inPhaseStart, iiOwnerNames);
  if (!OwnerSupported(session_)) {
    // Ends the route without the end of the phase, deliberately: a host that asked for owners first
    // has to ask again without them.
    result_ = false;
    return false;
  }
  result_ = tables_.GetOwnerNamesODBC();
  return EndPhase();
}

bool GenericRoute::AddDataTypes() {
  session_.StatusDialog(inPhaseStart, iiDataTypes);
  if (session_.targets.data_types != nullptr) {
    LcODBCDatatypeList(session_.choices.dbms_type, session_.server.dbms_version)
        .GetHardcodedDataTypes(session_.targets.data_types);
  }
  return EndPhase();
}

bool GenericRoute::ReadTableNames() {
  session_.StatusDialog(inPhaseStart, iiTableNames);
  result_ = tables_.GetTablesAndViewsODBC(true);
  return EndPhase();
}

bool GenericRoute::ReadSynonymNames() {
  session_.StatusDialog(inPhaseStart, iiSynonymNames);
  result_ = tables_.GetSynonymsODBC(true);
  return EndPhase();
}

bool GenericRoute::ReadColumnNames() {
  session_.StatusDialog(inPhaseStart, iiColumnNames);
  result_ = columns_.GetColumnNamesForTableODBC();
  return EndPhase();
}

bool GenericRoute::AddOperators() {
  session_.StatusDialog(inPhaseStart, iiOperators);
  result_ = GetOperatorsODBC(session_);
  return EndPhase();
}

bool GenericRoute::ReadBooleanFunctions() {
  result_ = GetBooleanFunctionsODBC(session_);
  return GoesOn();
}

bool GenericRoute::AddFunctions() {
  result_ = GetGeneralFunctionsODBC(session_);
  return GoesOn();
}

bool GenericRoute::ReadProcedures() {
  result_ = GetProceduresODBC(session_);
  return GoesOn();
}

bool GenericRoute::AddAggregates() {
  result_ = GetAggregatesODBC(session_);
  return GoesOn();
}

bool GenericRoute::ReadTables() {
  return ReadTableList() && session_.targets.tables != nullptr && ReadColumnsAndKeys() &&
         ReadForeignKeys();
}

bool GenericRoute::ReadTableList() {
  const LcImportChoices& choices = session_.choices;
  session_.StatusDialog(inPhaseStart, iiTablesAndViews);
  if (session_.HasItem(ibTables | ibViews)) {
    result_ = AnySpecificTablesOrViews(choices) ? tables_.GetRequestedTablesAndViewsODBC(false)
                                                : tables_.GetTablesAndViewsODBC(false);
    if (!GoesOn()) return false;
  }
  if (session_.HasItem(ibSynonyms)) {
    result_ = AnySpecificSynonyms(choices) ? tables_.GetRequestedSynonymsODBC(false)
                                           : tables_.GetSynonymsODBC(false);
  }
  session_.StatusDialog(inPhaseEnd);
  if (!result_) return false;
  if (!GoesOn()) {
    // Nothing but names was read so far: not worth keeping.
    if (session_.targets.tables != nullptr) session_.targets.tables->EmptyList();
    return false;
  }
  return true;
}

bool GenericRoute::ReadColumnsAndKeys() {
  const bool has_primary_keys = odbc::HasFunction(session_.hdbc(), SQL_API_SQLPRIMARYKEYS);
  // Asked so that a trace of the calls shows what the driver claims. Foreign keys are read whatever
  // it says: a driver without them only fails the calls.
  static_cast<void>(odbc::HasFunction(session_.hdbc(), SQL_API_SQLFOREIGNKEYS));

  LcWorkbookTableList& tables = *session_.targets.tables;
  const std::size_t count = tables.GetCount();
  session_.StatusDialog(inLoopStart, iiTablesAndViews, count);
  for (std::size_t i = 0; i < count; ++i) {
    LcWorkbookTable* table = tables.GetAt(i);
    if (table == nullptr) continue;
    result_ = columns_.GetTableColumnsODBC(*table);
    if (!result_ || !GoesOn()) {
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
    session_.StatusDialog(inItemDone);
  }
  session_.StatusDialog(inLoopEnd);
  return true;
}

bool GenericRoute::ReadForeignKeys() {
  if (!session_.choices.foreign_keys) return true;
  LcWorkbookTableList& tables = *session_.targets.tables;
  const std::size_t count = tables.GetCount();
  session_.StatusDialog(inLoopStart, iiForeignKeys, count);
  for (std::size_t i = 0; i < count; ++i) {
    LcWorkbookTable* table = tables.GetAt(i);
    if (table == nullptr) continue;
    session_.StatusDialog(inTableItem, iiNone, 0, table->GetOwner(true).c_str(),
                          table->GetName().c_str(), u"", true);
    foreign_keys_.GetTableForeignKeysODBC(*table, tables);
    if (!GoesOn()) return false;
  }
  session_.StatusDialog(inLoopEnd);
  return true;
}

}  // namespace

bool ImportODBCItems(ImportSession& session, unsigned short& status) {
  return GenericRoute(session).Run(status);
}

void RemoveNoColTables(LcWorkbookTableList* tables) {
  for (std::size_t i = 0; i < tables->GetCount(); ++i) {
    if (tables->GetAt(i) != nullptr) continue;
    tables->RemoveTablesFrom(i + 1);
    return;
  }
}

}  // namespace odbcimport::generic
