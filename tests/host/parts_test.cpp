// The parts of the host that need no process: request files, default items, names, exit codes and
// the progress bar.
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <istream>

#include "host/choices.h"
#include "host/file_bytes.h"
#include "host/nearest.h"
#include "host/outcome.h"
#include "host/progress.h"
#include "host/text.h"
#include "importer/workbook/workbook_file.h"

namespace wbhost {
namespace {

using testing::HasSubstr;

TEST(RequestFile, FillsEveryField) {
  const Choices choices = ParseRequest(R"({
    "items": ["tables", "column-names"], "dbmsType": 5, "ownerRestriction": "joe",
    "includeSystem": true, "keys": false, "foreignKeys": false, "singleItemOwner": "ann",
    "singleTable": "Größe", "selectedOwners": ["joe", "ann"],
    "selectedTables": [{"name": "t"}, {"owner": "joe", "name": "v", "type": "view"}],
    "selectedSynonyms": [{"name": "o", "synonymId": -7, "baseTableId": 9, "serverName": "s",
      "databaseName": "d", "baseOwner": "b", "baseTableName": "n"}],
    "settings": {"GenericWorkbookImport": 4294967295, "GenericDB2WorkbookImport": "1"}})",
                                       "r.json");
  const LcImportChoices& importer = choices.importer;
  EXPECT_EQ(choices.ItemMask(), 0x20004u);
  EXPECT_EQ(importer.dbms_type, dbmsDB2);
  EXPECT_EQ(importer.owner_restriction, u"joe");
  EXPECT_TRUE(importer.include_system);
  EXPECT_FALSE(importer.keys || importer.foreign_keys);
  EXPECT_EQ(importer.single_item_owner, u"ann");
  EXPECT_EQ(importer.single_table_name, u"Größe");
  EXPECT_EQ(importer.selected_owners.GetAt(1)->name, u"ann");
  EXPECT_EQ(importer.selected_tables.GetAt(0)->type, ttTable);
  EXPECT_EQ(importer.selected_tables.GetAt(1)->type, ttView);
  const LcTableInfo& synonym = *importer.selected_synonyms.GetAt(0);
  EXPECT_EQ(synonym.type, ttSynonym);
  EXPECT_EQ(synonym.synonym.synonym_id, -7);
  EXPECT_EQ(synonym.synonym.base_table_name, u"n");
  EXPECT_EQ(std::get<std::uint32_t>(choices.settings.at(u"GenericWorkbookImport")), 4294967295u);
  EXPECT_EQ(std::get<std::u16string>(choices.settings.at(u"GenericDB2WorkbookImport")), u"1");
}

TEST(RequestFile, RefusesWhatItDoesNotKnowByFileAndField) {
  const std::vector<std::pair<const char*, const char*>> cases = {
      {R"([])", "r.json: must be an object"},
      {R"({"key": true})", "r.json: field key: is not known"},
      {R"({"items": "tables"})", "field items: must be a list"},
      {R"({"items": ["tables", "index"]})", "field items[1]: there is no item 'index'"},
      {R"({"keys": 1})", "field keys: must be true or false"},
      {R"({"dbmsType": "5"})", "field dbmsType: must be an integer"},
      {R"({"dbmsType": 5.0})", "field dbmsType: must be an integer"},
      {R"({"dbmsType": 9})", "field dbmsType: must lie between 0 and 8"},
      {R"({"singleTable": null})", "field singleTable: must be a string"},
      {R"({"selectedTables": [{"owner": "joe"}]})", "field selectedTables[0].name: is missing"},
      {R"({"selectedTables": [{"name": "t", "type": "synonym"}]})",
       "field selectedTables[0].type: must be table or view"},
      {R"({"selectedSynonyms": [{"name": "o", "synonymId": 2147483648}]})",
       "field selectedSynonyms[0].synonymId: must lie between"},
      {R"({"settings": {"GenericWorkbookImport": -1}})",
       "field settings.GenericWorkbookImport: must lie between"},
      {R"({"settings": {"Generic": 1}})", "field settings.Generic: is not known"},
      {"{\"ownerRestriction\": \"\xff\"}", "r.json: is no JSON"},
  };
  for (const auto& [request, message] : cases) {
    try {
      static_cast<void>(ParseRequest(request, "r.json"));
      ADD_FAILURE() << request;
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.code(), ExitCode::kUsage);
      EXPECT_THAT(failure.what(), HasSubstr(message));
    }
  }
}

