// The restrictions to selected owners, tables and views, text by text.
#include "importer/restrictions.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

#include "platform/utf8.h"

namespace {

using odbcimport::AddSpecificOnes;
using odbcimport::AddSpecificTablesAndViews;

struct Entry {
  const char16_t* owner;
  const char16_t* name;  // null: an empty entry
  enumTableType type = ttTable;
};

LcImportChoices Choose(const std::vector<const char16_t*>& owners,
                       const std::vector<Entry>& tables) {
  LcImportChoices choices;
  for (const char16_t* name : owners) {
    auto owner = name != nullptr ? std::make_unique<LcOwnerInfo>() : nullptr;
    if (owner != nullptr) owner->name = name;
    choices.selected_owners.Append(std::move(owner));
  }
  for (const Entry& entry : tables) {
    auto table = entry.name != nullptr ? std::make_unique<LcTableInfo>() : nullptr;
    if (table != nullptr) {
      table->owner = entry.owner;
      table->name = entry.name;
      table->type = entry.type;
    }
    choices.selected_tables.Append(std::move(table));
  }
  return choices;
}

TEST(AddSpecificOnes, AppendsTheFragmentsOfEveryServer) {
  const struct {
    int type;
    std::vector<const char16_t*> owners;
    std::vector<Entry> tables;
    const char16_t* view;
    bool where_open;
    const char* text;  // UTF-8
  } cases[] = {
      {1,
       {u"informix", u"joe"},
       {},
       nullptr,
       false,
       " WHERE (T.OWNER='informix' OR T.OWNER='joe')"},
      {1,
       {u"joe"},
       {{u"o", u"t"}, {u"", u"s"}},
       nullptr,
       false,
       " WHERE (T.OWNER='joe' OR (T.OWNER='o' AND T.TABNAME='t') OR (T.TABNAME='s'))"},
      {5,
       {},
       {{u"ADM", u"ORDERS"}},
       nullptr,
       true,
       " AND ((T.TABSCHEMA='ADM' AND T.TABNAME='ORDERS'))"},
      {4, {}, {{u"", u"V1", ttView}}, u"ALL_VIEWS", false, " WHERE ((T.VIEW_NAME='V1'))"},
      {4,
       {u"A"},
       {{u"O", u"N"}},
       nullptr,
       true,
       " AND (T.OWNER='A' OR (T.OWNER='O' AND T.OBJECT_NAME='N'))"},
      {4, {}, {{u"", u"N"}}, u"ALL_CATALOG", true, " AND ((T.TABLE_NAME='N'))"},
      {4, {}, {{u"", u"N"}}, u"ALL_TABLES", true, " AND ((T.TABLE_NAME='N'))"},
      {4, {}, {{u"O", u"N"}}, u"ALL_SYNONYMS", true, " AND ((T.OWNER='O' AND N'))"},
      {8,
       {u"a"},
       {{u"o", u"n"}},
       nullptr,
       false,
       " WHERE (T.CREATOR='a' OR (T.CREATOR='o' AND T.NAME='n'))"},
      {2,
       {u"dbo"},
       {{u"dbo", u"t"}},
       nullptr,
       true,
       " AND (Tdbo' OR (U.name='dbo' AND T.name='t'))"},
      {3, {u"dbo"}, {}, nullptr, false, " WHERE (Tdbo')"},
      {7, {u"a"}, {{u"o", u"n"}}, nullptr, false, " WHERE (Ta' OR (o' AND n'))"},
      {1, {}, {{u"o'x", u"d\"y"}}, nullptr, true, " AND ((T.OWNER='o'x' AND T.TABNAME='d\"y'))"},
      // An empty entry ends its list.
      {1,
       {u"a", nullptr, u"b"},
       {{u"", u"t"}, {u"", nullptr}, {u"", u"u"}},
       nullptr,
       false,
       " WHERE (T.OWNER='a' OR (T.TABNAME='t'))"},
      {1, {nullptr}, {{u"", u"t"}}, nullptr, false, " WHERE ((T.TABNAME='t'))"},
      {1, {nullptr}, {{u"", u"t"}}, nullptr, true, " AND ( OR (T.TABNAME='t'))"},
  };
  for (const auto& test : cases) {
    std::u16string sql = u"q";
    EXPECT_TRUE(AddSpecificOnes(Choose(test.owners, test.tables), sql, test.type, test.view,
                                test.where_open));
    EXPECT_EQ(platform::ToUtf8(sql), std::string("q") + test.text);
  }
  std::u16string sql = u"q";
  EXPECT_FALSE(AddSpecificOnes({}, sql, 1, nullptr, true));
  EXPECT_EQ(sql, u"q");
}

TEST(AddSpecificTablesAndViews, AppendsASliceOfTheSelection) {
  const std::vector<Entry> four = {
      {u"a", u"t0"}, {u"", u"t1", ttView}, {u"b", u"s2", ttSynonym}, {u"c", u"t3"}};
  const struct {
    int type;
    std::vector<Entry> tables;
    const char16_t* view;
    int first, last;
    const char* text;
  } cases[] = {
      {1, four, nullptr, -1, -1,
       " AND ((T.OWNER='a' AND T.TABNAME='t0') OR (T.TABNAME='t1') OR (T.OWNER='c' AND "
       "T.TABNAME='t3'))"},
      {5, four, nullptr, 0, 0, " AND ((T.TABSCHEMA='a' AND T.TABNAME='t0'))"},
      {8, four, nullptr, 1, 2, " AND ((T.NAME='t1'))"},
      {8, four, nullptr, 3, 9, " AND ((T.CREATOR='c' AND T.NAME='t3'))"},
      // A slice that begins with a synonym.
      {1, four, nullptr, 2, 3, " AND ( OR (T.OWNER='c' AND T.TABNAME='t3'))"},
      {4, four, nullptr, 1, 1, " AND ((T.OBJECT_NAME='t1'))"},
      {4, four, u"ALL_VIEWS", 0, 0, " AND ((T.OWNER='a' AND T.VIEW_NAME='t0'))"},
      {4, four, u"ALL_TABLES", 1, 1, " AND ((T.TABLE_NAME='t1'))"},
      {4, four, u"other", 1, 1, " AND ((Tt1'))"},
      {2, four, nullptr, 0, 1, " AND ((Ta' AND Tt0') OR (Tt1'))"},
      {1, four, nullptr, 4, 9, " AND ()"},
      {1, {{u"", u"t0"}, {u"", nullptr}, {u"", u"t2"}}, nullptr, -1, -1, " AND ((T.TABNAME='t0'))"},
      {1, {{u"", nullptr}, {u"", u"t1"}}, nullptr, 1, 1, " AND ()"},
  };
  for (const auto& test : cases) {
    std::u16string sql = u"q";
    EXPECT_TRUE(AddSpecificTablesAndViews(Choose({}, test.tables), sql, test.type, test.view,
                                          test.first, test.last));
    EXPECT_EQ(platform::ToUtf8(sql), std::string("q") + test.text);
  }
  std::u16string sql = u"q";
  EXPECT_FALSE(AddSpecificTablesAndViews(Choose({u"joe"}, {}), sql, 1, nullptr, -1, -1));
  EXPECT_EQ(sql, u"q");
}

TEST(AnySpecific, CountsOwnersForBothKinds) {
  const LcImportChoices owners = Choose({u"joe"}, {});
  EXPECT_TRUE(odbcimport::AnySpecificTablesOrViews(owners));
  EXPECT_TRUE(odbcimport::AnySpecificSynonyms(owners));
  const LcImportChoices tables = Choose({}, {{u"", u"t"}});
  EXPECT_TRUE(odbcimport::AnySpecificTablesOrViews(tables));
  EXPECT_FALSE(odbcimport::AnySpecificSynonyms(tables));
  LcImportChoices synonyms;
  synonyms.selected_synonyms.Append(std::make_unique<LcTableInfo>());
  EXPECT_FALSE(odbcimport::AnySpecificTablesOrViews(synonyms));
  EXPECT_TRUE(odbcimport::AnySpecificSynonyms(synonyms));
}

}  // namespace
