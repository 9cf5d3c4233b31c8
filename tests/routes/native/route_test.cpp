// The whole route on the servers that the simulator plays.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <set>

#include "tests/routes/native/native_run.h"

namespace odbcimport::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;
using Lines = std::vector<std::string>;

constexpr const char* kServers[] = {"sqlserver", "oracle", "oracle-7", "db2", "redbrick"};

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
       {"dbo.book: isbn 0 13/13/0 char isbn!", "dbo.staff: salary 2 5/9/2 decimal!",
        "dbo.member: email 8 120/120/0 varchar email", "north.notice: big 0 8/19/0 -",
        "north.member: closes_at 61 4/16/0 smalldatetime closing_time"},
       {"dbo.copy key (isbn,copy_number)",
        "dbo.copy(isbn,copy_number) <- dbo.loan(isbn,copy_number)",
        "dbo.member(member_id) <- north.notice(member_id)",
        // The server's key is (member_id, notice_id): keys come in the order of the columns.
        "north.notice key (notice_id,member_id)"}},
      {"oracle",
       25,
       {"LIBRARY.STAFF: SALARY 1 22/9/2 NUMBER!", "LIBRARY.BOOK: SUMMARY 55 4000/4000/0 CLOB"},
       {"LIBRARY.COPY key (ISBN,COPY_NUMBER)", "NORTH.MEMBER key (MEMBER_ID)"}},
      {"db2",
       23,
       // Code 18 is in the list through the distinct type alone; TIME has the code of TIMESTAMP.
       {"LIBRARY.BOOK: ISBN 0 13/13/0 CHARACTER ISBN!",
        "LIBRARY.FINE: AMOUNT 2 9/9/2 DECIMAL EURO!",
        "LIBRARY.LOAN: LENT_AT 18 10/10/0 TIMESTAMP STAMP!",
        "LIBRARY.EVENT: BEGINS_AT 17 3/3/0 TIMESTAMP!"},
       {"LIBRARY.COPY(ISBN,COPY_NUMBER) <- LIBRARY.LOAN(ISBN,COPY_NUMBER)",
        "LIBRARY.MEMBER(MEMBER_ID) <- NORTH.MEMBER(MEMBER_ID)",
        "NORTH.MEMBER(MEMBER_ID) <- NORTH.NOTICE(MEMBER_ID)"}},
      {"redbrick",
       22,
       {"LIBRARY.STAFF: STAFF_ID 3 4/4/0 INTEGER!",
        "LIBRARY.MEMBER: CARD_NUMBER 0 10/10/0 CHARACTER!"},
       {"LIBRARY.COPY(ISBN,COPY_NUMBER) <- LIBRARY.LOAN(ISBN,COPY_NUMBER)",
        "LIBRARY.BRANCH(BRANCH_ID) <- NORTH.NORTH_VISIT(BRANCH_ID)"}},
  };
  for (const auto& wanted : cases) {
    SCOPED_TRACE(wanted.server);
    NativeRun run(wanted.server);
    run.importer.choices.item_mask |= ibDataTypes;
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.messages.shown(), IsEmpty());
    EXPECT_EQ(run.workbook.tables.GetCount(), wanted.tables);
    EXPECT_THAT(ColumnLines(run.workbook.tables), IsSupersetOf(wanted.columns));
    EXPECT_THAT(KeyLines(run.workbook.tables), IsSupersetOf(wanted.keys));
    ExpectKeysInPairs(run.workbook.tables);
  }
}

