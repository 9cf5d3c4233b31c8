// From the rows of a column query to a column with its type: what tables, views and synonyms of the
// four servers share.
#pragma once

#include <string>
#include <string_view>

#include "importer/workbook/table.h"
#include "odbc/record_list.h"
#include "session/session.h"

namespace odbcimport::native {

// Gives the column its physical code and a type for it: the type with the server's extended id when
// that is not 0 and known, else the one with the code. A serial column (code 19) becomes a
// generated key. Without a matching type the column keeps the code alone.
void NativeColumnDatatypeSetup(ImportSession& session, LcWorkbookColumn& column, int code,
                               int extended_id);

// Whether a catalog's nullability text lets a column be null. Compared exactly; only the server's
// one text for "no" says no.
[[nodiscard]] bool AreNullsAllowed(std::u16string_view value, int dbms_type);
// Whether a catalog's text lets a column be written. None of the queries delivers such a text; the
// rule is kept beside its sibling for a host's own reader.
[[nodiscard]] bool AreUpdatesAllowed(std::u16string_view value, int dbms_type);

// Where a column query delivers what is known of a column: positions in its rows, counted from 1.
// 0, or a position beyond the row: the query does not deliver it, and it reads as empty.
struct ColumnPositions {
  int name;
  int type;
  int width;
  int scale;
  int nulls;
  int precision;
  int meta_type;    // "T" for a distinct type
  int type_id;      // of a distinct type
  int source_type;  // name of the type that a distinct type is made from
  int column_id;    // the server's number of the column
  int table_id;     // the server's number of the table
};

// The queries for tables and views with columns, per server (LeDBMSType as a number). A server
// without a query of its own gets positions that are all 0.
[[nodiscard]] const ColumnPositions& TableColumnPositions(int dbms_type);
// The queries for synonyms with columns, local and remote.
[[nodiscard]] const ColumnPositions& SynonymColumnPositions(int dbms_type);

// Makes a column of the row and gives it to the table, after reporting it as an item of `owner` and
// `table_name`, texts that end with a zero character.
void AddNativeColumn(ImportSession& session, const LcODBCRecordList& rows, int row,
                     const ColumnPositions& positions, const std::u16string& owner,
                     const std::u16string& table_name, LcWorkbookTable& table);

}  // namespace odbcimport::native
