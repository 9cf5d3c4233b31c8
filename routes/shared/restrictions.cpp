// The fragments that restrict a catalog query, and the two ways to put them together.
#include "routes/shared/restrictions.h"

#include <string_view>

namespace odbcimport {

namespace {

// Where the column of a type is missing, the fragment goes on right behind the T or the quote.
// Required (restrictions_test): the texts are what hosts and servers have been seeing, and a column
// put in here would change which rows come back.
struct Fragments {
  int dbms_type;
  std::u16string_view owner;        // of a selected owner, before the value
  std::u16string_view table_owner;  // of a selected table, before its owner
  std::u16string_view table_name;   // and before its name; Oracle's depends on the view
  std::u16string_view slice_owner;  // of a slice of the selected tables, behind T
  std::u16string_view slice_name;
};

// clang-format off
constexpr Fragments kFragments[] = {
    {dbmsInformix,    u"T.OWNER='",     u"T.OWNER='",     u"T.TABNAME='", u".OWNER='",     u".TABNAME='"},
    {dbmsMSSQLServer, u"T",             u"U.name='",      u"T.name='",    u"",             u""},
    {dbmsSybase,      u"T",             u"U.name='",      u"T.name='",    u"",             u""},
    {dbmsOracle,      u"T.OWNER='",     u"T.OWNER='",     u"",            u".OWNER='",     u""},
    {dbmsDB2,         u"T.TABSCHEMA='", u"T.TABSCHEMA='", u"T.TABNAME='", u".TABSCHEMA='", u".TABNAME='"},
    {dbmsRedBrick,    u"T.CREATOR='",   u"T.CREATOR='",   u"T.NAME='",    u".CREATOR='",   u".NAME='"},
};
// clang-format on
constexpr Fragments kOtherFragments = {dbmsOther, u"T", u"", u"", u"", u""};

struct OracleNameColumn {
  std::u16string_view view;
  std::u16string_view column;
};
// clang-format off
constexpr OracleNameColumn kOracleNameColumns[] = {
    {u"ALL_CATALOG", u".TABLE_NAME='"},
    {u"ALL_TABLES",  u".TABLE_NAME='"},
    {u"ALL_VIEWS",   u".VIEW_NAME='"},
};
// clang-format on
constexpr std::u16string_view kOracleObjectNameColumn = u".OBJECT_NAME='";

const Fragments& FragmentsFor(int dbms_type) {
  for (const Fragments& row : kFragments) {
    if (row.dbms_type == dbms_type) return row;
  }
  return kOtherFragments;
}

// Empty for a view that is not known.
std::u16string_view OracleColumnFor(const char16_t* oracle_view) {
  if (oracle_view == nullptr) return kOracleObjectNameColumn;
  for (const OracleNameColumn& row : kOracleNameColumns) {
    if (row.view == oracle_view) return row.column;
  }
  return {};
}

void AppendTable(const LcTableInfo& table, int dbms_type, const char16_t* oracle_view,
                 std::u16string& sql) {
  const Fragments& fragments = FragmentsFor(dbms_type);
  sql += u"(";
  if (!table.owner.empty()) {
    sql += fragments.table_owner;
    sql += table.owner;
    sql += u"' AND ";
  }
  if (dbms_type == dbmsOracle) {
    const std::u16string_view column = OracleColumnFor(oracle_view);
    if (!column.empty()) sql += u"T";
    sql += column;
  } else {
    sql += fragments.table_name;
  }
  sql += table.name;
  sql += u"')";
}

}  // namespace

bool AnySpecificTablesOrViews(const LcImportChoices& choices) {
  return !choices.selected_owners.IsEmpty() || !choices.selected_tables.IsEmpty();
}

bool AnySpecificSynonyms(const LcImportChoices& choices) {
  return !choices.selected_owners.IsEmpty() || !choices.selected_synonyms.IsEmpty();
}

void AddSpecificOnes(const LcImportChoices& choices, std::u16string& sql, int dbms_type,
                     const char16_t* oracle_view, bool where_open) {
  if (!AnySpecificTablesOrViews(choices)) return;
  bool clause_open = where_open;
  if (where_open) sql += u" AND (";
  // Between two entries of a list; before its first one the clause is opened where none is open.
  const auto separate = [&](bool first) {
    if (!first) {
      sql += u" OR ";
    } else if (!clause_open) {
      sql += u" WHERE (";
      clause_open = true;
    }
  };

  bool first = true;
  for (const LcOwnerInfo* owner : choices.selected_owners) {
    if (owner == nullptr) break;
    separate(first);
    first = false;
    sql += FragmentsFor(dbms_type).owner;
    sql += owner->name;
    sql += u"'";
  }
  if (!choices.selected_owners.IsEmpty() && !choices.selected_tables.IsEmpty() && clause_open) {
    sql += u" OR ";
  }
  first = true;
  for (const LcTableInfo* table : choices.selected_tables) {
    if (table == nullptr) break;
    separate(first);
    first = false;
    AppendTable(*table, dbms_type, oracle_view, sql);
  }
  sql += u")";
}

void AddSpecificTablesAndViews(const LcImportChoices& choices, std::u16string& sql, int dbms_type,
                               const char16_t* oracle_view, int first, int last) {
  if (choices.selected_tables.IsEmpty()) return;
  const int begin = first == -1 ? 0 : first;
  const int end = last == -1 ? static_cast<int>(choices.selected_tables.GetCount()) - 1 : last;
  const Fragments& fragments = FragmentsFor(dbms_type);
  sql += u" AND (";
  int i = -1;
  for (const LcTableInfo* table : choices.selected_tables) {
    ++i;
    if (table == nullptr || i > end) break;
    if (i < begin) continue;
    if (table->type != ttTable && table->type != ttView) continue;
    // Required (restrictions_test): a slice whose first entry is a synonym begins with " OR ". The
    // server refuses such a text; mending it would import what was not asked for so far.
    if (i != begin) sql += u" OR ";
    sql += u"(";
    if (!table->owner.empty()) {
      sql += u"T";
      sql += fragments.slice_owner;
      sql += table->owner;
      sql += u"' AND ";
    }
    sql += u"T";
    sql += dbms_type == dbmsOracle ? OracleColumnFor(oracle_view) : fragments.slice_name;
    sql += table->name;
    sql += u"')";
  }
  sql += u")";
}

}  // namespace odbcimport