// Relationships as single column pairs, the only form that the generic route knows.
std::multiset<std::string> Facts(const LcWorkbook& workbook) {
  std::multiset<std::string> facts;
  for (const LcWorkbookTable* table : workbook.tables) {
    const std::string name = Narrow(table->GetOwner(false)) + "." + Narrow(table->GetName());
    for (int i = 0; i < table->GetColumnCount(); ++i) {
      const LcWorkbookColumn* column = table->GetColumn(i);
      facts.insert(name + ": " + Narrow(column->GetName()) + (column->IsRequired() ? "!" : ""));
    }
    for (const auto& key : table->GetForeignKeys()) {
      if (key->GetRole() != fkForward) continue;
      const auto own = key->GetKey()->GetColumns();
      const auto other = key->GetForeignKey()->GetColumns();
      for (std::size_t i = 0; i < own.size(); ++i) {
        const LcWorkbookTable* referencing = other[i]->GetParentTable();
        facts.insert(name + "." + Narrow(own[i]->GetName()) + " <- " +
                     Narrow(referencing->GetOwner(false)) + "." + Narrow(referencing->GetName()) +
                     "." + Narrow(other[i]->GetName()));
      }
    }
  }
  for (const std::string& line : KeyLines(workbook.tables)) {
    if (line.find(" key ") != std::string::npos) facts.insert(line);
  }
  return facts;
}

Lines Difference(const std::multiset<std::string>& a, const std::multiset<std::string>& b) {
  Lines lines;
  std::set_difference(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(lines));
  return lines;
}

// Both routes read the same schema. What differs is how they are meant to work: the generic route
// looks for the referencing table under the owner of the referenced one, and loses the relationship
// before one that it does not find; SQL Server's keys come in the order of the columns; Oracle's
// relationships are right where all referencing tables sort before the referenced ones.
TEST(NativeRoute, DiffersFromTheGenericRouteAsItShould) {
  const struct {
    const char* server;
    const char16_t* owner;
    Lines own_only;
    Lines generic_only;
  } cases[] = {
      {"sqlserver",
       u"",
       {"dbo.member.member_id <- dbo.reservation.member_id",
        "dbo.member.member_id <- north.notice.member_id", "north.notice key (notice_id,member_id)"},
       {"north.notice key (member_id,notice_id)"}},
      {"oracle", u"ARCHIVE", {}, {}},
      {"oracle-7", u"ARCHIVE", {}, {}},
      {"db2",
       u"",
       {"LIBRARY.MEMBER.MEMBER_ID <- NORTH.MEMBER.MEMBER_ID"},
       {"LIBRARY.MEMBER.MEMBER_ID <- LIBRARY.MEMBER.MEMBER_ID"}},
      {"redbrick",
       u"",
       {"LIBRARY.BRANCH.BRANCH_ID <- LIBRARY.STAFF.BRANCH_ID",
        "LIBRARY.BRANCH.BRANCH_ID <- NORTH.NORTH_VISIT.BRANCH_ID"},
       {}},
  };
  for (const auto& wanted : cases) {
    SCOPED_TRACE(wanted.server);
    NativeRun own(wanted.server), generic(wanted.server);
    own.importer.choices.owner_restriction = wanted.owner;
    generic.importer.choices.owner_restriction = wanted.owner;
    EXPECT_TRUE(own.Run());
    EXPECT_TRUE(generic.RunGeneric());
    EXPECT_GT(own.workbook.tables.GetCount(), 3u);
    EXPECT_EQ(Difference(Facts(own.workbook), Facts(generic.workbook)), wanted.own_only);
    EXPECT_EQ(Difference(Facts(generic.workbook), Facts(own.workbook)), wanted.generic_only);
  }
}

TEST(NativeRoute, ALongSelectionIsReadWhole) {
  for (const char* server : kServers) {
    SCOPED_TRACE(server);
    const bool lower = std::string(server) == "sqlserver";
    NativeRun run(server, "Scale=600;Columns=3;ForeignKeys=1");
    for (int i = 1; i <= 450; ++i) {
      char name[16];
      std::snprintf(name, sizeof name, lower ? "bulk_%06d" : "BULK_%06d", i);
      run.SelectTable(lower ? "dbo" : "BULK", name);
    }
    EXPECT_TRUE(run.Run());
    EXPECT_THAT(run.messages.shown(), IsEmpty());
    EXPECT_EQ(run.workbook.tables.GetCount(), 450u);
    const Lines keys = KeyLines(run.workbook.tables);
    EXPECT_EQ(std::count_if(
                  keys.begin(), keys.end(),
                  [](const std::string& line) { return line.find(" key (") != std::string::npos; }),
              450);
    EXPECT_GT(keys.size(), 600u);
    ExpectKeysInPairs(run.workbook.tables);
  }
}

