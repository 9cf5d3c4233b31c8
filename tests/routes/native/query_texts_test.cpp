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
  using Text = std::u16string;
  // These builders append to the text that they are given.
  const auto one = [](auto builder) { return OneText(builder, u""); };
  test::ExpectQueryTexts(
      "native/query_texts.txt", 60,
      {{"columns",
        [](const QueryCase& c, QueryTexts& texts) {
          return BuildTableColumnQueries(c.choices, c.server, c.is_ius, texts);
        }},
       {"synonyms",
        [](const QueryCase& c, QueryTexts& texts) {
          return BuildLocalSynonymQueries(c.choices, c.server, c.is_ius, texts);
        }},
       {"foreigns",
        [](const QueryCase& c, QueryTexts& texts) {
          return BuildForeignKeyQueries(c.choices, c.server, texts);
        }},
       {"primary", one([](const QueryCase& c, Text& text) {
          return BuildPrimaryKeyQuery(c.choices, text, c.server);
        })},
       {"foreign", one([](const QueryCase& c, Text& text) {
          return BuildForeignKeyQuery(c.choices, text, c.server), true;
        })},
       {"redbrick1", one([](const QueryCase& c, Text& text) {
          return BuildForeignKeyQueryRedBrick1(c.choices, text), true;
        })},
       {"redbrick2", one([](const QueryCase& c, Text& text) {
          return BuildForeignKeyQueryRedBrick2(c.choices, text), true;
        })},
       {"sqlserver", one([](const QueryCase& c, Text& text) {
          return BuildForeignKeyQuerySQLServer(c.choices, text), true;
        })},
       {"types", one([](const QueryCase& c, Text& text) {
          return BuildNativeGetNamedDataTypes(c.server, &c.choices.selected_owners, text), true;
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
    QueryTexts columns, keys;
    BuildTableColumnQueries(choices, dbmsOracle, false, columns);
    BuildForeignKeyQueries(choices, dbmsOracle, keys);
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
  QueryTexts texts;
  ASSERT_TRUE(BuildLocalSynonymQueries(choices, dbmsOracle, false, texts));
  ASSERT_EQ(texts.size(), 3u);
  EXPECT_EQ(SelectedNumbers(texts[0], "SYNONYM_NAME='T"), "0-299");
  EXPECT_THAT(ToUtf8(texts[1]), testing::EndsWith(" AND () ORDER BY S.OWNER, S.SYNONYM_NAME"));
  EXPECT_EQ(SelectedNumbers(texts[2], "SYNONYM_NAME='T"), "600-600");
}

}  // namespace
}  // namespace odbcimport::native
