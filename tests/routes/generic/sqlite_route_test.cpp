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
  SQLiteImport import(
      {"CREATE TABLE loan(loan_id INTEGER NOT NULL PRIMARY KEY, isbn CHAR(13), "
       "copy INT, due DATE, FOREIGN KEY(isbn, copy) REFERENCES copy(isbn, copy))",
       "CREATE TABLE copy(isbn CHAR(13) NOT NULL, copy SMALLINT, price NUMERIC(9,2), "
       "cover CHAR(70000), PRIMARY KEY(isbn, copy))",
       "CREATE TABLE fine(loan_id INTEGER PRIMARY KEY REFERENCES loan(loan_id), at TIMESTAMP)"});
  ASSERT_TRUE(import.Run());
  EXPECT_EQ(import.status, 0);
  EXPECT_THAT(import.Columns("loan"),
              ElementsAre("loan_id 0:3 0/10/10 INTEGER !", "isbn 0:8 0/13/0 VARCHAR",
                          "copy 0:3 0/10/10 INTEGER", "due 0:15 0/10/0 DATE"));
  EXPECT_THAT(import.Columns("fine"),
              ElementsAre("loan_id 0:3 0/10/10 INTEGER", "at 0:17 0/32/0 DATETIME"));
  // The scale of 10 is what the driver tells; of a size 16 bits are kept.
  EXPECT_THAT(import.Columns("copy"),
              ElementsAre("isbn 0:8 0/13/0 VARCHAR !", "copy 0:4 0/6/10 SMALLINT",
                          "price 0:7 0/9/10 DOUBLE", "cover 0:9 0/4464/0 LONGVARCHAR"));
  // Every pair of columns makes a relationship of its own.
  EXPECT_THAT(import.Keys(), ElementsAre("loan key (loan_id)", "loan(loan_id) <- fine(loan_id) 1:1",
                                         "copy key (isbn,copy)", "copy(isbn) <- loan(isbn)",
                                         "copy(copy) <- loan(copy)", "fine key (loan_id)"));
  ExpectKeysInPairs(import.workbook.tables);
  EXPECT_EQ(import.server.foreign_key_counter, 6);
}

TEST(SQLiteRoute, ReadsNamesOfEveryKind) {
  std::setlocale(LC_ALL, "C.UTF-8");  // the driver manager converts names by it
  const std::string long_name(200, 'n');
  const std::string name_of_63(63, 'm');
  SQLiteImport import({"CREATE TABLE \"it's \"\"odd\"\"\"(\"a \"\"b\"\"\" INT PRIMARY KEY)",
                       "CREATE TABLE \"a b\"(x INT)", "CREATE TABLE a_b(y INT)",
                       "CREATE TABLE \"50%\"(p INT)", "CREATE TABLE \"50 fold\"(q INT)",
                       "CREATE TABLE \"\u00e4\u00f6\u20ac\"(\"\u00fc\" INT)",
                       "CREATE TABLE t(\"\" INT, z INT)",
                       "CREATE TABLE " + name_of_63 + "(c INT, " + long_name + " INT)",
                       "CREATE TABLE " + long_name + "(c INT)"});
  ASSERT_TRUE(import.Run());
  const std::string cut = long_name.substr(0, 63);
  const auto named = [](const std::string& name) { return testing::StartsWith(name + " "); };
  EXPECT_THAT(import.Tables(), ElementsAre("it's \"odd\"", "a b", "a_b", "50%", "50 fold",
                                           "\u00e4\u00f6\u20ac", "t", name_of_63, cut));
  EXPECT_THAT(import.Keys(), ElementsAre("it's \"odd\" key (a \"b\")"));
  EXPECT_THAT(import.Columns("\u00e4\u00f6\u20ac"), ElementsAre(named("\u00fc")));
  EXPECT_THAT(import.Columns("t"), ElementsAre(named("z")));  // a column without a name is left out
  // A name is a pattern for the driver.
  EXPECT_THAT(import.Columns("a_b"), ElementsAre(named("x"), named("y")));
  EXPECT_THAT(import.Columns("50%"), ElementsAre(named("p"), named("q")));
  // Longer names are cut, and under the cut name there is nothing.
  EXPECT_THAT(import.Columns(name_of_63), ElementsAre(named("c"), named(cut)));
  EXPECT_THAT(import.Columns(cut), IsEmpty());
}

