// The Informix route on the practice servers: phases, notifications, tables, synonyms, keys, odd
// catalog rows, and how it ends early.
#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "export/writer.h"
#include "routes/informix/remote_databases.h"
#include "simulator/private_interface.h"
#include "tests/routes/informix/informix_import.h"

namespace odbcimport::informix {
namespace {

using test::InformixImport;
using test::Lines;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

// The whole practice server as an outline. WB_RENEW_GOLDEN=1 writes the files anew.
TEST(InformixRoute, ReadsWholePracticeServers) {
  for (const std::string server : {"informix", "informix-7"}) {
    InformixImport run(server);
    run.base.choices.item_mask = 0x7FC;  // what a host imports by default
    EXPECT_TRUE(run.Run());
    LcWorkbookFileInfo info;
    info.dbms_name = u"Informix";
    info.dbms_version = run.server.dbms_version;
    info.dbms_type = dbmsInformix;
    info.route = u"informix";
    info.result = true;
    std::ostringstream out;
    std::vector<std::string> notes;
    wbexport::FindFormat("text")->write({run.workbook, info}, {}, out, notes);
    const std::filesystem::path path = WB_SOURCE_DIR "/tests/routes/informix/" + server + ".txt";
    if (std::getenv("WB_RENEW_GOLDEN") != nullptr) std::ofstream(path) << out.str();
    std::ostringstream expected;
    expected << std::ifstream(path).rdbuf();
    EXPECT_EQ(out.str(), expected.str()) << server;
  }
}

TEST(InformixRoute, RefusesOtherServersAndAMissingWorkbook) {
  InformixImport run("informix");
  run.server.dbms_type = dbmsOracle;
  run.status = 77;
  EXPECT_FALSE(run.Run());
  run.server.dbms_type = dbmsInformix;
  ImportSession session(run.base, nullptr, run.server, nullptr, nullptr, run.current_item);
  EXPECT_FALSE(ImportInformixItems(session, run.status));
  EXPECT_THAT(run.events, IsEmpty());
  EXPECT_EQ(run.status, 77);
}

TEST(InformixRoute, ReportsEveryPhaseInItsOrder) {
  InformixImport run("informix");
  run.base.choices.item_mask = 0x2F7FC;
  run.base.choices.single_table_name = u"currency";
  run.SelectTable("joe", "currency");
  run.SelectTable("joe", "Branch");
  run.SelectSynonym("joe", "books", {150, 121, u"", u"", u"", u""});
  run.SelectSynonym("sales", "old_loans", {154, 0, u"", u"archive", u"library", u"loans"});
  EXPECT_TRUE(run.Run());
  // The empty text for owners is run, and fails.
  EXPECT_EQ(run.messages.shown().size(), 1u);
  // Functions and procedures have tests of their own; their items are left out here.
  Lines events;
  for (const std::string& event : run.events) {
    if (!event.starts_with("8 ") && !event.starts_with("9 ") && !event.starts_with("10 ")) {
      events.push_back(event);
    }
  }
  EXPECT_THAT(events,
              ElementsAre("0", "2 4 0", "3", "2 5 0", "3", "2 6 0", "3", "2 7 0", "3", "2 8 0", "3",
                          "2 9 0", "3", "2 10 0", "3", "4 10 4", "5", "4 11 573", "5", "2 11 0",
                          "3", "4 11 4", "5", "2 12 0", "3",
                          // Tables: the count is that of the columns. Keys: that of the
                          // constraints, and the end of a phase that has no beginning.
                          "2 1 0", "3", "4 1 4", "6 joe|Branch|branch_id", "6 joe|currency|code",
                          "6 joe|currency|name", "6 joe|currency|rate", "5", "3", "4 2 2",
                          "6 joe|currency|", "6 joe|currency|", "5",
                          // Synonyms, those of other databases after the local ones.
                          "2 13 0", "3", "4 13 0", "5", "2 15 0", "3", "4 15 1",
                          "6 sales|old_loans|loan_id", "6 sales|old_loans|isbn",
                          "6 sales|old_loans|lent_at", "6 sales|old_loans|returned_at", "5",
                          "2 14 0", "3", "4 14 9", "5", "1"));
  EXPECT_EQ(run.current_item.text2, u"currency");  // remote synonyms leave it alone
}

TEST(InformixRoute, ReturnsWhatTheLastPhaseWithAResultGave) {
  InformixImport run("informix");
  run.base.targets.boolean_functions = nullptr;
  run.base.choices.item_mask = ibBooleanFunctions;
  EXPECT_FALSE(run.Run());
  run.base.choices.item_mask |= ibProcedures;
  EXPECT_TRUE(run.Run());
}

TEST(InformixRoute, ListsNames) {
  InformixImport run("informix");
  run.base.choices.item_mask = ibViewNames | ibSynonymNames | ibColumnNames;
  run.base.choices.single_table_name = u"branch";  // of two owners
  EXPECT_TRUE(run.Run());
  EXPECT_THAT(run.ListedNames(), testing::UnorderedElementsAre(
                                     "1 library.overdue_loan 0 0 @:.", "1 library.shelf 0 0 @:.",
                                     "2 joe.books 150 106 @:.", "2 sales.customers 151 110 @:.",
                                     "2 sales.orders 152 0 stores@tokyo:sales.orders",
                                     "2 sales.order_lines 153 0 Stores@Tokyo:sales.lines",
                                     "2 sales.old_loans 154 0 archive@:library.loans",
                                     "2 sales.nowhere 155 0 stores@tokyo:sales.dropped"));
  Lines columns;
  for (const LcWBColumnInfo* column : run.workbook.column_names) {
    columns.push_back(test::ToUtf8(column->name) + " " +
                      std::to_string(column->data_type->GetPhysicalCode()));
  }
  EXPECT_THAT(columns, AllOf(Contains("opened_on 15"), Contains("branch_id 19"),
                             Contains("branch_id 3"), Contains("remark 14"), testing::SizeIs(9)));
  EXPECT_THAT(run.Tables(), IsEmpty());
}

TEST(InformixRoute, GivesLocalSynonymsTheColumnsOfTheirTables) {
  InformixImport run("informix");
  run.base.choices.item_mask = ibSynonyms;
  run.SelectSynonym("sales", "customers", {1, 110, u"", u"first", u"", u""});
  run.SelectSynonym("sales", "customers", {151, 110, u"", u"last", u"", u""});
  EXPECT_TRUE(run.Run());
  EXPECT_THAT(run.Tables(), ElementsAre("sales.customers synonym"));
  // Of two selected entries of that name the last counts.
  EXPECT_EQ(run.Table("sales.customers")->GetSynonymDetails().database_name, u"last");
  EXPECT_EQ(run.current_item.text2, u"customers");
}

TEST(InformixRoute, AsksEachRemoteDatabaseOnce) {
  InformixImport run("informix");
  run.base.choices.item_mask = ibSynonyms;
  run.SelectSynonym("joe", "local", {150, 99999, u"", u"", u"", u""});
  run.SelectSynonym("sales", "orders", {152, 0, u"tokyo", u"stores", u"sales", u"orders"});
  run.SelectSynonym("sales", "lines", {153, 0, u"Tokyo", u"Stores", u"sales", u"lines"});
  run.SelectSynonym("sales", "gone", {155, 0, u"tokyo", u"stores", u"sales", u"dropped"});
  run.SelectSynonym("sales", "old", {154, 0, u"", u"archive", u"", u"loans"});
  run.SelectSynonym("sales", "lost", {156, 0, u"tokyo", u"", u"sales", u"orders"});
  wbtest::CallRecorder calls;
  EXPECT_TRUE(run.Run());
  // One for the local ones; three databases (the one without a name is asked, and fails); four
  // synonyms with a database name; one for the type of a column of them.
  EXPECT_EQ(calls.Count("SQLExecDirectW"), 1 + 3 + 4 + 1);
  EXPECT_EQ(run.messages.shown().size(), 1u);
  EXPECT_THAT(run.Tables(),
              ElementsAre("sales.orders synonym", "sales.lines synonym", "sales.old synonym"));
  EXPECT_EQ(run.Table("sales.orders")->GetSynonymDetails().server_name, u"tokyo");
  EXPECT_EQ(run.Table("sales.lines")->FindColumn(u"amount")->GetWidth(), 2562);
  EXPECT_THAT(run.events, Contains("4 15 5"));
}

TEST(InformixRoute, FindsRemoteDatabasesInAnyCase) {
  LcRemoteDatabaseInfoList list;
  for (const char16_t* server : {u"tokyo", u"Tokyo", u"oslo"}) {
    if (*server == u'o') list.Append(nullptr);
    auto* info = list.Append(std::make_unique<LcRemoteDatabaseInfo>());
    info->server_name = server;
    info->database_name = u"stores";
  }
  EXPECT_EQ(FindRemoteDatabaseInfo(list, u"TOKYO", u"STORES"), list.GetAt(0));
  EXPECT_EQ(FindRemoteDatabaseInfo(list, u"", u"stores"), nullptr);
  EXPECT_EQ(FindRemoteDatabaseInfo(list, u"oslo", u"stores"), nullptr);  // behind the empty entry
}

// Which they are, the outline of the whole server says.
TEST(InformixRoute, PairsKeysOfUniversalServerAndTellsOneToOne) {
  InformixImport run("informix");
  EXPECT_TRUE(run.Run());
  test::ExpectKeysInPairs(run.workbook.tables);
  EXPECT_THAT(run.Keys("library.loan"),
              ElementsAre("library.loan key (loan_id)",
                          "library.loan(loan_id) <- library.fine(loan_id) 1:1"));
  EXPECT_TRUE(run.Table("library.genre")->GetForeignKeys()[0]->GetPartner()->IsOneToOne());
}

TEST(InformixRoute, ReadsNoKeysWhenOnlyForeignKeysAreWanted) {
  InformixImport run("informix");
  run.base.choices.keys = false;
  EXPECT_TRUE(run.Run());
  EXPECT_THAT(run.Keys(), IsEmpty());
}

TEST(InformixRoute, MarksNoKeysOnDynamicServer) {
  InformixImport run("informix-7", {"update informix.sysindexes set part1 = 0 where tabid = 112"});
  EXPECT_TRUE(run.Run());
  EXPECT_THAT(run.Keys("library.branch"), IsEmpty());
  // An index without parts has as many columns as a key that is not read.
  EXPECT_THAT(run.Keys(), ElementsAre("nothing <- nothing"));
  EXPECT_THAT(run.events, AllOf(Contains("4 2 16"), Contains("6 library|loan|")));
}

TEST(InformixRoute, TakesOddCatalogRowsAsTheyCome) {
  const std::string table = "insert into informix.systables (tabid,owner,tabname,tabtype) values ";
  InformixImport run(
      "informix",
      {table +
           "(200,'','','T'), (201,'odd','Odd','T'), (202,'odd','odd','T'), (203,' odd',' v ','v')",
       ("insert into informix.syscolumns (tabid,colno,colname,coltype,collength,extended_id) "
        "values "
        "(200,1,'nameless',2,4,0), (201,1,'a','none','x','y'), (201,2,'',-3,-8,-1), "
        "(202,1,'b',99,7,0), (202,2,'c',256,99999999999,0), (203,1,' d ',2,4,0)"),
       // Keys of columns that are not there, and of a table that is not.
       ("insert into informix.sysconstraints (constrid,tabid,constrtype,idxname) values "
        "(900,201,'P','odd1'), (901,100,'P','odd2'), (902,999,'R','odd3')"),
       ("insert into informix.sysindices (idxname,tabid,indexkeys) values "
        "('odd1',201,'9 [1], 2 [1], x [1], -1 [1'), ('odd2',100,''), ('odd3',999,'1 [1]')"),
       "insert into informix.sysreferences (constrid,\"primary\",ptabid) values (902,1,100)"});
  for (const char16_t* owner : {u"odd", u" odd", u""}) {
    run.base.choices.selected_owners.Append(std::make_unique<LcOwnerInfo>())->name = owner;
  }
  EXPECT_TRUE(run.Run());
  // Leading blanks belong to a name; names in other letters are other tables.
  EXPECT_THAT(run.Tables(), ElementsAre(" odd. v view", "odd.Odd", "odd.odd"));
  EXPECT_THAT(run.Columns("odd.Odd"), ElementsAre("a 0 0/0/0 CHAR", " 0 -8/4294967288/0 CHAR !"));
  EXPECT_THAT(run.Columns("odd.odd"),
              ElementsAre("b 0 7/7/0 CHAR", "c 0 1215752191/1215752191/0 CHAR !"));
  EXPECT_THAT(run.Keys("odd.Odd"), ElementsAre("odd.Odd key ()"));
}

// One of everything but functions and procedures, which have stop checks of their own.
std::unique_ptr<InformixImport> ShortImport() {
  auto run = std::make_unique<InformixImport>("informix");
  run->base.choices.item_mask = ibOwnerNames | ibDataTypes | ibTableNames | ibSynonymNames |
                                ibColumnNames | ibOperators | ibTables | ibSynonyms;
  run->base.choices.single_table_name = u"currency";
  run->SelectTable("joe", "currency");
  run->SelectSynonym("sales", "customers", {151, 110, u"", u"", u"", u""});
  run->SelectSynonym("sales", "old", {154, 0, u"", u"archive", u"", u"loans"});
  return run;
}

TEST(InformixRoute, EndsAtTheStopChecksWheneverTheHostStops) {
  test::ExpectEndsWhereverTheHostStops(&ShortImport, 1);
}

// Whatever driver call fails: the route comes to its end.
TEST(InformixRoute, SurvivesEveryFailingDriverCall) {
  const auto whole = ShortImport();
  const unsigned before = whole->connection().GetInfo(catalogsim::kInfoCalls);
  ASSERT_TRUE(whole->Run());
  const unsigned calls = whole->connection().GetInfo(catalogsim::kInfoCalls) - before;
  ASSERT_GT(calls, 50u);
  for (unsigned call = 1; call <= calls; ++call) {
    const auto run = ShortImport();
    run->connection().SetAttribute(catalogsim::kAttrFailCall, call);
    EXPECT_TRUE(run->Run()) << call;
    EXPECT_EQ(run->events.back(), "1") << call;
    EXPECT_EQ(run->status, 0) << call;
    EXPECT_LE(run->Tables().size(), whole->Tables().size()) << call;
  }
}

}  // namespace
}  // namespace odbcimport::informix
