// The whole route on the servers that the simulator plays.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "routes/native/native_route.h"
#include "tests/routes/route_run.h"

namespace odbcimport::native {
namespace {

using namespace test;  // NOLINT: its recorders are what every test here is about

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;

const std::map<std::string, std::pair<LeDBMSType, int>> kServers = {
    {"sqlserver", {dbmsMSSQLServer, 8}},
    {"oracle", {dbmsOracle, 8}},
    {"oracle-7", {dbmsOracle, 7}},
    {"db2", {dbmsDB2, 7}},
    {"redbrick", {dbmsRedBrick, 6}}};

class NativeRun : public RouteRun {
 public:
  explicit NativeRun(const std::string& name, const std::string& keywords = "")
      : RouteRun(&ImportNativeItems, kServers.at(name).first,
                 wbtest::Connection::OpenSimulator(name, keywords)) {
    server.dbms_version = kServers.at(name).second;
  }
};

// What is the server's own: named types, keys of many columns, names under two owners.
TEST(NativeRoute, EveryServerArrivesWhole) {
  const struct {
    const char* server;
    std::size_t tables;
    Lines columns;
    Lines keys;
  } cases[] = {
      {"sqlserver",
       23,
       {"dbo.book: isbn 0 13/13/0 char <isbn> !", "dbo.staff: salary 2 5/9/2 decimal !",
        "dbo.member: email 8 120/120/0 varchar <email>", "north.notice: big 0 8/19/0 -",
        "north.member: closes_at 61 4/16/0 smalldatetime <closing_time>"},
       {"dbo.copy key (isbn,copy_number)",
        "dbo.copy(isbn,copy_number) <- dbo.loan(isbn,copy_number)",
        "dbo.member(member_id) <- north.notice(member_id)",
        // The server's key is (member_id, notice_id): keys come in the order of the columns.
        "north.notice key (notice_id,member_id)"}},
      {"oracle",
       25,
       {"LIBRARY.STAFF: SALARY 1 22/9/2 NUMBER !", "LIBRARY.BOOK: SUMMARY 55 4000/4000/0 CLOB"},
       {"LIBRARY.COPY key (ISBN,COPY_NUMBER)", "NORTH.MEMBER key (MEMBER_ID)"}},
      {"db2",
       23,
       // Code 18 is in the list through the distinct type alone; TIME has the code of TIMESTAMP.
       {"LIBRARY.BOOK: ISBN 0 13/13/0 CHARACTER <ISBN> !",
        "LIBRARY.FINE: AMOUNT 2 9/9/2 DECIMAL <EURO> !",
        "LIBRARY.LOAN: LENT_AT 18 10/10/0 TIMESTAMP <STAMP> !",
        "LIBRARY.EVENT: BEGINS_AT 17 3/3/0 TIMESTAMP !"},
       {"LIBRARY.COPY(ISBN,COPY_NUMBER) <- LIBRARY.LOAN(ISBN,COPY_NUMBER)",
        "LIBRARY.MEMBER(MEMBER_ID) <- NORTH.MEMBER(MEMBER_ID) 1:1",
        "NORTH.MEMBER(MEMBER_ID) <- NORTH.NOTICE(MEMBER_ID)"}},
      {"redbrick",
       22,
       {"LIBRARY.STAFF: STAFF_ID 3 4/4/0 INTEGER !",
        "LIBRARY.MEMBER: CARD_NUMBER 0 10/10/0 CHARACTER !"},
       {"LIBRARY.COPY(ISBN,COPY_NUMBER) <- LIBRARY.LOAN(ISBN,COPY_NUMBER)",
        "LIBRARY.BRANCH(BRANCH_ID) <- NORTH.NORTH_VISIT(BRANCH_ID)"}},
  };
  for (const auto& wanted : cases) {
    SCOPED_TRACE(wanted.server);
    NativeRun run(wanted.server);
    run.base.choices.item_mask |= ibDataTypes;
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.messages.shown(), IsEmpty());
    EXPECT_EQ(run.workbook.tables.GetCount(), wanted.tables);
    for (const std::string& column : wanted.columns) {  // "table: column"
      const auto colon = column.find(':');
      EXPECT_THAT(run.Columns(column.substr(0, colon)), Contains(column.substr(colon + 2)));
    }
    EXPECT_THAT(run.Keys(), IsSupersetOf(wanted.keys));
    ExpectKeysInPairs(run.workbook.tables);
  }
}

TEST(NativeRoute, ALongSelectionIsReadWhole) {
  for (const auto& [server, facts] : kServers) {
    SCOPED_TRACE(server);
    const bool lower = server == "sqlserver";
    NativeRun run(server, "Scale=600;Columns=3;ForeignKeys=1");
    for (int i = 1; i <= 450; ++i) {
      char name[16];
      std::snprintf(name, sizeof name, lower ? "bulk_%06d" : "BULK_%06d", i);
      run.SelectTable(lower ? "dbo" : "BULK", name);
    }
    EXPECT_TRUE(run.Run());
    EXPECT_THAT(run.messages.shown(), IsEmpty());
    EXPECT_EQ(run.workbook.tables.GetCount(), 450u);
    EXPECT_GT(run.Keys().size(), 600u);
    for (const LcWorkbookTable* table : run.workbook.tables) {
      EXPECT_FALSE(table->GetPrimaryKey().IsEmpty());
    }
    ExpectKeysInPairs(run.workbook.tables);
  }
}

TEST(NativeRoute, ReportsItsPhasesInOrder) {
  NativeRun run("oracle");
  run.base.choices.item_mask =
      ibOwnerNames | ibDataTypes | ibTableNames | ibSynonymNames | ibTables | ibSynonyms;
  run.base.choices.owner_restriction = u"NORTH";
  run.SelectSynonym("LIBRARY", "HQ_BUDGET")->synonym.database_name = u"HQ";
  EXPECT_TRUE(run.Run());
  Lines phases;
  for (const std::string& event : run.events) {
    if (event[0] != '6') phases.push_back(event);
  }
  EXPECT_THAT(phases,
              ElementsAre("0", "2 4 0", "3", "2 5 0", "3", "2 6 0", "3", "2 7 0", "3", "2 1 0", "3",
                          "4 1 3", "5", "3", "4 2 1", "5", "4 3 2", "5", "2 13 0", "3", testing::_,
                          "5", "2 15 0", "3", "4 15 1", "5", "1"));
  // The owner query is empty, and the driver says so.
  EXPECT_EQ(run.messages.shown().size(), 1u);
  EXPECT_TRUE(run.workbook.owner_names.IsEmpty());
}

TEST(NativeRoute, SynonymNamesComeFromOracleAndRedBrickAlone) {
  const struct {
    const char* server;
    Lines expected;
  } cases[] = {
      {"sqlserver", {}},
      {"db2", {}},
      {"oracle",
       {"2 LIBRARY.HQ_BUDGET 0 0 HQ@:HEAD.BUDGET", "2 NORTH.FINES 0 0 @:LIBRARY.FINE",
        "2 NORTH.MEMBERS 0 0 @:LIBRARY.MEMBER", "2 PUBLIC.BOOKS 0 0 @:LIBRARY.BOOK",
        "2 PUBLIC.HQ_CITY 0 0 HQ@:HEAD.CITY"}},
      {"redbrick",
       {"2 LIBRARY.BOOKS 0 0 @:.BOOK", "2 NORTH.LOANS 0 0 @:.LOAN",
        "2 NORTH.VISITS 0 0 @:.NORTH_VISIT"}},
  };
  for (const auto& wanted : cases) {
    NativeRun run(wanted.server);
    run.base.choices.item_mask = ibSynonymNames;
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(run.ListedNames(), wanted.expected) << wanted.server;
  }
}

TEST(NativeRoute, SynonymsBringTheColumnsOfTheirTables) {
  NativeRun oracle("oracle");
  oracle.base.choices.item_mask = ibSynonyms;
  oracle.SelectSynonym("PUBLIC", "BOOKS");
  oracle.SelectSynonym("LIBRARY", "HQ_BUDGET", {0, 0, u"", u"HQ", u"HEAD", u"BUDGET"});
  oracle.SelectSynonym("LIBRARY", "GONE", {0, 0, u"", u"HQ", u"HEAD", u"NOWHERE"});
  EXPECT_TRUE(oracle.Run());
  ASSERT_EQ(oracle.workbook.tables.GetCount(), 2u);
  EXPECT_NE(oracle.Table("SYS.BOOKS")->FindColumn(u"TITLE"), nullptr);
  EXPECT_THAT(oracle.events, Contains("6 PUBLIC|BOOKS|TITLE"));
  const LcWorkbookTable* remote = oracle.Table("LIBRARY.HQ_BUDGET");
  ASSERT_NE(remote, nullptr);
  EXPECT_EQ(remote->GetSynonymDetails().base_table_name, u"BUDGET");
  // A remote row is read with the positions of a local one: its last value, the precision, names
  // the column, and nothing else arrives.
  EXPECT_THAT(oracle.Columns("LIBRARY.HQ_BUDGET"), Contains(testing::StartsWith("10 0 0/0/0 ")));
  EXPECT_THAT(oracle.events, Contains("6 LIBRARY|HQ_BUDGET|10"));

  NativeRun redbrick("redbrick");
  redbrick.base.choices.item_mask = ibSynonyms | ibDataTypes;
  EXPECT_TRUE(redbrick.Run());
  EXPECT_EQ(redbrick.workbook.tables.GetCount(), 3u);
  EXPECT_THAT(redbrick.Columns("NORTH.LOANS"), Contains("COPY_NUMBER 4 2/2/0 SMALLINT !"));
}

// A pair that cannot be resolved takes back the whole key, from both tables.
TEST(NativeRoute, SQLServerTakesBackAHalfMadeKey) {
  NativeRun run("sqlserver");
  run.connection().Execute("UPDATE sysreferences SET fkey2 = 99 WHERE keycnt = 2");
  run.connection().Execute("UPDATE sysreferences SET rkey16 = 99 WHERE keycnt = 16");
  run.connection().Execute(
      "UPDATE sysreferences SET keycnt = 17 WHERE fkeyid = (SELECT id FROM sysobjects "
      "WHERE name = 'fine')");
  EXPECT_TRUE(run.Run());
  ExpectKeysInPairs(run.workbook.tables);
  for (const char* name : {"dbo.stock_cell", "dbo.stock_count", "dbo.fine"}) {
    EXPECT_TRUE(run.Table(name)->GetForeignKeys().empty()) << name;
  }
  EXPECT_THAT(run.Keys(), Not(Contains("dbo.copy(isbn,copy_number) <- "
                                       "dbo.loan(isbn,copy_number)")));
  EXPECT_THAT(run.Keys(), Contains("dbo.member(member_id) <- dbo.loan(member_id)"));
}

// A count that no list of names bears out makes no more pairs than there are names.
TEST(NativeRoute, DB2ReadsListsOfNamesInPiecesOfTwenty) {
  NativeRun run("db2");
  run.connection().Execute("DELETE FROM SYSCAT.REFERENCES");
  run.connection().Execute(
      "INSERT INTO SYSCAT.REFERENCES (tabschema, tabname, reftabschema, reftabname, colcount, "
      "fk_colnames, pk_colnames) VALUES ('LIBRARY', 'LOAN', 'LIBRARY', 'COPY', 2000000000, "
      "' ISBN                COPY_NUMBER ', 'ISBN                COPY_NUMBER')");
  run.connection().Execute(
      "INSERT INTO SYSCAT.REFERENCES (tabschema, tabname, reftabschema, reftabname, colcount, "
      "fk_colnames, pk_colnames) VALUES ('NORTH', 'NOTICE', 'NORTH', 'ACQUISITION', 1, "
      "'ACQUISITION_REFERENCE_NUMBER', 'ACQUISITION_REFERENCE_NUMBER')");
  EXPECT_TRUE(run.Run());
  Lines relationships;
  for (const std::string& line : run.Keys()) {
    if (line.find("<-") != line.npos) relationships.push_back(line);
  }
  EXPECT_THAT(relationships,
              ElementsAre("LIBRARY.COPY(ISBN,COPY_NUMBER) <- LIBRARY.LOAN(ISBN,COPY_NUMBER)"));
  EXPECT_THAT(run.events, Contains("4 3 2"));
}

// Five rows: two referencing, two referenced, one left over. 1.0 is the sequence 1.
TEST(NativeRoute, OracleSplitsTheUnionAtHalfItsRows) {
  NativeRun run("oracle");
  run.base.choices.owner_restriction = u"ARCHIVE";
  run.connection().Execute("DELETE FROM all_constraints WHERE constraint_name = 'FK_BOX_ITEM_BOX'");
  run.connection().Execute("UPDATE all_cons_columns SET position = '1.0' WHERE position = 1");
  run.connection().Execute(
      "INSERT INTO all_constraints (owner, constraint_name, constraint_type, table_name, r_owner, "
      "r_constraint_name) VALUES ('ARCHIVE', 'FK_X', 'R', 'LENDING', 'ARCHIVE', 'NOWHERE')");
  run.connection().Execute(
      "INSERT INTO all_cons_columns VALUES ('ARCHIVE', 'FK_X', 'ZZZ', 'A', 1)");
  EXPECT_TRUE(run.Run());
  EXPECT_THAT(run.events, Contains("4 3 5"));
  EXPECT_THAT(run.Keys(),
              Contains("ARCHIVE.VOLUME(VOLUME_ID,PART_NO) <- ARCHIVE.LENDING(VOLUME_ID,PART_NO)"));
}

// A table that the catalog does not list any more, and the rows around it.
TEST(NativeRoute, PrimaryKeyRowsOfUnknownTablesArePassedOver) {
  NativeRun run("redbrick");
  run.on_event = [&](const std::string& event) {
    if (event.rfind("4 2", 0) == 0) run.Table("LIBRARY.COPY")->SetName(u"X");
  };
  EXPECT_TRUE(run.Run());
  EXPECT_THAT(run.Keys(),
              IsSupersetOf({"LIBRARY.BRANCH key (BRANCH_ID)", "LIBRARY.EVENT key (EVENT_ID)"}));
  EXPECT_TRUE(run.Table("LIBRARY.X")->GetPrimaryKey().IsEmpty());
}

TEST(NativeRoute, EndsWhereverTheHostStopsIt) {
  for (const auto& [server, facts] : kServers) {
    SCOPED_TRACE(server);
    const auto make = [name = server] {
      auto run = std::make_unique<NativeRun>(name);
      run->base.choices.item_mask = ibDataTypes | ibTableNames | ibSynonymNames | ibTables |
                                    ibViews | ibSynonyms | ibProcedures | ibAggregates;
      return run;
    };
    ExpectEndsWhereverTheHostStops(make, 17);  // nearly all items are alike
  }
}

}  // namespace
}  // namespace odbcimport::native
