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

namespace odbcimport {
namespace {

using test::InformixImport;
using test::Lines;
using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using wbtest::CallRecorder;
using wbtest::MessageRecorder;

// The whole practice server as an outline. WB_RENEW_GOLDEN=1 writes the files anew.
TEST(InformixRoute, ReadsWholePracticeServers) {
  for (const std::string server : {"informix", "informix-7"}) {
    InformixImport import(server);
    import.base.choices.item_mask = 0x7FC;  // what a host imports by default
    EXPECT_TRUE(import.Run());
    LcWorkbookFileInfo info;
    info.dbms_name = u"Informix";
    info.dbms_version = import.server.dbms_version;
    info.dbms_type = dbmsInformix;
    info.route = u"informix";
    info.result = true;
    std::ostringstream out;
    std::vector<std::string> notes;
    wbexport::FindFormat("text")->write({import.workbook, info}, {}, out, notes);
    const std::filesystem::path path = WB_SOURCE_DIR "/tests/routes/informix/" + server + ".txt";
    if (std::getenv("WB_RENEW_GOLDEN") != nullptr) std::ofstream(path) << out.str();
    std::ostringstream expected;
    expected << std::ifstream(path).rdbuf();
    EXPECT_EQ(out.str(), expected.str()) << server;
  }
}

TEST(InformixRoute, RefusesOtherServersAndAMissingWorkbook) {
  InformixImport import("informix");
  import.server.dbms_type = dbmsOracle;
  import.status = 77;
  EXPECT_FALSE(import.Run());
  import.server.dbms_type = dbmsInformix;
  ImportSession session(import.base, nullptr, import.server, nullptr, nullptr, import.current_item);
  EXPECT_FALSE(ImportInformixItems(session, import.status));
  EXPECT_THAT(import.events, IsEmpty());
  EXPECT_EQ(import.status, 77);
}

TEST(InformixRoute, ReportsEveryPhaseInItsOrder) {
  InformixImport import("informix");
  import.base.choices.item_mask = 0x2F7FC;
  import.base.choices.single_table_name = u"currency";
  import.SelectTable(u"joe", u"currency");
  import.SelectTable(u"joe", u"Branch");
  import.SelectSynonym(u"joe", u"books", {150, 121, u"", u"", u"", u""});
  import.SelectSynonym(u"sales", u"old_loans", {154, 0, u"", u"archive", u"library", u"loans"});
  MessageRecorder messages;
  EXPECT_TRUE(import.Run());
  // The empty text for owners is run, and fails.
  EXPECT_EQ(messages.shown().size(), 1u);
  // Functions and procedures have tests of their own; their items are left out here.
  Lines events;
  for (const std::string& event : import.events) {
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
  EXPECT_EQ(import.current_item.text2, u"currency");  // remote synonyms leave it alone
}

TEST(InformixRoute, ListsNames) {
  InformixImport import("informix");
  import.base.choices.item_mask = ibViewNames | ibSynonymNames | ibColumnNames;
  import.base.choices.single_table_name = u"branch";  // of two owners
  EXPECT_TRUE(import.Run());
  Lines tables;
  for (const LcTableInfo* table : import.workbook.table_names) {
    const LcSynonymDetails& synonym = table->synonym;
    tables.push_back(std::to_string(table->type) + " " + test::Narrow(table->owner) + "." +
                     test::Narrow(table->name) + " " + std::to_string(synonym.synonym_id) + " " +
                     std::to_string(synonym.base_table_id) + " " +
                     test::Narrow(synonym.database_name + u"@" + synonym.server_name + u":" +
                                  synonym.base_owner + u"." + synonym.base_table_name));
  }
  EXPECT_THAT(tables, testing::UnorderedElementsAre(
                          "1 library.overdue_loan 0 0 @:.", "1 library.shelf 0 0 @:.",
                          "2 joe.books 150 106 @:.", "2 sales.customers 151 110 @:.",
                          "2 sales.orders 152 0 stores@tokyo:sales.orders",
                          "2 sales.order_lines 153 0 Stores@Tokyo:sales.lines",
                          "2 sales.old_loans 154 0 archive@:library.loans",
                          "2 sales.nowhere 155 0 stores@tokyo:sales.dropped"));
  Lines columns;
  for (const LcWBColumnInfo* column : import.workbook.column_names) {
    columns.push_back(test::Narrow(column->name) + " " +
                      std::to_string(column->data_type->GetPhysicalCode()));
  }
  EXPECT_THAT(columns, AllOf(Contains("opened_on 15"), Contains("branch_id 19"),
                             Contains("branch_id 3"), Contains("remark 14"), testing::SizeIs(9)));
  EXPECT_THAT(import.Tables(), IsEmpty());
}

TEST(InformixRoute, GivesLocalSynonymsTheColumnsOfTheirTables) {
  InformixImport import("informix");
  import.base.choices.item_mask = ibSynonyms;
  import.SelectSynonym(u"sales", u"customers", {1, 110, u"", u"first", u"", u""});
  import.SelectSynonym(u"sales", u"customers", {151, 110, u"", u"last", u"", u""});
  EXPECT_TRUE(import.Run());
  EXPECT_THAT(import.Tables(), ElementsAre("sales.customers synonym"));
  // In the order of their names, unlike a table's.
  EXPECT_THAT(
      import.Columns("sales", "customers"),
      ElementsAre("born_on 15 4/4/0", "card_number 0 10/10/0 !", "email 8 120/120/0",
                  "family_name 8 40/40/0 !", "given_name 8 40/40/0 !", "home_branch 3 4/4/0",
                  "joined_at 17 3594/8/0 ! 1-6", "member_id 19 4/4/0 ! *"));
  // Of two selected entries of that name the last counts.
  EXPECT_EQ(import.Table("sales", "customers")->GetSynonymDetails().database_name, u"last");
  EXPECT_EQ(import.current_item.text2, u"customers");
}

TEST(InformixRoute, AsksEachRemoteDatabaseOnce) {
  InformixImport import("informix");
  import.base.choices.item_mask = ibSynonyms;
  import.SelectSynonym(u"joe", u"local", {150, 99999, u"", u"", u"", u""});
  import.SelectSynonym(u"sales", u"orders", {152, 0, u"tokyo", u"stores", u"sales", u"orders"});
  import.SelectSynonym(u"sales", u"lines", {153, 0, u"Tokyo", u"Stores", u"sales", u"lines"});
  import.SelectSynonym(u"sales", u"gone", {155, 0, u"tokyo", u"stores", u"sales", u"dropped"});
  import.SelectSynonym(u"sales", u"old", {154, 0, u"", u"archive", u"", u"loans"});
  import.SelectSynonym(u"sales", u"lost", {156, 0, u"tokyo", u"", u"sales", u"orders"});
  CallRecorder calls;
  MessageRecorder messages;
  EXPECT_TRUE(import.Run());
  // One for the local ones; three databases (the one without a name is asked, and fails); four
  // synonyms with a database name; one for the type of a column of them.
  EXPECT_EQ(calls.Count("SQLExecDirectW"), 1 + 3 + 4 + 1);
  EXPECT_EQ(messages.shown().size(), 1u);
  EXPECT_THAT(import.Tables(),
              ElementsAre("sales.orders synonym", "sales.lines synonym", "sales.old synonym"));
  EXPECT_EQ(import.Table("sales", "orders")->GetSynonymDetails().server_name, u"tokyo");
  EXPECT_EQ(import.Table("sales", "lines")->FindColumn(u"amount")->GetWidth(), 2562);
  EXPECT_THAT(import.events, Contains("4 15 5"));
}

TEST(InformixRoute, FindsRemoteDatabasesInAnyCase) {
  LcRemoteDatabaseInfoList list;
  const auto add = [&](const char16_t* server, const char16_t* database) {
    auto* info = list.Append(std::make_unique<LcRemoteDatabaseInfo>());
    info->server_name = server;
    info->database_name = database;
    return info;
  };
  const auto* first = add(u"tokyo", u"stores");
  add(u"Tokyo", u"Stores");
  EXPECT_EQ(FindRemoteDatabaseInfo(list, u"TOKYO", u"STORES"), first);
  EXPECT_EQ(FindRemoteDatabaseInfo(list, u"", u"stores"), nullptr);
  list.Append(nullptr);
  add(u"", u"hr");
  EXPECT_EQ(FindRemoteDatabaseInfo(list, u"", u"hr"), nullptr);  // behind the empty entry
}

TEST(InformixRoute, ReadsKeysOfUniversalServer) {
  InformixImport import("informix");
  EXPECT_TRUE(import.Run());
  EXPECT_THAT(import.PrimaryKey("sales", "price"),
              ElementsAre("item_id", "currency", "valid_from"));
  EXPECT_THAT(import.PrimaryKey("library", "event_visitor"), ElementsAre("member_id", "event_id"));
  // A unique constraint appends its columns to the key.
  EXPECT_THAT(import.PrimaryKey("joe", "currency"), ElementsAre("code", "name"));
  EXPECT_THAT(import.ForeignKeys("library", "loan"),
              testing::UnorderedElementsAre("isbn,copy_number < library.copy isbn,copy_number 1:1",
                                            "member_id < library.member member_id 1:1",
                                            "lent_by < library.staff staff_id 1:1",
                                            "loan_id > library.fine loan_id 1:1"));
  EXPECT_THAT(import.ForeignKeys("library", "genre"),
              testing::UnorderedElementsAre("genre_id > library.genre parent_id",
                                            "parent_id < library.genre genre_id 1:1",
                                            "genre_id > library.book_genre genre_id"));
}

TEST(InformixRoute, ReadsNoKeysWhenOnlyForeignKeysAreWanted) {
  InformixImport import("informix");
  import.base.choices.keys = false;
  EXPECT_TRUE(import.Run());
  EXPECT_THAT(import.PrimaryKey("library", "loan"), IsEmpty());
  EXPECT_THAT(import.ForeignKeys("library", "loan"), IsEmpty());
}

TEST(InformixRoute, MarksNoKeysOnDynamicServer) {
  InformixImport import("informix-7",
                        {"update informix.sysindexes set part1 = 0 where tabid = 112"});
  EXPECT_TRUE(import.Run());
  EXPECT_THAT(import.PrimaryKey("library", "loan"), IsEmpty());
  EXPECT_THAT(import.ForeignKeys("library", "branch"), IsEmpty());
  // An index without parts has as many columns as a key that is not read.
  EXPECT_THAT(import.ForeignKeys("library", "fine"), ElementsAre(" < library.loan "));
  EXPECT_THAT(import.events, AllOf(Contains("4 2 16"), Contains("6 library|loan|")));
}

TEST(InformixRoute, TakesOddCatalogRowsAsTheyCome) {
  const std::string table = "insert into informix.systables (tabid,owner,tabname,tabtype) values ";
  InformixImport import(
      "informix",
      {table +
           "(200,'','','T'), (201,'odd','Odd','T'), (202,'odd','odd','T'), (203,' odd',' v ','v')",
       "insert into informix.syscolumns (tabid,colno,colname,coltype,collength,extended_id) values "
       "(200,1,'nameless',2,4,0), (201,1,'a','none','x','y'), (201,2,'',-3,-8,-1), "
       "(202,1,'b',99,7,0), (202,2,'c',256,99999999999,0), (203,1,' d ',2,4,0)",
       // Keys of columns that are not there, and of a table that is not.
       "insert into informix.sysconstraints (constrid,tabid,constrtype,idxname) values "
       "(900,201,'P','odd1'), (901,100,'P','odd2'), (902,999,'R','odd3')",
       "insert into informix.sysindices (idxname,tabid,indexkeys) values "
       "('odd1',201,'9 [1], 2 [1], x [1], -1 [1'), ('odd2',100,''), ('odd3',999,'1 [1]')",
       "insert into informix.sysreferences (constrid,\"primary\",ptabid) values (902,1,100)"});
  import.base.choices.selected_owners.Append(std::make_unique<LcOwnerInfo>())->name = u"odd";
  import.base.choices.selected_owners.Append(std::make_unique<LcOwnerInfo>())->name = u" odd";
  import.base.choices.selected_owners.Append(std::make_unique<LcOwnerInfo>())->name = u"";
  EXPECT_TRUE(import.Run());
  // Leading blanks belong to a name; names in other letters are other tables.
  EXPECT_THAT(import.Tables(), ElementsAre(" odd. v view", "odd.Odd", "odd.odd"));
  EXPECT_THAT(import.Columns("odd", "Odd"), ElementsAre("a 0 0/0/0", " 0 -8/4294967288/0 !"));
  EXPECT_THAT(import.Columns("odd", "odd"),
              ElementsAre("b 0 7/7/0", "c 0 1215752191/1215752191/0 !"));
  EXPECT_THAT(import.PrimaryKey("odd", "Odd"), ElementsAre(""));
}

// A relationship of several columns as one of each pair of columns: "a,b > t c,d" as "a > t c" and
// "b > t d".
Lines SplitPairs(const Lines& keys) {
  Lines pairs;
  for (const std::string& key : keys) {
    std::string columns, arrow, table, others, one_to_one;
    std::istringstream(key) >> columns >> arrow >> table >> others >> one_to_one;
    std::istringstream left(columns), right(others);
    std::string column, other;
    while (std::getline(left, column, ',') && std::getline(right, other, ',')) {
      pairs.push_back(column + " " + arrow + " " + table + " " + other +
                      (one_to_one.empty() ? "" : " " + one_to_one));
    }
  }
  return pairs;
}

// The prescribed differences between the two routes on one schema; in all else they agree.
TEST(InformixRoute, AgreesWithTheGenericRouteButForWhatIsPrescribed) {
  InformixImport own("informix");
  InformixImport generic("informix");
  own.base.choices.owner_restriction = generic.base.choices.owner_restriction = u"library";
  EXPECT_TRUE(own.Run());
  EXPECT_TRUE(generic.Run(&ImportODBCItems));
  EXPECT_THAT(generic.Tables(), testing::UnorderedElementsAreArray(own.Tables()));
  for (const LcWorkbookTable* table : own.workbook.tables) {
    const std::string name = test::Narrow(table->GetName());
    const LcWorkbookTable* other = generic.Table("library", name);
    ASSERT_NE(other, nullptr) << name;
    ASSERT_EQ(table->GetColumnCount(), other->GetColumnCount()) << name;
    for (int i = 0; i < table->GetColumnCount(); ++i) {
      EXPECT_EQ(table->GetColumn(i)->GetName(), other->GetColumn(i)->GetName());
      EXPECT_EQ(table->GetColumn(i)->IsRequired(), other->GetColumn(i)->IsRequired());
    }
    EXPECT_THAT(generic.PrimaryKey("library", name),
                testing::ElementsAreArray(own.PrimaryKey("library", name)))
        << name;
    // The generic route makes a relationship of every pair of columns.
    EXPECT_THAT(generic.ForeignKeys("library", name),
                testing::UnorderedElementsAreArray(SplitPairs(own.ForeignKeys("library", name))))
        << name;
  }
  // Own SQL tells serial columns, qualifiers and money; the driver tells none of them.
  EXPECT_THAT(own.Columns("library", "staff"),
              AllOf(Contains("staff_id 19 4/4/0 ! *"), Contains("salary 51 2306/9/2 !")));
  EXPECT_THAT(
      generic.Columns("library", "staff"),
      Not(testing::AnyOf(Contains(testing::HasSubstr("*")), Contains(StartsWith("salary 51")))));
  EXPECT_THAT(own.Columns("library", "opening_hours"), Contains("opens_at 17 1128/8/0 ! 4-5"));
  // The generic route ends without a notification 1 and reports tables, not columns.
  EXPECT_EQ(own.events.back(), "1");
  EXPECT_EQ(generic.events.back(), "5");
}

// Stops and cancels at every notification: the import ends there, with its reason.
TEST(InformixRoute, EndsAtTheStopChecksWheneverTheHostStops) {
  const auto prepare = [](InformixImport& import) {
    // Functions and procedures have stop checks of their own.
    import.base.choices.item_mask = ibOwnerNames | ibDataTypes | ibTableNames | ibSynonymNames |
                                    ibColumnNames | ibOperators | ibTables | ibSynonyms;
    import.base.choices.single_table_name = u"currency";
    import.SelectTable(u"joe", u"currency");
    import.SelectSynonym(u"sales", u"customers", {151, 110, u"", u"", u"", u""});
    import.SelectSynonym(u"sales", u"old", {154, 0, u"", u"archive", u"", u"loans"});
  };
  MessageRecorder messages;
  InformixImport whole("informix");
  prepare(whole);
  whole.Run();
  ASSERT_GT(whole.events.size(), 45u);
  // Behind the last loop there is no stop check any more.
  for (std::size_t at = 1; at + 1 < whole.events.size(); ++at) {
    InformixImport import("informix");
    prepare(import);
    const bool cancel = at % 2 == 0;
    import.on_event = [&](const std::string&) { if (import.events.size() != at) return;
    (cancel ? import.base.cancelled : import.base.running) = cancel;
  };
  import.Run();
  EXPECT_EQ(import.status, cancel ? 4 : 9) << at;
  EXPECT_EQ(Lines(import.events.begin(), import.events.begin() + static_cast<long>(at)),
            Lines(whole.events.begin(), whole.events.begin() + static_cast<long>(at)));
  // No more than the end of the query's phase and of the loop at hand.
  EXPECT_LE(import.events.size(), at + 4) << at << ": " << whole.events[at - 1];
  EXPECT_THAT(import.events, Not(Contains("1"))) << at;
  EXPECT_EQ(import.connection().GetInfo(catalogsim::kInfoOpenStatements), 0u) << at;
}
}  // namespace

// Whatever driver call fails: the route comes to its end and leaves no statement behind.
TEST(InformixRoute, SurvivesEveryFailingDriverCall) {
  const auto prepare = [](InformixImport& import) {
    import.base.choices.item_mask = ibDataTypes | ibTables | ibSynonyms;
    import.SelectTable(u"joe", u"currency");
    import.SelectSynonym(u"sales", u"old", {154, 0, u"", u"archive", u"", u"loans"});
  };
  InformixImport whole("informix");
  prepare(whole);
  MessageRecorder messages;
  const unsigned before = whole.connection().GetInfo(catalogsim::kInfoCalls);
  ASSERT_TRUE(whole.Run());
  const unsigned calls = whole.connection().GetInfo(catalogsim::kInfoCalls) - before;
  ASSERT_GT(calls, 50u);
  for (unsigned call = 1; call <= calls; ++call) {
    InformixImport import("informix");
    prepare(import);
    import.connection().SetAttribute(catalogsim::kAttrFailCall, call);
    EXPECT_TRUE(import.Run()) << call;
    EXPECT_EQ(import.events.back(), "1") << call;
    EXPECT_EQ(import.status, 0) << call;
    EXPECT_LE(import.Tables().size(), whole.Tables().size()) << call;
  }
}

}  // namespace odbcimport
}  // namespace odbcimport
