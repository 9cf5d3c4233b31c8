// The reader of SQL Server's foreign keys, which come one row per key with the numbers of tables
// and columns.
#include "base/text.h"
#include "catalogues/conversions.h"
#include "odbc/record_list.h"
#include "routes/native/foreign_key_queries.h"
#include "routes/native/foreign_keys.h"
#include "routes/native/key_pair.h"
#include "routes/shared/lost_keys.h"

namespace odbcimport::native {
namespace {

// Positions in the result; the column ids of either side follow one another.
constexpr int kReferencingTable = 1;
constexpr int kReferencedTable = 2;
constexpr int kColumnCount = 3;
constexpr int kReferencingColumns = 4;
constexpr int kReferencedColumns = 20;
constexpr long kMaxColumns = 16;

int Number(const LcODBCRecordList& rows, int row, int position) {
  return static_cast<int>(base::ParseInteger(rows.View(row, position)));
}

// A pair that cannot be resolved takes the whole key back, also when its first pairs are in their
// tables already: half a key would show a relationship that the server does not have.
void ReadKey(const ImportSession& session, LostKeys& lost, const LcODBCRecordList& rows, int row,
             LcWorkbookTable& referencing_table, LcWorkbookTable& referenced_table) {
  const long count = base::ParseInteger(rows.View(row, kColumnCount));
  KeyPair keys(session);
  for (long i = 0; i < count; ++i) {
    LcWorkbookColumn* referencing = nullptr;
    LcWorkbookColumn* referenced = nullptr;
    if (i < kMaxColumns) {
      const int offset = static_cast<int>(i);
      referencing =
          referencing_table.FindColumnById(Number(rows, row, kReferencingColumns + offset));
      referenced = referenced_table.FindColumnById(Number(rows, row, kReferencedColumns + offset));
    }
    if (referencing == nullptr || referenced == nullptr) {
      keys.TakeBack();
      lost.Add(referencing_table.GetOwner(true), referencing_table.GetName());
      return;
    }
    if (i == 0) {
      keys.Start(referenced_table, *referenced, referencing_table, *referencing);
    } else {
      keys.Continue(*referenced, *referencing);
    }
    keys.ApplyOneToOneRule();
  }
}

}  // namespace

void GetNativeForeignKeysSQLServer(ImportSession& session, LcWorkbookTableList& tables) {
  const QueryResult query = session.RunQuery(BuildForeignKeyQuerySQLServer(session.choices));
  const LcODBCRecordList& rows = query.RowsEvenIfFailed();
  if (session.progress.WasImportStoppedOrCancelled()) return;

  const int count = rows.GetRowCount();
  session.progress.StatusDialog(inLoopStart, iiForeignKeys, static_cast<unsigned long>(count));
  LostKeys lost(session, u"foreign keys",
                u"it names a column that its table does not have; the exact reading has it");
  for (int row = 1; row <= count && !session.progress.WasImportStoppedOrCancelled(); ++row) {
    LcWorkbookTable* referencing = tables.FindTableById(Number(rows, row, kReferencingTable));
    if (referencing == nullptr) continue;
    session.progress.StatusDialog(inTableItem, iiNone, 0, referencing->GetOwner(true).c_str(),
                                  referencing->GetName().c_str());
    LcWorkbookTable* referenced = tables.FindTableById(Number(rows, row, kReferencedTable));
    if (referenced != nullptr) ReadKey(session, lost, rows, row, *referencing, *referenced);
  }
  session.progress.StatusDialog(inLoopEnd);
}

}  // namespace odbcimport::native
