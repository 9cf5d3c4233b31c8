// The Informix route: reads the system catalog of Dynamic Server and Universal Server with own SQL.
// This file has the order of the phases and what decides whether each runs; the readers are in the
// other files of this folder, those of functions, aggregates and procedures in catalogues.
#include "routes/informix/informix_route.h"

#include <exception>

#include "routes/informix/complex_types.h"
#include "routes/informix/keys.h"
#include "routes/informix/name_readers.h"
#include "routes/informix/named_types.h"
#include "routes/informix/table_readers.h"
#include "routes/shared/readers.h"

namespace odbcimport::informix {
namespace {

class InformixRoute {
 public:
  explicit InformixRoute(ImportSession& session) : session_(session), complex_types_(session) {}

  bool Import(unsigned short& status) {
    session_.BeginRoute();
    session_.StatusDialog(inImportStart);
    try {
      if (RunPhases()) session_.StatusDialog(inImportEnd);
    } catch (const std::exception&) {  // memory ran out: what was read stays
      result_ = false;
    }
    session_.EndRoute(status);
    return result_;
  }

 private:
  // False when the import ends before its last phase.
  bool RunPhases() {
    return ReadNames() && ReadDataTypesAndNames() && ReadOperatorsAndFunctions() &&
           ReadTablesWithKeys() && ReadSynonyms() && ReadProcedures();
  }

  // Each phase runs when the item mask asks for it, and is false when the import ends with it.
  bool ReadNames() { return !session_.HasItem(ibOwnerNames) || ReadOwnerNames(session_); }

  bool ReadDataTypesAndNames() {
    if (session_.HasItem(ibDataTypes) && !ReadDataTypes()) return false;
    if (session_.HasItem(ibTableNames | ibViewNames) && !ReadTableAndViewNames(session_)) {
      return false;
    }
    if (session_.HasItem(ibSynonymNames) && !ReadSynonymNames(session_)) return false;
    return !session_.HasItem(ibColumnNames) || ReadColumnNames(session_);
  }

  bool ReadDataTypes() {
    session_.StatusDialog(inPhaseStart, iiDataTypes);
    GetBuiltInDataTypes(session_);
    if (WasStopped()) return false;
    if (session_.IsIUS() && session_.targets.data_types != nullptr) {
      result_ = GetNamedDataTypes(session_, session_.targets.owner_names,
                                  session_.targets.data_types, complex_types_);
      if (WasStopped()) return false;
    }
    session_.StatusDialog(inPhaseEnd);
    return true;
  }

  // The result is deliberately that of the last phase that has one, whatever the others gave.
  bool ReadOperatorsAndFunctions() {
    if (session_.HasItem(ibOperators)) {
      session_.StatusDialog(inPhaseStart, iiOperators);
      result_ = GetOperators(session_);
      session_.StatusDialog(inPhaseEnd);
      if (WasStopped()) return false;
    }
    if (session_.HasItem(ibBooleanFunctions)) {
      result_ = GetBooleanFunctions(session_);
      if (WasStopped()) return false;
    }
    if (session_.HasItem(ibFunctions)) {
      result_ = GetGeneralFunctions(session_);
      if (WasStopped()) return false;
    }
    if (session_.HasItem(ibAggregates)) {
      result_ = GetAggregates(session_);
      if (WasStopped()) return false;
    }
    return true;
  }

  bool ReadTablesWithKeys() {
    if (!session_.HasItem(ibTables | ibViews)) return true;
    if (!ReadTablesAndViews(session_, complex_types_, tables())) return false;
    // Foreign keys are read beside primary keys only; a host that wants them asks for both.
    if (!session_.choices.keys) return true;
    result_ = GetOnlinePrimaryForeignKeys(session_, tables(), session_.choices.foreign_keys);
    return result_ && !WasStopped();
  }

  bool ReadSynonyms() {
    if (!session_.HasItem(ibSynonyms)) return true;
    return ReadLocalSynonyms(session_, complex_types_, tables()) &&
           ReadRemoteSynonyms(session_, complex_types_, tables());
  }

  bool ReadProcedures() {
    if (!session_.HasItem(ibProcedures)) return true;
    LcWorkbookProcedureList unwanted;
    LcWorkbookProcedureList* target = session_.targets.procedures;
    result_ = GetProcedures(session_, target != nullptr ? *target : unwanted);
    return !WasStopped();
  }

  bool WasStopped() const { return session_.WasImportStoppedOrCancelled(); }
  LcWorkbookTableList& tables() {
    return session_.targets.tables != nullptr ? *session_.targets.tables : unwanted_tables_;
  }

  ImportSession& session_;
  ComplexTypes complex_types_;
  LcWorkbookTableList unwanted_tables_;  // where tables go when the host gave no list
  bool result_ = true;
};

}  // namespace

bool ImportInformixItems(ImportSession& session, unsigned short& status) {
  if (session.server.dbms_type != dbmsInformix || session.workbook == nullptr) return false;
  return InformixRoute(session).Import(status);
}

}  // namespace odbcimport::informix
