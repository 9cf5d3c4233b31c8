// The texts of the queries for functions, aggregates and procedures.
#include <gtest/gtest.h>

#include <vector>

#include "routes/shared/function_queries.h"
#include "tests/support/functions_session.h"

namespace odbcimport::test {
namespace {

// What a query has in the place of its %, by owner and include-system choice.
struct Clause {
  const char16_t* owner;
  bool include_system;
  const char* text;
};

using Text = std::optional<std::u16string>;
using Builder = Text (*)(const LcImportChoices&, LeDBMSType, bool);

Text BuildProcedures(const LcImportChoices& choices, LeDBMSType dbms_type, bool) {
  return BuildProcedureQuery(choices, dbms_type);
}

void Expect(Builder build, LeDBMSType dbms_type, bool is_ius, const std::string& query,
            const std::vector<Clause>& clauses) {
  for (const Clause& clause : clauses) {
    LcImportChoices choices;
    choices.owner_restriction = clause.owner;
    choices.include_system = clause.include_system;
    EXPECT_EQ(Narrow(build(choices, dbms_type, is_ius).value()),
              std::string(query).replace(query.find('%'), 1, clause.text));
  }
}

TEST(FunctionQueries, NarrowFunctionsToTheOwner) {
  const std::vector<Clause> informix = {
      {u"", true, ""},
      {u"o'k", false, " and owner = 'o'k'"},
      {u"joe", true, " and (owner = 'joe' or owner = 'informix')"},
      {u"informix", true, " and owner = 'informix'"},
      {u"INFORMIX", true, " and (owner = 'INFORMIX' or owner = 'informix')"},
  };
  Expect(BuildBooleanFunctionsQuery, dbmsInformix, true,
         "select owner, procname, paramtypes::lvarchar from INFORMIX.sysprocedures where isproc = "
         "'f' and not mode = 'P' and numargs = 2%",
         informix);
  Expect(BuildBooleanFunctionsQuery, dbmsInformix, false,
         "select distinct owner, procname, \"\" from INFORMIX.sysprocedures where not mode = 'P' "
         "and numargs = 2%",
         informix);
  Expect(BuildGeneralFunctionsQuery, dbmsInformix, true,
         "select owner, procname,  paramtypes::lvarchar from INFORMIX.sysprocedures where isproc = "
         "'f' and not mode = 'P' and not numargs = 2%",
         informix);
  Expect(BuildGeneralFunctionsQuery, dbmsInformix, false,
         "select owner, procname from INFORMIX.sysprocedures where not mode = 'P' and not numargs "
         "= 2%",
         informix);
  // The system schema is kept out of the boolean functions only.
  const std::string db2 =
      "SELECT F.FUNCSCHEMA, F.FUNCNAME, F.PARM_COUNT, P.ORDINAL, P.TYPENAME FROM SYSCAT.FUNCTIONS "
      "F, SYSCAT.FUNCPARMS P WHERE F.SPECIFICNAME = P.SPECIFICNAME AND F.CAST_FUNCTION = 'N' AND "
      "P.ROWTYPE = 'P' AND F.PARM_COUNT ";
  const std::string order = " ORDER BY F.FUNCSCHEMA, F.FUNCNAME, P.ORDINAL";
  Expect(BuildBooleanFunctionsQuery, dbmsDB2, false, db2 + "= 2%" + order,
         {{u"", false, " AND F.FUNCSCHEMA != 'SYSFUN'"}, {u"", true, ""}});
  Expect(BuildGeneralFunctionsQuery, dbmsDB2, false, db2 + "!= 2%" + order,
         {{u"", false, ""},
          {u"JOE", true, " AND (F.FUNCSCHEMA='JOE' OR F.FUNCSCHEMA='SYSFUN')"},
          {u"JOE", false, " AND F.FUNCSCHEMA='JOE'"}});
}

TEST(FunctionQueries, NarrowProceduresToTheOwnerInEachServersWay) {
  Expect(BuildProcedures, dbmsInformix, true,
         "SELECT DISTINCT OWNER, PROCNAME FROM INFORMIX.SYSPROCEDURES% ORDER BY OWNER, PROCNAME",
         {{u"joe", true, " WHERE (OWNER='joe'  OR OWNER='informix')"},
          {u"joe", false, " WHERE OWNER='joe'"},
          {u"informix", true, " WHERE OWNER='informix'"},
          {u"", false, " WHERE OWNER != 'informix'"},
          {u"", true, ""}});
  for (const LeDBMSType dbms_type : {dbmsMSSQLServer, dbmsSybase}) {
    Expect(BuildProcedures, dbms_type, false,
           "SELECT U.name, T.name FROM sysobjects T, sysusers U WHERE T.uid=U.uid AND (T.xtype='P' "
           "OR T.xtype='X')% ORDER BY 1, 2",
           {{u"joe", true, "  AND U.name='joe' OR U.name = 'dbo'"},
            {u"joe", false, "  AND U.name='joe'"},
            {u"", false, " AND U.name != 'dbo'"},
            {u"", true, ""}});
  }
  Expect(BuildProcedures, dbmsOracle, false,
         "SELECT DISTINCT T.OWNER, T.OBJECT_NAME, T.OBJECT_TYPE FROM ALL_OBJECTS T WHERE "
         "T.OBJECT_TYPE='PROCEDURE'% ORDER BY OWNER, OBJECT_NAME",
         {{u"JOE", false, " AND (T.OWNER='JOE')"},
          {u"system", true, " AND (T.OWNER='system' OR T.OWNER != 'SYS')"},
          {u"", false, " AND T.OWNER !='SYS' AND T.OWNER != 'SYSTEM'"}});
  Expect(BuildProcedures, dbmsDB2, false,
         "SELECT DISTINCT T.PROCSCHEMA, T.PROCNAME FROM SYSCAT.PROCEDURES T% ORDER BY 1, 2",
         {{u"SYSCAT", true, " WHERE (T.PROCSCHEMA='SYSCAT' OR T.PROCSCHEMA != 'SYSIBM')"},
          {u"", false, " WHERE T.PROCSCHEMA !='SYSIBM' AND T.PROCSCHEMA != 'SYSCAT'"},
          {u"", true, ""}});
}

TEST(FunctionQueries, ServersWithoutACatalogHaveNone) {
  const LcImportChoices choices;
  for (const LeDBMSType type : {dbmsUnknown, dbmsOther, dbmsAccess, dbmsRedBrick}) {
    for (const Builder build : {&BuildBooleanFunctionsQuery, &BuildGeneralFunctionsQuery,
                                &BuildAggregateQuery, &BuildProcedures}) {
      EXPECT_FALSE(build(choices, type, true)) << type;
    }
  }
  EXPECT_FALSE(BuildGeneralFunctionsQuery(choices, dbmsOracle, true));
  EXPECT_FALSE(BuildAggregateQuery(choices, dbmsInformix, false));
}

}  // namespace
}  // namespace odbcimport::test