// The selection parts the catalog: everything unselected stays away.
TEST(NativeRoute, ASelectionLeavesOutTheRest) {
  NativeRun run("db2");
  run.SelectTable("LIBRARY", "COPY");
  run.SelectTable("", "LOAN");
  EXPECT_TRUE(run.Run());
  EXPECT_EQ(run.workbook.tables.GetCount(), 2u);
  EXPECT_THAT(KeyLines(run.workbook.tables),
              ElementsAre("LIBRARY.COPY key (ISBN,COPY_NUMBER)",
                          "LIBRARY.COPY(ISBN,COPY_NUMBER) <- LIBRARY.LOAN(ISBN,COPY_NUMBER)",
                          "LIBRARY.LOAN key (LOAN_ID)"));
}

TEST(NativeRoute, ReportsItsPhasesInOrder) {
  NativeRun run("oracle");
  run.importer.choices.item_mask =
      ibOwnerNames | ibDataTypes | ibTableNames | ibSynonymNames | ibTables | ibSynonyms;
  run.importer.choices.owner_restriction = u"NORTH";
  run.SelectSynonym("LIBRARY", "HQ_BUDGET")->synonym.database_name = u"HQ";
  EXPECT_TRUE(run.Run());
  Lines phases;
  for (const std::string& event : run.events) {
    if (event[0] != '6') phases.push_back(event);
  }
  EXPECT_THAT(phases, ElementsAre("0", "2 4", "3", "2 5", "3", "2 6", "3", "2 7", "3", "2 1", "3",
                                  "4 1 3", "5", "3", "4 2 1", "5", "4 3 2", "5", "2 13", "3",
                                  testing::_, "5", "2 15", "3", "4 15 1", "5", "1"));
  // The owner query is empty, and the driver says so.
  EXPECT_EQ(run.messages.shown().size(), 1u);
  EXPECT_TRUE(run.workbook.owner_names.IsEmpty());
}

TEST(NativeRoute, WithoutItemsOnlyBeginsAndEnds) {
  NativeRun run("redbrick");
  run.importer.choices.item_mask = 0;
  EXPECT_TRUE(run.Run());
  EXPECT_THAT(run.events, ElementsAre("0", "1"));
}

TEST(NativeRoute, SynonymNamesComeFromOracleAndRedBrickAlone) {
  const struct {
    const char* server;
    Lines expected;  // owner.name > base owner.base table@link
  } cases[] = {
      {"sqlserver", {}},
      {"db2", {}},
      {"oracle",
       {"LIBRARY.HQ_BUDGET > HEAD.BUDGET@HQ", "NORTH.FINES > LIBRARY.FINE@",
        "NORTH.MEMBERS > LIBRARY.MEMBER@", "PUBLIC.BOOKS > LIBRARY.BOOK@",
        "PUBLIC.HQ_CITY > HEAD.CITY@HQ"}},
      {"redbrick",
       {"LIBRARY.BOOKS > .BOOK@", "NORTH.LOANS > .LOAN@", "NORTH.VISITS > .NORTH_VISIT@"}},
  };
  for (const auto& wanted : cases) {
    NativeRun run(wanted.server);
    run.importer.choices.item_mask = ibSynonymNames;
    EXPECT_TRUE(run.Run());
    Lines names;
    for (const LcTableInfo* entry : run.workbook.table_names) {
      EXPECT_EQ(entry->type, ttSynonym);
      names.push_back(Narrow(entry->owner) + "." + Narrow(entry->name) + " > " +
                      Narrow(entry->synonym.base_owner) + "." +
                      Narrow(entry->synonym.base_table_name) + "@" +
                      Narrow(entry->synonym.database_name));
    }
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, wanted.expected) << wanted.server;
  }
}

