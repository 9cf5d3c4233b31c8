// The readers of functions and procedures on the servers that list them, played by the simulator.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "routes/shared/readers.h"
#include "tests/support/connection.h"
#include "tests/support/functions_session.h"

namespace odbcimport::test {
namespace {

using testing::Contains;
using testing::ElementsAre;

struct ServerSession : RecordedSession {
  ServerSession(LeDBMSType dbms_type, const std::string& name, const char16_t* owner)
      : RecordedSession(dbms_type, name == "informix"),
        connection(wbtest::Connection::OpenSimulator(name)) {
    importer.henv = connection->henv();
    importer.hdbc = connection->hdbc();
    importer.choices.owner_restriction = owner;
  }
  std::unique_ptr<wbtest::Connection> connection;
};

std::vector<int> Kinds() {
  std::vector<int> kinds;
  for (const Notification& seen : Notifications()) kinds.push_back(seen.notify);
  return kinds;
}

std::vector<std::string> Names(const LcWorkbookProcedureList& procedures) {
  std::vector<std::string> names;
  for (const LcWorkbookProcedure* procedure : procedures) {
    names.push_back(Narrow(procedure->GetOwner()) + "." + Narrow(procedure->GetName()));
  }
  return names;
}

TEST(FunctionsOnServers, InformixListsBooleanFunctionsAndUsersAggregatesFirst) {
  ServerSession server(dbmsInformix, "informix", u"joe");
  EXPECT_TRUE(GetBooleanFunctions(server.session));
  ASSERT_EQ(server.workbook.boolean_functions.GetCount(), 1U);
  EXPECT_EQ(server.workbook.boolean_functions.GetAt(0)->GetOverloads().size(), 2U);
  GetAggregates(server.session);
  EXPECT_THAT(Kinds(), ElementsAre(2, 3, 4, 9, 9, 5, 2, 3));
  EXPECT_EQ(Notifications()[2].count, 2U);
  ASSERT_GT(server.workbook.aggregates.GetCount(), 8U);
  EXPECT_EQ(server.workbook.aggregates.GetAt(server.workbook.aggregates.GetCount() - 8)->GetName(),
            u"AVG");
}

TEST(FunctionsOnServers, UsersFunctionsFollowTheBuiltInOnes) {
  ServerSession universal(dbmsInformix, "informix", u"joe");
  EXPECT_TRUE(GetGeneralFunctions(universal.session));
  EXPECT_EQ(universal.workbook.functions.GetCount(), 59U);
  EXPECT_EQ(Lines(universal.workbook.functions).back(), "joe.area: area(polygon) area(shelf_mark)");

  ServerSession dynamic(dbmsInformix, "informix-7", u"library");
  EXPECT_TRUE(GetGeneralFunctions(dynamic.session));
  EXPECT_THAT(Lines(dynamic.workbook.functions), Contains("library.fine_for:"));

  ServerSession db2(dbmsDB2, "db2", u"LIBRARY");
  EXPECT_TRUE(GetGeneralFunctions(db2.session));
  EXPECT_EQ(db2.workbook.functions.GetCount(), 16U);
  EXPECT_THAT(Lines(db2.workbook.functions),
              Contains("LIBRARY.FINE_FOR: FINE_FOR(INTEGER) FINE_FOR(INTEGER, EURO, VARCHAR)"));
}

TEST(FunctionsOnServers, ProceduresAreReadByOwnerAndName) {
  const struct {
    LeDBMSType dbms_type;
    const char* server;
    const char16_t* owner;
    std::vector<std::string> names;
  } cases[] = {
      {dbmsMSSQLServer, "sqlserver", u"north", {"north.next_notice"}},
      {dbmsOracle, "oracle", u"LIBRARY", {"LIBRARY.LEND_BOOK", "LIBRARY.TAKE_BACK"}},
      {dbmsDB2, "db2", u"NORTH", {"NORTH.REFRESH_NOTES"}},
  };
  for (const auto& a_case : cases) {
    ServerSession server(a_case.dbms_type, a_case.server, a_case.owner);
    EXPECT_TRUE(GetProcedures(server.session, server.workbook.procedures));
    EXPECT_EQ(Names(server.workbook.procedures), a_case.names);
    EXPECT_EQ(Notifications().back().notify, inLoopEnd);
    EXPECT_EQ(Notifications().size(), 4 + a_case.names.size());
  }
}

TEST(FunctionsOnServers, WithoutRowsAPhaseIsReportedAndNoLoop) {
  ServerSession server(dbmsDB2, "db2", u"NOBODY");
  EXPECT_TRUE(GetProcedures(server.session, server.workbook.procedures));
  EXPECT_THAT(Kinds(), ElementsAre(2, 3, 5)) << "procedures alone report the end of a loop";
  Notifications().clear();
  EXPECT_TRUE(GetBooleanFunctions(server.session));
  EXPECT_THAT(Kinds(), ElementsAre(2, 3));
}

TEST(FunctionsOnServers, InformixTellsWhetherATableExists) {
  ServerSession server(dbmsInformix, "informix", u"");
  EXPECT_TRUE(DoesTableExist(server.session, u"", u"systables"));
  EXPECT_TRUE(DoesTableExist(server.session, u"informix", u"systables"));
  EXPECT_FALSE(DoesTableExist(server.session, u"nobody", u"systables"));
  LcWorkbookDatatype type;
  EXPECT_TRUE(DoesExtendedTypeHaveSize(&type));
  type.SetExtendedId(2061);
  EXPECT_FALSE(DoesExtendedTypeHaveSize(&type));
}

}  // namespace
}  // namespace odbcimport::test
