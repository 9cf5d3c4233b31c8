// What the readers make of rows, good and bad, without a server.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sstream>

#include "catalogues/type_lists.h"
#include "odbc/record_list.h"
#include "routes/native/columns.h"
#include "routes/native/key_assembly.h"
#include "routes/native/native_route.h"
#include "routes/native/synonyms.h"
#include "routes/native/tables.h"
#include "tests/routes/route_run.h"

namespace odbcimport::native {
namespace {

using namespace test;  // NOLINT: its recorders are what every test here is about

using testing::ElementsAre;

// A session on a server, without a connection.
struct Bench : RouteRun {
  explicit Bench(LeDBMSType type) : RouteRun(&ImportNativeItems, type) {
    base.running = true;
    LcODBCDatatypeList built_in(type, 8);
    built_in.EmptyList();
    built_in.GetHardcodedDataTypes(&workbook.data_types);
  }
  ImportSession session{Session()};
};

void AddRow(LcODBCRecordList& rows, const Lines& cells) {
  std::vector<std::u16string> texts;
  for (const std::string& cell : cells) texts.push_back(ToUtf16(cell));
  rows.AddRow(std::vector<std::u16string_view>(texts.begin(), texts.end()));
}

TEST(NativeColumns, NullabilityIsOneExactTextPerServer) {
  const std::map<int, std::u16string> no = {{1, u"N"}, {2, u"0"}, {3, u"0"},
                                            {4, u"N"}, {5, u"N"}, {8, u"N"}};
  for (int type = -1; type < 10; ++type) {
    for (const char16_t* text : {u"N", u"0", u"n", u"Y", u"1", u"", u"N "}) {
      const bool is_no = no.count(type) > 0 && no.at(type) == text;
      EXPECT_EQ(AreNullsAllowed(text, type), !is_no) << type << ToUtf8(text);
    }
  }
  EXPECT_FALSE(AreUpdatesAllowed(u"N", dbmsInformix));
  EXPECT_FALSE(AreUpdatesAllowed(u"N", dbmsOracle));
  EXPECT_TRUE(AreUpdatesAllowed(u"n", dbmsOracle));
  EXPECT_TRUE(AreUpdatesAllowed(u"N", dbmsDB2));
}

// Name, code, width/precision/scale, type; from one row of each server's column query.
TEST(NativeColumns, SizesAndTypesFollowTheServer) {
  const struct {
    LeDBMSType type;
    Lines cells;
    const char* expected;
  } cases[] = {
      {dbmsMSSQLServer,
       {"dbo", "t", "U", "c ", "decimal ", "5", "2", "0", "9", "106", "7", "42"},
       "c 2 5/9/2 decimal !"},
      {dbmsMSSQLServer,
       {"dbo", "t", "U", "c", "nosuch", "8", "", "1", "", "300", "1", "42"},
       "c 0 8/8/0 -"},
      {dbmsOracle, {"A", "T", "TABLE", "C", "NUMBER", "22", "", "N", ""}, "C 1 22/22/0 NUMBER !"},
      {dbmsOracle, {"A", "T", "TABLE", "C", "NoSuch", "x", "-1", "n", "3"}, "C 0 0/3/65535 CHAR"},
      {dbmsDB2,
       {"A", "T", "T", "C", "DECIMAL", "9", "2", "Y", "S", "16", "", ""},
       "C 2 9/9/2 DECIMAL"},
      {dbmsDB2, {"A", "T", "T", "C", "NOSUCH", "9", "0", "Y", "S", "16", "", ""}, "C 0 9/9/0 -"},
      {dbmsDB2,
       {"A", "T", "T", "C", "PRICE", "9", "2", "N", "t ", "77", "DOUBLE ", "8"},
       "C 7 9/9/2 DOUBLE !"},
      {dbmsRedBrick, {"A", "T", "TABLE", "C", "Integer", "4", "0", "Y", "10"}, "C 3 4/4/0 INTEGER"},
      {dbmsRedBrick, {"A", "T", "TABLE", "C", "DATE", "0", "0", "Y", "10"}, "C 15 0/0/0 DATE"},
      {dbmsRedBrick, {"A", "T", "TABLE", "C", "DECIMAL", "5", "2", "Y", "9"}, "C 2 5/9/2 DECIMAL"},
  };
  for (const auto& wanted : cases) {
    Bench bench(wanted.type);
    LcODBCRecordList rows;
    AddRow(rows, wanted.cells);
    ASSERT_TRUE(NativeTableReader(bench.session, bench.workbook.tables).Read(rows));
    ASSERT_EQ(bench.workbook.tables.GetCount(), 1u);
    EXPECT_EQ(ColumnText(*bench.workbook.tables.GetAt(0)->GetColumn(0)), wanted.expected);
  }
}

TEST(NativeColumns, NamedTypesAreCopiedFromTheWorkbook) {
  Bench bench(dbmsMSSQLServer);
  auto named = std::make_unique<LcWorkbookDatatype>();
  named->SetExtendedTypeName(u"ticket", 0);
  named->SetTypeName(u"int");
  named->SetPhysicalCode(19);
  const LcWorkbookDatatype* original = bench.workbook.data_types.Append(std::move(named));
  LcODBCRecordList rows;
  AddRow(rows, {"dbo", "t", "U", "c", "ticket", "4", "0", "0", "10", "300", "1", "42"});
  EXPECT_TRUE(NativeTableReader(bench.session, bench.workbook.tables).Read(rows));
  const LcWorkbookColumn* column = bench.workbook.tables.FindTableById(42)->FindColumnById(1);
  EXPECT_EQ(ColumnText(*column), "c 19 4/10/0 int <ticket> ! *");
  EXPECT_NE(column->GetDataType(), original);
}

TEST(NativeColumns, AChangeOfNameStartsATable) {
  Bench bench(dbmsOracle);
  NativeTableReader reader(bench.session, bench.workbook.tables);
  LcODBCRecordList first, second;
  AddRow(first, {"A", "T", "TABLE", "C1", "DATE"});
  AddRow(first, {"A ", "T  ", "TABLE", "C2", "DATE"});
  AddRow(first, {"", "T", "TABLE", "LOST", "DATE"});
  AddRow(first, {"A", "  ", "TABLE", "LOST", "DATE"});
  AddRow(first, {"B", "T", "VIEW", "C1", "DATE"});
  AddRow(first, {"A", "T", "TABLE", "C3", "DATE"});
  AddRow(second, {"A", "T", "TABLE", "C4", "DATE"});  // goes on from the list before
  AddRow(second, {"A", "t", "TABLE", "C5", "DATE"});
  EXPECT_TRUE(reader.Read(first));
  EXPECT_TRUE(reader.Read(second));
  EXPECT_THAT(bench.events,
              ElementsAre("6 A|T|C1", "6 A|T|C2", "6 B|T|C1", "6 A|T|C3", "6 A|T|C4", "6 A|t|C5"));
  std::vector<int> columns;
  for (const LcWorkbookTable* table : bench.workbook.tables) {
    columns.push_back(table->GetColumnCount());
  }
  EXPECT_THAT(columns, ElementsAre(2, 1, 2, 1));
  EXPECT_EQ(bench.workbook.tables.GetAt(1)->GetType(), ttView);
  EXPECT_EQ(bench.current_item.text2, u"t");
}

TEST(NativeColumns, AStopBeforeAColumnLeavesOutTheListOnly) {
  Bench bench(dbmsOracle);
  bench.base.running = false;
  NativeTableReader reader(bench.session, bench.workbook.tables);
  for (const char* name : {"T1", "T2"}) {
    LcODBCRecordList rows;
    AddRow(rows, {"A", name, "TABLE", "C1", "DATE"});
    AddRow(rows, {"A", "T9", "TABLE", "C1", "DATE"});
    EXPECT_TRUE(reader.Read(rows));
  }
  EXPECT_EQ(bench.workbook.tables.GetCount(), 2u);
  EXPECT_TRUE(bench.events.empty());
}

TEST(NativeSynonyms, PublicBelongsToSysAndLinksAreCopied) {
  Bench bench(dbmsOracle);
  for (const char16_t* base : {u"FIRST", u"LAST"}) {
    bench.SelectSynonym("public", "S", {0, 0, u"", u"HQ", u"", base});
  }
  bench.base.choices.selected_synonyms.Append(nullptr);
  LocalSynonymReader reader(bench.session, bench.workbook.tables);
  LcODBCRecordList rows;
  AddRow(rows, {"public", "S", "T", "O", "", "C", "NUMBER", "22", "2", "N", "8"});
  AddRow(rows, {"PUBLIC", "S", "T", "O", "", "C", "NUMBER", "22", "2", "Y", ""});
  ASSERT_TRUE(reader.Read(rows));
  EXPECT_THAT(bench.events, ElementsAre("6 public|S|C", "6 PUBLIC|S|C"));
  ASSERT_EQ(bench.workbook.tables.GetCount(), 2u);
  const LcWorkbookTable* linked = bench.workbook.tables.GetAt(0);
  EXPECT_EQ(linked->GetOwner(false), u"SYS");
  EXPECT_EQ(linked->GetType(), ttSynonym);
  EXPECT_EQ(linked->GetSynonymDetails().base_table_name, u"LAST");
  EXPECT_EQ(bench.workbook.tables.GetAt(1)->GetSynonymDetails().database_name, u"");
  EXPECT_EQ(ColumnText(*linked->GetColumn(0)).substr(0, 11), "C 1 22/8/2 ");
}

// Tables A and B of owner O, and B of owner P, with the columns 1, 2 and 3.
void MakeTables(LcWorkbookTableList& tables) {
  for (const auto& [owner, name] : {std::pair(u"O", u"A"), {u"O", u"B"}, {u"P", u"B"}}) {
    LcWorkbookTable* table = tables.Append(std::make_unique<LcWorkbookTable>());
    table->SetOwner(owner);
    table->SetName(name);
    for (const char16_t* column : {u"1", u"2", u"3"}) {
      auto added = std::make_unique<LcWorkbookColumn>();
      added->SetName(column);
      table->AddColumn(added.release());
    }
  }
}

// "O A 1 > P B 2 #1": column 1 of O.A refers to column 2 of P.B, sequence 1. A dash is empty.
LcFKInfo Pair(const std::string& text) {
  static std::set<std::u16string> kept;  // an entry only refers to its names
  std::vector<std::u16string_view> words;
  std::istringstream in(text);
  for (std::string word; in >> word;) {
    words.push_back(*kept.insert(word == "-" ? u"" : ToUtf16(word)).first);
  }
  LcFKInfo entry;
  entry.owner = words.at(0);
  entry.table = words.at(1);
  entry.column = words.at(2);
  entry.referenced_owner = words.at(4);
  entry.referenced_table = words.at(5);
  entry.referenced_column = words.at(6);
  entry.sequence = words.at(7).substr(1);
  return entry;
}

TEST(NativeKeyAssembly, PairsBecomeKeys) {
  const struct {
    const char* claim;
    LeDBMSType type;
    const char* pairs;  // separated by semicolons
    const char* key;
    std::size_t reported;
  } cases[] = {
      {"a key of two columns", dbmsDB2, "O A 1 > O B 2 #1; O A 2 > O B 3 #2",
       "O.B(2,3) <- O.A(1,2)", 2},
      {"the owner tells tables of one name apart", dbmsOracle, "O A 1 > P B 2 #1",
       "P.B(2) <- O.A(1)", 1},
      {"a continuing pair without a first one is passed over", dbmsOracle, "O A 1 > O B 2 #2", "",
       1},
      {"a change of table ends a key", dbmsOracle,
       "O A 1 > O B 1 #1; O B 1 > O A 1 #2; O A 2 > O B 2 #2", "O.B(1) <- O.A(1)", 3},
      {"a change of owner alone starts a table", dbmsOracle, "O B 9 > O A 1 #1; P B 2 > O A 2 #1",
       "O.A(2) <- P.B(2)", 2},
      {"names that differ in case are one table", dbmsDB2, "O A 1 > O B 1 #1; o a 2 > O B 2 #2",
       "O.B(1,2) <- O.A(1,2)", 2},
      {"unknown tables and columns", dbmsDB2,
       "O X 1 > O B 1 #1; O A 9 > O B 1 #1; O A 1 > O X 1 #1; O A 1 > O B 9 #1; O A - > O B 1 #1; "
       "O A 1 > O - 1 #1",
       "", 3},
      {"a table that refers to itself", dbmsDB2, "O A 1 > O A 2 #1", "O.A(2) <- O.A(1)", 1},
      {"Red Brick takes the first table of a name", dbmsRedBrick, "- A 1 > - B 1 #1",
       "O.B(1) <- O.A(1)", 1},
      {"Red Brick keeps the table of the first pair", dbmsRedBrick,
       "- A 1 > - B 1 #1; - other 2 > - B 2 #2", "O.B(1,2) <- O.A(1,2)", 2},
      {"01 is not the sequence 1", dbmsOracle, "O A 1 > O B 1 #01", "", 1},
  };
  for (const auto& wanted : cases) {
    SCOPED_TRACE(wanted.claim);
    Bench bench(wanted.type);
    MakeTables(bench.workbook.tables);
    LcFKInfoList entries;
    std::istringstream in(wanted.pairs);
    for (std::string pair; std::getline(in, pair, ';');) entries.push_back(Pair(pair));
    AssembleForeignKeys(bench.session, entries, bench.workbook.tables);
    EXPECT_EQ(bench.Keys(), *wanted.key == 0 ? Lines() : Lines{wanted.key});
    EXPECT_EQ(bench.events.size(), wanted.reported);
    ExpectKeysInPairs(bench.workbook.tables);
  }
}

// The forward key of the second relationship belongs to nobody; its pair joins the mirror key.
TEST(NativeKeyAssembly, RedBrickContinuesWithoutAFirstPair) {
  Bench bench(dbmsRedBrick);
  MakeTables(bench.workbook.tables);
  AssembleForeignKeys(
      bench.session, {Pair("- A 1 > - B 1 #1"), Pair("- A 9 > - B 1 #1"), Pair("- A 2 > - B 2 #2")},
      bench.workbook.tables);
  const LcWorkbookTable* a = bench.Table("A");
  const LcWorkbookTable* b = bench.Table("B");
  ASSERT_EQ(a->GetForeignKeys().size(), 1u);
  ASSERT_EQ(b->GetForeignKeys().size(), 1u);
  EXPECT_EQ(a->GetForeignKeys()[0]->GetKey()->GetCount(), 2);
  EXPECT_EQ(b->GetForeignKeys()[0]->GetKey()->GetCount(), 1);
  // With no mirror key at all the pair goes nowhere.
  Bench empty(dbmsRedBrick);
  MakeTables(empty.workbook.tables);
  AssembleForeignKeys(empty.session, {Pair("- A 9 > - B 1 #1"), Pair("- A 2 > - B 2 #2")},
                      empty.workbook.tables);
  EXPECT_TRUE(empty.Keys().empty());
}

// The mirror key is one-to-one unless the forward key is.
TEST(NativeKeyAssembly, OneOfBothKeysIsOneToOne) {
  for (const bool unique : {false, true}) {
    Bench bench(dbmsDB2);
    MakeTables(bench.workbook.tables);
    LcWorkbookTable* a = bench.Table("A");
    if (unique) a->GetPrimaryKey().AddKeyColumn(a->FindColumn(u"1"));
    AssembleForeignKeys(bench.session, {Pair("O A 1 > O B 1 #1")}, bench.workbook.tables);
    EXPECT_EQ(bench.Table("B")->GetForeignKeys()[0]->IsOneToOne(), unique);
    EXPECT_EQ(a->GetForeignKeys()[0]->IsOneToOne(), !unique);
  }
}

}  // namespace
}  // namespace odbcimport::native
