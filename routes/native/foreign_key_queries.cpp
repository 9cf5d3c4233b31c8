// The foreign-key queries of the four servers.
#include "routes/native/foreign_key_queries.h"

#include <algorithm>
#include <string_view>

#include "routes/shared/owner_clause.h"
#include "routes/shared/restrictions.h"

namespace odbcimport::native {
namespace {

// Entries of the selection per Oracle statement.
constexpr int kTablesPerText = 200;

constexpr std::u16string_view kDB2Base =
    u"SELECT T.TABSCHEMA, T.TABNAME, T.COLCOUNT, T.REFTABSCHEMA, T.REFTABNAME, T.FK_COLNAMES, "
    u"T.PK_COLNAMES FROM SYSCAT.REFERENCES T";

// Both halves of an Oracle text read the view that the item mask asks for.
struct OracleSelects {
  std::u16string_view referencing;
  std::u16string_view referenced;
  const char16_t* catalog_view;
};

constexpr OracleSelects kOracleCatalog = {
    u"SELECT T.OWNER, L.TABLE_NAME, L.COLUMN_NAME, L.POSITION FROM ALL_CATALOG T, ALL_CONSTRAINTS "
    u"F, ALL_CONS_COLUMNS L WHERE T.OWNER=F.OWNER AND T.TABLE_NAME=F.TABLE_NAME AND "
    u"F.CONSTRAINT_TYPE = 'R' AND F.CONSTRAINT_NAME=L.CONSTRAINT_NAME",
    u"SELECT F.R_OWNER, L.TABLE_NAME, L.COLUMN_NAME, L.POSITION FROM ALL_CATALOG T, "
    u"ALL_CONSTRAINTS F, ALL_CONS_COLUMNS L WHERE T.OWNER=F.OWNER AND T.TABLE_NAME=F.TABLE_NAME "
    u"AND F.CONSTRAINT_TYPE = 'R' AND F.R_CONSTRAINT_NAME=L.CONSTRAINT_NAME",
    u"ALL_CATALOG"};
constexpr OracleSelects kOracleTables = {
    u"SELECT T.OWNER, L.TABLE_NAME, L.COLUMN_NAME, L.POSITION FROM ALL_TABLES T, ALL_CONSTRAINTS "
    u"F, "
    u"ALL_CONS_COLUMNS L WHERE T.OWNER=F.OWNER AND T.TABLE_NAME=F.TABLE_NAME AND F.CONSTRAINT_TYPE "
    u"= 'R' AND F.CONSTRAINT_NAME=L.CONSTRAINT_NAME",
    u"SELECT F.R_OWNER, L.TABLE_NAME, L.COLUMN_NAME, L.POSITION FROM ALL_TABLES T, ALL_CONSTRAINTS "
    u"F, ALL_CONS_COLUMNS L WHERE T.OWNER=F.OWNER AND T.TABLE_NAME=F.TABLE_NAME AND "
    u"F.CONSTRAINT_TYPE = 'R' AND F.R_CONSTRAINT_NAME=L.CONSTRAINT_NAME",
    u"ALL_TABLES"};
constexpr OracleSelects kOracleViews = {
    u"SELECT T.OWNER, L.TABLE_NAME, L.COLUMN_NAME, L.POSITION FROM ALL_VIEWS T, ALL_CONSTRAINTS F, "
    u"ALL_CONS_COLUMNS L WHERE T.OWNER=F.OWNER AND T.VIEW_NAME=F.TABLE_NAME AND F.CONSTRAINT_TYPE "
    u"= 'R' AND F.CONSTRAINT_NAME=L.CONSTRAINT_NAME",
    u"SELECT F.R_OWNER, L.TABLE_NAME, L.COLUMN_NAME, L.POSITION FROM ALL_VIEWS T, ALL_CONSTRAINTS "
    u"F, ALL_CONS_COLUMNS L WHERE T.OWNER=F.OWNER AND T.VIEW_NAME=F.TABLE_NAME AND "
    u"F.CONSTRAINT_TYPE = 'R' AND F.R_CONSTRAINT_NAME=L.CONSTRAINT_NAME",
    u"ALL_VIEWS"};

constexpr std::u16string_view kOracleOrder = u" ORDER BY 1,2,4";

constexpr std::u16string_view kRedBrickReferencing =
    u"SELECT L.CONSTRAINT_NAME, L.TNAME, L.CNAME, L.COLSEQ FROM RBW_RELATIONSHIPS F, "
    u"RBW_CONSTRAINTS C, RBW_CONSTRAINTCOLUMNS L WHERE C.TYPE='FOREIGN KEY' AND "
    u"F.FKCONSTRAINT=C.NAME AND C.NAME=L.CONSTRAINT_NAME";
constexpr std::u16string_view kRedBrickReferenced =
    u"SELECT F.FKCONSTRAINT, L.TNAME, L.CNAME, L.COLSEQ FROM RBW_RELATIONSHIPS F, RBW_CONSTRAINTS "
    u"C, RBW_CONSTRAINTCOLUMNS L WHERE C.TYPE='FOREIGN KEY' AND F.FKCONSTRAINT=C.NAME AND "
    u"F.PKCONSTRAINT=L.CONSTRAINT_NAME";

constexpr std::u16string_view kSQLServerBase =
    u"SELECT R.fkeyid, R.rkeyid, R.keycnt, R.fkey1, R.fkey2, R.fkey3, R.fkey4, R.fkey5, R.fkey6, "
    u"R.fkey7, R.fkey8, R.fkey9, R.fkey10, R.fkey11, R.fkey12, R.fkey13, R.fkey14, R.fkey15, "
    u"R.fkey16, R.rkey1, R.rkey2, R.rkey3, R.rkey4, R.rkey5, R.rkey6, R.rkey7, R.rkey8, R.rkey9, "
    u"R.rkey10, R.rkey11, R.rkey12, R.rkey13, R.rkey14, R.rkey15, R.rkey16 FROM sysreferences R, "
    u"sysobjects T, sysusers U WHERE T.uid=U.uid AND T.Id=R.fkeyid";

const OracleSelects& ChooseOracleSelects(const LcImportChoices& choices) {
  if ((choices.item_mask & ibTables) == 0) return kOracleViews;
  return (choices.item_mask & ibViews) != 0 ? kOracleCatalog : kOracleTables;
}

// The Oracle text for everything, or for the selected owners. The owner restriction counts only
// where nothing is selected.
std::u16string OracleText(const LcImportChoices& choices) {
  std::u16string sql;
  const bool with_owner_clause = !AnySpecificTablesOrViews(choices);
  const OracleSelects& selects = ChooseOracleSelects(choices);
  const auto append_half = [&](std::u16string_view select) {
    sql += select;
    if (with_owner_clause) sql += OwnerClause(choices, kOwnerOracle, u" AND ");
    AddSpecificOnes(choices, sql, dbmsOracle, selects.catalog_view, true);
  };
  append_half(selects.referencing);
  sql += u" UNION ";
  append_half(selects.referenced);
  return sql += kOracleOrder;
}

std::vector<std::u16string> OracleBatches(const LcImportChoices& choices) {
  std::vector<std::u16string> texts;
  const OracleSelects& selects = ChooseOracleSelects(choices);
  const int selected = static_cast<int>(choices.selected_tables.GetCount());
  for (int first = 0; first < selected; first += kTablesPerText) {
    const int last = std::min(first + kTablesPerText, selected) - 1;
    std::u16string sql(selects.referencing);
    AddSpecificTablesAndViews(choices, sql, dbmsOracle, selects.catalog_view, first, last);
    sql.append(u" UNION ").append(selects.referenced);
    AddSpecificTablesAndViews(choices, sql, dbmsOracle, selects.catalog_view, first, last);
    sql += kOracleOrder;
    texts.push_back(std::move(sql));
  }
  return texts;
}

std::u16string DB2Text(const LcImportChoices& choices) {
  const std::u16string owner_clause = OwnerClause(choices, kOwnerDB2Tables, u" WHERE ");
  std::u16string sql = std::u16string(kDB2Base) + owner_clause;
  AddSpecificOnes(choices, sql, dbmsDB2, u"SYSCAT.REFERENCES", !owner_clause.empty());
  return sql += u" ORDER BY 1,2";
}

}  // namespace

std::optional<std::u16string> BuildForeignKeyQuery(const LcImportChoices& choices, int dbms_type) {
  switch (dbms_type) {
    case dbmsDB2:
      return DB2Text(choices);
    case dbmsOracle:
      return OracleText(choices);
    default:
      return std::nullopt;
  }
}

std::vector<std::u16string> BuildForeignKeyQueries(const LcImportChoices& choices, int dbms_type) {
  if (dbms_type == dbmsOracle && !choices.selected_tables.IsEmpty()) return OracleBatches(choices);
  std::vector<std::u16string> texts;
  std::optional<std::u16string> sql = BuildForeignKeyQuery(choices, dbms_type);
  if (sql) texts.push_back(*std::move(sql));
  return texts;
}

void AddSpecificOnesRedBrickFK(const LcImportChoices& choices, std::u16string& sql) {
  if (choices.selected_tables.IsEmpty()) return;
  // Required (query_texts_test): no owners, since Red Brick's relationships record no creator.
  sql += u" AND (";
  std::u16string_view separator;
  for (const LcTableInfo* entry : choices.selected_tables) {
    if (entry == nullptr) break;
    sql.append(separator).append(u"F.FKTABLE='").append(entry->name).append(u"'");
    separator = u" OR ";
  }
  sql += u")";
}

std::u16string BuildForeignKeyQueryRedBrick1(const LcImportChoices& choices) {
  std::u16string sql(kRedBrickReferencing);
  AddSpecificOnesRedBrickFK(choices, sql);
  return sql += u" ORDER BY 1,2,4";
}

std::u16string BuildForeignKeyQueryRedBrick2(const LcImportChoices& choices) {
  std::u16string sql(kRedBrickReferenced);
  AddSpecificOnesRedBrickFK(choices, sql);
  return sql += u" ORDER BY 1,2,4";
}

std::u16string BuildForeignKeyQuerySQLServer(const LcImportChoices& choices) {
  std::u16string sql(kSQLServerBase);
  // Without a selection there is no order either; the reader does not need one.
  if (choices.selected_tables.IsEmpty()) return sql;
  sql += u" AND (";
  std::u16string_view separator;
  for (const LcTableInfo* entry : choices.selected_tables) {
    if (entry == nullptr) break;
    sql.append(separator).append(u"(");
    separator = u" OR ";
    if (!entry->owner.empty()) sql.append(u" U.name='").append(entry->owner).append(u"' AND ");
    sql.append(u"T.name='").append(entry->name).append(u"')");
  }
  return sql += u") ORDER BY 1";
}

}  // namespace odbcimport::native
