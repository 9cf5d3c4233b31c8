// Every query text of this folder against catalog_queries.txt, character for character.
#include "routes/shared/catalog_queries.h"

#include <gtest/gtest.h>

#include "routes/informix/key_queries.h"
#include "routes/informix/type_queries.h"
#include "routes/shared/query_batches.h"
#include "tests/routes/query_cases.h"

namespace odbcimport::informix {
namespace {

using test::OneText;
using test::QueryCase;

LcTableInfo RemoteSynonymOf(const QueryCase& c) {
  LcTableInfo synonym;
  synonym.type = ttSynonym;
  synonym.synonym = c.remote;
  return synonym;
}

// Of the selected tables, as if they had been imported.
bool PrimaryKeys(const QueryCase& c, std::u16string& text) {
  LcWorkbookTableList tables;
  for (const LcTableInfo* entry : c.choices.selected_tables) {
    LcWorkbookTable* table = tables.Append(std::make_unique<LcWorkbookTable>());
    table->SetOwner(entry->owner);
    table->SetName(entry->name);
  }
  BuildOnlineSQLGetPrimaryKeys(&tables, c.is_ius, text);
  return true;
}

TEST(CatalogQueries, AreAsExpectedCharacterForCharacter) {
  using Text = std::u16string;
  test::ExpectQueryTexts(
      "informix/catalog_queries.txt", 300,
      {{"owner_names", OneText([](const QueryCase& c, Text& text) {
          return BuildOwnerNameQuery(c.choices, text, c.server);
        })},
       {"names", OneText([](const QueryCase& c, Text& text) {
          return BuildTableViewNameQuery(c.choices, text, c.server);
        })},
       {"synonym_names", OneText([](const QueryCase& c, Text& text) {
          return BuildSynonymNameQuery(c.choices, text, c.server);
        })},
       {"column_text", OneText([](const QueryCase& c, Text& text) {
          return BuildTableColumnQuery(c.choices, text, c.server, c.is_ius);
        })},
       {"local_synonyms", OneText([](const QueryCase& c, Text& text) {
          return BuildLocalSynonymQuery(c.choices, text, c.server, c.is_ius);
        })},
       {"remote_synonym", OneText([](const QueryCase& c, Text& text) {
          return BuildRemoteSynonymQuery(text, c.server, RemoteSynonymOf(c), c.is_ius);
        })},
       {"remote_is_ius", OneText([](const QueryCase& c, Text& text) {
          return BuildRemoteIsIUSQuery(text, c.remote.server_name, c.remote.database_name), true;
        })},
       {"column_names", OneText([](const QueryCase& c, Text& text) {
          return BuildColumnNameQuery(c.choices, text), true;
        })},
       {"primary_keys", OneText(PrimaryKeys)},
       {"foreign_keys", OneText([](const QueryCase& c, Text& text) {
          return BuildOnlineSQLGetForeignKeys(105, 9, c.is_ius, text), true;
        })},
       {"named_types", OneText([](const QueryCase& c, Text& text) {
          return BuildSQLGetNamedDataTypes(&c.choices.selected_owners, text), true;
        })},
       {"complex_type", OneText([](const QueryCase&, Text& text) {
          return BuildSQLGetComplexType(2049, text), true;
        })}});
}

TEST(CatalogQueries, ReadLocalSynonymsOfAllOwnersWhereNoneIsSelected) {
  LcImportChoices choices;
  std::u16string of_all;
  EXPECT_TRUE(BuildLocalSynonymQuery(choices, of_all, dbmsInformix, true));
  choices.owner_restriction = u"sales";
  std::vector<std::u16string> texts;
  EXPECT_TRUE(BuildLocalSynonymQueries(choices, dbmsInformix, true, texts));
  EXPECT_EQ(texts, std::vector{of_all});
}

}  // namespace
}  // namespace odbcimport::informix
