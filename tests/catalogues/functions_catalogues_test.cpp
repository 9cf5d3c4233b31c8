// The catalogues of built-in functions against the list of given facts beside this file.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>

#include "catalogues/function_walk.h"
#include "routes/shared/readers.h"
#include "tests/support/functions_session.h"

namespace odbcimport::test {
namespace {

struct Facts {
  unsigned long announced = 0;
  std::size_t rows = 0;
  std::vector<std::string> functions;  // "name" or "name (overloads)"
  std::vector<std::string> texts;      // name, signature and result, parted by tabs
};

std::map<std::string, Facts> ReadFacts() {
  std::ifstream file(WB_SOURCE_DIR "/tests/catalogues/functions_facts.txt");
  std::map<std::string, Facts> all;
  Facts* facts = nullptr;
  std::string part;
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line[0] == '#') continue;
    const std::string word = line.substr(0, line.find(' '));
    if (word == "catalogue") {
      facts = &all[line.substr(word.size() + 1)];
    } else if (word == "announced") {
      facts->announced = std::stoul(line.substr(word.size() + 1));
    } else if (word == "rows") {
      facts->rows = std::stoul(line.substr(word.size() + 1));
    } else if (line == "names" || line == "texts") {
      part = line;
    } else if (part == "texts") {
      facts->texts.push_back(line);
    } else {
      for (std::size_t begin = 0; begin < line.size();) {
        const std::size_t end = std::min(line.find(',', begin), line.size());
        facts->functions.push_back(line.substr(begin, end - begin));
        begin = end + 2;
      }
    }
  }
  return all;
}

struct Catalogue {
  const char* name;
  void (*get)(ImportSession&);
};
constexpr Catalogue kCatalogues[] = {
    {"ius", GetSystemFunctionsIUS},           {"ids", GetSystemFunctionsIDS},
    {"oracle", GetSystemFunctionsOracle},     {"db2", GetSystemFunctionsDB2},
    {"sqlserver", GetSystemFunctionsMSSQL},   {"access", GetSystemFunctionsAccess},
    {"redbrick", GetGeneralFunctionsRedBrick}};

class CatalogueTest : public testing::TestWithParam<Catalogue> {
 protected:
  void SetUp() override {
    GetParam().get(recorded_.session);
    facts_ = ReadFacts()[GetParam().name];
    ASSERT_GT(facts_.rows, 0U) << "no facts";
  }
  // Name, signature and result of each overload, parted by tabs.
  std::vector<std::string> Rows() const {
    std::vector<std::string> rows;
    for (const LcWorkbookFunction* function : recorded_.workbook.functions) {
      for (const auto& overload : function->GetOverloads()) {
        rows.push_back(Narrow(function->GetName()) + "\t" + Narrow(overload->GetText()) + "\t" +
                       Narrow(overload->GetResultType()));
      }
    }
    return rows;
  }
  RecordedSession recorded_{dbmsUnknown};
  Facts facts_;
};

TEST_P(CatalogueTest, HasTheFunctionsInOrderWithTheirOverloads) {
  std::vector<std::string> functions;
  for (const LcWorkbookFunction* function : recorded_.workbook.functions) {
    EXPECT_TRUE(function->GetOwner().empty()) << "built-in functions have no owner";
    const std::size_t overloads = function->GetOverloads().size();
    functions.push_back(Narrow(function->GetName()) +
                        (overloads > 1 ? " (" + std::to_string(overloads) + ")" : ""));
  }
  EXPECT_EQ(functions, facts_.functions);
}

TEST_P(CatalogueTest, HasTheGivenTextsInOrder) {
  const std::vector<std::string> rows = Rows();
  auto at = rows.begin();
  for (const std::string& text : facts_.texts) {
    const auto found = std::find(at, rows.end(), text);
    ASSERT_NE(found, rows.end()) << text;
    at = found + 1;
  }
}

TEST_P(CatalogueTest, HasCompleteSignatures) {
  for (const std::string& row : Rows()) {
    const std::string signature =
        row.substr(row.find('\t') + 1, row.rfind('\t') - row.find('\t') - 1);
    EXPECT_FALSE(signature.empty()) << row;
    const auto count = [&](char c) { return std::count(signature.begin(), signature.end(), c); };
    EXPECT_EQ(count('('), count(')')) << row;
    EXPECT_EQ(count('['), count(']')) << row;
    EXPECT_EQ(count('\'') % 2, 0) << row;
    EXPECT_EQ(count('$'), 0) << row;
  }
}

TEST_P(CatalogueTest, ReportsTheAnnouncedCountAndEveryRow) {
  const std::vector<Notification>& seen = Notifications();
  ASSERT_EQ(seen.size(), facts_.rows + 2);
  EXPECT_EQ(seen.front().notify, inLoopStart);
  EXPECT_EQ(seen.front().item_type, iiGeneralFunctions);
  EXPECT_EQ(seen.front().count, facts_.announced);
  EXPECT_EQ(seen.back().notify, inLoopEnd);
  const std::vector<std::string> rows = Rows();
  for (std::size_t i = 0; i < facts_.rows; ++i) {
    EXPECT_EQ(seen[i + 1].notify, inSystemFunctionItem);
    const std::string item = Narrow(seen[i + 1].text2) + "\t" + Narrow(seen[i + 1].text3) + "\t";
    EXPECT_EQ(rows[i].rfind(item, 0), 0U) << item;
  }
}

INSTANTIATE_TEST_SUITE_P(Servers, CatalogueTest, testing::ValuesIn(kCatalogues),
                         [](const auto& suite) { return suite.param.name; });

TEST(FunctionWalk, MergesNeighboursWhateverTheirCaseAndNothingElse) {
  constexpr FunctionRow kRows[] = {{u"abs", u"abs(a)", u"a"},
                                   {u"ABS", u"ABS(b)", u"b"},
                                   {u"sin", u"sin(a)", u""},
                                   {u"abs", u"abs(c)", u"c"}};
  RecordedSession recorded(dbmsUnknown);
  AddSystemFunctions(recorded.session, kRows, 4);
  const std::vector<std::string> once = {".abs: abs(a) ABS(b)", ".sin: sin(a)", ".abs: abs(c)"};
  EXPECT_EQ(Lines(recorded.workbook.functions), once);
  AddSystemFunctions(recorded.session, kRows, 4);
  EXPECT_EQ(recorded.workbook.functions.GetCount(), 6U) << "a second walk appends all again";
}

}  // namespace
}  // namespace odbcimport::test
