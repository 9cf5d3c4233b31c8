// The generic route through the SQLite driver: what is read, what is reported, how it ends early.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "routes/odbc/type_info_reader.h"
#include "tests/routes/odbc/odbc_import.h"

namespace odbcimport::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* kSmall =
    "CREATE TABLE a(id INTEGER NOT NULL PRIMARY KEY);"
    "CREATE TABLE b(id INTEGER NOT NULL PRIMARY KEY, a_id INT REFERENCES a(id));"
    "CREATE VIEW v AS SELECT id FROM a;";

TEST(SQLiteRoute, ReadsTheSampleDatabase) {
  std::ifstream file(WB_SOURCE_DIR "/samples/sqlite.sql");
  const SQLiteFile sample(std::string(std::istreambuf_iterator<char>(file), {}));
  ODBCImport import(sample.ConnectionString());
  ASSERT_TRUE(import.Run());
  EXPECT_EQ(import.status, 0);
  EXPECT_THAT(import.TableNames(),
              ElementsAre("T branch", "T opening_hours", "T staff", "T publisher", "T author",
                          "T genre", "T book", "T book_author", "T book_genre", "T copy",
                          "T member", "T loan", "T fine", "T reservation", "T event",
                          "T event_visitor", "V overdue_loan", "V shelf"));
  EXPECT_THAT(import.Columns("loan"),
              ElementsAre("loan_id:12!", "isbn:8!", "copy_number:4!", "member_id:3!", "lent_by:3",
                          "lent_at:17!", "due_on:15!", "returned_at:17"));
  EXPECT_THAT(import.Columns("shelf"),
              ElementsAre("branch:8", "title:8", "isbn:8", "copy_number:4"));
  EXPECT_THAT(import.PrimaryKey("copy"), ElementsAre("isbn", "copy_number"));
  EXPECT_THAT(import.PrimaryKey("shelf"), IsEmpty());
  // Every pair of columns makes a relationship of its own.
  EXPECT_THAT(import.References("copy"),
              ElementsAre("isbn>loan.isbn", "copy_number>loan.copy_number"));
  EXPECT_THAT(
      import.References("staff"),
      ElementsAre("staff_id>staff.manager_id", "staff_id>loan.lent_by", "staff_id>event.held_by"));
  EXPECT_THAT(import.References("loan"), ElementsAre("loan_id>fine.loan_id*"));
  EXPECT_EQ(import.server.foreign_key_counter, 48);
}

TEST(SQLiteRoute, TakesSizesFromTheDriver) {
  const SQLiteFile file(
      "CREATE TABLE t(a VARCHAR(30), b NUMERIC(9,2), c CHAR(70000), d INTEGER NOT NULL)");
  ODBCImport import(file.ConnectionString());
  ASSERT_TRUE(import.Run());
  const LcWorkbookTable* table = import.Table("t");
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table->GetColumn(0)->GetPrecision(), 30U);
  EXPECT_EQ(table->GetColumn(0)->GetScale(), 0);  // no number
  EXPECT_EQ(table->GetColumn(1)->GetScale(), 10);
  EXPECT_EQ(table->GetColumn(2)->GetPrecision(), 70000U - 65536U);  // 16 bits are kept
  EXPECT_TRUE(table->GetColumn(3)->IsRequired());
}

