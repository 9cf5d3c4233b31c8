// Every query text of this folder against catalog_queries.txt, character for character.
#include "routes/informix/catalog_queries.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <map>
#include <sstream>

#include "routes/informix/key_queries.h"
#include "routes/informix/type_queries.h"

namespace odbcimport {
namespace {

// The texts are ASCII.
std::u16string Wide(const std::string& text) { return {text.begin(), text.end()}; }
std::string Narrow(const std::u16string& text) { return {text.begin(), text.end()}; }

struct Case {
  std::string builder, bits, ius, system, owner, selection;
  int server_type = 0;

  bool Has(char bit) const { return bits.find(bit) != std::string::npos; }
  bool Selects(const char* what) const { return selection.find(what) != std::string::npos; }
};

template <class T>
T* Add(LcObjectList<T>& list) {
  return list.Append(std::make_unique<T>());
}

void AddTable(LcTableInfoList& list, const char16_t* owner, const char16_t* name,
              enumTableType type, int base_table_id = 0, const char16_t* database = u"") {
  LcTableInfo* entry = Add(list);
  entry->owner = owner;
  entry->name = name;
  entry->type = type;
  entry->synonym.base_table_id = base_table_id;
  entry->synonym.database_name = database;
}

LcImportChoices ChoicesOf(const Case& c) {
  LcImportChoices choices;
  if (c.Has('T')) choices.item_mask |= c.builder == "names" ? ibTableNames : ibTables;
  if (c.Has('V')) choices.item_mask |= c.builder == "names" ? ibViewNames : ibViews;
  if (c.Has('Y')) choices.item_mask |= ibSynonymNames;
  choices.include_system = c.system == "system";
  if (c.owner != "-") choices.owner_restriction = Wide(c.owner);
  choices.single_table_name = u"orders";
  if (c.Selects("owners")) {
    Add(choices.selected_owners)->name = u"informix";
    Add(choices.selected_owners)->name = u"joe";
  }
  if (c.Selects("tables")) {
    AddTable(choices.selected_tables, u"adm", u"orders", ttTable);
    AddTable(choices.selected_tables, u"", u"v1", ttView);
  }
  const bool mixed = c.selection == "mixed";
  if (mixed) AddTable(choices.selected_synonyms, u"joe", u"t1", ttTable, 107);
  if (mixed || c.selection == "local") {
    AddTable(choices.selected_synonyms, u"joe", u"s1", ttSynonym, 105);
    AddTable(choices.selected_synonyms, u"", u"s2", ttSynonym, 230);
  }
  if (mixed || c.selection == "remote") {
    AddTable(choices.selected_synonyms, u"joe", u"s3", ttSynonym, 0, u"hr");
  }
  return choices;
}

LcTableInfo RemoteSynonymOf(const Case& c) {
  LcTableInfo synonym;
  synonym.type = ttSynonym;
  if (!c.Selects("no_server")) synonym.synonym.server_name = u"tokyo";
  if (!c.Selects("no_database")) synonym.synonym.database_name = u"hr";
  if (!c.Selects("no_owner")) synonym.synonym.base_owner = u"joe";
  if (!c.Selects("no_table")) synonym.synonym.base_table_name = u"people";
  return synonym;
}

std::u16string PrimaryKeys(const Case& c, bool is_ius) {
  LcWorkbookTableList tables;
  if (c.Selects("tables")) {
    for (const auto& [owner, name] : {std::pair(u"joe", u"orders"), std::pair(u"", u"v1")}) {
      LcWorkbookTable* table = Add(tables);
      table->SetOwner(owner);
      table->SetName(name);
    }
  }
  std::u16string text;
  BuildOnlineSQLGetPrimaryKeys(&tables, is_ius, text);
  return text;
}

// What the builder makes of the case: the text, or "false" when it declined and kept the text.
std::string Build(const Case& c) {
  const LcImportChoices choices = ChoicesOf(c);
  const bool is_ius = c.ius == "ius";
  const int server = c.server_type;
  std::u16string text = u"as it was";
  const std::map<std::string, std::function<bool()>> builders = {
      {"owner_names", [&] { return BuildOwnerNameQuery(choices, text, server); }},
      {"names", [&] { return BuildTableViewNameQuery(choices, text, server); }},
      {"synonym_names", [&] { return BuildSynonymNameQuery(choices, text, server); }},
      {"columns", [&] { return BuildTableColumnQuery(choices, text, server, is_ius); }},
      {"local_synonyms", [&] { return BuildLocalSynonymQuery(choices, text, server, is_ius); }},
      {"remote_synonym",
       [&] { return BuildRemoteSynonymQuery(text, server, RemoteSynonymOf(c), is_ius); }},
      {"remote_is_ius",
       [&] {
         BuildRemoteIsIUSQuery(text, RemoteSynonymOf(c).synonym.server_name, u"hr");
         return true;
       }},
      {"column_names", [&] { return BuildColumnNameQuery(choices, text), true; }},
      {"primary_keys", [&] { return text = PrimaryKeys(c, is_ius), true; }},
      {"foreign_keys", [&] { return BuildOnlineSQLGetForeignKeys(105, 9, is_ius, text), true; }},
      {"named_types",
       [&] { return BuildSQLGetNamedDataTypes(&choices.selected_owners, text), true; }},
      {"complex_type", [&] { return BuildSQLGetComplexType(2049, text), true; }},
  };
  if (builders.at(c.builder)()) return Narrow(text);
  return text == u"as it was" ? "false" : "false, but the text has changed";
}

TEST(CatalogQueries, AreAsExpectedCharacterForCharacter) {
  std::ifstream file(WB_SOURCE_DIR "/tests/routes/informix/catalog_queries.txt");
  int cases = 0;
  std::string line;
  while (std::getline(file, line)) {
    if (line.empty() || line[0] == '#') continue;
    Case c;
    std::istringstream(line) >> c.builder >> c.server_type >> c.bits >> c.ius >> c.system >>
        c.owner >> c.selection;
    std::string expected;
    std::getline(file, expected);
    EXPECT_EQ(Build(c), expected.substr(2)) << line;
    ++cases;
  }
  EXPECT_GT(cases, 300);
}

TEST(CatalogQueries, TakeNamesAsTheyStand) {
  LcImportChoices choices;
  choices.item_mask = ibTables;
  choices.owner_restriction = u"o'neil";
  std::u16string text;
  ASSERT_TRUE(BuildTableColumnQuery(choices, text, dbmsInformix, false));
  EXPECT_NE(text.find(u" AND T.OWNER='o'neil' AND "), std::u16string::npos);
}

}  // namespace
}  // namespace odbcimport
