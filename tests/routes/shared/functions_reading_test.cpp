// How functions and their overloads come out of catalog rows, and what servers without a catalog
// query get.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "routes/shared/function_assembly.h"
#include "routes/shared/readers.h"
#include "tests/support/functions_session.h"

namespace odbcimport::test {
namespace {

using testing::ElementsAre;

TEST(InformixFunctions, AreSortedWhateverTheirCaseAndPartedByOwner) {
  LcODBCRecordList rows;
  AddRow(rows, {u"zoe  ", u"f", u"integer"});
  AddRow(rows, {u"Ann", u"g", u"date,date"});
  AddRow(rows, {u"Ann", u"F ", u"integer"});
  AddRow(rows, {u"Ann", u"F", u"char "});
  AddRow(rows, {u"ann", u"f", u""});
  RecordedSession recorded(dbmsInformix, true);
  AssembleFunctionsInformix(recorded.session, rows, {inFunctionItem, true, false},
                            recorded.workbook.boolean_functions);
  // Names are sorted without case and told apart with it; a row without parameters has no overload.
  EXPECT_THAT(Lines(recorded.workbook.boolean_functions),
              ElementsAre("ann.f:", "Ann.F: F(char) F(integer)", "Ann.g: g(date,date)",
                          "zoe.f: f(integer)"));
  ASSERT_EQ(Notifications().size(), 5U);
  EXPECT_EQ(Notifications()[1].notify, inFunctionItem);
  EXPECT_EQ(Notifications()[1].text1, u"Ann");
  EXPECT_EQ(Notifications()[1].text2, u"F");
  EXPECT_EQ(Notifications()[1].text3, u"char");
}

TEST(InformixFunctions, MergeIntoFunctionsOfTheSameOwnerAndName) {
  LcODBCRecordList rows;
  AddRow(rows, {u"joe", u"f", u"integer"});
  AddRow(rows, {u"joe", u"h", u"integer"});
  const struct {
    InformixAssembly how;
    std::vector<std::string> functions;
  } cases[] = {
      {{inSystemFunctionItem, true, true}, {".f:", "joe.f: f(integer)", "joe.h: h(integer)"}},
      {{inSystemFunctionItem, true, false},
       {".f:", "joe.f:", "joe.f: f(integer)", "joe.h: h(integer)"}},
      // Dynamic Server has no overloads.
      {{inSystemFunctionItem, false, true}, {".f:", "joe.f:", "joe.h:"}},
  };
  for (const auto& a_case : cases) {
    RecordedSession recorded(dbmsInformix);
    recorded.workbook.functions.Append(std::make_unique<LcWorkbookFunction>(u"", u"f"));
    recorded.workbook.functions.Append(std::make_unique<LcWorkbookFunction>(u"joe", u"f"));
    AssembleFunctionsInformix(recorded.session, rows, a_case.how, recorded.workbook.functions);
    EXPECT_EQ(Lines(recorded.workbook.functions), a_case.functions);
  }
}

TEST(DB2Functions, TakeOverloadsByCountInTheServersOrder) {
  LcODBCRecordList rows;
  // Two overloads with three parameters, interleaved by ordinal; then the same name elsewhere.
  AddRow(rows, {u"A", u"F", u"3", u"1", u"INTEGER "});
  AddRow(rows, {u"A", u"F", u"3", u"1", u"DOUBLE"});
  AddRow(rows, {u"A", u"F", u"3", u"2", u"INTEGER"});
  AddRow(rows, {u"A", u"F", u"3", u"2", u"DOUBLE"});
  AddRow(rows, {u"A", u"F", u"3", u"3", u"DATE"});
  AddRow(rows, {u"A", u"F", u"3", u"3", u"TIME"});
  AddRow(rows, {u"B", u"F", u"1", u"1", u"CHAR"});
  AddRow(rows, {u"B", u"G", u"2", u"1", u""});      // an unnamed type is not counted
  AddRow(rows, {u"B", u"G", u"2", u"2", u"CHAR"});  // so this overload stays incomplete
  AddRow(rows, {u"B", u"H", u"1", u"1", u"BLOB"});  // and does not leak into the next function
  RecordedSession recorded(dbmsDB2);
  AssembleFunctionsDB2(recorded.session, rows, recorded.workbook.functions);
  EXPECT_THAT(Lines(recorded.workbook.functions),
              ElementsAre("A.F: F(INTEGER, DOUBLE, INTEGER) F(DOUBLE, DATE, TIME)", "B.F: F(CHAR)",
                          "B.G:", "B.H: H(BLOB)"));
  ASSERT_EQ(Notifications().size(), 10U);
  EXPECT_EQ(Notifications()[1].text3, u"INTEGER, DOUBLE");
  EXPECT_EQ(Notifications()[2].text3, u"") << "a complete overload is taken out";
}

TEST(Readers, WithoutACatalogQueryAddTheCatalogueOnly) {
  const struct {
    LeDBMSType dbms_type;
    std::size_t functions;
    bool result;
  } cases[] = {{dbmsOracle, 86, true},        {dbmsAccess, 42, true}, {dbmsRedBrick, 40, true},
               {dbmsMSSQLServer, 144, false}, {dbmsSybase, 0, false}, {dbmsOther, 0, false}};
  for (const auto& a_case : cases) {
    RecordedSession recorded(a_case.dbms_type);
    EXPECT_EQ(GetGeneralFunctions(recorded.session), a_case.result) << a_case.dbms_type;
    EXPECT_EQ(recorded.workbook.functions.GetCount(), a_case.functions) << a_case.dbms_type;
    Notifications().clear();
    EXPECT_FALSE(GetBooleanFunctions(recorded.session)) << a_case.dbms_type;
    EXPECT_TRUE(Notifications().empty()) << a_case.dbms_type;
  }
  RecordedSession red_brick(dbmsRedBrick);
  EXPECT_FALSE(GetProcedures(red_brick.session, red_brick.workbook.procedures));
  EXPECT_TRUE(Notifications().empty());
}

TEST(Readers, OperatorsAreTheSameEverywhereAndAggregatesDifferByServer) {
  const std::map<LeDBMSType, std::string> aggregates = {
      {dbmsUnknown, "AVG COUNT MAX MIN SUM "},
      {dbmsMSSQLServer, "AVG COUNT MAX MIN STDEV STDEVP SUM VAR VARP "},
      {dbmsOracle, "AVG COUNT MAX MIN STDDEV SUM VARIANCE "},
      {dbmsDB2, "AVG COUNT COUNT_BIG GROUPING MAX MIN STDDEV VARIANCE SUM "},
      {dbmsRedBrick, "AVG COUNT MIN MAX SUM "}};
  for (const auto& [dbms_type, names] : aggregates) {
    RecordedSession recorded(dbms_type);
    GetOperators(recorded.session);
    EXPECT_TRUE(Notifications().empty()) << "the route reports the phase";
    GetAggregates(recorded.session);
    std::string seen;
    for (const LcWorkbookOperator* an_operator : recorded.workbook.operators) {
      seen += Narrow(an_operator->GetName()) + " ";
    }
    for (const LcWorkbookAggregate* aggregate : recorded.workbook.aggregates) {
      EXPECT_EQ(aggregate->GetName(), aggregate->GetDescription());
      seen += Narrow(aggregate->GetName()) + " ";
    }
    EXPECT_EQ(seen, "= < <= > >= <> like is " + names);
  }
}

}  // namespace
}  // namespace odbcimport::test