TEST(SQLiteRoute, ReadsNamesOfEveryKind) {
  const std::string long_name(200, 'n');
  const std::string name_of_63(63, 'm');
  const SQLiteFile file(
      "CREATE TABLE \"it's \"\"odd\"\"\"(\"a \"\"b\"\"\" INT PRIMARY KEY);"
      "CREATE TABLE \"a b\"(x INT); CREATE TABLE a_b(y INT); CREATE TABLE \"50%\"(p INT);"
      "CREATE TABLE \"50 fold\"(q INT); CREATE TABLE \"\u00e4\u00f6\u20ac\"(\"\u00fc\" INT);"
      "CREATE TABLE t(\"\" INT, z INT);"
      "CREATE TABLE " +
      name_of_63 + "(c INT, " + long_name +
      " INT);"
      "CREATE TABLE " +
      long_name + "(c INT);");
  ODBCImport import(file.ConnectionString());
  ASSERT_TRUE(import.Run());
  const std::string cut = long_name.substr(0, 63);
  EXPECT_THAT(import.TableNames(),
              ElementsAre("T it's \"odd\"", "T a b", "T a_b", "T 50%", "T 50 fold",
                          "T \u00e4\u00f6\u20ac", "T t", "T " + name_of_63, "T " + cut));
  EXPECT_THAT(import.PrimaryKey("it's \"odd\""), ElementsAre("a \"b\""));
  EXPECT_THAT(import.Columns("\u00e4\u00f6\u20ac"), ElementsAre("\u00fc:3"));
  EXPECT_THAT(import.Columns("t"), ElementsAre("z:3"));  // a column without a name is left out
  // A name is a pattern for the driver.
  EXPECT_THAT(import.Columns("a_b"), ElementsAre("x:3", "y:3"));
  EXPECT_THAT(import.Columns("50%"), ElementsAre("p:3", "q:3"));
  // Longer names are cut, and under the cut name there is nothing.
  EXPECT_THAT(import.Columns(name_of_63), ElementsAre("c:3", cut + ":3"));
  EXPECT_THAT(import.Columns(cut), IsEmpty());
}

TEST(SQLiteRoute, ReportsEveryPhaseInOrder) {
  const SQLiteFile file(kSmall);
  ODBCImport import(file.ConnectionString());
  import.base.choices.item_mask = 0xffffffff & ~ibOwnerNames;
  import.base.choices.single_table_name = u"b";
  import.server.dbms_type = dbmsOther;
  EXPECT_TRUE(import.Run());
  EXPECT_THAT(import.events, ElementsAre("0", "2 5 0", "3", "2 6 0", "3", "2 7 0", "3", "2 8 0",
                                         "3", "2 9 0", "3", "2 1 0", "3", "4 1 3", "6 |a|id|0",
                                         "11", "6 |b|id|0", "6 |b|a_id|0", "11", "6 |v|id|0", "11",
                                         "5", "4 3 3", "6 |a||1", "6 |b||1", "6 |v||1", "5"));
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
  const SQLiteFile file(kSmall);
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
    ODBCImport import(file.ConnectionString());
    import.base.choices.item_mask = c.items;
    EXPECT_EQ(import.Run(), c.result) << c.items;
    EXPECT_EQ(import.events.size(), c.events) << c.items;
    EXPECT_TRUE(import.workbook.tables.IsEmpty()) << c.items;
  }
}

TEST(SQLiteRoute, AddsWhatAccessOffers) {
  const SQLiteFile file("");
  ODBCImport import(file.ConnectionString());
  import.base.choices.item_mask = ibFunctions | ibAggregates;
  import.server.dbms_type = dbmsAccess;
  EXPECT_TRUE(import.Run());
  EXPECT_EQ(import.workbook.functions.GetCount(), 42U);
  EXPECT_EQ(import.workbook.aggregates.GetCount(), 11U);
  ASSERT_EQ(import.events.size(), 45U);
  EXPECT_EQ(import.events[1], "4 11 42");
  EXPECT_EQ(import.events[2], "10 |ASCII|ASCII(character)|1");
  EXPECT_EQ(import.events[44], "5");
}

TEST(SQLiteRoute, SelectsByOwnerAndName) {
  const SQLiteFile file(kSmall);
  const auto owners = [](LcImportChoices& choices, int count) {
    for (int i = 0; i < count; ++i) {
      auto owner = std::make_unique<LcOwnerInfo>();
      owner->name = u"any";  // the driver has no owners and looks at none
      choices.selected_owners.Append(std::move(owner));
    }
  };
  const auto table = [](LcImportChoices& choices, const char16_t* name) {
    auto info = std::make_unique<LcTableInfo>();
    info->name = name;
    choices.selected_tables.Append(std::move(info));
  };
  {
    ODBCImport import(file.ConnectionString());
    import.base.choices.item_mask = ibTables;
    table(import.base.choices, u"v");
    table(import.base.choices, u"_");
    import.base.choices.selected_tables.Append(nullptr);  // ends the list
    table(import.base.choices, u"a");
    EXPECT_TRUE(import.Run());
    EXPECT_THAT(import.TableNames(), ElementsAre("V v", "T a", "T b", "V v"));
  }
  {
    // The second owner is read with all types of tables.
    ODBCImport import(file.ConnectionString());
    import.base.choices.item_mask = ibTables;
    owners(import.base.choices, 2);
    EXPECT_TRUE(import.Run());
    EXPECT_THAT(import.TableNames(), ElementsAre("T a", "T b", "T a", "T b", "V v"));
  }
  {
    ODBCImport import(file.ConnectionString());
    import.base.choices.item_mask = ibTableNames;
    import.base.choices.owner_restriction = u"any";  // all types too
    EXPECT_TRUE(import.Run());
    EXPECT_EQ(import.workbook.table_names.GetCount(), 3U);
  }
  {
    // Selected synonyms cannot be read: the route ends before the columns.
    ODBCImport import(file.ConnectionString());
    import.base.choices.item_mask = ibTables | ibSynonyms;
    owners(import.base.choices, 1);
    EXPECT_FALSE(import.Run());
    EXPECT_THAT(import.TableNames(), ElementsAre("T a", "T b"));
    EXPECT_THAT(import.Columns("a"), IsEmpty());
  }
}

