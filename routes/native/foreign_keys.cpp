// The readers of foreign keys that deliver one row per column pair or per list of pairs: DB2,
// Oracle and Red Brick.
#include "routes/native/foreign_keys.h"

#include <algorithm>
#include <deque>
#include <string_view>

#include "base/text.h"
#include "catalogues/conversions.h"
#include "odbc/record_list.h"
#include "routes/native/foreign_key_queries.h"
#include "routes/native/key_assembly.h"
#include "routes/shared/lost_keys.h"

namespace odbcimport::native {
namespace {

// Positions in the result of DB2.
constexpr int kDB2Owner = 1;
constexpr int kDB2Table = 2;
constexpr int kDB2ColumnCount = 3;
constexpr int kDB2ReferencedOwner = 4;
constexpr int kDB2ReferencedTable = 5;
constexpr int kDB2Columns = 6;
constexpr int kDB2ReferencedColumns = 7;
// The lists of DB2 hold names of this width, padded with blanks. Longer names are cut.
constexpr std::size_t kDB2NameWidth = 20;

// Positions in either half of the result of Oracle.
constexpr int kOracleOwner = 1;
constexpr int kOracleTable = 2;
constexpr int kOracleColumn = 3;
constexpr int kOraclePosition = 4;

// Positions in both results of Red Brick; 1 is the constraint.
constexpr int kRedBrickTable = 2;
constexpr int kRedBrickColumn = 3;
constexpr int kRedBrickSequence = 4;

std::u16string_view Slice(std::u16string_view list, std::size_t number) {
  const std::size_t begin = number * kDB2NameWidth;
  if (begin >= list.size()) return {};
  return base::TrimRightBlanks(list.substr(begin, kDB2NameWidth));
}

// One entry per column of the key. Beyond the end of both lists there are only pairs without
// columns, so a count that no list bears out costs nothing.
void AddDB2Row(const LcODBCRecordList& rows, int row, LcFKInfoList& entries) {
  LcFKInfo entry;
  entry.owner = rows.View(row, kDB2Owner);
  entry.table = rows.View(row, kDB2Table);
  entry.referenced_owner = rows.View(row, kDB2ReferencedOwner);
  entry.referenced_table = rows.View(row, kDB2ReferencedTable);
  const long count = base::ParseInteger(rows.View(row, kDB2ColumnCount));
  const std::u16string_view columns = base::TrimLeftBlanks(rows.View(row, kDB2Columns));
  const std::u16string_view referenced =
      base::TrimLeftBlanks(rows.View(row, kDB2ReferencedColumns));
  const std::size_t slices = std::max(columns.size(), referenced.size()) / kDB2NameWidth + 1;
  const std::size_t pairs = std::min(slices, static_cast<std::size_t>(std::max(count, 0L)));
  for (std::size_t i = 0; i < pairs; ++i) {
    entry.column = Slice(columns, i);
    entry.referenced_column = Slice(referenced, i);
    entry.sequence = base::FormatInteger(static_cast<long>(i) + 1);
    entries.push_back(entry);
  }
}

// Splits an Oracle result at half its rows: the first half names the referencing columns, the
// second the referenced ones, in the order in which they come; an odd row is left over. Required
// (OracleSplitsTheUnionAtHalfItsRows), although the rows of a union may come in any order: none
// says from which half it stems. The rows are read as long as the import is not stopped.
void AddOracleResult(ImportSession& session, const LcODBCRecordList& rows, LcFKInfoList& entries) {
  const int half = rows.GetRowCount() / 2;
  if (rows.GetRowCount() % 2 != 0) {
    LostKeys(session, u"foreign keys",
             u"the two halves of the server's answer do not match, so that its keys may be paired "
             u"wrongly; the exact reading has them")
        .Add({}, {});
  }
  const std::size_t first = entries.size();
  for (int row = 1; row <= half && !session.progress.WasImportStoppedOrCancelled(); ++row) {
    LcFKInfo& entry = entries.emplace_back();
    entry.owner = rows.View(row, kOracleOwner);
    entry.table = rows.View(row, kOracleTable);
    entry.column = rows.View(row, kOracleColumn);
    // Some drivers deliver the position, a NUMBER, as 1.0.
    const std::u16string_view position = rows.View(row, kOraclePosition);
    entry.sequence = base::TrimRightBlanks(position.substr(0, position.find(u'.')));
  }
  int row = half;
  for (std::size_t i = first; i < entries.size() && !session.progress.WasImportStoppedOrCancelled();
       ++i) {
    ++row;
    entries[i].referenced_owner = rows.View(row, kOracleOwner);
    entries[i].referenced_table = rows.View(row, kOracleTable);
    entries[i].referenced_column = rows.View(row, kOracleColumn);
  }
}

}  // namespace

void GetNativeForeignKeys(ImportSession& session, LcWorkbookTableList& tables) {
  const LeDBMSType dbms_type = session.server().dbms_type;
  const std::u16string sql =
      BuildForeignKeyQuery(session.choices, dbms_type).value_or(std::u16string());
  if (session.progress.WasImportStoppedOrCancelled()) return;
  const QueryResult query = session.RunQuery(sql);
  const LcODBCRecordList& rows = query.RowsEvenIfFailed();
  if (session.progress.WasImportStoppedOrCancelled()) return;

  const int count = rows.GetRowCount();
  session.progress.StatusDialog(inLoopStart, iiForeignKeys, static_cast<unsigned long>(count));
  LcFKInfoList entries;
  if (dbms_type == dbmsDB2) {
    entries.reserve(static_cast<std::size_t>(count));  // most keys have one column
    for (int row = 1; row <= count && !session.progress.WasImportStoppedOrCancelled(); ++row) {
      AddDB2Row(rows, row, entries);
    }
  } else if (dbms_type == dbmsOracle) {
    AddOracleResult(session, rows, entries);
  }
  AssembleForeignKeys(session, entries, tables);
  session.progress.StatusDialog(inLoopEnd);
}

void GetNativeForeignKeysOracle(ImportSession& session, LcWorkbookTableList& tables) {
  const std::vector<std::u16string> texts =
      BuildForeignKeyQueries(session.choices, session.server().dbms_type);
  if (session.progress.WasImportStoppedOrCancelled()) return;
  std::deque<QueryResult> results;  // record lists do not move
  unsigned long count = 0;
  for (const std::u16string& text : texts) {
    const QueryResult& query = results.emplace_back(session.connection, text);
    count += static_cast<unsigned long>(query.RowsEvenIfFailed().GetRowCount());
  }
  if (session.progress.WasImportStoppedOrCancelled()) return;

  session.progress.StatusDialog(inLoopStart, iiForeignKeys, count);
  LcFKInfoList entries;
  entries.reserve(count / 2);
  for (const QueryResult& query : results) {
    AddOracleResult(session, query.RowsEvenIfFailed(), entries);
  }
  if (session.progress.WasImportStoppedOrCancelled()) return;
  AssembleForeignKeys(session, entries, tables);
  session.progress.StatusDialog(inLoopEnd);
}

void GetNativeForeignKeysRedBrick(ImportSession& session, LcWorkbookTableList& tables) {
  const QueryResult referencing_query =
      session.RunQuery(BuildForeignKeyQueryRedBrick1(session.choices));
  const LcODBCRecordList& referencing = referencing_query.RowsEvenIfFailed();
  if (session.progress.WasImportStoppedOrCancelled()) return;
  const QueryResult referenced_query =
      session.RunQuery(BuildForeignKeyQueryRedBrick2(session.choices));
  const LcODBCRecordList& referenced = referenced_query.RowsEvenIfFailed();
  if (session.progress.WasImportStoppedOrCancelled()) return;

  const int count = referencing.GetRowCount();
  session.progress.StatusDialog(inLoopStart, iiForeignKeys, 2 * static_cast<unsigned long>(count));
  LcFKInfoList entries;
  entries.reserve(static_cast<std::size_t>(count));
  for (int row = 1; row <= count; ++row) {
    if (session.progress.WasImportStoppedOrCancelled()) return;
    LcFKInfo& entry = entries.emplace_back();
    entry.table = referencing.View(row, kRedBrickTable);
    entry.column = referencing.View(row, kRedBrickColumn);
    entry.sequence = referencing.View(row, kRedBrickSequence);
  }
  for (int row = 1; row <= count; ++row) {
    if (session.progress.WasImportStoppedOrCancelled()) return;
    LcFKInfo& entry = entries[static_cast<std::size_t>(row) - 1];
    entry.referenced_table = referenced.View(row, kRedBrickTable);
    entry.referenced_column = referenced.View(row, kRedBrickColumn);
  }
  AssembleForeignKeys(session, entries, tables);
  session.progress.StatusDialog(inLoopEnd);
}

}  // namespace odbcimport::native
