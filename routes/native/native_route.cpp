// The route for SQL Server, Oracle, DB2 and Red Brick.
#include "routes/native/native_route.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "catalogues/conversions.h"
#include "catalogues/type_lists.h"
#include "odbc/record_list.h"
#include "routes/native/foreign_keys.h"
#include "routes/native/native_types.h"
#include "routes/native/primary_keys.h"
#include "routes/native/query_results.h"
#include "routes/native/synonyms.h"
#include "routes/native/tables.h"
#include "routes/shared/catalog_queries.h"
#include "routes/shared/phases.h"
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

// An entry of a name list. Null for a row without a name.
std::unique_ptr<LcTableInfo> MakeNameEntry(const LcODBCRecordList& rows, int row) {
  std::u16string name(rows.View(row, kName));
  if (name.empty()) return nullptr;
  auto entry = std::make_unique<LcTableInfo>();
  entry->name = std::move(name);
  entry->owner = rows.View(row, kOwner);
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
    entry->synonym.base_table_name = rows.View(row, kRedBrickBaseTable);
  } else {
    entry->synonym.base_owner = rows.View(row, kOracleBaseOwner);
    entry->synonym.base_table_name = rows.View(row, kOracleBaseTable);
    entry->synonym.database_name = rows.View(row, kOracleDatabaseLink);
  }
  return entry;
}

// One run. What the phases return: see Phase. They run when the host asked for their items.
class NativeRoute {
 public:
  static constexpr bool kReportsEnd = true;

  explicit NativeRoute(ImportSession& session) : session_(session) {}
  void Release() {
    table_results_.Clear();
    synonym_results_.Clear();
  }

  bool ReadOwnerNames();
  bool ReadDataTypes();
  bool ReadTableAndViewNames();
  bool ReadSynonymNames();
  bool AddOperators();
  bool ReadBooleanFunctions();
  bool ReadFunctions();
  bool ReadAggregates();
  bool ReadTablesAndViews();
  bool ReadPrimaryKeys();
  bool ReadForeignKeys();
  bool ReadLocalSynonyms();
  bool ReadRemoteSynonyms();
  bool ReadProcedures();

  bool result = true;

 private:
  bool GoesOn() const { return !session_.progress.WasImportStoppedOrCancelled(); }

  ImportSession& session_;
  QueryResults table_results_;
  QueryResults synonym_results_;
};

// clang-format off
constexpr Phase<NativeRoute> kPhases[] = {
    {ibOwnerNames,               "owner names",       &NativeRoute::ReadOwnerNames},
    {ibDataTypes,                "data types",        &NativeRoute::ReadDataTypes},
    {ibTableNames | ibViewNames, "table names",       &NativeRoute::ReadTableAndViewNames},
    {ibSynonymNames,             "synonym names",     &NativeRoute::ReadSynonymNames},
    {ibOperators,                "operators",         &NativeRoute::AddOperators},
    {ibBooleanFunctions,         "boolean functions", &NativeRoute::ReadBooleanFunctions},
    {ibFunctions,                "functions",         &NativeRoute::ReadFunctions},
    {ibAggregates,               "aggregates",        &NativeRoute::ReadAggregates},
    {ibTables | ibViews,         "tables and views",  &NativeRoute::ReadTablesAndViews},
    {ibTables | ibViews,         "primary keys",      &NativeRoute::ReadPrimaryKeys},
    {ibTables | ibViews,         "foreign keys",      &NativeRoute::ReadForeignKeys},
    {ibSynonyms,                 "local synonyms",    &NativeRoute::ReadLocalSynonyms},
    {ibSynonyms,                 "remote synonyms",   &NativeRoute::ReadRemoteSynonyms},
    {ibProcedures,               "procedures",        &NativeRoute::ReadProcedures},
};
// clang-format on