TEST(NativeRoute, SynonymsBringTheColumnsOfTheirTables) {
  NativeRun oracle("oracle");
  oracle.importer.choices.item_mask = ibSynonyms;
  oracle.SelectSynonym("PUBLIC", "BOOKS");
  LcTableInfo* far = oracle.SelectSynonym("LIBRARY", "HQ_BUDGET");
  far->synonym.database_name = u"HQ";
  far->synonym.base_owner = u"HEAD";
  far->synonym.base_table_name = u"BUDGET";
  EXPECT_TRUE(oracle.Run());
  ASSERT_EQ(oracle.workbook.tables.GetCount(), 2u);
  EXPECT_NE(oracle.workbook.tables.FindTable(u"SYS", u"BOOKS")->FindColumn(u"TITLE"), nullptr);
  EXPECT_THAT(oracle.events, Contains("6 PUBLIC|BOOKS|TITLE"));
  const LcWorkbookTable* remote = oracle.workbook.tables.FindTable(u"LIBRARY", u"HQ_BUDGET");
  ASSERT_NE(remote, nullptr);
  EXPECT_EQ(remote->GetSynonymDetails().base_table_name, u"BUDGET");
  // Named by the precision, which comes last; the server did not join table and columns.
  EXPECT_NE(remote->FindColumn(u"10"), nullptr);

  NativeRun redbrick("redbrick");
  redbrick.importer.choices.item_mask = ibSynonyms | ibDataTypes;
  EXPECT_TRUE(redbrick.Run());
  EXPECT_EQ(redbrick.workbook.tables.GetCount(), 3u);
  EXPECT_THAT(ColumnLines(redbrick.workbook.tables),
              Contains("NORTH.LOANS: COPY_NUMBER 4 2/2/0 SMALLINT!"));
}

// A pair that cannot be resolved takes back the whole key, from both tables.
TEST(NativeRoute, SQLServerTakesBackAHalfMadeKey) {
  NativeRun run("sqlserver");
  run.Execute("UPDATE sysreferences SET fkey2 = 99 WHERE keycnt = 2");
  run.Execute("UPDATE sysreferences SET rkey16 = 99 WHERE keycnt = 16");
  run.Execute(
      "UPDATE sysreferences SET keycnt = 17 WHERE fkeyid = (SELECT id FROM sysobjects "
      "WHERE name = 'fine')");
  EXPECT_TRUE(run.Run());
  ExpectKeysInPairs(run.workbook.tables);
  const auto& tables = run.workbook.tables;
  EXPECT_TRUE(tables.FindTable(u"dbo", u"stock_cell")->GetForeignKeys().empty());
  EXPECT_TRUE(tables.FindTable(u"dbo", u"stock_count")->GetForeignKeys().empty());
  EXPECT_TRUE(tables.FindTable(u"dbo", u"fine")->GetForeignKeys().empty());
  EXPECT_THAT(KeyLines(tables), Not(Contains("dbo.copy(isbn,copy_number) <- "
                                             "dbo.loan(isbn,copy_number)")));
  EXPECT_THAT(KeyLines(tables), Contains("dbo.member(member_id) <- dbo.loan(member_id)"));
}

// A count that no list of names bears out makes no more pairs than there are names.
TEST(NativeRoute, DB2ReadsListsOfNamesInPiecesOfTwenty) {
  NativeRun run("db2");
  run.Execute("DELETE FROM SYSCAT.REFERENCES");
  run.Execute(
      "INSERT INTO SYSCAT.REFERENCES (tabschema, tabname, reftabschema, reftabname, colcount, "
      "fk_colnames, pk_colnames) VALUES ('LIBRARY', 'LOAN', 'LIBRARY', 'COPY', 2000000000, "
      "' ISBN                COPY_NUMBER ', 'ISBN                COPY_NUMBER')");
  run.Execute(
      "INSERT INTO SYSCAT.REFERENCES (tabschema, tabname, reftabschema, reftabname, colcount, "
      "fk_colnames, pk_colnames) VALUES ('NORTH', 'NOTICE', 'NORTH', 'ACQUISITION', 1, "
      "'ACQUISITION_REFERENCE_NUMBER', 'ACQUISITION_REFERENCE_NUMBER')");
  EXPECT_TRUE(run.Run());
  Lines keys = KeyLines(run.workbook.tables);
  keys.erase(std::remove_if(keys.begin(), keys.end(),
                            [](const auto& line) { return line.find("<-") == line.npos; }),
             keys.end());
  EXPECT_THAT(keys,
              ElementsAre("LIBRARY.COPY(ISBN,COPY_NUMBER) <- LIBRARY.LOAN(ISBN,COPY_NUMBER)"));
  EXPECT_THAT(run.events, Contains("4 3 2"));
}