// The limit of a workbook file, lowered: up to it a file is read, whole pieces and parts of one,
// and one byte more is refused with a word.
TEST(FileBytes, EndAtTheirLimit) {
  for (const std::size_t most : {std::size_t{100}, std::size_t{64} << 10, std::size_t{200'000}}) {
    for (const std::size_t size : {most - 1, most, most + 1}) {
      std::FILE* file = std::tmpfile();
      ASSERT_NE(file, nullptr);
      const int fd = fileno(file);
      std::string text = R"({"format":"workbook","version":1})";
      text.resize(size, ' ');
      ASSERT_EQ(write(fd, text.data(), text.size()), static_cast<ssize_t>(text.size()));
      lseek(fd, 0, SEEK_SET);
      FileBytes bytes(dup(fd), most);
      std::istream in(&bytes);
      LcWorkbook workbook;
      LcWorkbookFileInfo info;
      std::string why;
      EXPECT_EQ(ReadWorkbookFile(in, workbook, info, why), size <= most) << size;
      EXPECT_EQ(bytes.HasFailed(), size > most);
      if (size > most) {
        EXPECT_EQ(why, fmt::format("it has more than {} bytes", most));
      }
      std::fclose(file);
    }
  }
}

TEST(DefaultItems, LeaveSynonymsOutOfASelectionWithoutOne) {
  constexpr std::uint32_t kAll = 0x7fc;
  EXPECT_EQ(ParseRequest("{}", "r").ItemMask(), kAll);
  EXPECT_EQ(ParseRequest(R"({"selectedOwners": ["joe"]})", "r").ItemMask(), kAll & ~0x10u);
  EXPECT_EQ(ParseRequest(R"({"selectedOwners": ["joe"], "selectedSynonyms": [{"name": "o"}]})", "r")
                .ItemMask(),
            kAll);
  EXPECT_EQ(ParseRequest(R"({"items": []})", "r").ItemMask(), 0u);
  ChoiceOptions options;
  options.select_synonym = {"joe.o"};
  EXPECT_EQ(ReadChoices(options).ItemMask(), kAll);
}

TEST(ExitCode, IsTheGravestOfSeveral) {
  const std::vector<ExitCode> order = {
      ExitCode::kConnection, ExitCode::kOutput,      ExitCode::kUsage,      ExitCode::kCancelled,
      ExitCode::kStopped,    ExitCode::kImportFalse, ExitCode::kErrorsShown};
  for (std::size_t first = 0; first < order.size(); ++first) {
    Outcome outcome;
    for (std::size_t i = order.size(); i-- > first;) outcome.Add(order[i]);
    EXPECT_EQ(outcome.Code(), order[first]);
  }
  EXPECT_EQ(Outcome().Code(), ExitCode::kOk);
}

TEST(NamePatterns, TakeWildcardsOutsideOfQuotes) {
  const struct {
    const char* pattern;
    const char16_t* owner;
    const char16_t* name;
    bool matches;
    bool ignoring_case;
  } cases[] = {
      {"sales.*", u"sales", u"orders", true, true},
      {"sales.*", u"sale", u"orders", false, false},
      {"Ord?rs", u"x", u"orders", false, true},
      {"\"Orders\"", u"", u"orders", false, false},
      {"a*", u"", u"a.b/c", true, true},
      {"\"a*\"", u"", u"ab", false, false},
      {"\"a*\".b*", u"a*", u"bc", true, true},
      {"[ab]\\*", u"", u"[ab]\\x", true, true},
      {"[ab]", u"", u"a", false, false},
  };
  for (const auto& c : cases) {
    const NamePattern pattern = NamePattern::OfTable(c.pattern, "--select-table");
    EXPECT_EQ(pattern.Matches(c.owner, c.name, false), c.matches) << c.pattern;
    EXPECT_EQ(pattern.Matches(c.owner, c.name, true), c.ignoring_case) << c.pattern;
  }
}

TEST(NearestNames, AreThoseOfFewSlips) {
  const std::vector<std::string> names = {"import", "list", "info", "Orders", "order_lines", "xy"};
  const std::pair<const char*, const char*> cases[] = {
      {"imprt", "; did you mean 'import'?"},
      {"ifno", "; did you mean 'info'?"},
      {"order", "; did you mean 'Orders' or 'order_lines'?"},
      {"zz", "; there are import, list, info, Orders, order_lines, xy"},
  };
  for (const auto& [word, text] : cases) EXPECT_EQ(DidYouMean(word, names), text);
}

// An import through the catalog functions: a loop of tables, told of column by column, and one of
// their foreign keys.
TEST(Progress, CountsTablesAndEstimatesWhatFollows) {
  ProgressCount count(true, true);
  LcImpProgStartInfo start;
  start.item_type = iiTablesAndViews;
  count.Notify(inPhaseStart, &start, 0);
  start.count = 100;
  count.Notify(inLoopStart, &start, 0);
  LcImpItemInfo item;
  for (int table = 0; table < 50; ++table) {
    item.text2 = u"t" + std::u16string(1, static_cast<char16_t>(u'A' + table));
    for (int column = 0; column < 9; ++column) count.Notify(inTableItem, &item, table / 5.0);
    count.Notify(inItemDone, nullptr, (table + 1) / 5.0);
  }
  ProgressState state = count.State(10);
  // 50 tables in 10 seconds: as long again, and as long as both for the foreign keys.
  EXPECT_EQ(DescribeProgress(state), "50 of 100 tables, 5.0/s, 0:30 left");
  EXPECT_EQ(DrawBar(state, 60), "[#####...............] tables and views 50 of 100 tables, 5");
  count.Notify(inLoopEnd, nullptr, 20);
  state = count.State(20);
  EXPECT_STREQ(state.phase, "foreign keys");
  EXPECT_EQ(DrawBar(state, 36), "[##########..........] foreign keys");
  EXPECT_EQ(DrawBar(count.State(39), 36), "[##########..........] foreign keys");
  start.item_type = iiForeignKeys;
  count.Notify(inLoopStart, &start, 20);
  for (int i = 0; i < 150; ++i) {  // more than were announced
    item.text2 = i % 2 == 0 ? u"a" : u"b";
    count.Notify(inTableItem, &item, 20);
  }
  EXPECT_EQ(DescribeProgress(count.State(30)), "100 of 100, 10/s, 0:00 left");
}

// An import by own SQL: a loop of columns, and no word before the keys are read.
TEST(Progress, CountsColumnsAndNamesThePhaseThatHasBegun) {
  ProgressCount count(true, true);
  LcImpProgStartInfo start;
  start.item_type = iiTablesAndViews;
  start.count = 40;
  count.Notify(inLoopStart, &start, 0);
  LcImpItemInfo item;
  for (int i = 0; i < 21; ++i) {
    item.text2 = i < 10 ? u"a" : u"b";
    item.text3 = u"column";
    count.Notify(inTableItem, &item, i);
    EXPECT_EQ(count.State(i).done, i < 10 ? 0u : static_cast<std::uint32_t>(i));
  }
  EXPECT_EQ(DescribeProgress(count.State(20)), "20 of 40 columns, 1.0/s, 1:40 left");
  count.Notify(inLoopEnd, nullptr, 40);
  EXPECT_STREQ(count.State(40).phase, "primary keys");
  EXPECT_EQ(count.State(40).left, 80);
}

}  // namespace
}  // namespace wbhost
