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
std::u16string PrimaryKeys(const QueryCase& c) {
  LcWorkbookTableList tables;
  for (const LcTableInfo* entry : c.choices.selected_tables) {
    LcWorkbookTable* table = tables.Append(std::make_unique<LcWorkbookTable>());
    table->SetOwner(entry->owner);
    table->SetName(entry->name);
  }
  return BuildOnlineSQLGetPrimaryKeys(&tables, c.is_ius);
}

TEST(CatalogQueries, AreAsExpectedCharacterForCharacter) {
  test::ExpectQueryTexts(
      "informix/catalog_queries.txt", 300,
      {{"owner_names",
        OneText([](const QueryCase& c) { return BuildOwnerNameQuery(c.choices, c.server); })},
       {"names",
        OneText([](const QueryCase& c) { return BuildTableViewNameQuery(c.choices, c.server); })},
       {"synonym_names",
        OneText([](const QueryCase& c) { return BuildSynonymNameQuery(c.choices, c.server); })},
       {"column_text", OneText([](const QueryCase& c) {
          return BuildTableColumnQuery(c.choices, c.server, c.is_ius);
        })},
       {"local_synonyms", OneText([](const QueryCase& c) {
          return BuildLocalSynonymQuery(c.choices, c.server, c.is_ius);
        })},
       {"remote_synonym", OneText([](const QueryCase& c) {
          return BuildRemoteSynonymQuery(c.server, RemoteSynonymOf(c), c.is_ius);
        })},
       {"remote_is_ius", OneText([](const QueryCase& c) {
          return BuildRemoteIsIUSQuery(c.remote.server_name, c.remote.database_name);
        })},
       {"column_names",
        OneText([](const QueryCase& c) { return BuildColumnNameQuery(c.choices); })},
       {"primary_keys", OneText(PrimaryKeys)},
       {"foreign_keys",
        OneText([](const QueryCase& c) { return BuildOnlineSQLGetForeignKeys(105, 9, c.is_ius); })},
       {"named_types", OneText([](const QueryCase& c) {
          return BuildSQLGetNamedDataTypes(&c.choices.selected_owners);
        })},
       {"complex_type", OneText([](const QueryCase&) { return BuildSQLGetComplexType(2049); })}});
}

TEST(CatalogQueries, ReadLocalSynonymsOfAllOwnersWhereNoneIsSelected) {
  LcImportChoices choices;
  const std::u16string of_all = BuildLocalSynonymQuery(choices, dbmsInformix, true).value();
  choices.owner_restriction = u"sales";
  EXPECT_EQ(BuildLocalSynonymQueries(choices, dbmsInformix, true), std::vector{of_all});
}

}  // namespace
}  // namespace odbcimport::informix
