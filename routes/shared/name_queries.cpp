// The texts that list owners, tables and views, and synonyms by name, and the table type clause
// that they share with the column queries.
#include <array>

#include "routes/shared/catalog_queries.h"
#include "routes/shared/owner_clause.h"

namespace odbcimport {
namespace {

using std::u16string_view;

struct NameChoices {
  explicit NameChoices(const LcImportChoices& choices)
      : tables((choices.item_mask & ibTableNames) != 0),
        views((choices.item_mask & ibViewNames) != 0) {}
  bool tables;
  bool views;
};

// The kinds of table to read, by the bits for tables and views; each without and with the server's
// own tables.
struct TypeClauses {
  LeDBMSType dbms_type;
  std::array<u16string_view, 2> both;
  std::array<u16string_view, 2> tables;
  std::array<u16string_view, 2> views;
};

constexpr std::array kTypeClauses{
    TypeClauses{
        dbmsInformix,
        {u" (T.TABTYPE = 'T' OR T.TABTYPE = 'V')", u" (T.TABTYPE = 'T' OR T.TABTYPE = 'V')"},
        {u" T.TABTYPE = 'T'", u" T.TABTYPE = 'T'"},
        {u" T.TABTYPE = 'V'", u" T.TABTYPE = 'V'"}},
    TypeClauses{dbmsMSSQLServer,
                {u" (T.xtype='U' OR T.xtype='V')", u" (T.xtype='U' OR T.xtype='S' OR T.xtype='V')"},
                {u" T.xtype='U'", u" (T.xtype='U' OR T.xtype='S')"},
                {u" T.xtype='V' AND T.uid <> 0", u" T.xtype='V'"}},
    TypeClauses{dbmsOracle,
                {u" (T.TABLE_TYPE = 'TABLE' OR T.TABLE_TYPE = 'VIEW')",
                 u" (T.TABLE_TYPE = 'TABLE' OR T.TABLE_TYPE = 'VIEW')"},
                {},
                {}},
    TypeClauses{dbmsDB2,
                {u" (T.TYPE = 'T' OR T.TYPE = 'V')", u" (T.TYPE = 'T' OR T.TYPE = 'V')"},
                {u" T.TYPE = 'T'", u" T.TYPE = 'T'"},
                {u" T.TYPE = 'V'", u" T.TYPE = 'V'"}},
    TypeClauses{dbmsRedBrick,
                {u" (T.TYPE = 'TABLE' OR T.TYPE = 'VIEW')",
                 u" (T.TYPE = 'TABLE' OR T.TYPE = 'VIEW' OR T.TYPE = 'SYSTEM')"},
                {u" T.TYPE = 'TABLE'", u" (T.TYPE = 'TABLE' OR T.TYPE = 'SYSTEM')"},
                {u" T.TYPE = 'VIEW'", u" (T.TYPE = 'VIEW' OR T.TYPE = 'SYSTEM')"}},
};

bool IsInformixOwner(const LcImportChoices& choices) {
  return choices.owner_restriction == u"informix";
}

// Keeps the catalog's own tables, which have numbers below 100, out of a list of names, or keeps a
// list for their owner to them.
void AppendTableIdClause(const LcImportChoices& choices, u16string_view column,
                         std::u16string& sql) {
  if (!choices.include_system) {
    sql.append(u" AND ").append(column).append(u" >= 100");
  } else if (IsInformixOwner(choices)) {
    sql.append(u" AND ").append(column).append(u" < 100");
  }
}

std::u16string TableViewNamesInformix(const LcImportChoices& choices, const NameChoices& names) {
  std::u16string sql(
      u"SELECT DISTINCT T.OWNER, T.TABNAME, T.TABTYPE FROM INFORMIX.SYSTABLES T WHERE");
  sql.append(GetTableTypeClause(dbmsInformix, names.tables, names.views, choices.include_system));
  if (!choices.owner_restriction.empty()) {
    sql.append(u" AND T.OWNER ='").append(choices.owner_restriction).append(u"'");
  }
  AppendTableIdClause(choices, u"T.TABID", sql);
  return sql.append(u" ORDER BY T.OWNER,T.TABNAME");
}

std::u16string TableViewNamesSQLServer(const LcImportChoices& choices, const NameChoices& names) {
  std::u16string sql(
      u"SELECT DISTINCT U.name, T.name, T.xtype FROM sysobjects T, sysusers U WHERE T.uid=U.uid "
      u"AND");
  // For views alone, without an owner and without system objects, the clauses repeat a condition.
  sql.append(
      GetTableTypeClause(dbmsMSSQLServer, names.tables, names.views, choices.include_system));
  sql += OwnerClause(choices, kOwnerSQLServer, u" AND ");
  return sql.append(u" ORDER BY U.name, T.name");
}

std::u16string TableViewNamesOracle(const LcImportChoices& choices, const NameChoices& names) {
  std::u16string sql;
  // The owner clause has two blanks before it, as these texts always had.
  u16string_view joiner = u" WHERE  ";
  if (names.tables && names.views) {
    sql = u"SELECT DISTINCT T.OWNER, T.TABLE_NAME, T.TABLE_TYPE FROM ALL_CATALOG T WHERE";
    sql.append(GetTableTypeClause(dbmsOracle, true, true, choices.include_system));
    joiner = u" AND  ";
  } else if (names.tables) {
    sql = u"SELECT DISTINCT T.OWNER, T.TABLE_NAME, 'TABLE' FROM ALL_TABLES T";
  } else {
    sql = u"SELECT DISTINCT T.OWNER, T.VIEW_NAME, 'VIEW' FROM ALL_VIEWS T";
  }
  sql += OwnerClause(choices, kOwnerOracle, joiner);
  return sql.append(names.tables ? u" ORDER BY T.OWNER,T.TABLE_NAME"
                                 : u" ORDER BY T.OWNER,T.VIEW_NAME");
}

std::u16string TableViewNamesDB2(const LcImportChoices& choices, const NameChoices& names) {
  std::u16string sql(u"SELECT DISTINCT T.TABSCHEMA, T.TABNAME, T.TYPE FROM SYSCAT.TABLES T WHERE");
  sql.append(GetTableTypeClause(dbmsDB2, names.tables, names.views, choices.include_system));
  sql += OwnerClause(choices, kOwnerDB2Tables, u" AND ");
  return sql.append(u" ORDER BY T.TABSCHEMA,T.TABNAME");
}

std::u16string TableViewNamesRedBrick(const LcImportChoices& choices, const NameChoices& names) {
  std::u16string sql(u"SELECT DISTINCT T.CREATOR, T.NAME, T.TYPE FROM RBW_TABLES T WHERE");
  sql.append(GetTableTypeClause(dbmsRedBrick, names.tables, names.views, choices.include_system));
  sql += OwnerClause(choices, kOwnerRedBrick, u" AND ");
  return sql.append(u" ORDER BY T.CREATOR,T.NAME");
}

std::u16string SynonymNamesInformix(const LcImportChoices& choices) {
  std::u16string sql(
      u"SELECT DISTINCT S.TABID, S.BTABID, S.SERVERNAME, S.DBNAME, S.OWNER, S.TABNAME, T.TABNAME, "
      u"T.OWNER FROM INFORMIX.SYSSYNTABLE S, INFORMIX.SYSTABLES T WHERE S.TABID=T.TABID");
  const std::u16string& owner = choices.owner_restriction;
  if (!owner.empty()) {
    // The synonym's owner or the base table's.
    sql.append(u" AND (T.OWNER ='").append(owner);
    sql.append(u"' OR S.OWNER ='").append(owner).append(u"')");
  }
  AppendTableIdClause(choices, u"S.TABID", sql);
  return sql;
}

}  // namespace

u16string_view GetTableTypeClause(int server_type, bool tables, bool views, bool include_system) {
  if (server_type == dbmsSybase) server_type = dbmsMSSQLServer;
  for (const TypeClauses& clauses : kTypeClauses) {
    if (clauses.dbms_type != server_type) continue;
    const auto& by_system = !tables ? clauses.views : views ? clauses.both : clauses.tables;
    return by_system[include_system ? 1 : 0];
  }
  return {};
}

std::optional<std::u16string> BuildOwnerNameQuery(const LcImportChoices& /*choices*/,
                                                  int /*server_type*/) {
  return std::nullopt;
}

std::optional<std::u16string> BuildTableViewNameQuery(const LcImportChoices& choices,
                                                      int server_type) {
  const NameChoices names(choices);
  if (!names.tables && !names.views) return std::nullopt;
  switch (server_type) {
    case dbmsInformix:
      return TableViewNamesInformix(choices, names);
    case dbmsMSSQLServer:
    case dbmsSybase:
      return TableViewNamesSQLServer(choices, names);
    case dbmsOracle:
      return TableViewNamesOracle(choices, names);
    case dbmsDB2:
      return TableViewNamesDB2(choices, names);
    case dbmsRedBrick:
      return TableViewNamesRedBrick(choices, names);
    default:
      return std::nullopt;
  }
}

std::optional<std::u16string> BuildSynonymNameQuery(const LcImportChoices& choices,
                                                    int server_type) {
  if ((choices.item_mask & ibSynonymNames) == 0) return std::nullopt;
  switch (server_type) {
    case dbmsInformix:
      return SynonymNamesInformix(choices);
    case dbmsOracle:
      return u"SELECT DISTINCT T.OWNER, T.SYNONYM_NAME, T.TABLE_OWNER, T.TABLE_NAME, T.DB_LINK "
             u"FROM ALL_SYNONYMS T" +
             OwnerClause(choices, kOwnerOracle, u" WHERE ");
    case dbmsRedBrick:
      return u"SELECT DISTINCT T.CREATOR, T.NAME, T.TNAME FROM RBW_SYNONYMS T" +
             OwnerClause(choices, kOwnerRedBrick, u" WHERE ");
    default:
      return std::nullopt;
  }
}

std::u16string BuildColumnNameQuery(const LcImportChoices& choices) {
  std::u16string text(
      u"SELECT COLNAME, COLTYPE FROM SYSCOLUMNS C, SYSTABLES T WHERE C.TABID=T.TABID AND "
      u"T.TABNAME='");
  return text.append(choices.single_table_name).append(u"'");
}

}  // namespace odbcimport
