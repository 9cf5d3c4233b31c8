// The reader of primary keys.
#include "routes/native/primary_keys.h"

#include <string_view>

#include "base/ascii.h"
#include "catalogues/conversions.h"
#include "odbc/record_list.h"

namespace odbcimport::native {
namespace {

// Positions in the result; 3 is the key position, which the order of the rows makes needless.
constexpr int kOwner = 1;
constexpr int kTable = 2;
constexpr int kColumn = 4;

bool IsReadHere(LeDBMSType type) {
  return type == dbmsMSSQLServer || type == dbmsOracle || type == dbmsDB2 || type == dbmsRedBrick;
}

// The table of the row in hand, looked up only when owner or name change. Names that differ in case
// alone count as the same table: some servers change the case of a quoted name between views.
class CurrentTable {
 public:
  explicit CurrentTable(LcWorkbookTableList& tables) : tables_(tables) {}

  // Null when the table is not in the list. The names of a table that was not found are not
  // remembered, so rows of the table before it are passed over when they follow it.
  LcWorkbookTable* Find(std::u16string_view owner, std::u16string_view name) {
    if (base::EqualIgnoringCase(owner, previous_owner_) &&
        base::EqualIgnoringCase(name, previous_name_)) {
      return table_;
    }
    owner_.assign(owner);
    name_.assign(name);
    table_ = tables_.FindTable(owner_, name_);
    if (table_ != nullptr) {
      previous_owner_ = owner_;
      previous_name_ = name_;
    }
    return table_;
  }

 private:
  LcWorkbookTableList& tables_;
  LcWorkbookTable* table_ = nullptr;
  std::u16string previous_owner_;
  std::u16string previous_name_;
  std::u16string owner_;  // kept for their storage
  std::u16string name_;
};

}  // namespace

bool GetNativePrimaryKeys(const ImportSession& session, LcWorkbookTableList& tables) {
  const std::u16string sql =
      BuildPrimaryKeyQuery(session.choices, session.server().dbms_type).value_or(std::u16string());
  if (session.progress.WasImportStoppedOrCancelled()) return true;
  const QueryResult query = session.RunQuery(sql);
  const LcODBCRecordList& rows = query.RowsEvenIfFailed();
  session.progress.StatusDialog(inPhaseEnd, iiPrimaryKeys);
  if (session.progress.WasImportStoppedOrCancelled()) return true;

  const int count = rows.GetRowCount();
  session.progress.StatusDialog(inLoopStart, iiPrimaryKeys, static_cast<unsigned long>(count));
  CurrentTable current(tables);
  std::u16string owner, table_name, column_name;
  for (int row = 1; row <= count && !session.progress.WasImportStoppedOrCancelled(); ++row) {
    if (!IsReadHere(session.server().dbms_type)) return false;
    owner = rows.View(row, kOwner);
    table_name = rows.View(row, kTable);
    LcWorkbookTable* table = current.Find(owner, table_name);
    if (table == nullptr) continue;
    session.progress.StatusDialog(inTableItem, iiNone, 0, owner.c_str(), table_name.c_str());
    column_name = rows.View(row, kColumn);
    if (LcWorkbookColumn* column = table->FindColumn(column_name)) {
      column->SetPrimaryKey(true);
      table->GetPrimaryKey().AddKeyColumn(column);
    }
    // Polled again at the head of the loop.
  }
  session.progress.StatusDialog(inLoopEnd);
  return true;
}

}  // namespace odbcimport::native
