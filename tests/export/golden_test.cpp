// Every format of one workbook that holds every kind of object, and of one with every detail of the
// exact reading, against a file of golden/. With WB_RENEW_GOLDEN=1 in the environment the files are
// written anew, but for the json file, which the workbook is read from: review them as a change.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "export/writer.h"
#include "tests/importer/workbook/every_kind.h"

namespace wbexport {
namespace {

struct Golden {
  const char* file;
  const char* format;
  bool incomplete = false;
  Options options = {};
};

Options ColourAndFunctions() {
  Options options;
  options.colour = true;
  options.all_functions = true;
  return options;
}

std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::filesystem::path Path(const char* file) {
  return std::filesystem::path(WB_SOURCE_DIR) / "tests/export/golden" / file;
}

Options For(const char* dialect) {
  Options options;
  options.dialect_out = dialect;
  return options;
}

class GoldenTest : public testing::TestWithParam<Golden> {};

TEST_P(GoldenTest, IsWhatTheWriterWrites) {
  const Golden& golden = GetParam();
  const bool is_detail = std::string_view(golden.file).starts_with("every_detail");
  LcWorkbook workbook;
  LcWorkbookFileInfo info;
  if (is_detail) {
    std::string why;
    ASSERT_TRUE(ReadWorkbookFile(ReadFile(Path("every_detail.json")), workbook, info, why)) << why;
  } else {
    ReadEveryKind(workbook, info);
    info.incomplete = golden.incomplete;
    info.status = golden.incomplete ? 9 : 0;
  }
  const Format* format = FindFormat(golden.format);
  ASSERT_NE(format, nullptr);
  std::ostringstream out;
  std::vector<std::string> notes;
  ASSERT_TRUE(format->write({workbook, info}, golden.options, out, notes));
  // A script says what it leaves out, CSV what it has no place for; the others leave out nothing.
  const std::string_view name = golden.format;
  EXPECT_EQ(notes.size(), !is_detail ? 0u : name == "sql" ? 1u : name == "csv" ? 3u : 0u);
  const auto path = Path(golden.file);
  const bool is_source = path.extension() == ".json";
  if (std::getenv("WB_RENEW_GOLDEN") != nullptr && !is_source)
    std::ofstream(path, std::ios::binary) << out.str();
  EXPECT_EQ(out.str(), ReadFile(path));
}

INSTANTIATE_TEST_SUITE_P(
    Formats, GoldenTest,
    testing::Values(Golden{"every_kind.txt", "text"},
                    Golden{"every_kind_colour_functions.txt", "text", true, ColourAndFunctions()},
                    Golden{"every_kind.json", "json"}, Golden{"every_kind.sql", "sql"},
                    Golden{"every_kind.dot", "dot"}, Golden{"every_kind.mmd", "mermaid"},
                    Golden{"every_kind.md", "markdown"}, Golden{"every_detail.txt", "text"},
                    Golden{"every_detail.md", "markdown"}, Golden{"every_detail.dbml", "dbml"},
                    Golden{"every_detail.puml", "plantuml"}, Golden{"every_detail.csv", "csv"},
                    Golden{"every_detail.mmd", "mermaid"}, Golden{"every_detail.dot", "dot"},
                    Golden{"every_detail.sql", "sql"},
                    Golden{"every_detail_mariadb.sql", "sql", false, For("mariadb")},
                    Golden{"every_detail_sqlite.sql", "sql", false, For("sqlite")}),
    [](const auto& test) {
      std::string name = test.param.file;
      std::replace_if(
          name.begin(), name.end(), [](char c) { return c == '.'; }, '_');
      return name;
    });

}  // namespace
}  // namespace wbexport
