// The texts that return tables, views and synonyms together with their columns.
#include "base/text.h"
#include "routes/shared/catalog_queries.h"
#include "routes/shared/owner_clause.h"
#include "routes/shared/restrictions.h"

namespace odbcimport {
namespace {

using std::u16string_view;

constexpr u16string_view kTableColumnsInformixIUS =
    u"SELECT T.OWNER, T.TABNAME, T.TABTYPE,C.COLNAME, C.COLTYPE, C.COLLENGTH, C.COLMIN, C.COLMAX, "
    u"C.EXTENDED_ID, C.COLNO FROM INFORMIX.SYSTABLES T, INFORMIX.SYSCOLUMNS C WHERE "
    u"T.TABID=C.TABID";
constexpr u16string_view kTableColumnsInformix =
    u"SELECT T.OWNER, T.TABNAME, T.TABTYPE,C.COLNAME, C.COLTYPE, C.COLLENGTH, C.COLMIN, C.COLMAX, "
    u"C.COLNO FROM INFORMIX.SYSTABLES T, INFORMIX.SYSCOLUMNS C WHERE T.TABID=C.TABID";

// The servers whose column queries differ in their texts alone.
struct TableColumnPieces {
  u16string_view base;
  const char16_t* selection_table;  // for AddSpecificOnes
  u16string_view order_by;
};
constexpr TableColumnPieces kTableColumnsSQLServer{
    u"SELECT U.name, T.name, T.xtype, C.name, S.name, C.length, C.scale, C.isnullable, C.prec, "
    u"C.xusertype, C.colid, T.Id FROM sysobjects T, sysusers U, syscolumns C, systypes S WHERE "
    u"T.uid=U.uid AND T.Id=C.id AND C.xusertype=S.xusertype",
    u"dbo.sysobjects", u" ORDER BY U.name, T.name, C.name"};
constexpr TableColumnPieces kTableColumnsDB2{
    u"SELECT T.TABSCHEMA, T.TABNAME, T.TYPE, C.COLNAME, C.TYPENAME, C.LENGTH, C.SCALE, C.NULLS, "
    u"D.METATYPE, D.TYPEID, D.SOURCENAME, D.SOURCETYPEID FROM SYSCAT.TABLES T, SYSCAT.COLUMNS C, "
    u"SYSCAT.DATATYPES D WHERE T.TABSCHEMA=C.TABSCHEMA AND T.TABNAME=C.TABNAME AND "
    u"C.TYPENAME=D.TYPENAME",
    u"SYSCAT.TABLES", u" ORDER BY T.TABSCHEMA,T.TABNAME,C.COLNAME"};
constexpr TableColumnPieces kTableColumnsRedBrick{
    u"SELECT T.CREATOR, T.NAME, T.TYPE, C.NAME, C.TYPE, C.LENGTH, C.SCALE, C.NULLS, C.PRECISION "
    u"FROM RBW_TABLES T, RBW_COLUMNS C WHERE T.ID=C.TID",
    u"RBW_TABLES", u" ORDER BY T.CREATOR,T.NAME,C.NAME"};

constexpr OracleColumnSource kOracleTablesAndViews{
    u"SELECT DISTINCT T.OWNER,T.TABLE_NAME,T.TABLE_TYPE,C.COLUMN_NAME,C.DATA_TYPE,C.DATA_LENGTH,"
    u"C.DATA_SCALE,C.NULLABLE,C.DATA_PRECISION FROM ALL_CATALOG T, ALL_TAB_COLUMNS C WHERE "
    u"T.OWNER=C.OWNER AND T.TABLE_NAME=C.TABLE_NAME",
    u"ALL_CATALOG", u" ORDER BY T.OWNER,T.TABLE_NAME,C.COLUMN_NAME"};
constexpr OracleColumnSource kOracleTables{
    u"SELECT DISTINCT T.OWNER,T.TABLE_NAME,'TABLE',C.COLUMN_NAME,C.DATA_TYPE,C.DATA_LENGTH,"
    u"C.DATA_SCALE,C.NULLABLE,C.DATA_PRECISION FROM ALL_TABLES T, ALL_TAB_COLUMNS C WHERE "
    u"T.OWNER=C.OWNER AND T.TABLE_NAME=C.TABLE_NAME",
    u"ALL_TABLES", u" ORDER BY T.OWNER,T.TABLE_NAME,C.COLUMN_NAME"};
constexpr OracleColumnSource kOracleViews{
    u"SELECT DISTINCT T.OWNER,T.VIEW_NAME,'VIEW',C.COLUMN_NAME,C.DATA_TYPE,C.DATA_LENGTH,"
    u"C.DATA_SCALE,C.NULLABLE,C.DATA_PRECISION FROM ALL_VIEWS T, ALL_TAB_COLUMNS C WHERE "
    u"T.OWNER=C.OWNER AND T.VIEW_NAME=C.TABLE_NAME",
    u"ALL_VIEWS", u" ORDER BY T.OWNER,T.VIEW_NAME,C.COLUMN_NAME"};

// A synonym's names come from its own catalog row, its columns from the base table. The columns are
// in alphabetical order, unlike a table's.
constexpr LocalSynonymPieces kSynonymsInformixIUS{
    u"SELECT DISTINCT S.TABID, S.BTABID, T.TABNAME, T.OWNER, C.COLNAME, C.COLTYPE, C.COLLENGTH, "
    u"C.COLMIN, C.COLMAX, C.COLNO, C.EXTENDED_ID FROM INFORMIX.SYSSYNTABLE S, INFORMIX.SYSTABLES "
    u"T, INFORMIX.SYSCOLUMNS C WHERE S.TABID=T.TABID AND C.TABID=S.BTABID",
    u"", u"", u" ORDER BY T.OWNER, T.TABNAME, C.COLNAME"};
constexpr LocalSynonymPieces kSynonymsInformix{
    u"SELECT DISTINCT S.TABID, S.BTABID, T.TABNAME, T.OWNER, C.COLNAME, C.COLTYPE, C.COLLENGTH, "
    u"C.COLMIN, C.COLMAX, C.COLNO FROM INFORMIX.SYSSYNTABLE S, INFORMIX.SYSTABLES T, "
    u"INFORMIX.SYSCOLUMNS C WHERE S.TABID=T.TABID AND C.TABID=S.BTABID",
    u"", u"", u" ORDER BY T.OWNER, T.TABNAME, C.COLNAME"};
constexpr LocalSynonymPieces kSynonymsOracle{
    u"SELECT DISTINCT S.OWNER, S.SYNONYM_NAME, S.TABLE_NAME, S.TABLE_OWNER, S.DB_LINK, "
    u"C.COLUMN_NAME,C.DATA_TYPE, C.DATA_LENGTH,C.DATA_SCALE,C.NULLABLE,C.DATA_PRECISION, T.OWNER, "
    u"T.TABLE_NAME FROM ALL_SYNONYMS S, ALL_CATALOG T, ALL_TAB_COLUMNS C WHERE "
    u"S.TABLE_OWNER=T.OWNER AND S.TABLE_NAME=T.TABLE_NAME AND T.OWNER=C.OWNER AND "
    u"T.TABLE_NAME=C.TABLE_NAME",
    u"(S.SYNONYM_NAME='", u" AND S.OWNER='", u" ORDER BY S.OWNER, S.SYNONYM_NAME"};
constexpr LocalSynonymPieces kSynonymsRedBrick{
    u"SELECT DISTINCT S.CREATOR, S.NAME, S.TNAME, C.NAME,C.TYPE, C.LENGTH,C.SCALE,C.NULLS,"
    u"C.PRECISION, T.CREATOR, T.NAME FROM RBW_SYNONYMS S, RBW_TABLES T, RBW_COLUMNS C WHERE "
    u"S.TNAME=T.NAME AND T.NAME=C.TNAME",
    u"(S.NAME='", u" AND S.CREATOR='", u" ORDER BY S.CREATOR, S.NAME, C.NAME"};

bool WantsTables(const LcImportChoices& choices) { return (choices.item_mask & ibTables) != 0; }
bool WantsViews(const LcImportChoices& choices) { return (choices.item_mask & ibViews) != 0; }

void AppendTypeClause(const LcImportChoices& choices, int server_type, std::u16string& sql) {
  sql.append(u" AND");
  sql.append(GetTableTypeClause(server_type, WantsTables(choices), WantsViews(choices),
                                choices.include_system));
}

std::u16string TableColumnsInformix(const LcImportChoices& choices, bool is_ius) {
  std::u16string sql(is_ius ? kTableColumnsInformixIUS : kTableColumnsInformix);
  if (AnySpecificTablesOrViews(choices)) {
    AddSpecificOnes(choices, sql, dbmsInformix, u"INFORMIX.SYSTABLES", true);
  } else {
    if (WantsTables(choices) || WantsViews(choices)) AppendTypeClause(choices, dbmsInformix, sql);
    const std::u16string& owner = choices.owner_restriction;
    if (!owner.empty() && choices.include_system && owner != u"informix") {
      sql.append(u" AND (T.OWNER='").append(owner).append(u"'  OR T.TABID < 100)");
    } else if (!owner.empty()) {
      sql.append(u" AND T.OWNER='").append(owner).append(u"'");
    }
    if (!choices.include_system) sql.append(u" AND T.TABID >= 100");
  }
  return sql.append(u" ORDER BY T.OWNER,T.TABNAME,C.COLNO");
}

std::u16string TableColumns(const LcImportChoices& choices, int server_type,
                            const TableColumnPieces& pieces, const OwnerRule& owner_rule) {
  std::u16string sql(pieces.base);
  if (AnySpecificTablesOrViews(choices)) {
    AddSpecificOnes(choices, sql, server_type, pieces.selection_table, true);
  } else {
    // Without tables and views DB2 reads all kinds; SQL Server and Red Brick read views then.
    if (server_type != dbmsDB2 || WantsTables(choices) || WantsViews(choices)) {
      AppendTypeClause(choices, server_type, sql);
    }
    sql += OwnerClause(choices, owner_rule, u" AND ");
  }
  return sql.append(pieces.order_by);
}

std::u16string TableColumnsOracle(const LcImportChoices& choices) {
  const OracleColumnSource& source = GetOracleColumnSource(choices);
  std::u16string sql(source.base);
  if (!AnySpecificTablesOrViews(choices)) {
    sql += OwnerClause(choices, kOwnerOracle, u" AND ");
  }
  AddSpecificTablesAndViews(choices, sql, dbmsOracle, source.catalog_view, -1, -1);
  return sql.append(source.order_by);
}

std::u16string RemoteColumnsInformix(const LcTableInfo& synonym, bool remote_is_ius) {
  std::u16string prefix = synonym.synonym.database_name;
  if (!synonym.synonym.server_name.empty()) {
    prefix.append(u"@").append(synonym.synonym.server_name);
  }
  std::u16string sql(remote_is_ius
                         ? u"SELECT DISTINCT C.COLNAME,  C.COLTYPE, C.COLLENGTH, C.COLMIN, "
                           u"C.COLMAX, C.EXTENDED_ID, C.COLNO FROM "
                         : u"SELECT DISTINCT C.COLNAME,  C.COLTYPE, C.COLLENGTH, C.COLMIN, "
                           u"C.COLMAX, C.COLNO FROM ");
  sql.append(prefix).append(u":informix.SYSTABLES T, ");
  sql.append(prefix).append(u":informix.SYSCOLUMNS C ");
  sql.append(u"WHERE T.TABID=C.TABID AND ");
  if (!synonym.synonym.base_owner.empty()) {
    sql.append(u"T.OWNER='").append(synonym.synonym.base_owner).append(u"' AND ");
  }
  return sql.append(u"T.TABNAME='").append(synonym.synonym.base_table_name).append(u"'");
}

// The text names the column view without the link and does not join the two views: it reads the
// local columns of every table, and workbooks made so far hold what it returns.
std::u16string RemoteColumnsOracle(const LcTableInfo& synonym) {
  std::u16string sql(
      u"SELECT DISTINCT C.COLUMN_NAME,C.DATA_TYPE, C.DATA_LENGTH,C.DATA_SCALE,C.NULLABLE,"
      u"C.DATA_PRECISION FROM ");
  sql.append(u"ALL_CATALOG@").append(synonym.synonym.database_name);
  sql.append(u" T, ALL_TAB_COLUMNS C WHERE T.TABLE_NAME='");
  sql.append(synonym.synonym.base_table_name).append(u"'");
  if (!synonym.synonym.base_owner.empty()) {
    sql.append(u" AND T.OWNER='").append(synonym.synonym.base_owner).append(u"'");
  }
  return sql;
}

}  // namespace

const OracleColumnSource& GetOracleColumnSource(const LcImportChoices& choices) {
  if (!WantsTables(choices)) return kOracleViews;
  return WantsViews(choices) ? kOracleTablesAndViews : kOracleTables;
}

std::optional<std::u16string> BuildTableColumnQuery(const LcImportChoices& choices, int server_type,
                                                    bool is_ius) {
  switch (server_type) {
    case dbmsInformix:
      return TableColumnsInformix(choices, is_ius);
    case dbmsMSSQLServer:
    case dbmsSybase:
      return TableColumns(choices, server_type, kTableColumnsSQLServer, kOwnerSQLServer);
    case dbmsOracle:
      return TableColumnsOracle(choices);
    case dbmsDB2:
      return TableColumns(choices, server_type, kTableColumnsDB2, kOwnerDB2Tables);
    case dbmsRedBrick:
      return TableColumns(choices, server_type, kTableColumnsRedBrick, kOwnerRedBrick);
    default:
      return std::nullopt;
  }
}

const LocalSynonymPieces* FindLocalSynonymPieces(int server_type, bool is_ius) {
  switch (server_type) {
    case dbmsInformix:
      return is_ius ? &kSynonymsInformixIUS : &kSynonymsInformix;
    case dbmsOracle:
      return &kSynonymsOracle;
    case dbmsRedBrick:
      return &kSynonymsRedBrick;
    default:
      return nullptr;
  }
}

bool IsLocalSynonym(const LcTableInfo& entry, int server_type) {
  if (entry.type != ttSynonym) return false;
  return server_type == dbmsInformix ? entry.synonym.base_table_id != 0
                                     : entry.synonym.database_name.empty();
}

std::size_t CountLocalSynonyms(const LcImportChoices& choices, int server_type) {
  std::size_t count = 0;
  for (const LcTableInfo* entry : choices.selected_synonyms) {
    if (entry != nullptr && IsLocalSynonym(*entry, server_type)) ++count;
  }
  return count;
}

void AppendSynonymCondition(const LocalSynonymPieces& pieces, const LcTableInfo& synonym,
                            std::u16string& sql) {
  if (pieces.name_condition.empty()) {
    sql.append(u" S.BTABID=").append(base::FormatInteger(synonym.synonym.base_table_id));
    return;
  }
  sql.append(pieces.name_condition).append(synonym.name).append(u"'");
  if (!synonym.owner.empty()) {
    sql.append(pieces.owner_condition).append(synonym.owner).append(u"'");
  }
  sql.append(u")");
}

std::optional<std::u16string> BuildLocalSynonymQuery(const LcImportChoices& choices,
                                                     int server_type, bool is_ius) {
  const LocalSynonymPieces* pieces = FindLocalSynonymPieces(server_type, is_ius);
  if (pieces == nullptr) return std::nullopt;
  std::u16string sql(pieces->base);
  if (CountLocalSynonyms(choices, server_type) > 0) {
    u16string_view before = u" AND (";
    for (const LcTableInfo* entry : choices.selected_synonyms.Present()) {
      if (!IsLocalSynonym(*entry, server_type)) continue;
      sql.append(before);
      AppendSynonymCondition(*pieces, *entry, sql);
      before = u" OR";
    }
    sql.append(u")");
  } else if (server_type == dbmsInformix && !choices.owner_restriction.empty()) {
    sql.append(u" AND T.OWNER='").append(choices.owner_restriction).append(u"'");
  }
  return sql.append(pieces->order_by);
}

std::optional<std::u16string> BuildRemoteSynonymQuery(int server_type, const LcTableInfo& synonym,
                                                      bool remote_is_ius) {
  if (server_type != dbmsInformix && server_type != dbmsOracle) return std::nullopt;
  if (synonym.synonym.database_name.empty() || synonym.synonym.base_table_name.empty()) {
    return std::nullopt;
  }
  return server_type == dbmsInformix ? RemoteColumnsInformix(synonym, remote_is_ius)
                                     : RemoteColumnsOracle(synonym);
}

std::u16string BuildRemoteIsIUSQuery(u16string_view server, u16string_view database) {
  std::u16string prefix(database);
  if (!server.empty()) prefix.append(u"@").append(server);
  prefix.append(u":informix.");
  std::u16string text(u"SELECT C.COLNAME FROM ");
  text.append(prefix).append(u"SYSCOLUMNS C, ").append(prefix).append(u"SYSTABLES T");
  return text.append(
      u" WHERE T.TABNAME='syscolumns' AND C.COLNAME='extended_id' AND C.TABID=T.TABID");
}

}  // namespace odbcimport