// No text lists the owners of these servers. Required (ReportsItsPhasesInOrder): the empty one is
// run, and the driver's refusal, which the fetch layer shows, tells the user why the list stays
// empty.
bool NativeRoute::ReadOwnerNames() {
  session_.progress.StatusDialog(inPhaseStart, iiOwnerNames);
  const std::u16string sql =
      BuildOwnerNameQuery(session_.choices, session_.server().dbms_type).value_or(std::u16string());
  const QueryResult query = session_.RunQuery(sql);
  const LcODBCRecordList& rows = query.RowsEvenIfFailed();
  if (!GoesOn()) return false;
  for (int row = 1; row <= rows.GetRowCount(); ++row) {
    std::u16string name(rows.View(row, kOwner));
    if (!name.empty() && session_.sink.owner_names() != nullptr) {
      auto entry = std::make_unique<LcOwnerInfo>();
      entry->name = std::move(name);
      session_.sink.owner_names()->Append(std::move(entry));
    }
    if (!GoesOn()) return false;
  }
  session_.progress.StatusDialog(inPhaseEnd);
  return true;
}

bool NativeRoute::ReadDataTypes() {
  session_.progress.StatusDialog(inPhaseStart, iiDataTypes);
  if (LcWorkbookDatatypeList* types = session_.sink.data_types(); types != nullptr) {
    LcODBCDatatypeList built_in(session_.server().dbms_type, session_.server().dbms_version);
    built_in.EmptyList();
    built_in.GetHardcodedDataTypes(types);
    GetNativeNamedDataTypes(session_, session_.sink.owner_names(), *types);
  }
  session_.progress.StatusDialog(inPhaseEnd);
  return GoesOn();
}

bool NativeRoute::ReadTableAndViewNames() {
  session_.progress.StatusDialog(inPhaseStart, iiTableNames);
  const int dbms_type = session_.server().dbms_type;
  const std::u16string sql =
      BuildTableViewNameQuery(session_.choices, dbms_type).value_or(std::u16string());
  if (!GoesOn()) return false;
  const QueryResult query = session_.RunQuery(sql);
  const LcODBCRecordList& rows = query.RowsEvenIfFailed();
  if (!GoesOn()) return false;
  for (int row = 1; row <= rows.GetRowCount(); ++row) {
    if (std::unique_ptr<LcTableInfo> entry = MakeNameEntry(rows, row); entry != nullptr) {
      const std::u16string_view type = rows.View(row, kTableType);
      if (!type.empty()) entry->type = GetTableType(type, dbms_type);
      if (session_.sink.table_names() != nullptr) {
        session_.sink.table_names()->Append(std::move(entry));
      }
    }
    if (!GoesOn()) return false;
  }
  session_.progress.StatusDialog(inPhaseEnd);
  return true;
}

bool NativeRoute::ReadSynonymNames() {
  const int dbms_type = session_.server().dbms_type;
  if (dbms_type == dbmsDB2 || dbms_type == dbmsMSSQLServer || dbms_type == dbmsSybase) {
    return true;
  }
  session_.progress.StatusDialog(inPhaseStart, iiSynonymNames);
  const std::u16string sql =
      BuildSynonymNameQuery(session_.choices, dbms_type).value_or(std::u16string());
  if (!GoesOn()) return false;
  const QueryResult query = session_.RunQuery(sql);
  const LcODBCRecordList& rows = query.RowsEvenIfFailed();
  if (!GoesOn()) return false;
  for (int row = 1; row <= rows.GetRowCount(); ++row) {
    std::unique_ptr<LcTableInfo> entry = MakeSynonymEntry(rows, row, dbms_type);
    if (entry != nullptr && session_.sink.table_names() != nullptr) {
      session_.sink.table_names()->Append(std::move(entry));
    }
    if (!GoesOn()) return false;
  }
  session_.progress.StatusDialog(inPhaseEnd);
  return true;
}

bool NativeRoute::AddOperators() {
  session_.progress.StatusDialog(inPhaseStart, iiOperators);
  GetOperators(session_);
  result = true;
  session_.progress.StatusDialog(inPhaseEnd);
  return GoesOn();
}

// The three readers report their phases themselves.
bool NativeRoute::ReadBooleanFunctions() {
  result = GetBooleanFunctions(session_);
  return GoesOn();
}
bool NativeRoute::ReadFunctions() {
  result = GetGeneralFunctions(session_);
  return GoesOn();
}
bool NativeRoute::ReadAggregates() {
  GetAggregates(session_);
  result = true;
  return GoesOn();
}

