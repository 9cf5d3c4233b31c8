// The texts of the query builders, against query_texts.txt.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "catalogues/native_types.h"
#include "routes/informix/catalog_queries.h"
#include "routes/native/column_queries.h"
#include "routes/native/foreign_key_queries.h"
#include "routes/native/primary_keys.h"

namespace odbcimport {
namespace {

using Texts = std::vector<std::u16string>;

std::u16string Wide(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }
std::string Narrow(const std::u16string& ascii) { return {ascii.begin(), ascii.end()}; }

std::vector<std::string> Split(const std::string& text, char separator) {
  std::vector<std::string> pieces;
  std::istringstream in(text);
  for (std::string piece; std::getline(in, piece, separator);) pieces.push_back(piece);
  return pieces;
}

// [OWNER.]NAME[@LINK][#BASE TABLE ID]
std::unique_ptr<LcTableInfo> Entry(std::string text, enumTableType type) {
  auto entry = std::make_unique<LcTableInfo>();
  entry->type = type;
  if (const auto at = text.find('#'); at != std::string::npos) {
    entry->synonym.base_table_id = std::stoi(text.substr(at + 1));
    text.resize(at);
  }
  if (const auto at = text.find('@'); at != std::string::npos) {
    entry->synonym.database_name = Wide(text.substr(at + 1));
    text.resize(at);
  }
  const auto dot = text.find('.');
  if (dot != std::string::npos) entry->owner = Wide(text.substr(0, dot));
  entry->name = Wide(dot == std::string::npos ? text : text.substr(dot + 1));
  return entry;
}

struct Case {
  std::string head;
  std::string builder;
  int type = 0;
  bool is_ius = false;
  LcImportChoices choices;
  Texts expected;
};

Case ParseHead(const std::string& head) {
  Case parsed;
  parsed.head = head;
  std::vector<std::string> words = Split(head, ' ');
  parsed.builder = words.at(0);
  parsed.type = std::stoi(words.at(1));
  for (std::size_t i = 2; i < words.size(); ++i) {
    const auto equals = words[i].find('=');
    const std::string key = words[i].substr(0, equals);
    const std::string value = equals == std::string::npos ? "" : words[i].substr(equals + 1);
    LcImportChoices& choices = parsed.choices;
    if (key == "tables") choices.item_mask |= ibTables;
    if (key == "views") choices.item_mask |= ibViews;
    if (key == "system") choices.include_system = true;
    if (key == "ius") parsed.is_ius = true;
    if (key == "owner") choices.owner_restriction = Wide(value);
    for (const std::string& name : Split(value, ',')) {
      if (key == "select") choices.selected_tables.Append(Entry(name, ttTable));
      if (key == "synonyms") choices.selected_synonyms.Append(Entry(name, ttSynonym));
      if (key != "owners") continue;
      choices.selected_owners.Append(std::make_unique<LcOwnerInfo>())->name = Wide(name);
    }
  }
  return parsed;
}

std::vector<Case> ReadCases() {
  std::vector<Case> cases;
  std::ifstream in(WB_SOURCE_DIR "/tests/routes/native/query_texts.txt");
  for (std::string line; std::getline(in, line);) {
    if (line.rfind("== ", 0) == 0) {
      cases.push_back(ParseHead(line.substr(3)));
    } else if (!cases.empty()) {
      cases.back().expected.push_back(Wide(line));
    }
  }
  return cases;
}

Texts Build(const Case& wanted) {
  const LcImportChoices& choices = wanted.choices;
  Texts texts;
  std::u16string sql;
  if (wanted.builder == "columns") {
    BuildTableColumnQueries(choices, wanted.type, wanted.is_ius, texts);
  } else if (wanted.builder == "synonyms") {
    BuildLocalSynonymQueries(choices, wanted.type, wanted.is_ius, texts);
  } else if (wanted.builder == "foreigns") {
    BuildForeignKeyQueries(choices, wanted.type, texts);
  } else {
    if (wanted.builder == "primary") BuildPrimaryKeyQuery(choices, sql, wanted.type);
    if (wanted.builder == "foreign") BuildForeignKeyQuery(choices, sql, wanted.type);
    if (wanted.builder == "redbrick1") BuildForeignKeyQueryRedBrick1(choices, sql);
    if (wanted.builder == "redbrick2") BuildForeignKeyQueryRedBrick2(choices, sql);
    if (wanted.builder == "sqlserver") BuildForeignKeyQuerySQLServer(choices, sql);
    if (wanted.builder == "types") {
      BuildNativeGetNamedDataTypes(wanted.type, &choices.selected_owners, sql);
    }
    texts.push_back(sql);
  }
  return texts;
}

TEST(NativeQueryTexts, EveryDialectIsExact) {
  const std::vector<Case> cases = ReadCases();
  ASSERT_GT(cases.size(), 60u);
  for (const Case& wanted : cases) {
    ASSERT_FALSE(wanted.expected.empty()) << wanted.head;
    EXPECT_EQ(Build(wanted), wanted.expected) << wanted.head;
  }
}

// The result does not say whether there is a text: DB2 and Red Brick get one and false.
TEST(NativeQueryTexts, PrimaryKeyQueryIsTrueForThreeServersOnly) {
  const std::map<int, std::pair<bool, bool>> by_type = {
      {0, {false, false}}, {1, {false, false}}, {2, {true, true}},   {3, {true, true}},
      {4, {true, true}},   {5, {false, true}},  {6, {false, false}}, {7, {false, false}},
      {8, {false, true}},  {9, {false, false}}};
  for (const auto& [type, expected] : by_type) {
    std::u16string sql;
    const bool result = BuildPrimaryKeyQuery(LcImportChoices(), sql, type);
    EXPECT_EQ(std::make_pair(result, !sql.empty()), expected) << type;
  }
}

TEST(NativeQueryTexts, ServersWithoutATextAddNothing) {
  LcImportChoices choices;
  choices.item_mask = ibTables;
  for (int type : {0, 6, 7, 9}) {
    Texts texts;
    EXPECT_FALSE(BuildTableColumnQueries(choices, type, false, texts)) << type;
    EXPECT_FALSE(BuildForeignKeyQueries(choices, type, texts)) << type;
    EXPECT_TRUE(texts.empty()) << type;
  }
  for (int type : {0, 2, 3, 5, 6, 7, 9}) {
    Texts texts;
    EXPECT_FALSE(BuildLocalSynonymQueries(choices, type, false, texts)) << type;
    EXPECT_TRUE(texts.empty()) << type;
  }
  std::u16string sql;
  BuildNativeGetNamedDataTypes(dbmsOracle, nullptr, sql);
  EXPECT_TRUE(sql.empty());
}

// The other servers' column texts are those of the single-text builder, to the letter.
TEST(NativeQueryTexts, ColumnQueriesAreTheSingleTextWithoutAnOracleSelection) {
  for (int type : {1, 2, 3, 4, 5, 8}) {
    Case wanted = ParseHead("columns " + std::to_string(type) + " tables views owner=joe");
    if (type != 4) wanted = ParseHead(wanted.head + " select=joe.a,b");
    std::u16string sql;
    ASSERT_TRUE(BuildTableColumnQuery(wanted.choices, sql, type, false));
    EXPECT_EQ(Build(wanted), Texts{sql}) << type;
  }
}

// The names that a text selects, T and a number each.
std::vector<int> SelectedNumbers(const std::u16string& sql, const std::string& before) {
  const std::string text = Narrow(sql);
  std::vector<int> numbers;
  for (auto at = text.find(before); at != std::string::npos; at = text.find(before, at + 1)) {
    numbers.push_back(std::stoi(text.substr(at + before.size())));
  }
  return numbers;
}

std::vector<int> Numbers(int first, int last) {
  std::vector<int> numbers;
  for (int i = first; i <= last; ++i) numbers.push_back(i);
  return numbers;
}

TEST(NativeQueryTexts, OracleReadsALongSelectionInBatches) {
  const std::map<int, std::vector<std::pair<int, int>>> batches = {
      {1, {{0, 0}}},
      {200, {{0, 199}}},
      {201, {{0, 199}, {200, 200}}},
      {450, {{0, 199}, {200, 399}, {400, 449}}}};
  for (const auto& [selected, ranges] : batches) {
    LcImportChoices choices;
    choices.item_mask = ibTables;
    for (int i = 0; i < selected; ++i) {
      choices.selected_tables.Append(Entry("T" + std::to_string(i), ttTable));
    }
    Texts columns, keys;
    BuildTableColumnQueries(choices, dbmsOracle, false, columns);
    BuildForeignKeyQueries(choices, dbmsOracle, keys);
    ASSERT_EQ(columns.size(), ranges.size()) << selected;
    ASSERT_EQ(keys.size(), ranges.size()) << selected;
    for (std::size_t i = 0; i < ranges.size(); ++i) {
      const std::vector<int> once = Numbers(ranges[i].first, ranges[i].second);
      EXPECT_EQ(SelectedNumbers(columns[i], "TABLE_NAME='T"), once) << selected;
      std::vector<int> twice = once;  // in either half of the union
      twice.insert(twice.end(), once.begin(), once.end());
      EXPECT_EQ(SelectedNumbers(keys[i], "TABLE_NAME='T"), twice) << selected;
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
        Entry("T" + std::to_string(i) + (remote ? "@HQ" : ""), ttSynonym));
  }
  Texts texts;
  ASSERT_TRUE(BuildLocalSynonymQueries(choices, dbmsOracle, false, texts));
  ASSERT_EQ(texts.size(), 3u);
  EXPECT_EQ(SelectedNumbers(texts[0], "SYNONYM_NAME='T"), Numbers(0, 299));
  EXPECT_THAT(Narrow(texts[1]), testing::EndsWith(" AND () ORDER BY S.OWNER, S.SYNONYM_NAME"));
  EXPECT_EQ(SelectedNumbers(texts[2], "SYNONYM_NAME='T"), Numbers(600, 600));
}

}  // namespace
}  // namespace odbcimport
