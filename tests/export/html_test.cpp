// What the html format writes, without a browser: the schema's texts cannot leave the element that
// holds them. What a reader sees is tested in browser/.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "export/writer.h"
#include "tests/importer/workbook/every_kind.h"

namespace wbexport {
namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;

struct Page {
  bool written = false;
  std::string text;
  json data;
  std::vector<std::string> notes;
};

Page Write(const LcWorkbook& workbook, const LcWorkbookFileInfo& info = {},
           const Options& options = {}) {
  Page page;
  std::ostringstream out;
  page.written = FindFormat("html")->write({workbook, info}, options, out, page.notes);
  page.text = out.str();
  const std::string open = "<script type=\"application/json\" id=\"data\">";
  const std::size_t begin = page.text.find(open);
  if (begin == std::string::npos) return page;
  const std::size_t at = begin + open.size();
  page.data = json::parse(page.text.substr(at, page.text.find('<', at) - at));
  return page;
}

TEST(Html, KeepsHostileTextsInsideTheirElements) {
  LcWorkbook workbook;
  LcWorkbookFileInfo info;
  info.dbms_name = u"<title>&</title>";
  AddColumn(AddTable(workbook, u"</script>", u"<!--<script>"), u"{{style}}");
  const Page page = Write(workbook, info);
  EXPECT_THAT(page.text, HasSubstr("<title>&lt;title&gt;&amp;&lt;/title&gt;"));
  // The data ends at the first "<" after its beginning, and is whole there.
  EXPECT_EQ(page.data["owners"][0], "</script>");
  EXPECT_EQ(page.data["tables"][0][1], "<!--<script>");
  EXPECT_EQ(page.data["tables"][0][3][0][0], "{{style}}");
}

TEST(Html, GivesRelationsByPositionAndNamesThatWereNotRead) {
  LcWorkbook workbook;
  LcWorkbookTable* parent = AddTable(workbook, u"joe", u"parent");
  AddColumn(parent, u"a");
  AddColumn(parent, u"id", nullptr, true);
  AddToPrimaryKey(parent, u"id");
  workbook.tables.Append(nullptr);  // an empty entry takes no number
  LcWorkbookTable* child = AddTable(workbook, u"ann", u"child", ttView);
  AddColumn(child, u"parent_id");
  AddReference(child, {u"parent_id"}, parent, {u"id"});
  for (const char16_t* name : {u"child", u"other"}) {
    auto info = std::make_unique<LcTableInfo>();
    info->owner = u"ann";
    info->name = name;
    workbook.table_names.Append(std::move(info));
  }
  const json data = Write(workbook).data;
  EXPECT_EQ(data["owners"], json({"joe", "ann"}));
  EXPECT_EQ(data["tables"][0][4], json::array({1}));
  EXPECT_EQ(data["relations"], json::parse("[[1, [0], 0, [1], false]]"));
  EXPECT_EQ(data["names"], json::parse("[[1, \"other\", 0]]"));
}

TEST(Html, SaysThatALargeSchemaIsNotDrawnAndStartsWhereItIsAsked) {
  LcWorkbook workbook;
  for (int i = 0; i < 61; ++i) AddTable(workbook, u"", u"t" + std::u16string(1, u'0' + i));
  EXPECT_THAT(Write(workbook).notes, ElementsAre(HasSubstr("61 tables")));
  Options options;
  options.around = "t1";
  const Page page = Write(workbook, {}, options);
  EXPECT_TRUE(page.notes.empty());
  EXPECT_EQ(page.data["view"]["around"], 1);
  options.around = "nowhere";
  EXPECT_FALSE(Write(workbook, {}, options).written);
}

}  // namespace
}  // namespace wbexport
