// The phases that list names.
#include "routes/informix/name_readers.h"

#include "base/text.h"
#include "catalogues/conversions.h"
#include "odbc/record_list.h"
#include "routes/informix/cell.h"
#include "routes/shared/catalog_queries.h"

namespace odbcimport::informix {
namespace {

template <class T>
void AppendTo(LcObjectList<T>* target, std::unique_ptr<T> entry) {
  if (target != nullptr) target->Append(std::move(entry));
}

void AppendOwner(ImportSession& session, const LcODBCRecordList& rows, int row) {
  auto info = std::make_unique<LcOwnerInfo>();
  info->name = Cell(rows, row, 1);
  if (!info->name.empty()) AppendTo(session.sink.owner_names(), std::move(info));
}

void AppendTableOrView(ImportSession& session, const LcODBCRecordList& rows, int row) {
  auto info = std::make_unique<LcTableInfo>();
  info->name = Cell(rows, row, 2);
  if (info->name.empty()) return;
  info->owner = Cell(rows, row, 1);
  const std::u16string_view type = Cell(rows, row, 3);
  if (!type.empty()) info->type = GetTableType(type, dbmsInformix);
  AppendTo(session.sink.table_names(), std::move(info));
}

void AppendSynonym(ImportSession& session, const LcODBCRecordList& rows, int row) {
  auto info = std::make_unique<LcTableInfo>();
  info->name = Cell(rows, row, 7);
  if (info->name.empty()) return;
  info->owner = Cell(rows, row, 8);
  info->type = ttSynonym;
  info->synonym.synonym_id = static_cast<std::int32_t>(base::ParseInteger(rows.View(row, 1)));
  info->synonym.base_table_id = static_cast<std::int32_t>(base::ParseInteger(rows.View(row, 2)));
  info->synonym.server_name = Cell(rows, row, 3);
  info->synonym.database_name = Cell(rows, row, 4);
  info->synonym.base_owner = Cell(rows, row, 5);
  info->synonym.base_table_name = Cell(rows, row, 6);
  AppendTo(session.sink.table_names(), std::move(info));
}

void AppendColumn(ImportSession& session, const LcODBCRecordList& rows, int row) {
  auto info = std::make_unique<LcWBColumnInfo>();
  info->name = Cell(rows, row, 1);
  if (info->name.empty()) return;
  const std::u16string_view type = Cell(rows, row, 2);
  if (!type.empty()) {
    const int code = ConvertDatabaseTypeToODBC(type, dbmsInformix).value_or(pcChar);
    info->data_type = CreateDataType(session, code, false, 0);
  }
  AppendTo(session.sink.column_names(), std::move(info));
}

using AppendRow = void (*)(ImportSession&, const LcODBCRecordList&, int row);

// The course that all name phases share. Without a text, as for owners, the empty one is run all
// the same: a host that offers owners shows the user the error that comes of it.
bool ReadNames(ImportSession& session, enumImpItemType item,
               const std::optional<std::u16string>& sql, AppendRow append_row) {
  session.progress.StatusDialog(inPhaseStart, item);
  const QueryResult query = session.RunQuery(sql.value_or(std::u16string()));
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
  return ReadNames(session, iiOwnerNames, BuildOwnerNameQuery(session.choices, dbmsInformix),
                   AppendOwner);
}

bool ReadTableAndViewNames(ImportSession& session) {
  return ReadNames(session, iiTableNames, BuildTableViewNameQuery(session.choices, dbmsInformix),
                   AppendTableOrView);
}

bool ReadSynonymNames(ImportSession& session) {
  return ReadNames(session, iiSynonymNames, BuildSynonymNameQuery(session.choices, dbmsInformix),
                   AppendSynonym);
}

bool ReadColumnNames(ImportSession& session) {
  return ReadNames(session, iiColumnNames, BuildColumnNameQuery(session.choices), AppendColumn);
}

}  // namespace odbcimport::informix