TEST(SQLiteRoute, ReportsEveryPhaseInOrder) {
  SQLiteImport import(kSmall);
  import.base.choices.item_mask = 0xffffffff & ~ibOwnerNames;
  import.base.choices.single_table_name = u"b";
  import.server.dbms_type = dbmsOther;
  EXPECT_TRUE(import.Run());
  EXPECT_THAT(import.events,
              ElementsAre("0", "2 5 0", "3", "2 6 0", "3", "2 7 0", "3", "2 8 0", "3", "2 9 0", "3",
                          "2 1 0", "3", "4 1 3", "6 |a|id-", "11", "6 |b|id-", "6 |b|a_id-", "11",
                          "6 |v|id-", "11", "5", "4 3 3", "6 |a|", "6 |b|", "6 |v|", "5"));
  EXPECT_EQ(import.workbook.data_types.GetCount(), 20U);
  EXPECT_EQ(import.workbook.table_names.GetCount(), 3U);
  EXPECT_EQ(import.workbook.table_names.GetAt(2)->type, ttView);
  ASSERT_EQ(import.workbook.column_names.GetCount(), 2U);
  EXPECT_EQ(import.workbook.column_names.GetAt(1)->name, u"a_id");
  EXPECT_EQ(import.workbook.column_names.GetAt(1)->data_type->GetTypeName(), u"INTEGER");
  EXPECT_EQ(import.workbook.operators.GetCount(), 8U);
  EXPECT_EQ(import.workbook.aggregates.GetAt(0)->GetName(), u"AVG");
  EXPECT_TRUE(import.workbook.functions.IsEmpty());
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
    SQLiteImport import(kSmall);
    import.base.choices.item_mask = c.items;
    EXPECT_EQ(import.Run(), c.result) << c.items;
    EXPECT_EQ(import.events.size(), c.events) << c.items;
    EXPECT_TRUE(import.workbook.tables.IsEmpty()) << c.items;
  }
}

TEST(SQLiteRoute, AddsWhatAccessOffers) {
  SQLiteImport import({});
  import.base.choices.item_mask = ibFunctions | ibAggregates;
  import.server.dbms_type = dbmsAccess;
  EXPECT_TRUE(import.Run());
  EXPECT_EQ(import.workbook.functions.GetCount(), 42U);
  EXPECT_EQ(import.workbook.aggregates.GetCount(), 11U);
  ASSERT_EQ(import.events.size(), 45U);
  EXPECT_EQ(import.events[1], "4 11 42");
  EXPECT_EQ(import.events[2], "10 |ASCII|ASCII(character)");
  EXPECT_EQ(import.events[44], "5");
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
  SQLiteImport import({});
  EXPECT_TRUE(import.Run());
  EXPECT_THAT(import.events, ElementsAre("0", "2 1 0", "3", "4 1 0", "5", "4 3 0", "5"));
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
      SQLiteImport import(kSmall);
      import.on_event = [&](const std::string& event) { if (event == c.at) import.End(cancel);
    };
    import.Run();
    EXPECT_EQ(import.status, cancel ? 4 : 9) << c.at;
    EXPECT_EQ(import.events.back(), c.last) << c.at;
    EXPECT_EQ(import.workbook.tables.GetCount(), c.tables) << c.at;
    EXPECT_EQ(import.Columns("a").size(), c.columns[0]) << c.at;
    EXPECT_EQ(import.Columns("b").size(), c.columns[1]) << c.at;
    EXPECT_EQ(import.Columns("v").size(), c.columns[2]) << c.at;
  }
}
}  // namespace

TEST(SQLiteRoute, LeavesAloneWhatTheHostDoesNotWant) {
  SQLiteImport import(kSmall);
  import.base.targets = {};
  import.base.choices.item_mask = 0xffffffff & ~ibOwnerNames;
  import.base.choices.include_system = true;
  EXPECT_TRUE(import.Run());
  EXPECT_TRUE(import.workbook.tables.IsEmpty());
}

TEST(SQLiteRoute, ReadsTheDriversTypes) {
  SQLiteImport import({});
  ImportSession session = import.Session();
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

}  // namespace odbcimport::generic
}  // namespace odbcimport::generic
