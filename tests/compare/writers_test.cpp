// Every format of one comparison that has every kind of change, against a file of golden/. With
// WB_RENEW_GOLDEN=1 in the environment the files are written anew: review them as a change.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

#include "compare/writer.h"
#include "tests/compare/schemas.h"

namespace wbtest {
namespace {

std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// What became of the schema of tests/export/golden/every_detail.json.
Json Later(Json file) {
  const auto at = [&](const char* pointer) -> Json& { return file[Json::json_pointer(pointer)]; };
  at("/source/dbmsVersion") = 16;
  Json& customer = at("/tables/0");
  customer["comment"] = "Who buys";
  customer["columns"][1]["databaseType"] = "character varying(20)";
  customer["columns"][4]["name"] = "since_when";
  customer["columns"][5]["default"] = "'{}'::jsonb";
  customer["uniqueKeys"][0]["columns"][1] = "since_when";
  customer["indexes"][0]["columns"][1]["column"] = "since_when";
  customer["indexes"].erase(1);
  customer["checks"][0]["name"] = "no | `blank` *names*";
  customer["options"]["fillfactor"] = "90";
  customer["columns"].push_back({{"name", "<b>&\x1b[31m"}, {"databaseType", "text"}});
  at("/tables/2/options/partition bound") = "FOR VALUES IN ('eu')";
  Json& view = at("/tables/3");
  view["viewText"] = std::string(view["viewText"]).replace(0, 13, " SELECT c.id AS id, '```',");
  at("/types/0/labels").push_back("bored");
  at("/sequences/0/increment") = "5";
  file["routines"].erase(0);
  file["notRead"] = {{{"kind", "triggers"}, {"reason", "permission denied"}}};
  for (Json& table : file["tables"]) table.erase("triggers");
  return file;
}

class WriterTest : public testing::TestWithParam<const char*> {};

TEST_P(WriterTest, TellsTheComparison) {
  const auto source = std::filesystem::path(WB_SOURCE_DIR) / "tests";
  Json file_before = Json::parse(ReadFile(source / "export/golden/every_detail.json"));
  file_before.erase("incomplete");
  const Read before(file_before.dump());
  const Read after(Later(file_before).dump());
  wbcompare::Comparison comparison;
  std::string why;
  const wbcompare::Side old_side = before.side();
  const wbcompare::Side new_side = after.side();
  ASSERT_TRUE(wbcompare::Compare(old_side, new_side, {}, comparison, why)) << why;
  const std::string file = GetParam();
  const std::string extension = file.substr(file.rfind('.') + 1);
  const wbcompare::Format* format = wbcompare::FindFormat(extension == "md"    ? "markdown"
                                                          : extension == "txt" ? "text"
                                                                               : extension);
  ASSERT_NE(format, nullptr);
  std::ostringstream out;
  wbcompare::WriteOptions options;
  options.colour = file == "later_colour.txt";
  format->write({old_side, new_side, comparison, "shop <old>.json", "the server"}, options, out);
  // The style sheet is told by its own page.
  const std::string told = std::regex_replace(out.str(), std::regex("<style>[^<]*</style>"), "");
  const auto path = source / "compare/golden" / file;
  if (std::getenv("WB_RENEW_GOLDEN") != nullptr) std::ofstream(path, std::ios::binary) << told;
  EXPECT_EQ(told, ReadFile(path));
}

INSTANTIATE_TEST_SUITE_P(Formats, WriterTest,
                         testing::Values("later.txt", "later_colour.txt", "later.json", "later.md",
                                         "later.html"),
                         [](const auto& test) {
                           std::string name = test.param;
                           name[name.rfind('.')] = '_';
                           return name;
                         });

}  // namespace
}  // namespace wbtest
