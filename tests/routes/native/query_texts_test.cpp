// The texts of the query builders, against query_texts.txt.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/utf.h"
#include "routes/native/foreign_key_queries.h"
#include "routes/native/native_types.h"
#include "routes/native/primary_keys.h"
#include "routes/shared/catalog_queries.h"
#include "routes/shared/query_batches.h"
#include "tests/routes/query_cases.h"

namespace odbcimport::native {
namespace {

using base::ToUtf8;
using test::MakeEntry;
using test::OneText;
using test::QueryCase;
using test::QueryTexts;

TEST(NativeQueryTexts, EveryDialectIsExact) {
  test::ExpectQueryTexts(
      "native/query_texts.txt", 60,
      {{"columns",
        [](const QueryCase& c) { return BuildTableColumnQueries(c.choices, c.server, c.is_ius); }},
       {"synonyms",
        [](const QueryCase& c) {
          return BuildLocalSynonymQueries(c.choices, c.server, c.is_ius).value_or(QueryTexts());
        }},
       {"foreigns", [](const QueryCase& c) { return BuildForeignKeyQueries(c.choices, c.server); }},
       {"primary",
        OneText([](const QueryCase& c) { return BuildPrimaryKeyQuery(c.choices, c.server); })},
       {"foreign",
        OneText([](const QueryCase& c) { return BuildForeignKeyQuery(c.choices, c.server); })},
       {"redbrick1",
        OneText([](const QueryCase& c) { return BuildForeignKeyQueryRedBrick1(c.choices); })},
       {"redbrick2",
        OneText([](const QueryCase& c) { return BuildForeignKeyQueryRedBrick2(c.choices); })},
       {"sqlserver",
        OneText([](const QueryCase& c) { return BuildForeignKeyQuerySQLServer(c.choices); })},
       {"types", OneText([](const QueryCase& c) {
          return BuildNativeGetNamedDataTypes(c.server, &c.choices.selected_owners);
        })}});
}

// The numbers of the names that a text selects: "0-199 0-199" for T0 to T199, twice.
std::string SelectedNumbers(const std::u16string& sql, const std::string& before) {
  const std::string text = ToUtf8(sql);
  std::string ranges;
  int last = -2;
  for (auto at = text.find(before); at != std::string::npos; at = text.find(before, at + 1)) {
    const int number = std::stoi(text.substr(at + before.size()));
    if (number != last + 1) {
      ranges += (last < 0 ? "" : std::to_string(last) + " ") + std::to_string(number) + "-";
    }
    last = number;
  }
  return ranges + std::to_string(last);
}

TEST(NativeQueryTexts, OracleReadsALongSelectionInBatches) {
  const std::map<int, std::vector<std::string>> batches = {{1, {"0-0"}},
                                                           {200, {"0-199"}},
                                                           {201, {"0-199", "200-200"}},
                                                           {450, {"0-199", "200-399", "400-449"}}};
  for (const auto& [selected, ranges] : batches) {
    LcImportChoices choices;
    choices.item_mask = ibTables;
    for (int i = 0; i < selected; ++i) {
      choices.selected_tables.Append(MakeEntry("T" + std::to_string(i), ttTable));
    }
    const QueryTexts columns = BuildTableColumnQueries(choices, dbmsOracle, false);
    const QueryTexts keys = BuildForeignKeyQueries(choices, dbmsOracle);
    ASSERT_EQ(columns.size(), ranges.size()) << selected;
    ASSERT_EQ(keys.size(), ranges.size()) << selected;
    for (std::size_t i = 0; i < ranges.size(); ++i) {
      EXPECT_EQ(SelectedNumbers(columns[i], "TABLE_NAME='T"), ranges[i]) << selected;
      // In either half of the union.
      EXPECT_EQ(SelectedNumbers(keys[i], "TABLE_NAME='T"), ranges[i] + " " + ranges[i]);
    }
  }
}

// Positions count all entries, but remote synonyms are left out; a batch of nothing but remote ones
// gets the empty condition that the server refuses.
TEST(NativeQueryTexts, OracleReadsManySynonymsInBatches) {
  LcImportChoices choices;
  for (int i = 0; i < 601; ++i) {
    const bool remote = i >= 300 && i < 600;
    choices.selected_synonyms.Append(
        MakeEntry("T" + std::to_string(i) + (remote ? "@HQ" : ""), ttSynonym));
  }
  const QueryTexts texts = BuildLocalSynonymQueries(choices, dbmsOracle, false).value();
  ASSERT_EQ(texts.size(), 3u);
  EXPECT_EQ(SelectedNumbers(texts[0], "SYNONYM_NAME='T"), "0-299");
  EXPECT_THAT(ToUtf8(texts[1]), testing::EndsWith(" AND () ORDER BY S.OWNER, S.SYNONYM_NAME"));
  EXPECT_EQ(SelectedNumbers(texts[2], "SYNONYM_NAME='T"), "600-600");
}

}  // namespace
}  // namespace odbcimport::native
