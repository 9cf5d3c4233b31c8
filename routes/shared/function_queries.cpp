// The catalog queries for functions, aggregates and procedures. The texts, spacing included, are
// those that hosts and servers' query logs know; they are kept as they are.
#include "routes/shared/function_queries.h"

#include <string_view>

#include "routes/shared/owner_clause.h"

namespace odbcimport {
namespace {

constexpr std::u16string_view kInformixOwner = u"informix";

void AppendQuoted(std::u16string& sql, std::u16string_view before, std::u16string_view owner) {
  sql.append(before).append(owner).append(u"'");
}

// Required (functions_queries_test): the system owner is told in exact case. Informix keeps owners
// in the case in which they were quoted, so INFORMIX is another owner.
std::u16string InformixOwnerClause(const LcImportChoices& choices) {
  std::u16string sql;
  const std::u16string& owner = choices.owner_restriction;
  if (owner.empty()) return sql;
  if (choices.include_system && owner != kInformixOwner) {
    AppendQuoted(sql, u" and (owner = '", owner);
    sql += u" or owner = 'informix')";
  } else {
    AppendQuoted(sql, u" and owner = '", owner);
  }
  return sql;
}

// A row per parameter of each function whose number of parameters `count_condition` allows.
std::u16string FunctionsDB2(const LcImportChoices& choices, std::u16string_view count_condition,
                            bool keep_system_out) {
  std::u16string sql =
      u"SELECT F.FUNCSCHEMA, F.FUNCNAME, F.PARM_COUNT, P.ORDINAL, P.TYPENAME FROM "
      u"SYSCAT.FUNCTIONS F, SYSCAT.FUNCPARMS P WHERE F.SPECIFICNAME = P.SPECIFICNAME AND "
      u"F.CAST_FUNCTION = 'N' AND P.ROWTYPE = 'P' AND F.PARM_COUNT ";
  sql += count_condition;
  const std::u16string& owner = choices.owner_restriction;
  if (owner.empty()) {
    if (keep_system_out && !choices.include_system) sql += u" AND F.FUNCSCHEMA != 'SYSFUN'";
  } else if (choices.include_system) {
    AppendQuoted(sql, u" AND (F.FUNCSCHEMA='", owner);
    sql += u" OR F.FUNCSCHEMA='SYSFUN')";
  } else {
    AppendQuoted(sql, u" AND F.FUNCSCHEMA='", owner);
  }
  return sql += u" ORDER BY F.FUNCSCHEMA, F.FUNCNAME, P.ORDINAL";
}

std::u16string ProceduresInformix(const LcImportChoices& choices) {
  const std::u16string& owner = choices.owner_restriction;
  std::u16string sql(u"SELECT DISTINCT OWNER, PROCNAME FROM INFORMIX.SYSPROCEDURES");
  if (owner.empty()) {
    if (!choices.include_system) sql += u" WHERE OWNER != 'informix'";
  } else if (choices.include_system && owner != kInformixOwner) {
    AppendQuoted(sql, u" WHERE (OWNER='", owner);
    sql += u"  OR OWNER='informix')";
  } else {
    AppendQuoted(sql, u" WHERE OWNER='", owner);
  }
  return sql += u" ORDER BY OWNER, PROCNAME";
}

// SQL Server and Sybase alike.
std::u16string ProceduresSQLServer(const LcImportChoices& choices) {
  const std::u16string& owner = choices.owner_restriction;
  std::u16string sql(
      u"SELECT U.name, T.name FROM sysobjects T, sysusers U WHERE T.uid=U.uid AND (T.xtype='P' OR "
      u"T.xtype='X')");
  if (owner.empty()) {
    if (!choices.include_system) sql += u" AND U.name != 'dbo'";
  } else {
    AppendQuoted(sql, u"  AND U.name='", owner);
    // Required (functions_queries_test): no parentheses. The OR binds the whole condition, so that
    // a host that asks for an owner with the system's objects gets all objects of dbo, as it always
    // has.
    if (choices.include_system) sql += u" OR U.name = 'dbo'";
  }
  return sql += u" ORDER BY 1, 2";
}

}  // namespace

std::optional<std::u16string> BuildBooleanFunctionsQuery(const LcImportChoices& choices,
                                                         LeDBMSType dbms_type, bool is_ius) {
  switch (dbms_type) {
    case dbmsInformix:
      // Dynamic Server keeps no parameter texts: the empty literal stands in for them.
      return (is_ius ? u"select owner, procname, paramtypes::lvarchar from INFORMIX.sysprocedures "
                       u"where isproc = 'f' and not mode = 'P' and numargs = 2"
                     : u"select distinct owner, procname, \"\" from INFORMIX.sysprocedures where "
                       u"not mode = 'P' and numargs = 2") +
             InformixOwnerClause(choices);
    case dbmsDB2:
      return FunctionsDB2(choices, u"= 2", true);
    default:
      return std::nullopt;
  }
}

std::optional<std::u16string> BuildGeneralFunctionsQuery(const LcImportChoices& choices,
                                                         LeDBMSType dbms_type, bool is_ius) {
  switch (dbms_type) {
    case dbmsInformix:
      return (is_ius ? u"select owner, procname,  paramtypes::lvarchar from INFORMIX.sysprocedures "
                       u"where isproc = 'f' and not mode = 'P' and not numargs = 2"
                     : u"select owner, procname from INFORMIX.sysprocedures where not mode = 'P' "
                       u"and not numargs = 2") +
             InformixOwnerClause(choices);
    case dbmsDB2:
      // SYSFUN stays in, unlike among the boolean functions: it holds what users know as the
      // built-in functions of DB2, and the catalogue of built-in ones has only special registers.
      return FunctionsDB2(choices, u"!= 2", false);
    default:
      return std::nullopt;
  }
}

std::optional<std::u16string> BuildAggregateQuery(const LcImportChoices& /*choices*/,
                                                  LeDBMSType dbms_type, bool is_ius) {
  if (dbms_type != dbmsInformix || !is_ius) return std::nullopt;
  return u"select distinct name from INFORMIX.sysaggregates";
}

std::optional<std::u16string> BuildProcedureQuery(const LcImportChoices& choices, int dbms_type) {
  switch (dbms_type) {
    case dbmsInformix:
      return ProceduresInformix(choices);
    case dbmsMSSQLServer:
    case dbmsSybase:
      return ProceduresSQLServer(choices);
    case dbmsOracle:
      return u"SELECT DISTINCT T.OWNER, T.OBJECT_NAME, T.OBJECT_TYPE FROM ALL_OBJECTS T WHERE "
             u"T.OBJECT_TYPE='PROCEDURE'" +
             OwnerClause(choices, kOwnerOracle, u" AND ") + u" ORDER BY OWNER, OBJECT_NAME";
    case dbmsDB2:
      return u"SELECT DISTINCT T.PROCSCHEMA, T.PROCNAME FROM SYSCAT.PROCEDURES T" +
             OwnerClause(choices, kOwnerDB2Procedures, u" WHERE ") + u" ORDER BY 1, 2";
    default:
      return std::nullopt;
  }
}

std::optional<std::u16string> BuildTableExistsQuery(const std::u16string& owner,
                                                    const std::u16string& table, int dbms_type) {
  if (dbms_type != dbmsInformix) return std::nullopt;
  std::u16string query;
  AppendQuoted(query, u"select tabname from systables where tabname='", table);
  if (!owner.empty()) AppendQuoted(query, u" and owner='", owner);
  return query;
}

}  // namespace odbcimport
