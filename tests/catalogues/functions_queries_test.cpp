// The texts of the queries for functions, aggregates and procedures.
#include <gtest/gtest.h>

#include <map>
#include <utility>

#include "catalogues/function_queries.h"
#include "tests/catalogues/functions_session.h"

namespace odbcimport::test {
namespace {

LcImportChoices Choices(const char16_t* owner, bool include_system) {
  LcImportChoices choices;
  choices.owner_restriction = owner;
  choices.include_system = include_system;
  return choices;
}

// What a query has behind its base text, by owner and include-system choice.
struct Clause {
  LeDBMSType dbms_type;
  const char16_t* owner;
  bool include_system;
  const char16_t* expected;
};

using Builder = bool (*)(const LcImportChoices&, std::u16string&, LeDBMSType, bool);

constexpr char16_t kBooleanIUS[] =
    u"select owner, procname, paramtypes::lvarchar from INFORMIX.sysprocedures where isproc = 'f' "
    u"and not mode = 'P' and numargs = 2";
constexpr char16_t kBooleanIDS[] =
    u"select distinct owner, procname, \"\" from INFORMIX.sysprocedures where not mode = 'P' and "
    u"numargs = 2";
constexpr char16_t kGeneralIUS[] =
    u"select owner, procname,  paramtypes::lvarchar from INFORMIX.sysprocedures where isproc = 'f' "
    u"and not mode = 'P' and not numargs = 2";
constexpr char16_t kGeneralIDS[] =
    u"select owner, procname from INFORMIX.sysprocedures where not mode = 'P' and not numargs = 2";
constexpr char16_t kBooleanDB2[] =
    u"SELECT F.FUNCSCHEMA, F.FUNCNAME, F.PARM_COUNT, P.ORDINAL, P.TYPENAME FROM SYSCAT.FUNCTIONS F,"
    u" SYSCAT.FUNCPARMS P WHERE F.SPECIFICNAME = P.SPECIFICNAME AND F.CAST_FUNCTION = 'N' AND "
    u"P.ROWTYPE = 'P' AND F.PARM_COUNT = 2";
constexpr char16_t kGeneralDB2[] =
    u"SELECT F.FUNCSCHEMA, F.FUNCNAME, F.PARM_COUNT, P.ORDINAL, P.TYPENAME FROM SYSCAT.FUNCTIONS F,"
    u" SYSCAT.FUNCPARMS P WHERE F.SPECIFICNAME = P.SPECIFICNAME AND F.CAST_FUNCTION = 'N' AND "
    u"P.ROWTYPE = 'P' AND F.PARM_COUNT != 2";
constexpr char16_t kOrderDB2[] = u" ORDER BY F.FUNCSCHEMA, F.FUNCNAME, P.ORDINAL";

TEST(FunctionQueries, InformixNarrowsToTheOwner) {
  const Clause clauses[] = {
      {dbmsInformix, u"", false, u""},
      {dbmsInformix, u"", true, u""},
      {dbmsInformix, u"o'k", false, u" and owner = 'o'k'"},
      {dbmsInformix, u"joe", true, u" and (owner = 'joe' or owner = 'informix')"},
      {dbmsInformix, u"informix", true, u" and owner = 'informix'"},
      {dbmsInformix, u"INFORMIX", true, u" and (owner = 'INFORMIX' or owner = 'informix')"},
  };
  const struct {
    Builder build;
    bool is_ius;
    const char16_t* base;
  } queries[] = {{BuildBooleanFunctionsQuery, true, kBooleanIUS},
                 {BuildBooleanFunctionsQuery, false, kBooleanIDS},
                 {BuildGeneralFunctionsQuery, true, kGeneralIUS},
                 {BuildGeneralFunctionsQuery, false, kGeneralIDS}};
  for (const auto& query : queries) {
    for (const Clause& clause : clauses) {
      std::u16string sql;
      EXPECT_TRUE(query.build(Choices(clause.owner, clause.include_system), sql, dbmsInformix,
                              query.is_ius));
      EXPECT_EQ(Narrow(sql), Narrow(query.base) + Narrow(clause.expected));
    }
  }
}

TEST(FunctionQueries, DB2KeepsTheSystemSchemaOutOfBooleanFunctionsOnly) {
  const struct {
    const char16_t* owner;
    bool include_system;
    const char16_t* in_boolean;
    const char16_t* in_general;
  } cases[] = {
      {u"", false, u" AND F.FUNCSCHEMA != 'SYSFUN'", u""},
      {u"", true, u"", u""},
      {u"JOE", true, u" AND (F.FUNCSCHEMA='JOE' OR F.FUNCSCHEMA='SYSFUN')",
       u" AND (F.FUNCSCHEMA='JOE' OR F.FUNCSCHEMA='SYSFUN')"},
      {u"JOE", false, u" AND F.FUNCSCHEMA='JOE'", u" AND F.FUNCSCHEMA='JOE'"},
  };
  for (const auto& a_case : cases) {
    const LcImportChoices choices = Choices(a_case.owner, a_case.include_system);
    std::u16string sql;
    EXPECT_TRUE(BuildBooleanFunctionsQuery(choices, sql, dbmsDB2, false));
    EXPECT_EQ(Narrow(sql), Narrow(kBooleanDB2) + Narrow(a_case.in_boolean) + Narrow(kOrderDB2));
    EXPECT_TRUE(BuildGeneralFunctionsQuery(choices, sql, dbmsDB2, false));
    EXPECT_EQ(Narrow(sql), Narrow(kGeneralDB2) + Narrow(a_case.in_general) + Narrow(kOrderDB2));
  }
}

TEST(FunctionQueries, ProceduresNarrowToTheOwnerInEachServersWay) {
  const Clause clauses[] = {
      {dbmsInformix, u"joe", true, u" WHERE (OWNER='joe'  OR OWNER='informix')"},
      {dbmsInformix, u"joe", false, u" WHERE OWNER='joe'"},
      {dbmsInformix, u"informix", true, u" WHERE OWNER='informix'"},
      {dbmsInformix, u"", false, u" WHERE OWNER != 'informix'"},
      {dbmsInformix, u"", true, u""},
      {dbmsMSSQLServer, u"joe", true, u"  AND U.name='joe' OR U.name = 'dbo'"},
      {dbmsSybase, u"joe", false, u"  AND U.name='joe'"},
      {dbmsSybase, u"", false, u" AND U.name != 'dbo'"},
      {dbmsMSSQLServer, u"", true, u""},
      {dbmsOracle, u"JOE", false, u" AND (T.OWNER='JOE')"},
      {dbmsOracle, u"JOE", true, u" AND (T.OWNER='JOE' OR T.OWNER = 'SYS' OR T.OWNER = 'SYSTEM')"},
      {dbmsOracle, u"sys", true, u" AND (T.OWNER='sys' OR T.OWNER = 'SYSTEM')"},
      {dbmsOracle, u"system", true, u" AND (T.OWNER='system' OR T.OWNER != 'SYS')"},
      {dbmsOracle, u"", false, u" AND T.OWNER !='SYS' AND T.OWNER != 'SYSTEM'"},
      {dbmsDB2, u"SYSCAT", true, u" WHERE (T.PROCSCHEMA='SYSCAT' OR T.PROCSCHEMA != 'SYSIBM')"},
      {dbmsDB2, u"J", true,
       u" WHERE (T.PROCSCHEMA='J' OR T.PROCSCHEMA = 'SYSIBM' OR T.PROCSCHEMA = 'SYSCAT')"},
      {dbmsDB2, u"", false, u" WHERE T.PROCSCHEMA !='SYSIBM' AND T.PROCSCHEMA != 'SYSCAT'"},
      {dbmsDB2, u"", true, u""},
  };
  const std::map<LeDBMSType, std::pair<const char*, const char*>> frames = {
      {dbmsInformix,
       {"SELECT DISTINCT OWNER, PROCNAME FROM INFORMIX.SYSPROCEDURES",
        " ORDER BY OWNER, PROCNAME"}},
      {dbmsMSSQLServer,
       {"SELECT U.name, T.name FROM sysobjects T, sysusers U WHERE T.uid=U.uid AND (T.xtype='P' OR "
        "T.xtype='X')",
        " ORDER BY 1, 2"}},
      {dbmsOracle,
       {"SELECT DISTINCT T.OWNER, T.OBJECT_NAME, T.OBJECT_TYPE FROM ALL_OBJECTS T WHERE "
        "T.OBJECT_TYPE='PROCEDURE'",
        " ORDER BY OWNER, OBJECT_NAME"}},
      {dbmsDB2,
       {"SELECT DISTINCT T.PROCSCHEMA, T.PROCNAME FROM SYSCAT.PROCEDURES T", " ORDER BY 1, 2"}},
  };
  for (const Clause& clause : clauses) {
    std::u16string sql;
    EXPECT_TRUE(
        BuildProcedureQuery(Choices(clause.owner, clause.include_system), sql, clause.dbms_type));
    const auto& frame =
        frames.at(clause.dbms_type == dbmsSybase ? dbmsMSSQLServer : clause.dbms_type);
    EXPECT_EQ(Narrow(sql), frame.first + Narrow(clause.expected) + frame.second);
  }
}

TEST(FunctionQueries, ServersWithoutACatalogLeaveTheQueryAlone) {
  const LcImportChoices choices;
  for (int type = dbmsUnknown; type <= dbmsRedBrick; ++type) {
    const auto dbms_type = static_cast<LeDBMSType>(type);
    std::u16string sql = u"as it was";
    if (type != dbmsInformix && type != dbmsDB2) {
      EXPECT_FALSE(BuildBooleanFunctionsQuery(choices, sql, dbms_type, true)) << type;
      EXPECT_FALSE(BuildGeneralFunctionsQuery(choices, sql, dbms_type, true)) << type;
    }
    if (type == dbmsUnknown || type > dbmsDB2) {
      EXPECT_FALSE(BuildProcedureQuery(choices, sql, type)) << type;
    }
    EXPECT_FALSE(BuildAggregateQuery(choices, sql, dbms_type, false)) << type;
    EXPECT_EQ(Narrow(sql), "as it was") << type;
    EXPECT_EQ(BuildAggregateQuery(choices, sql, dbms_type, true), type == dbmsInformix) << type;
  }
}

TEST(FunctionQueries, InformixTablesAreFoundByNameAndOwner) {
  std::u16string sql;
  EXPECT_TRUE(BuildTableExistsQuery(u"", u"t", sql, dbmsInformix));
  EXPECT_EQ(Narrow(sql), "select tabname from systables where tabname='t'");
  EXPECT_TRUE(BuildTableExistsQuery(u"joe", u"t", sql, dbmsInformix));
  EXPECT_EQ(Narrow(sql), "select tabname from systables where tabname='t' and owner='joe'");
}

}  // namespace
}  // namespace odbcimport::test
