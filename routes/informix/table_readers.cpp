// The phases that read tables, views and synonyms with their columns.
#include "routes/informix/table_readers.h"

#include <string>
#include <unordered_map>

#include "base/text.h"
#include "catalogues/conversions.h"
#include "odbc/record_list.h"
#include "routes/informix/cell.h"
#include "routes/informix/column_types.h"
#include "routes/informix/remote_databases.h"
#include "routes/shared/catalog_queries.h"
#include "routes/shared/name_boundary.h"

namespace odbcimport::informix {
namespace {

// Where a query's result has what makes a column; 0 for what it does not have.
struct ColumnPositions {
  int name;
  int coltype;
  int collength;
  int extended_id;
};
constexpr ColumnPositions kTableColumns{4, 5, 6, 9};
constexpr ColumnPositions kLocalSynonymColumns{5, 6, 7, 11};
constexpr ColumnPositions kRemoteSynonymColumns{1, 2, 3, 6};

// Puts one row's column into a table. The tables of a result lie together, so that the table in
// hand is never looked up.
class ColumnReader {
 public:
  // `is_ius` tells of the database that the columns are in.
  ColumnReader(ImportSession& session, ComplexTypes& complex_types, const LcODBCRecordList& rows,
               const ColumnPositions& positions, bool is_ius)
      : session_(session),
        complex_types_(complex_types),
        rows_(rows),
        positions_(positions),
        is_ius_(is_ius) {}

  // Reports the column under the owner and the name that are given.
  void Read(int row, const std::u16string& owner, const std::u16string& name,
            LcWorkbookTable& table) const {
    auto column = std::make_unique<LcWorkbookColumn>();
    column->SetName(std::u16string(Cell(rows_, row, positions_.name)));
    session_.progress.StatusDialog(inTableItem, iiNone, 0, owner.c_str(), name.c_str(),
                                   column->GetName().c_str());
    const std::u16string_view type = Cell(rows_, row, positions_.coltype);
    const int coltype = static_cast<int>(base::ParseInteger(type));
    const int physical_code = ConvertDatabaseTypeToODBC(type, dbmsInformix).value_or(pcChar);
    const long extended_id =
        is_ius_ ? base::ParseInteger(rows_.View(row, positions_.extended_id)) : 0;
    const long collength = base::ParseInteger(rows_.View(row, positions_.collength));
    ColumnDatatypeSetup(session_, complex_types_, column.get(), physical_code, coltype, is_ius_,
                        extended_id, collength);
    column->SetTable(&table);
    table.AddColumn(column.release());
  }

 private:
  ImportSession& session_;
  ComplexTypes& complex_types_;
  const LcODBCRecordList& rows_;
  const ColumnPositions& positions_;
  const bool is_ius_;
};

// Makes the next table, with its owner and name, the session's current item.
LcWorkbookTable* BeginTable(ImportSession& session, LcWorkbookTableList& tables,
                            const NameBoundary& boundary, std::unique_ptr<LcWorkbookTable> table) {
  session.progress.SetTableInHand(boundary.owner(), boundary.name());
  table->SetOwner(boundary.owner());
  table->SetName(boundary.name());
  return tables.Append(std::move(table));
}

// The selected local synonyms by owner and name; of several alike the last counts.
class SelectedSynonyms {
 public:
  explicit SelectedSynonyms(const LcImportChoices& choices) {
    for (const LcTableInfo* entry : choices.selected_synonyms.Present()) {
      if (!IsLocalSynonym(*entry, dbmsInformix)) continue;
      details_[Key(entry->owner, entry->name)] = &entry->synonym;
    }
  }
  const LcSynonymDetails* Find(std::u16string_view owner, std::u16string_view name) const {
    const auto found = details_.find(Key(owner, name));
    return found != details_.end() ? found->second : nullptr;
  }

