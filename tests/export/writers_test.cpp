// What golden files do not show: SQL that loads, pictures that are drawn, large schemas, folders,
// and the mark of an import that was cut short in every format.
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "base/utf.h"
#include "export/picture.h"
#include "export/writer.h"
#include "tests/importer/workbook/every_kind.h"

namespace wbexport {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

std::string Write(const char* format, const LcWorkbook& workbook, const Options& options = {},
                  std::vector<std::string>* notes = nullptr, const LcWorkbookFileInfo& info = {}) {
  std::ostringstream out;
  std::vector<std::string> own_notes;
  if (notes == nullptr) notes = &own_notes;
  if (!FindFormat(format)->write({workbook, info}, options, out, *notes)) return "refused";
  return out.str();
}

std::size_t CountOf(const std::string& part, const std::string& text) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

// The rows of a query, cells parted by a bar.
std::vector<std::string> Query(sqlite3* db, const std::string& sql) {
  std::vector<std::string> rows;
  char* error = nullptr;
  const auto add = [](void* list, int count, char** cells, char**) {
    std::string row;
    for (int i = 0; i < count; ++i) row += (i ? "|" : "") + std::string(cells[i] ? cells[i] : "");
    static_cast<std::vector<std::string>*>(list)->push_back(row);
    return 0;
  };
  if (sqlite3_exec(db, sql.c_str(), add, &rows, &error) != SQLITE_OK) rows = {error};
  sqlite3_free(error);
  return rows;
}

TEST(Sql, LoadsWithReferencesToLaterTablesAndNamesThatNeedQuotes) {
  LcWorkbook workbook;
  LcWorkbookDatatype text;
  text.SetTypeName(u"VARBINARY");
  LcWorkbookTable* child = AddTable(workbook, u"", u"a \"child\"; DROP TABLE x; --\n");
  AddColumn(child, u"select", &text, true)->SetPrecision(20);
  AddColumn(child, u"up 2");
  AddColumn(child, u"up 1");
  AddToPrimaryKey(child, u"select");
  LcWorkbookTable* view = AddTable(workbook, u"", u"v\nSELECT broken", ttView);
  AddColumn(view, u"c\nSELECT broken");
  AddTable(workbook, u"", u"empty\nSELECT broken");
  LcWorkbookTable* parent = AddTable(workbook, u"", u"parent");
  AddColumn(parent, u"k1");
  AddColumn(parent, u"k2");
  AddToPrimaryKey(parent, u"k2");
  AddToPrimaryKey(parent, u"k1");
  AddReference(child, {u"up 2", u"up 1"}, parent, {u"k2", u"k1"});
  AddReference(child, {u"up 1"}, view, {u"c\nSELECT broken"});

  sqlite3* db = nullptr;
  ASSERT_EQ(sqlite3_open(":memory:", &db), SQLITE_OK);
  EXPECT_THAT(Query(db, Write("sql", workbook)), IsEmpty());
  EXPECT_THAT(Query(db, "SELECT name FROM sqlite_schema WHERE type = 'table'"),
              ElementsAre("a \"child\"; DROP TABLE x; --\n", "parent"));
  EXPECT_THAT(Query(db,
                    "SELECT name, type, \"notnull\", pk FROM pragma_table_info((SELECT name "
                    "FROM sqlite_schema LIMIT 1))"),
              ElementsAre("select|VARBINARY(20)|1|1", "up 2||0|0", "up 1||0|0"));
  EXPECT_THAT(Query(db, "SELECT name, pk FROM pragma_table_info('parent')"),
              ElementsAre("k1|2", "k2|1"));
  EXPECT_THAT(Query(db,
                    "SELECT seq, \"table\", \"from\", \"to\" FROM pragma_foreign_key_list(("
                    "SELECT name FROM sqlite_schema LIMIT 1))"),
              ElementsAre("0|parent|up 2|k2", "1|parent|up 1|k1"));
  sqlite3_close(db);
}

TEST(Svg, DrawsEveryTableAndRelationship) {
  LcWorkbook workbook;
  LcWorkbookFileInfo info;
  ReadEveryKind(workbook, info);
  std::vector<std::string> notes;
  const std::string svg = Write("svg", workbook, {}, &notes);
  EXPECT_THAT(notes, IsEmpty());
  EXPECT_THAT(svg, HasSubstr("</svg>"));
  EXPECT_EQ(CountOf("class=\"node\"", svg), 8u);
  EXPECT_EQ(CountOf("class=\"edge\"", svg), 4u);
  EXPECT_EQ(CountOf("\u21BA", svg), 1u);  // a table that refers to itself
  EXPECT_THAT(svg, HasSubstr("日本"));
}

// A hub that all others refer to, and a chain behind the last of them.
void BuildLarge(LcWorkbook& workbook, int tables) {
  LcWorkbookTable* hub = AddTable(workbook, u"joe", u"hub.dotted");
  AddColumn(hub, u"id");
  LcWorkbookTable* last = hub;
  for (int i = 1; i < tables; ++i) {
    LcWorkbookTable* table = AddTable(workbook, u"", u"t" + base::ToUtf16(std::to_string(i)));
    AddColumn(table, u"id");
    AddReference(table, {u"id"}, i < tables - 2 ? hub : last, {u"id"});
    last = table;
  }
}

TEST(Diagrams, OfLargeSchemasSayWhatIsLeftOut) {
  LcWorkbook workbook;
  BuildLarge(workbook, 61);
  for (const char* format : {"dot", "mermaid"}) {
    const char* table_mark = format == std::string("dot") ? "label=<<table" : " {\n";
    std::vector<std::string> notes;
    const std::string part = Write(format, workbook, {}, &notes);
    EXPECT_EQ(CountOf(table_mark, part), 60u);
    EXPECT_THAT(part, HasSubstr("60 of 61 tables"));
    EXPECT_THAT(notes, ElementsAre(testing::AllOf(HasSubstr("60 of 61 tables"),
                                                  HasSubstr("--around TABLE --distance N"),
                                                  HasSubstr("--whole"))));
    notes.clear();
    Options options;
    options.whole = true;
    EXPECT_EQ(CountOf(table_mark, Write(format, workbook, options, &notes)), 61u);
    EXPECT_THAT(notes, IsEmpty());
  }
}

TEST(Diagrams, ShowTheSurroundingsOfATable) {
  LcWorkbook workbook;
  BuildLarge(workbook, 40);
  const struct {
    const char* around;
    int distance;
    std::size_t tables;
  } cases[] = {
      {"t39", 0, 1},         {"t39", 1, 2},    {"t39", 2, 3},
      {"t39", 3, 4},         {"t39", 4, 40},   {"joe.\"hub.dotted\"", 1, 31},
      {"hub.dotted", 1, 31}, {"\"t1\"", 1, 2},
  };
  for (const auto& c : cases) {
    Options options;
    options.around = c.around;
    options.distance = c.distance;
    EXPECT_EQ(CountOf("label=<<table", Write("dot", workbook, options)), c.tables)
        << c.around << ' ' << c.distance;
  }
  Options options;
  options.around = "ann.t1";
  std::vector<std::string> notes;
  EXPECT_EQ(Write("svg", workbook, options, &notes), "refused");
  EXPECT_THAT(notes, ElementsAre(HasSubstr("no table \"ann.t1\"")));
}

TEST(FormatsForPeople, CountTheServersOwnProceduresUnlessAskedForThem) {
  LcWorkbook workbook;
  LcWorkbookFileInfo info;
  info.dbms_name = u"PostgreSQL";
  for (const char16_t* owner : {u"pg_catalog", u"sales"}) {
    workbook.procedures.Append(std::make_unique<LcWorkbookProcedure>(owner, u"f"));
  }
  Options all;
  all.system = true;
  for (const char* format : {"text", "markdown", "html"}) {
    const std::string few = Write(format, workbook, {}, nullptr, info);
    EXPECT_THAT(few, testing::AllOf(HasSubstr("sales"), Not(HasSubstr("pg_catalog")))) << format;
    EXPECT_THAT(few, testing::ContainsRegex("\n  and 1 of|\n1 of the|\"systemProcedures\":1"));
    EXPECT_THAT(Write(format, workbook, all, nullptr, info),
                testing::ContainsRegex("pg.*_catalog"));
  }
  EXPECT_THAT(Write("json", workbook, {}, nullptr, info), HasSubstr("pg_catalog"));
}

TEST(Mermaid, GivesNamesThatLookAlikeIdentifiersOfTheirOwn) {
  LcWorkbook workbook;
  for (const char16_t* name : {u"a b", u"a_b", u"a_b_2", u"ä", u"title"}) {
    AddTable(workbook, u"", name);
  }
  EXPECT_EQ(
      Write("mermaid", workbook),
      "%% Unknown server\nerDiagram\n    a_b[\"a b\"]\n    a_b_2[\"a_b\"]\n    a_b_2_2[\"a_b_2\"]\n"
      "    x_[\"ä\"]\n    title_[\"title\"]\n");
}

TEST(Mermaid, StaysBelowItsLimitOrSaysThatItDoesNot) {
  LcWorkbook workbook;
  for (int i = 0; i < 55; ++i) {
    LcWorkbookTable* table = AddTable(workbook, u"", base::ToUtf16(fmt::format("t{}", i)));
    for (int c = 0; c < 40; ++c) AddColumn(table, std::u16string(60, u'a' + c % 26), nullptr, true);
  }
  for (const Detail detail : {Detail::kAuto, Detail::kFull}) {
    for (const bool whole : {false, true}) {
      Options options;
      options.detail = detail;
      options.whole = whole;
      std::vector<std::string> notes;
      const bool is_short = Write("mermaid", workbook, options, &notes).size() < 50000;
      EXPECT_EQ(is_short, detail == Detail::kAuto || !whole);
      EXPECT_THAT(notes, Not(IsEmpty()));
    }
  }
}

TEST(Svg, CanBeCancelledInItsLayout) {
  LcWorkbook workbook;
  LcWorkbookTable* parent = AddTable(workbook, u"", u"parent");
  AddColumn(parent, u"id");
  Options options;
  options.is_cancelled = [] { return true; };
  std::vector<std::string> notes;
  EXPECT_EQ(Write("svg", workbook, options, &notes), "refused");
  EXPECT_THAT(notes, ElementsAre(HasSubstr("cancelled")));
}

TEST(Pictures, AreNotTriedBeyondWhatAnyComputerLaysOut) {
  const auto too_much = [](std::size_t tables, std::size_t rows, bool is_chain) {
    LcWorkbook workbook;
    LcWorkbookTable* last = nullptr;
    for (std::size_t i = 0; i < tables; ++i) {
      LcWorkbookTable* table = AddTable(workbook, u"", u"t" + base::ToUtf16(std::to_string(i)));
      for (std::size_t row = 0; row < rows; ++row) AddColumn(table, u"c");
      if (is_chain && last != nullptr) AddReference(table, {u"c"}, last, {u"c"});
      last = table;
    }
    Options options;
    options.whole = true;
    options.detail = rows == 0 ? Detail::kNames : Detail::kFull;
    Diagram diagram;
    std::vector<std::string> notes;
    EXPECT_TRUE(SelectDiagram({workbook, {}}, options, diagram, notes));
    return BeyondLayout(diagram);
  };
  EXPECT_EQ(too_much(kMostUnrelated, 0, false), "");
  EXPECT_EQ(too_much(kMostUnrelated + 1, 0, false), "3001 tables that nothing relates");
  EXPECT_EQ(too_much(1, kMostRowsOfTable, false), "");
  EXPECT_EQ(too_much(1, kMostRowsOfTable + 1, false), "a table of 50001 columns");
  EXPECT_EQ(too_much(kMostUnrelated + 1, 10, true), "");
  EXPECT_EQ(too_much(kMostRowsOfAll / 1000, 999, true), "");
  EXPECT_EQ(too_much(kMostRowsOfAll / 1000, 1000, true), "500500 rows");
}

TEST(EveryFormat, IsLabelledWhenTheImportWasCutShort) {
  LcWorkbook workbook;
  LcWorkbookFileInfo info;
  ReadEveryKind(workbook, info);
  info.status = 9;
  for (const Format& format : AllFormats()) {
    if (format.name == std::string_view("png")) continue;  // shows it in pixels
    info.incomplete = false;
    EXPECT_THAT(Write(format.name, workbook, {}, nullptr, info), Not(HasSubstr("ncomplete")))
        << format.name;
    info.incomplete = true;
    EXPECT_THAT(Write(format.name, workbook, {}, nullptr, info), HasSubstr("ncomplete"))
        << format.name;
  }
}

TEST(EveryFormat, IsWrittenOfAnEmptyWorkbookAndOfEmptyEntries) {
  LcWorkbook workbook;
  for (const bool entries : {false, true}) {
    if (entries) {
      workbook.owner_names.Append(nullptr);
      workbook.table_names.Append(nullptr);
      workbook.column_names.Append(nullptr);
      workbook.data_types.Append(nullptr);
      workbook.tables.Append(nullptr);
      workbook.operators.Append(nullptr);
      workbook.functions.Append(nullptr);
      workbook.aggregates.Append(nullptr);
      workbook.procedures.Append(nullptr);
    }
    for (const Format& format : AllFormats()) {
      EXPECT_THAT(Write(format.name, workbook), testing::AllOf(Not(IsEmpty()), Not("refused")))
          << format.name;
    }
  }
}

TEST(Markdown, AsAFolderHasAPageForEachTable) {
  namespace fs = std::filesystem;
  LcWorkbook workbook;
  LcWorkbookTable* parent = AddTable(workbook, u"joe", u"../Ürsprung");
  AddColumn(parent, u"id");
  LcWorkbookTable* child = AddTable(workbook, u"JOE", u"..-ursprung");
  AddColumn(child, u"up");
  AddTable(workbook, u"JOE", u"../ursprung");
  AddReference(child, {u"up"}, parent, {u"id"});
  const fs::path folder = fs::path(testing::TempDir()) / "wb_markdown_folder_test";
  fs::remove_all(folder);
  std::vector<std::string> notes;
  const auto write_folder = FindFormat("markdown")->write_folder;
  ASSERT_TRUE(write_folder({workbook, {}}, {}, folder.string(), notes));
  std::vector<std::string> pages;
  for (const auto& page : fs::directory_iterator(folder / "tables")) {
    pages.push_back(page.path().filename().string());
  }
  EXPECT_THAT(pages, testing::UnorderedElementsAre("joe...-rsprung.md", "JOE...-ursprung.md",
                                                   "JOE...-ursprung-2.md"));
  std::ifstream page(folder / "tables" / "JOE...-ursprung.md");
  const std::string text{std::istreambuf_iterator<char>(page), {}};
  EXPECT_THAT(text, HasSubstr("](joe...-rsprung.md) (id)"));
  fs::remove_all(folder / "tables");
  std::ofstream(folder / "tables") << "in the way";
  EXPECT_FALSE(write_folder({workbook, {}}, {}, folder.string(), notes));
  EXPECT_THAT(notes, ElementsAre(HasSubstr("tables")));
  fs::remove_all(folder);
}

}  // namespace
}  // namespace wbexport