bool NativeRoute::ReadTablesAndViews() {
  if (session_.sink.tables() == nullptr) return true;
  session_.progress.StatusDialog(inPhaseStart, iiTablesAndViews);
  const std::vector<std::u16string> texts =
      BuildTableColumnQueries(session_.choices, session_.server().dbms_type, session_.IsIUS());
  if (!GoesOn()) return false;
  table_results_.Run(session_, texts);
  if (!GoesOn()) return false;
  session_.progress.StatusDialog(inPhaseEnd);

  session_.progress.StatusDialog(inLoopStart, iiTablesAndViews, table_results_.RowCount());
  NativeTableReader reader(session_, *session_.sink.tables());
  for (const auto& query : table_results_) {
    if (!reader.Read(query.rows)) return false;
  }
  session_.progress.StatusDialog(inLoopEnd);
  return true;
}

bool NativeRoute::ReadPrimaryKeys() {
  if (session_.sink.tables() == nullptr || !session_.choices.keys) return true;
  result = GetNativePrimaryKeys(session_, *session_.sink.tables());
  return result && GoesOn();
}

bool NativeRoute::ReadForeignKeys() {
  if (session_.sink.tables() == nullptr || !session_.choices.foreign_keys) return true;
  LcWorkbookTableList& tables = *session_.sink.tables();
  switch (session_.server().dbms_type) {
    case dbmsRedBrick:
      GetNativeForeignKeysRedBrick(session_, tables);
      break;
    case dbmsMSSQLServer:
    case dbmsSybase:
      GetNativeForeignKeysSQLServer(session_, tables);
      break;
    case dbmsOracle:
      GetNativeForeignKeysOracle(session_, tables);
      break;
    default:
      GetNativeForeignKeys(session_, tables);
  }
  result = true;
  return GoesOn();
}

bool NativeRoute::ReadLocalSynonyms() {
  if (session_.server().dbms_type == dbmsDB2 || session_.sink.tables() == nullptr) return true;
  const std::optional<std::vector<std::u16string>> texts =
      BuildLocalSynonymQueries(session_.choices, session_.server().dbms_type, session_.IsIUS());
  if (!texts) return true;
  session_.progress.StatusDialog(inPhaseStart, iiLocalSynonyms);
  synonym_results_.Run(session_, *texts);
  session_.progress.StatusDialog(inPhaseEnd);
  if (!GoesOn()) return false;
  session_.progress.StatusDialog(inLoopStart, iiLocalSynonyms, synonym_results_.RowCount());
  LocalSynonymReader reader(session_, *session_.sink.tables());
  for (const auto& query : synonym_results_) {
    if (!reader.Read(query.rows)) return false;
  }
  session_.progress.StatusDialog(inLoopEnd);
  return true;
}

bool NativeRoute::ReadRemoteSynonyms() {
  if (session_.server().dbms_type == dbmsDB2 || session_.sink.tables() == nullptr) return true;
  const LcTableInfoList& selected = session_.choices.selected_synonyms;
  unsigned long count = 0;
  for (const LcTableInfo* entry : selected) count += IsRemoteSynonym(entry) ? 1 : 0;
  if (count == 0) return true;
  session_.progress.StatusDialog(inPhaseStart, iiRemoteSynonyms);
  session_.progress.StatusDialog(inPhaseEnd);
  session_.progress.StatusDialog(inLoopStart, iiRemoteSynonyms, count);
  for (const LcTableInfo* entry : selected) {
    if (!IsRemoteSynonym(entry)) continue;
    const std::optional<std::u16string> sql =
        BuildRemoteSynonymQuery(session_.server().dbms_type, *entry, false);
    if (!sql) continue;
    if (!GoesOn()) return false;
    const QueryResult query = session_.RunQuery(*sql);
    const LcODBCRecordList& rows = query.RowsEvenIfFailed();
    if (!GoesOn()) return false;
    if (!ReadRemoteSynonym(session_, *entry, rows, *session_.sink.tables())) return false;
  }
  session_.progress.StatusDialog(inLoopEnd);
  return true;
}

bool NativeRoute::ReadProcedures() {
  if (session_.sink.procedures() == nullptr) return true;
  result = GetProcedures(session_, *session_.sink.procedures());
  return GoesOn();
}

}  // namespace

bool ImportNativeItems(ImportSession& session, unsigned short& status) {
  if (session.sink.workbook() == nullptr) return false;
  NativeRoute route(session);
  return RunRoute(session, route, kPhases, status);
}

}  // namespace odbcimport::native
