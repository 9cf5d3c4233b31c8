// The Informix route: reads the system catalog of Dynamic Server and Universal Server with own SQL.
// This file has the phases in their order; the readers are in the other files of this folder, those
// of functions, aggregates and procedures in routes/shared.
#include "routes/informix/informix_route.h"

#include "routes/informix/complex_types.h"
#include "routes/informix/keys.h"
#include "routes/informix/name_readers.h"
#include "routes/informix/named_types.h"
#include "routes/informix/table_readers.h"
#include "routes/shared/phases.h"
#include "routes/shared/readers.h"

namespace odbcimport::informix {
namespace {

class InformixRoute {
 public:
  static constexpr bool kReportsEnd = true;

  explicit InformixRoute(ImportSession& session) : session_(session), complex_types_(session) {}
  void Release() {}

  bool ReadOwnerNames() { return informix::ReadOwnerNames(session_); }

  bool ReadDataTypes() {
    session_.progress.StatusDialog(inPhaseStart, iiDataTypes);
    GetBuiltInDataTypes(session_);
    if (WasStopped()) return false;
    if (session_.IsIUS() && session_.sink.data_types() != nullptr) {
      result = GetNamedDataTypes(session_, session_.sink.owner_names(), session_.sink.data_types(),
                                 complex_types_);
      if (WasStopped()) return false;
    }
    session_.progress.StatusDialog(inPhaseEnd);
    return true;
  }

  bool ReadTableAndViewNames() { return informix::ReadTableAndViewNames(session_); }
  bool ReadSynonymNames() { return informix::ReadSynonymNames(session_); }
  bool ReadColumnNames() { return informix::ReadColumnNames(session_); }

  bool AddOperators() {
    session_.progress.StatusDialog(inPhaseStart, iiOperators);
    GetOperators(session_);
    result = true;
    session_.progress.StatusDialog(inPhaseEnd);
    return !WasStopped();
  }

  bool ReadBooleanFunctions() {
    result = GetBooleanFunctions(session_);
    return !WasStopped();
  }
  bool ReadFunctions() {
    result = GetGeneralFunctions(session_);
    return !WasStopped();
  }
  bool ReadAggregates() {
    GetAggregates(session_);
    result = true;
    return !WasStopped();
  }

  bool ReadTablesAndViews() {
    return informix::ReadTablesAndViews(session_, complex_types_, tables());
  }

  // Foreign keys are read beside primary keys only; a host that wants them asks for both.
  bool ReadKeys() {
    if (!session_.choices.keys) return true;
    result = GetOnlinePrimaryForeignKeys(session_, tables(), session_.choices.foreign_keys);
    return result && !WasStopped();
  }

  bool ReadLocalSynonyms() {
    return informix::ReadLocalSynonyms(session_, complex_types_, tables());
  }
  bool ReadRemoteSynonyms() {
    return informix::ReadRemoteSynonyms(session_, complex_types_, tables());
  }

  bool ReadProcedures() {
    LcWorkbookProcedureList unwanted;
    LcWorkbookProcedureList* target = session_.sink.procedures();
    result = GetProcedures(session_, target != nullptr ? *target : unwanted);
    return !WasStopped();
  }

  // Required (informix route_test): that of the last phase that has one, whatever the others gave.
  bool result = true;

 private:
  bool WasStopped() const { return session_.progress.WasImportStoppedOrCancelled(); }
  LcWorkbookTableList& tables() {
    return session_.sink.tables() != nullptr ? *session_.sink.tables() : unwanted_tables_;
  }

  ImportSession& session_;
  ComplexTypes complex_types_;
  LcWorkbookTableList unwanted_tables_;  // where tables go when the host gave no list
};

// clang-format off
constexpr Phase<InformixRoute> kPhases[] = {
    {ibOwnerNames,               "owner names",       &InformixRoute::ReadOwnerNames},
    {ibDataTypes,                "data types",        &InformixRoute::ReadDataTypes},
    {ibTableNames | ibViewNames, "table names",       &InformixRoute::ReadTableAndViewNames},
    {ibSynonymNames,             "synonym names",     &InformixRoute::ReadSynonymNames},
    {ibColumnNames,              "column names",      &InformixRoute::ReadColumnNames},
    {ibOperators,                "operators",         &InformixRoute::AddOperators},
    {ibBooleanFunctions,         "boolean functions", &InformixRoute::ReadBooleanFunctions},
    {ibFunctions,                "functions",         &InformixRoute::ReadFunctions},
    {ibAggregates,               "aggregates",        &InformixRoute::ReadAggregates},
    {ibTables | ibViews,         "tables and views",  &InformixRoute::ReadTablesAndViews},
    {ibTables | ibViews,         "keys",              &InformixRoute::ReadKeys},
    {ibSynonyms,                 "local synonyms",    &InformixRoute::ReadLocalSynonyms},
    {ibSynonyms,                 "remote synonyms",   &InformixRoute::ReadRemoteSynonyms},
    {ibProcedures,               "procedures",        &InformixRoute::ReadProcedures},
};
// clang-format on

}  // namespace

bool ImportInformixItems(ImportSession& session, unsigned short& status) {
  if (session.server().dbms_type != dbmsInformix || session.sink.workbook() == nullptr)
    return false;
  InformixRoute route(session);
  return RunRoute(session, route, kPhases, status);
}

}  // namespace odbcimport::informix
