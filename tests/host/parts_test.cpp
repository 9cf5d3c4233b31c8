// The parts of the host that need no process: request files, default items, names, exit codes and
// the progress bar.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/choices.h"
#include "host/outcome.h"
#include "host/progress.h"
#include "host/text.h"

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
      ParseRequest(request, "r.json");
      ADD_FAILURE() << request;
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.code(), ExitCode::kUsage);
      EXPECT_THAT(failure.what(), HasSubstr(message));
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

TEST(ProgressBar, ShowsPhaseCountRateAndTimeLeft) {
  ProgressState state;
  state.phase = "foreign keys";
  state.total = 100;
  state.done = 25;
  state.seconds = 0.1;
  EXPECT_EQ(DescribeProgress(state), "25 of 100");  // too early for a rate
  state.seconds = 10;
  EXPECT_EQ(DescribeProgress(state), "25 of 100, 2.5/s, 0:30 left");
  state.item = "joe.Größe\n";
  EXPECT_EQ(DrawBar(state, 200),
            "[#####...............] foreign keys 25 of 100, 2.5/s, 0:30 left  joe.Größe ");
  EXPECT_EQ(DrawBar(state, 12), "[#####.....");
  state.done = 150;  // more items than were announced
  EXPECT_EQ(DescribeProgress(state), "150 of 100, 15/s");
}

}  // namespace
}  // namespace wbhost
