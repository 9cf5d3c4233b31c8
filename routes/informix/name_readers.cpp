// The phases that list names.
#include "routes/informix/name_readers.h"

#include "base/text.h"
#include "catalogues/conversions.h"
#include "odbc/record_list.h"
#include "routes/shared/catalog_queries.h"

namespace odbcimport::informix {
namespace {

std::u16string Trimmed(const LcODBCRecordList& rows, int row, int column) {
  return std::u16string(base::TrimRightSpace(rows.View(row, column)));
}

template <class T>
void AppendTo(LcObjectList<T>* target, std::unique_ptr<T> entry) {
  if (target != nullptr) target->Append(std::move(entry));
}

void AppendOwner(ImportSession& session, const LcODBCRecordList& rows, int row) {
  auto info = std::make_unique<LcOwnerInfo>();
  info->name = Trimmed(rows, row, 1);
  if (!info->name.empty()) AppendTo(session.sink.owner_names(), std::move(info));
}

void AppendTableOrView(ImportSession& session, const LcODBCRecordList& rows, int row) {
  auto info = std::make_unique<LcTableInfo>();
  info->name = Trimmed(rows, row, 2);
  if (info->name.empty()) return;
  info->owner = Trimmed(rows, row, 1);
  const std::u16string_view type = base::TrimRightSpace(rows.View(row, 3));
  if (!type.empty()) info->type = GetTableType(type, dbmsInformix);
  AppendTo(session.sink.table_names(), std::move(info));
}

void AppendSynonym(ImportSession& session, const LcODBCRecordList& rows, int row) {
  auto info = std::make_unique<LcTableInfo>();
  info->name = Trimmed(rows, row, 7);
  if (info->name.empty()) return;
  info->owner = Trimmed(rows, row, 8);
  info->type = ttSynonym;
  info->synonym.synonym_id = static_cast<std::int32_t>(base::ParseInteger(rows.View(row, 1)));
  info->synonym.base_table_id = static_cast<std::int32_t>(base::ParseInteger(rows.View(row, 2)));
  info->synonym.server_name = Trimmed(rows, row, 3);
  info->synonym.database_name = Trimmed(rows, row, 4);
  info->synonym.base_owner = Trimmed(rows, row, 5);
  info->synonym.base_table_name = Trimmed(rows, row, 6);
  AppendTo(session.sink.table_names(), std::move(info));
}

void AppendColumn(ImportSession& session, const LcODBCRecordList& rows, int row) {
  auto info = std::make_unique<LcWBColumnInfo>();
  info->name = Trimmed(rows, row, 1);
  if (info->name.empty()) return;
  const std::u16string_view type = base::TrimRightSpace(rows.View(row, 2));
  if (!type.empty()) {
    bool found = false;
    info->data_type =
        CreateDataType(session, ConvertDatabaseTypeToODBC(type, dbmsInformix, found), false, 0);
  }
  AppendTo(session.sink.column_names(), std::move(info));
}

using AppendRow = void (*)(ImportSession&, const LcODBCRecordList&, int row);

// The course that all name phases share.
bool ReadNames(ImportSession& session, enumImpItemType item, const std::u16string& sql,
               AppendRow append_row) {
  session.progress.StatusDialog(inPhaseStart, item);
  const QueryResult query = session.RunQuery(sql);
  const LcODBCRecordList& rows = query.RowsEvenIfFailed();
  if (session.progress.WasImportStoppedOrCancelled()) return false;
  for (int row = 1; row <= rows.GetRowCount(); ++row) {
    append_row(session, rows, row);
    if (session.progress.WasImportStoppedOrCancelled()) return false;
  }
  session.progress.StatusDialog(inPhaseEnd);
  return true;
}

}  // namespace

bool ReadOwnerNames(ImportSession& session) {
  // No text is built for owners, and the empty one is run all the same: a host that offers owners
  // shows the user the error that comes of it.
  std::u16string sql;
  BuildOwnerNameQuery(session.choices, sql, dbmsInformix);
  return ReadNames(session, iiOwnerNames, sql, AppendOwner);
}

bool ReadTableAndViewNames(ImportSession& session) {
  std::u16string sql;
  BuildTableViewNameQuery(session.choices, sql, dbmsInformix);
  return ReadNames(session, iiTableNames, sql, AppendTableOrView);
}

bool ReadSynonymNames(ImportSession& session) {
  std::u16string sql;
  BuildSynonymNameQuery(session.choices, sql, dbmsInformix);
  return ReadNames(session, iiSynonymNames, sql, AppendSynonym);
}

bool ReadColumnNames(ImportSession& session) {
  std::u16string sql;
  BuildColumnNameQuery(session.choices, sql);
  return ReadNames(session, iiColumnNames, sql, AppendColumn);
}

}  // namespace odbcimport::informix
