// The workbook file: what is written comes back, and what is no workbook file is refused with the
// place and the reason.
#include "importer/workbook/workbook_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <sstream>

#include "base/utf.h"
#include "tests/importer/workbook/every_kind.h"

namespace {

std::string Write(const LcWorkbook& workbook, const LcWorkbookFileInfo& info) {
  std::ostringstream out;
  WriteWorkbookFile(workbook, info, out);
  return out.str();
}

// What comes back of the compact form, written whole.
std::string WriteByWayOfCompact(const LcWorkbook& workbook, const LcWorkbookFileInfo& info) {
  std::ostringstream out;
  WriteCompactWorkbookFile(workbook, info, out);
  LcWorkbook again;
  LcWorkbookFileInfo info_again;
  std::string why;
  EXPECT_TRUE(ReadWorkbookFile(out.str(), again, info_again, why)) << why;
  EXPECT_THAT(out.str(), testing::Not(testing::ContainsRegex("\": |:\\[]|:[{]}|:0[,}]|:null")));
  return Write(again, info_again);
}

TEST(WorkbookFile, KeepsEverything) {
  LcWorkbook workbook;
  LcWorkbookFileInfo info;
  ReadEveryKind(workbook, info);
  info.incomplete = true;
  info.status = 9;
  const std::string text = Write(workbook, info);
  LcWorkbook again;
  LcWorkbookFileInfo info_again;
  std::string why;
  ASSERT_TRUE(ReadWorkbookFile(text, again, info_again, why)) << why;
  EXPECT_EQ(Write(again, info_again), text);
  EXPECT_EQ(WriteByWayOfCompact(workbook, info), text);
  EXPECT_TRUE(info_again.incomplete);
  // Half a surrogate pair cannot be written.
  EXPECT_EQ(again.tables.GetAt(4)->GetColumn(1)->GetName(), u"日本 \U0001F600 \uFFFD!");
}

// The details of the exact reading, absent and empty texts told apart.
TEST(WorkbookFile, KeepsEveryDetail) {
  std::ifstream in(WB_SOURCE_DIR "/tests/export/golden/every_detail.json", std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(in), {}};
  LcWorkbook workbook;
  LcWorkbookFileInfo info;
  std::string why;
  ASSERT_TRUE(ReadWorkbookFile(text, workbook, info, why)) << why;
  EXPECT_EQ(Write(workbook, info), text);
  EXPECT_EQ(WriteByWayOfCompact(workbook, info), text);
  const LcWorkbookTable* customer = workbook.tables.GetAt(0);
  EXPECT_FALSE(customer->FindColumn(u"id")->GetDetails()->comment.IsPresent());
  EXPECT_EQ(customer->FindColumn(u"extra")->GetDetails()->comment, LcText(u""));
  EXPECT_EQ(customer->GetForeignKeys()[0]->GetDetails()->deferrable, dfDeferred);
}

TEST(WorkbookFile, KeepsPartnersEvenOfKeysThatLookAlike) {
  LcWorkbook workbook;
  LcWorkbookTable* parent = AddTable(workbook, u"", u"parent");
  AddColumn(parent, u"id");
  LcWorkbookTable* child = AddTable(workbook, u"", u"child");
  AddColumn(child, u"parent_id");
  AddReference(child, {u"parent_id"}, parent, {u"id"});
  AddReference(child, {u"parent_id"}, parent, {u"id"});
  child->AddForeignKey(new LcWorkbookForeignKey());  // one without partner or columns
  LcWorkbook again;
  LcWorkbookFileInfo info;
  std::string why;
  ASSERT_TRUE(ReadWorkbookFile(Write(workbook, info), again, info, why)) << why;
  const auto& forward = again.tables.GetAt(0)->GetForeignKeys();
  const auto& mirror = again.tables.GetAt(1)->GetForeignKeys();
  ASSERT_EQ(forward.size(), 2u);
  ASSERT_EQ(mirror.size(), 3u);
  EXPECT_EQ(forward[0]->GetPartner(), mirror[0].get());
  EXPECT_EQ(mirror[1]->GetPartner(), forward[1].get());
  EXPECT_EQ(mirror[2]->GetPartner(), nullptr);
}

TEST(WorkbookFile, SkipsEmptyEntriesAndCountsTablesWithoutThem) {
  LcWorkbook workbook;
  workbook.tables.Append(nullptr);
  workbook.data_types.AddDataType(nullptr);
  LcWorkbookTable* table = AddTable(workbook, u"", u"t");
  AddColumn(table, u"id");
  AddColumn(table, u"up");
  AddReference(table, {u"up"}, table, {u"id"});
  const auto file = nlohmann::json::parse(Write(workbook, {}));
  ASSERT_EQ(file["tables"].size(), 1u);
  EXPECT_EQ(file["tables"][0]["foreignKeys"][0]["key"][0]["index"], 0);
  EXPECT_EQ(file["dataTypes"].size(), 0u);
}

std::string Repeat(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

// More tables than one thread makes into text at a time: none, one and thousands of columns, and
// keys to tables that another thread writes.
TEST(WorkbookFile, HasTablesInOrderWhicheverThreadMadeThem) {
  constexpr int kTables = 400;
  LcWorkbook workbook;
  for (int t = 0; t < kTables; ++t) {
    LcWorkbookTable* table = workbook.tables.Append(std::make_unique<LcWorkbookTable>());
    table->SetName(u"table_" + base::ToUtf16(std::to_string(t)));
    const int columns = t == 300 ? 1500 : t % 23;
    for (int c = 0; c < columns; ++c) {
      auto* column = new LcWorkbookColumn();
      column->SetName(u"column_" + base::ToUtf16(std::to_string(c)));
      auto* type = new LcWorkbookDatatype();
      type->SetTypeName(u"type_" + base::ToUtf16(std::to_string(c % 40)));
      column->SetDataType(type, true, true);
      table->AddColumn(column);
    }
    if (t % 50 != 22) continue;
    auto* key = new LcWorkbookForeignKey();
    key->SetKey(table->GetColumn(t % 23 > 0 ? 0 : -1));
    key->SetForeignKey(workbook.tables.GetAt(1)->GetColumn(0));
    table->AddForeignKey(key);
  }
  const std::string text = Write(workbook, {});
  const auto json = nlohmann::json::parse(text);
  ASSERT_EQ(json["tables"].size(), static_cast<std::size_t>(kTables));
  for (int t = 0; t < kTables; ++t) {
    const auto& table = json["tables"][static_cast<std::size_t>(t)];
    ASSERT_EQ(table["name"], "table_" + std::to_string(t));
    ASSERT_EQ(table["columns"].size(), t == 300 ? 1500U : static_cast<unsigned>(t % 23));
    for (std::size_t c = 0; c < table["columns"].size(); ++c) {
      ASSERT_EQ(table["columns"][c]["name"], "column_" + std::to_string(c));
      ASSERT_EQ(table["columns"][c]["dataType"]["typeName"], "type_" + std::to_string(c % 40));
    }
    if (t % 50 != 22) continue;
    ASSERT_EQ(table["foreignKeys"][0]["foreignKey"][0]["index"], 1);
    if (t % 23 > 0) {
      ASSERT_EQ(table["foreignKeys"][0]["key"][0]["index"], t);
    }
  }
  std::ostringstream compact;
  WriteCompactWorkbookFile(workbook, {}, compact);
  LcWorkbook again;
  LcWorkbookFileInfo info;
  std::string why;
  ASSERT_TRUE(ReadWorkbookFile(compact.str(), again, info, why)) << why;
  EXPECT_EQ(Write(again, {}), text);
}

TEST(WorkbookFile, RefusesWithPlaceAndReason) {
  const std::string head = R"("format":"workbook","version":1)";
  const auto file = [&](const std::string& rest) { return "{" + head + "," + rest + "}"; };
  const std::string table = R"({"name":"t","columns":[{"name":"id"}],)";
  const struct {
    std::string text;
    const char* why;
  } cases[] = {
      {"", "line 1, column 1: "},
      {"{\"format\":\"workbook\",\n  \"version\":1,,}", "line 2, column 15: "},
      {file("\"tables\":["), "line 1, column 44: "},
      {"{" + head + "}x", "line 1, column 34: "},
      {"[1]", "line 1, column 1: expected an object"},
      {"{}", "format: missing"},
      {R"({"format":"workbook"})", "version: missing"},
      {R"({"format":"report"})", "format: expected \"workbook\""},
      {R"({"format":["workbook"]})", "format: expected one value"},
      {R"({"format":"workbook","version":2})", "version: this program reads version 1"},
      {file(R"("tables":{})"), "tables: expected a list"},
      {file(R"("status":70000)"), "status: expected a whole number from 0 to 65535"},
      {file(R"("status":99999999999999999999)"), "status: expected a whole number"},
      {file(R"("tables":[{"name":"a"},{"name":"b","columns":[{"name":7}]}])"),
       "tables[1].columns[0].name: expected a text"},
      {file(R"("tables":[{"owner":"a"}])"), "tables[0]: has no field \"name\""},
      {file(R"("tables":[{"name":"t","type":"index"}])"), "tables[0].type: expected \"table\""},
      {file("\"tables\":[" + table + R"("primaryKey":["no"]}])"),
       "tables[0].primaryKey[0]: the table has no such column"},
      {file("\"tables\":[" + table + R"("foreignKeys":[{"key":[{"index":9,"column":"id"}]}]}])"),
       "tables[0].foreignKeys[0].key[0].index: there is no such table"},
      {file("\"tables\":[" + table +
            R"("foreignKeys":[{"foreignKey":[{"index":0,"column":"x"}]}]}])"),
       "tables[0].foreignKeys[0].foreignKey[0].column: the table has no such column"},
      {file(R"("dataTypes":[null])"), "dataTypes[0]: expected an object"},
      {file(R"("ownerNames":[)" + Repeat("[", 100000)), "ownerNames: nested too deep"},
      {file(R"("dataTypes":[)" + Repeat(R"({"components":[)", 20) + Repeat("]}", 20) + "]"),
       ": nested too deep"},
  };
  for (const auto& c : cases) {
    LcWorkbook workbook;
    LcWorkbookFileInfo info;
    std::string why;
    EXPECT_FALSE(ReadWorkbookFile(c.text, workbook, info, why)) << c.text.substr(0, 200);
    EXPECT_THAT(why, testing::HasSubstr(c.why)) << c.text.substr(0, 200);
    EXPECT_TRUE(workbook.tables.IsEmpty());
  }
}

TEST(WorkbookFile, ReadsAFileWithFieldsLeftOutOrUnknown) {
  LcWorkbook workbook;
  LcWorkbookFileInfo info;
  std::string why;
  ASSERT_TRUE(ReadWorkbookFile(
      R"({"version":1,"format":"workbook","later":[{"a":[1]}],"new":{"b":2},)"
      R"("tables":[{"name":"t","columns":[{"name":"\u00e4\n","dataType":null}]}]})",
      workbook, info, why))
      << why;
  EXPECT_EQ(workbook.tables.GetAt(0)->GetColumn(0)->GetName(), u"ä\n");
}

}  // namespace
