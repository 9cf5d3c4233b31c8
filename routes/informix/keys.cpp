// The key phase.
//
// Required (MarksNoKeysOnDynamicServer): on Dynamic Server the sixteen column numbers of a
// constraint's index are not made a primary key. Hosts have always got these tables without keys,
// and users have drawn keys of their own on top; read keys would stand beside those. A foreign key,
// whose sides must have equally many columns, is then kept only when its index names none either.
#include "routes/informix/keys.h"

#include <limits>

#include "base/text.h"
#include "odbc/record_list.h"
#include "routes/informix/cell.h"
#include "routes/informix/index_keys.h"
#include "routes/informix/key_queries.h"
#include "routes/shared/lost_keys.h"
#include "routes/shared/relationship.h"

namespace odbcimport::informix {
namespace {

constexpr int kFirstPart = 3;  // of the sixteen part numbers in a foreign key's row
constexpr int kLastPart = 18;

// Null for a number (from 1) that names no column.
LcWorkbookColumn* FindColumnByNumber(const LcWorkbookTable& table, long number) {
  const bool in_range = number >= 1 && number <= std::numeric_limits<int>::max();
  return in_range ? table.GetColumn(static_cast<int>(number - 1)) : nullptr;
}

// Appends the columns that the index keys name, skipping numbers that name none.
void ParseIUSForeignKeys(std::u16string_view index_keys, LcWorkbookKeyList* keys,
                         LcWorkbookTable* table) {
  std::vector<std::int16_t> numbers;
  ParseOnlineIndexKeys(index_keys, numbers);
  for (const int number : numbers) {
    if (LcWorkbookColumn* column = FindColumnByNumber(*table, number)) keys->AddKeyColumn(column);
  }
}

// The same from part numbers, which end at the first that is 0 or empty.
void ReadPartNumbers(const LcODBCRecordList& rows, int row, LcWorkbookKeyList* keys,
                     LcWorkbookTable* table) {
  for (int part = kFirstPart; part <= kLastPart; ++part) {
    const long number = base::ParseInteger(Cell(rows, row, part));
    if (number == 0) return;
    if (LcWorkbookColumn* column = FindColumnByNumber(*table, number)) {
      keys->AddKeyColumn(column);
    }
  }
}

void GetOnlineForeignKeys(const ImportSession& session, LostKeys& lost, LcWorkbookTableList& tables,
                          LcWorkbookTable* parent, int constraint_id, int parent_tabid) {
  const QueryResult query =
      session.RunQuery(BuildOnlineSQLGetForeignKeys(parent_tabid, constraint_id, session.IsIUS()));
  const LcODBCRecordList& rows = query.RowsEvenIfFailed();
  for (int row = 1; row <= rows.GetRowCount(); ++row) {
    if (session.progress.WasImportStoppedOrCancelled()) return;
    LcWorkbookTable* child =
        tables.FindTable(std::u16string(Cell(rows, row, 2)), std::u16string(Cell(rows, row, 1)));
    if (child == nullptr) continue;
    LcWorkbookKeyList child_columns;
    if (session.IsIUS()) {
      ParseIUSForeignKeys(Cell(rows, row, 3), &child_columns, child);
    } else {
      ReadPartNumbers(rows, row, &child_columns, child);
    }
    if (child_columns.GetCount() == parent->GetPrimaryKey().GetCount()) {
      AddRelationship(session, *parent, parent->GetPrimaryKey(), *child, child_columns);
    } else {
      lost.Add(child->GetOwner(true), child->GetName());
    }
  }
}

}  // namespace

void SetOnlinePrimaryKey(LcWorkbookTable& table, std::u16string_view index_keys) {
  std::vector<std::int16_t> numbers;
  ParseOnlineIndexKeys(index_keys, numbers);
  for (const int number : numbers) {
    LcWorkbookColumn* column = FindColumnByNumber(table, number);
    if (column == nullptr) continue;
    column->SetPrimaryKey(true);
    table.GetPrimaryKey().AddKeyColumn(column);
  }
}

bool GetOnlinePrimaryForeignKeys(ImportSession& session, LcWorkbookTableList& tables,
                                 bool with_foreign_keys) {
  const QueryResult query =
      session.RunQuery(BuildOnlineSQLGetPrimaryKeys(&tables, session.IsIUS()));
  const LcODBCRecordList& rows = query.RowsEvenIfFailed();
  const int count = rows.GetRowCount();
  // The end of a phase is reported that has no beginning: hosts close the table phase with it.
  session.progress.StatusDialog(inPhaseEnd, iiPrimaryKeys);
  session.progress.StatusDialog(inLoopStart, iiPrimaryKeys, static_cast<unsigned long>(count));
  LostKeys lost(session, u"foreign keys",
                u"its columns are not as many as those that were read of the key that it refers to;"
                u" the exact reading has it");
  LostKeys unmarked(
      session, u"keys",
      u"this reading has no key columns of Dynamic Server; the exact reading has them");
  for (int row = 1; row <= count; ++row) {
    if (session.progress.WasImportStoppedOrCancelled()) break;
    const std::u16string name(Cell(rows, row, 1));
    const std::u16string owner(Cell(rows, row, 2));
    LcWorkbookTable* table = tables.FindTable(owner, name);
    if (table == nullptr) continue;
    session.progress.StatusDialog(inTableItem, iiNone, 0, owner.c_str(), name.c_str());
    // A unique constraint (column 5) counts as a primary key; a table with several has the columns
    // of all in its key, and meets each relationship once for every constraint.
    if (session.IsIUS()) {
      SetOnlinePrimaryKey(*table, Cell(rows, row, 6));
    } else {
      unmarked.Add(owner, name);
    }
    if (with_foreign_keys) {
      const int constraint_id = static_cast<int>(base::ParseInteger(rows.View(row, 3)));
      const int table_id = static_cast<int>(base::ParseInteger(rows.View(row, 4)));
      GetOnlineForeignKeys(session, lost, tables, table, constraint_id, table_id);
    }
    if (session.progress.WasImportStoppedOrCancelled()) break;
  }
  session.progress.StatusDialog(inLoopEnd);
  return true;
}

}  // namespace odbcimport::informix