TEST(SQLiteRoute, EndsAtAViewThatNoLongerResolves) {
  const SQLiteFile file(
      "CREATE TABLE a(id INT); CREATE VIEW gone AS SELECT x FROM nowhere; CREATE TABLE z(id INT);"
      "CREATE VIEW w AS SELECT id FROM a;");
  ODBCImport import(file.ConnectionString());
  EXPECT_FALSE(import.Run());
  EXPECT_EQ(import.status, 0);
  EXPECT_THAT(import.TableNames(), ElementsAre("T a", "V gone", "T z", "V w"));
  EXPECT_THAT(import.Columns("a"), ElementsAre("id:3"));
  EXPECT_THAT(import.Columns("w"), IsEmpty());
}

TEST(SQLiteRoute, ReadsAnEmptyDatabase) {
  const SQLiteFile file("");
  ODBCImport import(file.ConnectionString());
  EXPECT_TRUE(import.Run());
  EXPECT_THAT(import.events, ElementsAre("0", "2 1 0", "3", "4 1 0", "5", "4 3 0", "5"));
}

TEST(SQLiteRoute, EndsEarlyWhereTheHostAsks) {
  const SQLiteFile file(kSmall);
  struct {
    const char* at;
    const char* last;
    std::size_t tables;
    std::vector<std::size_t> columns;  // of a, b and v
  } const cases[] = {
      {"0", "2 1 0", 3, {0, 0, 0}},
      {"2 1 0", "2 1 0", 3, {0, 0, 0}},
      {"3", "3", 0, {0, 0, 0}},  // names alone are not kept
      {"4 1 3", "6 |a|id|0", 3, {1, 0, 0}},
      {"11", "6 |b|a_id|0", 3, {1, 2, 0}},
      {"6 |b|id|0", "6 |b|a_id|0", 3, {1, 2, 0}},
      {"4 3 3", "6 |a||1", 3, {1, 2, 1}},
      {"6 |b||1", "6 |b||1", 3, {1, 2, 1}},
  };
  for (const auto& c : cases) {
    for (const bool cancel : {false, true}) {
      ODBCImport import(file.ConnectionString());
      import.on_event = [&](const std::string& event) { if (event != c.at) return;
      (cancel ? import.base.cancelled : import.base.running) = cancel;
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

TEST(SQLiteRoute, RunsAgainOnTheSameConnection) {
  const SQLiteFile file(kSmall);
  ODBCImport import(file.ConnectionString());
  EXPECT_TRUE(import.Run());
  import.workbook.tables.EmptyList();
  EXPECT_TRUE(import.Run());
  EXPECT_THAT(import.References("a"), ElementsAre("id>b.a_id"));
}

TEST(SQLiteRoute, LeavesAloneWhatTheHostDoesNotWant) {
  const SQLiteFile file(kSmall);
  ODBCImport import(file.ConnectionString());
  import.base.targets = {};
  import.base.choices.item_mask = 0xffffffff & ~ibOwnerNames;
  import.base.choices.include_system = true;
  EXPECT_TRUE(import.Run());
  EXPECT_TRUE(import.workbook.tables.IsEmpty());
}

TEST(SQLiteRoute, ReadsTheDriversTypes) {
  const SQLiteFile file("");
  ODBCImport import(file.ConnectionString());
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

}  // namespace odbcimport::test
}  // namespace odbcimport::test
