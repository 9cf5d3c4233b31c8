// The route for SQL Server, Oracle, DB2 and Red Brick.
#include "routes/native/native_import.h"

#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "base/text.h"
#include "catalogues/conversions.h"
#include "catalogues/type_lists.h"
#include "odbc/record_list.h"
#include "routes/native/foreign_keys.h"
#include "routes/native/native_types.h"
#include "routes/native/primary_keys.h"
#include "routes/native/synonyms.h"
#include "routes/native/tables.h"
#include "routes/shared/catalog_queries.h"
#include "routes/shared/query_batches.h"
#include "routes/shared/readers.h"

namespace odbcimport::native {
namespace {

// Positions in the results of the name queries.
constexpr int kOwner = 1;
constexpr int kName = 2;
constexpr int kTableType = 3;          // tables and views
constexpr int kRedBrickBaseTable = 3;  // synonyms from here on
constexpr int kOracleBaseOwner = 3;
constexpr int kOracleBaseTable = 4;
constexpr int kOracleDatabaseLink = 5;

std::u16string Trimmed(const LcODBCRecordList& rows, int row, int position) {
  return std::u16string(base::TrimRightBlanks(rows.View(row, position)));
}

// An entry of a name list. Null for a row without a name.
std::unique_ptr<LcTableInfo> MakeNameEntry(const LcODBCRecordList& rows, int row) {
  std::u16string name = Trimmed(rows, row, kName);
  if (name.empty()) return nullptr;
  auto entry = std::make_unique<LcTableInfo>();
  entry->name = std::move(name);
  entry->owner = Trimmed(rows, row, kOwner);
  return entry;
}

// The entry of a synonym row. Null for a row without a name, and for a server whose synonym names
// are not read.
std::unique_ptr<LcTableInfo> MakeSynonymEntry(const LcODBCRecordList& rows, int row,
                                              int dbms_type) {
  if (dbms_type != dbmsOracle && dbms_type != dbmsRedBrick) return nullptr;
  std::unique_ptr<LcTableInfo> entry = MakeNameEntry(rows, row);
  if (entry == nullptr) return nullptr;
  entry->type = ttSynonym;
  if (dbms_type == dbmsRedBrick) {
    entry->synonym.base_table_name = Trimmed(rows, row, kRedBrickBaseTable);
  } else {
    entry->synonym.base_owner = Trimmed(rows, row, kOracleBaseOwner);
    entry->synonym.base_table_name = Trimmed(rows, row, kOracleBaseTable);
    entry->synonym.database_name = Trimmed(rows, row, kOracleDatabaseLink);
  }
  return entry;
}

}  // namespace

bool NativeImport::Run(unsigned short& status) {
  session_.BeginRoute();
  try {
    session_.StatusDialog(inImportStart);
    if (RunPhases()) session_.StatusDialog(inImportEnd);
  } catch (const std::exception&) {
    result_ = false;  // memory ran out; what is in the workbook stays
  }
  table_results_.Clear();
  synonym_results_.Clear();
  session_.EndRoute(status);
  return result_;
}

bool NativeImport::RunPhases() {
  return ReadOwnerNames()            //
         && ReadDataTypes()          //
         && ReadTableAndViewNames()  //
         && ReadSynonymNames()       //
         && ReadOperators()          //
         && ReadFunctions()          //
         && ReadTablesAndViews()     //
         && ReadPrimaryKeys()        //
         && ReadForeignKeys()        //
         && ReadLocalSynonyms()      //
         && ReadRemoteSynonyms()     //
         && ReadProcedures();
}

// No text lists the owners of these servers, and the empty one is deliberately run all the same:
// the driver's refusal, which the fetch layer shows, tells the user why the list stays empty.
bool NativeImport::ReadOwnerNames() {
  if (!session_.HasItem(ibOwnerNames)) return true;
  session_.StatusDialog(inPhaseStart, iiOwnerNames);
  std::u16string sql;
  BuildOwnerNameQuery(session_.choices, sql, session_.server.dbms_type);
  LcODBCRecordList rows;
  session_.RunQuery(sql, rows);
  if (!GoesOn()) return false;
  for (int row = 1; row <= rows.GetRowCount(); ++row) {
    std::u16string name = Trimmed(rows, row, kOwner);
    if (!name.empty() && session_.targets.owner_names != nullptr) {
      auto entry = std::make_unique<LcOwnerInfo>();
      entry->name = std::move(name);
      session_.targets.owner_names->Append(std::move(entry));
    }
    if (!GoesOn()) return false;
  }
  session_.StatusDialog(inPhaseEnd);
  return true;
}

bool NativeImport::ReadDataTypes() {
  if (!session_.HasItem(ibDataTypes)) return true;
  session_.StatusDialog(inPhaseStart, iiDataTypes);
  if (LcWorkbookDatatypeList* types = session_.targets.data_types; types != nullptr) {
    LcODBCDatatypeList built_in(session_.server.dbms_type, session_.server.dbms_version);
    built_in.EmptyList();
    built_in.GetHardcodedDataTypes(types);
    // Servers without named types answer false, which is no failure of the import.
    static_cast<void>(GetNativeNamedDataTypes(session_, session_.targets.owner_names, *types));
  }
  session_.StatusDialog(inPhaseEnd);
  return GoesOn();
}

bool NativeImport::ReadTableAndViewNames() {
  if (!session_.HasItem(ibTableNames | ibViewNames)) return true;
  session_.StatusDialog(inPhaseStart, iiTableNames);
  const int dbms_type = session_.server.dbms_type;
  std::u16string sql;
  BuildTableViewNameQuery(session_.choices, sql, dbms_type);
  if (!GoesOn()) return false;
  LcODBCRecordList rows;
  session_.RunQuery(sql, rows);
  if (!GoesOn()) return false;
  for (int row = 1; row <= rows.GetRowCount(); ++row) {
    if (std::unique_ptr<LcTableInfo> entry = MakeNameEntry(rows, row); entry != nullptr) {
      const std::u16string_view type = base::TrimRightBlanks(rows.View(row, kTableType));
      if (!type.empty()) entry->type = GetTableType(type, dbms_type);
      if (session_.targets.table_names != nullptr) {
        session_.targets.table_names->Append(std::move(entry));
      }
    }
    if (!GoesOn()) return false;
  }
  session_.StatusDialog(inPhaseEnd);
  return true;
}

bool NativeImport::ReadSynonymNames() {
  const int dbms_type = session_.server.dbms_type;
  if (!session_.HasItem(ibSynonymNames) || dbms_type == dbmsDB2 || dbms_type == dbmsMSSQLServer ||
      dbms_type == dbmsSybase) {
    return true;
  }
  session_.StatusDialog(inPhaseStart, iiSynonymNames);
  std::u16string sql;
  BuildSynonymNameQuery(session_.choices, sql, dbms_type);
  if (!GoesOn()) return false;
  LcODBCRecordList rows;
  session_.RunQuery(sql, rows);
  if (!GoesOn()) return false;
  for (int row = 1; row <= rows.GetRowCount(); ++row) {
    std::unique_ptr<LcTableInfo> entry = MakeSynonymEntry(rows, row, dbms_type);
    if (entry != nullptr && session_.targets.table_names != nullptr) {
      session_.targets.table_names->Append(std::move(entry));
    }
    if (!GoesOn()) return false;
  }
  session_.StatusDialog(inPhaseEnd);
  return true;
}

bool NativeImport::ReadOperators() {
  if (!session_.HasItem(ibOperators)) return true;
  session_.StatusDialog(inPhaseStart, iiOperators);
  result_ = GetOperators(session_);
  session_.StatusDialog(inPhaseEnd);
  return GoesOn();
}

// The three readers report their phases themselves.
bool NativeImport::ReadFunctions() {
  if (session_.HasItem(ibBooleanFunctions)) {
    result_ = GetBooleanFunctions(session_);
    if (!GoesOn()) return false;
  }
  if (session_.HasItem(ibFunctions)) {
    result_ = GetGeneralFunctions(session_);
    if (!GoesOn()) return false;
  }
  if (session_.HasItem(ibAggregates)) {
    result_ = GetAggregates(session_);
    if (!GoesOn()) return false;
  }
  return true;
}

bool NativeImport::ReadTablesAndViews() {
  if (!session_.HasItem(ibTables | ibViews) || session_.targets.tables == nullptr) return true;
  session_.StatusDialog(inPhaseStart, iiTablesAndViews);
  std::vector<std::u16string> texts;
  BuildTableColumnQueries(session_.choices, session_.server.dbms_type, session_.IsIUS(), texts);
  if (!GoesOn()) return false;
  table_results_.Run(session_, texts);
  if (!GoesOn()) return false;
  session_.StatusDialog(inPhaseEnd);

  session_.StatusDialog(inLoopStart, iiTablesAndViews, table_results_.RowCount());
  NativeTableReader reader(session_, *session_.targets.tables);
  for (LcODBCRecordListListIter at = table_results_.Iterate(); !at.IsDone(); at.Next()) {
    if (!reader.Read(*at.CurrentItem())) return false;
  }
  session_.StatusDialog(inLoopEnd);
  return true;
}

bool NativeImport::ReadPrimaryKeys() {
  if (!session_.HasItem(ibTables | ibViews) || session_.targets.tables == nullptr ||
      !session_.choices.keys) {
    return true;
  }
  result_ = GetNativePrimaryKeys(session_, *session_.targets.tables);
  return result_ && GoesOn();
}

bool NativeImport::ReadForeignKeys() {
  if (!session_.HasItem(ibTables | ibViews) || session_.targets.tables == nullptr ||
      !session_.choices.foreign_keys) {
    return true;
  }
  LcWorkbookTableList& tables = *session_.targets.tables;
  switch (session_.server.dbms_type) {
    case dbmsRedBrick:
      result_ = GetNativeForeignKeysRedBrick(session_, tables);
      break;
    case dbmsMSSQLServer:
    case dbmsSybase:
      result_ = GetNativeForeignKeysSQLServer(session_, tables);
      break;
    case dbmsOracle:
      result_ = GetNativeForeignKeysOracle(session_, tables);
      break;
    default:
      result_ = GetNativeForeignKeys(session_, tables);
  }
  return result_ && GoesOn();
}

bool NativeImport::ReadLocalSynonyms() {
  if (!session_.HasItem(ibSynonyms) || session_.server.dbms_type == dbmsDB2 ||
      session_.targets.tables == nullptr) {
    return true;
  }
  std::vector<std::u16string> texts;
  if (!BuildLocalSynonymQueries(session_.choices, session_.server.dbms_type, session_.IsIUS(),
                                texts)) {
    return true;
  }
  session_.StatusDialog(inPhaseStart, iiLocalSynonyms);
  synonym_results_.Run(session_, texts);
  session_.StatusDialog(inPhaseEnd);
  if (!GoesOn()) return false;
  session_.StatusDialog(inLoopStart, iiLocalSynonyms, synonym_results_.RowCount());
  LocalSynonymReader reader(session_, *session_.targets.tables);
  for (LcODBCRecordListListIter at = synonym_results_.Iterate(); !at.IsDone(); at.Next()) {
    if (!reader.Read(*at.CurrentItem())) return false;
  }
  session_.StatusDialog(inLoopEnd);
  return true;
}

bool NativeImport::ReadRemoteSynonyms() {
  if (!session_.HasItem(ibSynonyms) || session_.server.dbms_type == dbmsDB2 ||
      session_.targets.tables == nullptr) {
    return true;
  }
  const LcTableInfoList& selected = session_.choices.selected_synonyms;
  unsigned long count = 0;
  for (const LcTableInfo* entry : selected) count += IsRemoteSynonym(entry) ? 1 : 0;
  if (count == 0) return true;
  session_.StatusDialog(inPhaseStart, iiRemoteSynonyms);
  session_.StatusDialog(inPhaseEnd);
  session_.StatusDialog(inLoopStart, iiRemoteSynonyms, count);
  for (const LcTableInfo* entry : selected) {
    if (!IsRemoteSynonym(entry)) continue;
    std::u16string sql;
    if (!BuildRemoteSynonymQuery(sql, session_.server.dbms_type, *entry, false)) continue;
    if (!GoesOn()) return false;
    LcODBCRecordList rows;
    session_.RunQuery(sql, rows);
    if (!GoesOn()) return false;
    if (!ReadRemoteSynonym(session_, *entry, rows, *session_.targets.tables)) return false;
  }
  session_.StatusDialog(inLoopEnd);
  return true;
}

bool NativeImport::ReadProcedures() {
  if (!session_.HasItem(ibProcedures) || session_.targets.procedures == nullptr) return true;
  result_ = GetProcedures(session_, *session_.targets.procedures);
  return GoesOn();
}

bool ImportNativeItems(ImportSession& session, unsigned short& status) {
  if (session.workbook == nullptr) return false;
  return NativeImport(session).Run(status);
}

}  // namespace odbcimport::native