// Five rows: two referencing, two referenced, one left over. 1.0 is the sequence 1.
TEST(NativeRoute, OracleSplitsTheUnionAtHalfItsRows) {
  NativeRun run("oracle");
  run.importer.choices.owner_restriction = u"ARCHIVE";
  run.Execute("DELETE FROM all_constraints WHERE constraint_name = 'FK_BOX_ITEM_BOX'");
  run.Execute("UPDATE all_cons_columns SET position = '1.0' WHERE position = 1");
  run.Execute(
      "INSERT INTO all_constraints (owner, constraint_name, constraint_type, table_name, r_owner, "
      "r_constraint_name) VALUES ('ARCHIVE', 'FK_X', 'R', 'LENDING', 'ARCHIVE', 'NOWHERE')");
  run.Execute("INSERT INTO all_cons_columns VALUES ('ARCHIVE', 'FK_X', 'ZZZ', 'A', 1)");
  EXPECT_TRUE(run.Run());
  EXPECT_THAT(run.events, Contains("4 3 5"));
  EXPECT_THAT(KeyLines(run.workbook.tables),
              Contains("ARCHIVE.VOLUME(VOLUME_ID,PART_NO) <- ARCHIVE.LENDING(VOLUME_ID,PART_NO)"));
}

// A table that the catalog does not list any more, and the rows around it.
TEST(NativeRoute, PrimaryKeyRowsOfUnknownTablesArePassedOver) {
  NativeRun run("redbrick");
  run.on_event = [&](const std::string& event) {
    if (event.rfind("4 2", 0) == 0)
      run.workbook.tables.FindTable(u"LIBRARY", u"COPY")->SetName(u"X");
  };
  EXPECT_TRUE(run.Run());
  const Lines keys = KeyLines(run.workbook.tables);
  EXPECT_THAT(keys, Contains("LIBRARY.BRANCH key (BRANCH_ID)"));
  EXPECT_THAT(keys, Contains("LIBRARY.EVENT key (EVENT_ID)"));
  EXPECT_THAT(keys, Not(Contains("LIBRARY.X key (ISBN,COPY_NUMBER)")));
}

// A host can stop or cancel at every notification: the import ends with the right status, without
// an end of the import, soon, and with a workbook that hangs together.
TEST(NativeRoute, EndsWhereverTheHostStopsIt) {
  const std::uint32_t items = ibDataTypes | ibTableNames | ibSynonymNames | ibTables | ibViews |
                              ibSynonyms | ibProcedures | ibAggregates;
  for (const char* server : kServers) {
    SCOPED_TRACE(server);
    NativeRun whole(server);
    whole.importer.choices.item_mask = items;
    whole.Run();
    const std::size_t total = whole.events.size();
    ASSERT_GT(total, 150u);
    // Nearly all items are alike: one in seventeen is enough after the first phases.
    for (std::size_t at = 0; at + 1 < total; at += at < 25 || at + 25 > total ? 1 : 17) {
      NativeRun run(server);
      run.importer.choices.item_mask = items;
      const bool cancel = at % 2 == 1;
      run.on_event = [&](const std::string&) {
        if (run.events.size() == at + 1) cancel ? run.Cancel() : run.Stop();
      };
      run.Run();
      ASSERT_EQ(run.status, cancel ? 4 : 9) << "stopped at notification " << at;
      EXPECT_NE(run.events.back(), "1") << at;
      // A phase that has begun still reports its end, and keys that were read are put together.
      Lines after(run.events.begin() + static_cast<long>(at) + 1, run.events.end());
      after.erase(std::remove_if(
                      after.begin(), after.end(),
                      [](const std::string& event) { return event[0] == '6' || event[0] == '8'; }),
                  after.end());
      EXPECT_LE(after.size(), 4u) << run.events[at] << ": " << testing::PrintToString(after);
      ExpectKeysInPairs(run.workbook.tables);
    }
  }
}

}  // namespace
}  // namespace odbcimport::test