 private:
  static std::u16string Key(std::u16string_view owner, std::u16string_view name) {
    return std::u16string(owner).append(1, u'\0').append(name);
  }
  std::unordered_map<std::u16string, const LcSynonymDetails*> details_;
};

bool IsRemoteSynonym(const LcTableInfo* entry) {
  return entry != nullptr && entry->type == ttSynonym && entry->synonym.base_table_id == 0;
}

// Whether the synonym's database is a Universal Server's, asked of it when it is not known yet.
bool IsRemoteIUS(const ImportSession& session, const LcSynonymDetails& synonym,
                 LcRemoteDatabaseInfoList& databases) {
  const LcRemoteDatabaseInfo* known =
      FindRemoteDatabaseInfo(databases, synonym.server_name, synonym.database_name);
  if (known != nullptr) return known->is_ius;
  auto info = std::make_unique<LcRemoteDatabaseInfo>();
  info->server_name = synonym.server_name;
  info->database_name = synonym.database_name;
  info->is_ius = DetermineIfRemoteIsIUS(session, synonym.server_name, synonym.database_name);
  return databases.Append(std::move(info))->is_ius;
}

bool ReadRemoteSynonym(ImportSession& session, ComplexTypes& complex_types,
                       const LcTableInfo& entry, const LcODBCRecordList& rows, bool is_ius,
                       LcWorkbookTableList& tables) {
  if (rows.GetRowCount() == 0) return true;
  auto made = std::make_unique<LcWorkbookTable>();
  made->SetName(entry.name);
  made->SetOwner(entry.owner);
  made->SetType(ttSynonym);
  made->SetSynonymDetails(entry.synonym);
  LcWorkbookTable* table = tables.Append(std::move(made));
  const ColumnReader columns(session, complex_types, rows, kRemoteSynonymColumns, is_ius);
  for (int row = 1; row <= rows.GetRowCount(); ++row) {
    columns.Read(row, entry.owner, entry.name, *table);
    if (session.progress.WasImportStoppedOrCancelled()) return false;
  }
  return true;
}

}  // namespace

bool ReadTablesAndViews(ImportSession& session, ComplexTypes& complex_types,
                        LcWorkbookTableList& tables) {
  session.progress.StatusDialog(inPhaseStart, iiTablesAndViews);
  const std::u16string sql = BuildTableColumnQuery(session.choices, dbmsInformix, session.IsIUS())
                                 .value_or(std::u16string());
  if (session.progress.WasImportStoppedOrCancelled()) return false;
  const QueryResult query = session.RunQuery(sql);
  const LcODBCRecordList& rows = query.RowsEvenIfFailed();
  if (session.progress.WasImportStoppedOrCancelled()) return false;
  session.progress.StatusDialog(inPhaseEnd);

  // The host hears the number of columns, and then of each column.
  const int count = rows.GetRowCount();
  session.progress.StatusDialog(inLoopStart, iiTablesAndViews, static_cast<unsigned long>(count));
  const ColumnReader columns(session, complex_types, rows, kTableColumns, session.IsIUS());
  NameBoundary boundary(NameBoundary::Nameless::kBelongsToNothing);
  LcWorkbookTable* table = nullptr;
  for (int row = 1; row <= count; ++row) {
    const std::u16string_view row_owner = Cell(rows, row, 1);
    const std::u16string_view row_name = Cell(rows, row, 2);
    if (boundary.Next(row_owner, row_name)) {
      auto made = std::make_unique<LcWorkbookTable>();
      // As it stands: a letter with blanks behind it is no view.
      const std::u16string type = rows.WholeCell(row, 3).value_or(std::u16string());
      made->SetType(GetTableType(type, dbmsInformix));
      table = BeginTable(session, tables, boundary, std::move(made));
    }
    if (session.progress.WasImportStoppedOrCancelled()) return false;
    if (table == nullptr) continue;  // rows without any name, before the first table
    columns.Read(row, boundary.owner(), boundary.name(), *table);
    if (session.progress.WasImportStoppedOrCancelled()) return false;
  }
  if (session.progress.WasImportStoppedOrCancelled()) return false;
  session.progress.StatusDialog(inLoopEnd);
  return true;
}

bool ReadLocalSynonyms(ImportSession& session, ComplexTypes& complex_types,
                       LcWorkbookTableList& tables) {
  const std::optional<std::u16string> sql =
      BuildLocalSynonymQuery(session.choices, dbmsInformix, session.IsIUS());
  if (!sql) return true;
  if (session.progress.WasImportStoppedOrCancelled()) return false;
  session.progress.StatusDialog(inPhaseStart, iiLocalSynonyms);
  const QueryResult query = session.RunQuery(*sql);
  const LcODBCRecordList& rows = query.RowsEvenIfFailed();
  session.progress.StatusDialog(inPhaseEnd);
  if (session.progress.WasImportStoppedOrCancelled()) return false;

  const int count = rows.GetRowCount();
  session.progress.StatusDialog(inLoopStart, iiLocalSynonyms, static_cast<unsigned long>(count));
  const SelectedSynonyms selected(session.choices);
  const ColumnReader columns(session, complex_types, rows, kLocalSynonymColumns, session.IsIUS());
  NameBoundary boundary(NameBoundary::Nameless::kBelongsToNothing);
  LcWorkbookTable* table = nullptr;
  for (int row = 1; row <= count; ++row) {
    const std::u16string_view row_name = Cell(rows, row, 3);
    const std::u16string_view row_owner = Cell(rows, row, 4);
    if (boundary.Next(row_owner, row_name)) {
      auto made = std::make_unique<LcWorkbookTable>();
      made->SetType(ttSynonym);
      if (const LcSynonymDetails* details = selected.Find(boundary.owner(), boundary.name())) {
        made->SetSynonymDetails(*details);
      }
      table = BeginTable(session, tables, boundary, std::move(made));
    }
    if (session.progress.WasImportStoppedOrCancelled()) return false;
    if (table == nullptr) continue;  // rows without any name, before the first table
    columns.Read(row, boundary.owner(), boundary.name(), *table);
    if (session.progress.WasImportStoppedOrCancelled()) return false;
  }
  session.progress.StatusDialog(inLoopEnd);
  return true;
}

bool ReadRemoteSynonyms(ImportSession& session, ComplexTypes& complex_types,
                        LcWorkbookTableList& tables) {
  const LcTableInfoList& selected = session.choices.selected_synonyms;
  unsigned long count = 0;
  for (const LcTableInfo* entry : selected) count += IsRemoteSynonym(entry) ? 1 : 0;
  if (count == 0) return true;
  session.progress.StatusDialog(inPhaseStart, iiRemoteSynonyms);
  session.progress.StatusDialog(inPhaseEnd);
  session.progress.StatusDialog(inLoopStart, iiRemoteSynonyms, count);
  LcRemoteDatabaseInfoList databases;
  for (const LcTableInfo* entry : selected) {
    if (session.progress.WasImportStoppedOrCancelled()) return false;
    if (!IsRemoteSynonym(entry)) continue;
    const bool is_ius = IsRemoteIUS(session, entry->synonym, databases);
    const std::optional<std::u16string> sql = BuildRemoteSynonymQuery(dbmsInformix, *entry, is_ius);
    if (!sql) continue;
    if (session.progress.WasImportStoppedOrCancelled()) return false;
    const QueryResult query = session.RunQuery(*sql);
    const LcODBCRecordList& rows = query.RowsEvenIfFailed();
    if (session.progress.WasImportStoppedOrCancelled()) return false;
    if (!ReadRemoteSynonym(session, complex_types, *entry, rows, is_ius, tables)) return false;
  }
  session.progress.StatusDialog(inLoopEnd);
  return true;
}

}  // namespace odbcimport::informix
