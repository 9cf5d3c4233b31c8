// The reader of tables and views with their columns.
#include "routes/native/tables.h"

#include <memory>
#include <string_view>

#include "base/text.h"
#include "catalogues/conversions.h"
#include "routes/native/columns.h"

namespace odbcimport::native {
namespace {

constexpr int kOwner = 1;
constexpr int kTable = 2;
constexpr int kTableType = 3;

}  // namespace

void NativeTableReader::StartTable(const LcODBCRecordList& rows, int row) {
  const int dbms_type = session_.server().dbms_type;
  auto table = std::make_unique<LcWorkbookTable>();
  table->SetOwner(boundary_.owner());
  table->SetName(boundary_.name());
  table->SetType(GetTableType(rows.View(row, kTableType), dbms_type));
  // SQL Server's foreign keys name tables by number; the field is free in what is no synonym.
  if (const int position = TableColumnPositions(dbms_type).table_id; position != 0) {
    table->SetSynonymId(static_cast<std::int32_t>(base::ParseInteger(rows.View(row, position))));
  }
  table_ = tables_.Append(std::move(table));
  session_.progress.SetTableInHand(boundary_.owner(), boundary_.name());
}

bool NativeTableReader::Read(const LcODBCRecordList& rows) {
  const ColumnPositions& positions = TableColumnPositions(session_.server().dbms_type);
  const int count = rows.GetRowCount();
  for (int row = 1; row <= count; ++row) {
    const std::u16string_view owner = rows.View(row, kOwner);
    const std::u16string_view name = rows.View(row, kTable);
    if (owner.empty() || name.empty()) continue;
    if (boundary_.Next(owner, name)) StartTable(rows, row);
    // Required (AStopBeforeAColumnLeavesOutTheListOnly): after the new table, for this list alone.
    // The lists that follow still show their first table, so that a host sees how far the catalog
    // goes.
    if (session_.progress.WasImportStoppedOrCancelled()) return true;
    AddNativeColumn(session_, rows, row, positions, boundary_.owner(), boundary_.name(), *table_);
    if (session_.progress.WasImportStoppedOrCancelled()) return false;
  }
  return true;
}

}  // namespace odbcimport::native
