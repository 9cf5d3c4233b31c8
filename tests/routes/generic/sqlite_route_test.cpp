// The generic route through the SQLite driver: what is read, what is reported, how it ends early.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <clocale>

#include "routes/generic/generic_route.h"
#include "routes/generic/type_info_reader.h"
#include "tests/routes/route_run.h"

namespace odbcimport::generic {
namespace {

using namespace test;  // NOLINT: its recorders are what every test here is about

using testing::ElementsAre;
using testing::IsEmpty;

// An import from a database in memory that holds what the statements make.
class SQLiteImport : public RouteRun {
 public:
  explicit SQLiteImport(const Lines& statements)
      : RouteRun(&ImportODBCItems, dbmsUnknown, wbtest::Connection::OpenSqlite(statements)) {}
};

const Lines kSmall = {"CREATE TABLE a(id INTEGER NOT NULL PRIMARY KEY)",
                      "CREATE TABLE b(id INTEGER NOT NULL PRIMARY KEY, a_id INT REFERENCES a(id))",
                      "CREATE VIEW v AS SELECT id FROM a"};

TEST(SQLiteRoute, ReadsColumnsAndKeys) {
  SQLiteImport run(
      {"CREATE TABLE loan(loan_id INTEGER NOT NULL PRIMARY KEY, isbn CHAR(13), "
       "copy INT, due DATE, FOREIGN KEY(isbn, copy) REFERENCES copy(isbn, copy))",
       "CREATE TABLE copy(isbn CHAR(13) NOT NULL, copy SMALLINT, price NUMERIC(9,2), "
       "cover CHAR(70000), PRIMARY KEY(isbn, copy))",
       "CREATE TABLE fine(loan_id INTEGER PRIMARY KEY REFERENCES loan(loan_id), at TIMESTAMP)"});
  ASSERT_TRUE(run.Run());
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.Columns("loan"),
              ElementsAre("loan_id 0:3 0/10/10 INTEGER !", "isbn 0:8 0/13/0 VARCHAR",
                          "copy 0:3 0/10/10 INTEGER", "due 0:15 0/10/0 DATE"));
  EXPECT_THAT(run.Columns("fine"),
              ElementsAre("loan_id 0:3 0/10/10 INTEGER", "at 0:17 0/32/0 DATETIME"));
  // The scale of 10 is what the driver tells; of a size 16 bits are kept.
  EXPECT_THAT(run.Columns("copy"),
              ElementsAre("isbn 0:8 0/13/0 VARCHAR !", "copy 0:4 0/6/10 SMALLINT",
                          "price 0:7 0/9/10 DOUBLE", "cover 0:9 0/4464/0 LONGVARCHAR"));
  // Every pair of columns makes a relationship of its own.
  EXPECT_THAT(run.Keys(), ElementsAre("loan key (loan_id)", "loan(loan_id) <- fine(loan_id) 1:1",
                                      "copy key (isbn,copy)", "copy(isbn) <- loan(isbn)",
                                      "copy(copy) <- loan(copy)", "fine key (loan_id)"));
  ExpectKeysInPairs(run.workbook.tables);
  EXPECT_EQ(run.server.foreign_key_counter, 6);
}

TEST(SQLiteRoute, ReadsNamesOfEveryKind) {
  std::setlocale(LC_ALL, "C.UTF-8");  // the driver manager converts names by it
  const std::string long_name(200, 'n');
  const std::string name_of_63(63, 'm');
  SQLiteImport run({"CREATE TABLE \"it's \"\"odd\"\"\"(\"a \"\"b\"\"\" INT PRIMARY KEY)",
                    "CREATE TABLE \"a b\"(x INT)", "CREATE TABLE a_b(y INT)",
                    "CREATE TABLE \"50%\"(p INT)", "CREATE TABLE \"50 fold\"(q INT)",
                    "CREATE TABLE \"\u00e4\u00f6\u20ac\"(\"\u00fc\" INT)",
                    "CREATE TABLE t(\"\" INT, z INT)",
                    "CREATE TABLE " + name_of_63 + "(c INT, " + long_name + " INT)",
                    "CREATE TABLE " + long_name + "(c INT)"});
  ASSERT_TRUE(run.Run());
  const std::string cut = long_name.substr(0, 63);
  const auto named = [](const std::string& name) { return testing::StartsWith(name + " "); };
  EXPECT_THAT(run.Tables(), ElementsAre("it's \"odd\"", "a b", "a_b", "50%", "50 fold",
                                        "\u00e4\u00f6\u20ac", "t", name_of_63, cut));
  EXPECT_THAT(run.Keys(), ElementsAre("it's \"odd\" key (a \"b\")"));
  EXPECT_THAT(run.Columns("\u00e4\u00f6\u20ac"), ElementsAre(named("\u00fc")));
  EXPECT_THAT(run.Columns("t"), ElementsAre(named("z")));  // a column without a name is left out
  // A name is a pattern for the driver.
  EXPECT_THAT(run.Columns("a_b"), ElementsAre(named("x"), named("y")));
  EXPECT_THAT(run.Columns("50%"), ElementsAre(named("p"), named("q")));
  // Longer names are cut, and under the cut name there is nothing.
  EXPECT_THAT(run.Columns(name_of_63), ElementsAre(named("c"), named(cut)));
  EXPECT_THAT(run.Columns(cut), IsEmpty());
}

TEST(SQLiteRoute, ReportsEveryPhaseInOrder) {
  SQLiteImport run(kSmall);
  run.base.choices.item_mask = 0xffffffff & ~ibOwnerNames;
  run.base.choices.single_table_name = u"b";
  run.server.dbms_type = dbmsOther;
  EXPECT_TRUE(run.Run());
  EXPECT_THAT(run.events,
              ElementsAre("0", "2 5 0", "3", "2 6 0", "3", "2 7 0", "3", "2 8 0", "3", "2 9 0", "3",
                          "2 1 0", "3", "4 1 3", "6 |a|id-", "11", "6 |b|id-", "6 |b|a_id-", "11",
                          "6 |v|id-", "11", "5", "4 3 3", "6 |a|", "6 |b|", "6 |v|", "5"));
  EXPECT_EQ(run.workbook.data_types.GetCount(), 20U);
  EXPECT_EQ(run.workbook.table_names.GetCount(), 3U);
  EXPECT_EQ(run.workbook.table_names.GetAt(2)->type, ttView);
  ASSERT_EQ(run.workbook.column_names.GetCount(), 2U);
  EXPECT_EQ(run.workbook.column_names.GetAt(1)->name, u"a_id");
  EXPECT_EQ(run.workbook.column_names.GetAt(1)->data_type->GetTypeName(), u"INTEGER");
  EXPECT_EQ(run.workbook.operators.GetCount(), 8U);
  EXPECT_EQ(run.workbook.aggregates.GetAt(0)->GetName(), u"AVG");
  EXPECT_TRUE(run.workbook.functions.IsEmpty());
}

TEST(SQLiteRoute, ReportsFailureWhereAPhaseReadsNothing) {
  struct {
    std::uint32_t items;
    bool result;
    std::size_t events;
  } const cases[] = {
      {ibOwnerNames | ibTables, false, 2},  // no owners: ends at once, within the phase
      {ibBooleanFunctions, false, 1},
      {ibFunctions, false, 1},
      {ibFunctions | ibProcedures, true, 1},  // the last phase counts
      {0, true, 1},
  };
  for (const auto& c : cases) {
    SQLiteImport run(kSmall);
    run.base.choices.item_mask = c.items;
    EXPECT_EQ(run.Run(), c.result) << c.items;
    EXPECT_EQ(run.events.size(), c.events) << c.items;
    EXPECT_TRUE(run.workbook.tables.IsEmpty()) << c.items;
  }
}

TEST(SQLiteRoute, AddsWhatAccessOffers) {
  SQLiteImport run({});
  run.base.choices.item_mask = ibFunctions | ibAggregates;
  run.server.dbms_type = dbmsAccess;
  EXPECT_TRUE(run.Run());
  EXPECT_EQ(run.workbook.functions.GetCount(), 42U);
  EXPECT_EQ(run.workbook.aggregates.GetCount(), 11U);
  ASSERT_EQ(run.events.size(), 45U);
  EXPECT_EQ(run.events[1], "4 11 42");
  EXPECT_EQ(run.events[2], "10 |ASCII|ASCII(character)");
  EXPECT_EQ(run.events[44], "5");
}

TEST(SQLiteRoute, SelectsByOwnerAndName) {
  const auto with_owners = [](RouteRun& run, int count) {
    for (int i = 0; i < count; ++i) {
      // The driver has no owners and looks at none.
      run.base.choices.selected_owners.Append(std::make_unique<LcOwnerInfo>())->name = u"any";
    }
  };
  SQLiteImport tables(kSmall);
  tables.base.choices.item_mask = ibTables;
  tables.SelectTable("", "v");
  tables.SelectTable("", "_");
  tables.base.choices.selected_tables.Append(nullptr);  // ends the list
  tables.SelectTable("", "a");
  EXPECT_TRUE(tables.Run());
  EXPECT_THAT(tables.Tables(), ElementsAre("v view", "a", "b", "v view"));

  // The second owner is read with all types of tables.
  SQLiteImport owners(kSmall);
  owners.base.choices.item_mask = ibTables;
  with_owners(owners, 2);
  EXPECT_TRUE(owners.Run());
  EXPECT_THAT(owners.Tables(), ElementsAre("a", "b", "a", "b", "v view"));

  SQLiteImport names(kSmall);
  names.base.choices.item_mask = ibTableNames;
  names.base.choices.owner_restriction = u"any";  // all types too
  EXPECT_TRUE(names.Run());
  EXPECT_EQ(names.workbook.table_names.GetCount(), 3U);

  // Selected synonyms cannot be read: the route ends before the columns.
  SQLiteImport synonyms(kSmall);
  synonyms.base.choices.item_mask = ibTables | ibSynonyms;
  with_owners(synonyms, 1);
  EXPECT_FALSE(synonyms.Run());
  EXPECT_THAT(synonyms.Tables(), ElementsAre("a", "b"));
  EXPECT_THAT(synonyms.Columns("a"), IsEmpty());
}

TEST(SQLiteRoute, ReadsAnEmptyDatabase) {
  SQLiteImport run({});
  EXPECT_TRUE(run.Run());
  EXPECT_THAT(run.events, ElementsAre("0", "2 1 0", "3", "4 1 0", "5", "4 3 0", "5"));
}

TEST(SQLiteRoute, EndsEarlyWhereTheHostAsks) {
  struct {
    const char* at;
    const char* last;
    std::size_t tables;
    std::vector<std::size_t> columns;  // of a, b and v
  } const cases[] = {
      {"0", "2 1 0", 3, {0, 0, 0}},
      {"2 1 0", "2 1 0", 3, {0, 0, 0}},
      {"3", "3", 0, {0, 0, 0}},  // names alone are not kept
      {"4 1 3", "6 |a|id-", 3, {1, 0, 0}},
      {"11", "6 |b|a_id-", 3, {1, 2, 0}},
      {"6 |b|id-", "6 |b|a_id-", 3, {1, 2, 0}},
      {"4 3 3", "6 |a|", 3, {1, 2, 1}},
      {"6 |b|", "6 |b|", 3, {1, 2, 1}},
  };
  for (const auto& c : cases) {
    for (const bool cancel : {false, true}) {
      SQLiteImport run(kSmall);
      run.on_event = [&](const std::string& event) {
        if (event == c.at) run.End(cancel);
      };
      run.Run();
      EXPECT_EQ(run.status, cancel ? 4 : 9) << c.at;
      EXPECT_EQ(run.events.back(), c.last) << c.at;
      EXPECT_EQ(run.workbook.tables.GetCount(), c.tables) << c.at;
      EXPECT_EQ(run.Columns("a").size(), c.columns[0]) << c.at;
      EXPECT_EQ(run.Columns("b").size(), c.columns[1]) << c.at;
      EXPECT_EQ(run.Columns("v").size(), c.columns[2]) << c.at;
    }
  }
}  // namespace

TEST(SQLiteRoute, LeavesAloneWhatTheHostDoesNotWant) {
  SQLiteImport run(kSmall);
  run.base.targets = {};
  run.base.choices.item_mask = 0xffffffff & ~ibOwnerNames;
  run.base.choices.include_system = true;
  EXPECT_TRUE(run.Run());
  EXPECT_TRUE(run.workbook.tables.IsEmpty());
}

TEST(SQLiteRoute, ReadsTheDriversTypes) {
  SQLiteImport run({});
  ImportSession session = run.Session();
  LcWorkbookDatatypeList types;
  ASSERT_TRUE(GetDataTypesODBC(session, types));
  const LcWorkbookDatatype* varchar = types.GetDataTypeByPhysicalName(u"varchar");
  ASSERT_NE(varchar, nullptr);
  EXPECT_EQ(varchar->GetPhysicalCode(), 8);
  EXPECT_EQ(varchar->GetTypeGroup(), dgCharacter);
  EXPECT_TRUE(varchar->IsSizeModifiable());
  // Negative codes are CHAR here.
  EXPECT_EQ(types.GetDataTypeByPhysicalName(u"bigint")->GetPhysicalCode(), 0);
}

}  // namespace
}  // namespace odbcimport::generic
