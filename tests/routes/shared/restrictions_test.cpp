// The restrictions to selected owners, tables and views, text by text.
#include "routes/shared/restrictions.h"

#include <gtest/gtest.h>

#include <sstream>
#include <vector>

#include "base/utf.h"

namespace {

using odbcimport::AddSpecificOnes;
using odbcimport::AddSpecificTablesAndViews;

// Words of a text; "-" stands for an empty entry.
std::vector<std::u16string> Words(const char* text) {
  std::istringstream in(text);
  std::vector<std::u16string> words;
  for (std::string word; in >> word;) words.push_back(base::ToUtf16(word));
  return words;
}

// Owners as "NAME ...", tables as "OWNER.NAME ..." with an empty owner where there is none; behind
// the name an "@" marks a synonym.
LcImportChoices Choose(const char* owners, const char* tables) {
  LcImportChoices choices;
  for (const std::u16string& name : Words(owners)) {
    LcOwnerInfo* owner =
        choices.selected_owners.Append(name != u"-" ? std::make_unique<LcOwnerInfo>() : nullptr);
    if (owner != nullptr) owner->name = name;
  }
  for (const std::u16string& text : Words(tables)) {
    LcTableInfo* table =
        choices.selected_tables.Append(text != u"-" ? std::make_unique<LcTableInfo>() : nullptr);
    if (table == nullptr) continue;
    table->owner = text.substr(0, text.find(u'.'));
    table->name = text.substr(text.find(u'.') + 1);
    if (table->name.back() == u'@') table->type = ttSynonym;
  }
  return choices;
}

TEST(AddSpecificOnes, AppendsTheFragmentsOfEveryServer) {
  const struct {
    int type;
    const char *owners, *tables;
    const char16_t* view;
    bool where_open;
    const char* text;  // UTF-8
  } cases[] = {
      {1, "joe", "o.t .s", nullptr, false,
       " WHERE (T.OWNER='joe' OR (T.OWNER='o' AND T.TABNAME='t') OR (T.TABNAME='s'))"},
      {1, "informix joe", "", nullptr, false, " WHERE (T.OWNER='informix' OR T.OWNER='joe')"},
      {5, "", "ADM.ORDERS", nullptr, true, " AND ((T.TABSCHEMA='ADM' AND T.TABNAME='ORDERS'))"},
      {4, "", ".V1", u"ALL_VIEWS", false, " WHERE ((T.VIEW_NAME='V1'))"},
      {4, "A", "O.N", nullptr, true, " AND (T.OWNER='A' OR (T.OWNER='O' AND T.OBJECT_NAME='N'))"},
      {4, "", ".N", u"ALL_CATALOG", true, " AND ((T.TABLE_NAME='N'))"},
      {4, "", ".N", u"ALL_TABLES", true, " AND ((T.TABLE_NAME='N'))"},
      {4, "", "O.N", u"ALL_SYNONYMS", true, " AND ((T.OWNER='O' AND N'))"},
      {8, "a", "o.n", nullptr, false, " WHERE (T.CREATOR='a' OR (T.CREATOR='o' AND T.NAME='n'))"},
      {2, "dbo", "dbo.t", nullptr, true, " AND (Tdbo' OR (U.name='dbo' AND T.name='t'))"},
      {3, "dbo", "", nullptr, false, " WHERE (Tdbo')"},
      {7, "a", "o.n", nullptr, false, " WHERE (Ta' OR (o' AND n'))"},
      {1, "", "o'x.d\"y", nullptr, true, " AND ((T.OWNER='o'x' AND T.TABNAME='d\"y'))"},
      // An empty entry ends its list.
      {1, "a - b", ".t - .u", nullptr, false, " WHERE (T.OWNER='a' OR (T.TABNAME='t'))"},
      {1, "-", ".t", nullptr, false, " WHERE ((T.TABNAME='t'))"},
      {1, "-", ".t", nullptr, true, " AND ( OR (T.TABNAME='t'))"},
      {1, "", "", nullptr, true, ""},
  };
  for (const auto& test : cases) {
    std::u16string sql = u"q";
    AddSpecificOnes(Choose(test.owners, test.tables), sql, test.type, test.view, test.where_open);
    EXPECT_EQ(base::ToUtf8(sql), std::string("q") + test.text);
  }
}

TEST(AddSpecificTablesAndViews, AppendsASliceOfTheSelection) {
  const char* const four = "a.t0 .t1 b.s2@ c.t3";
  const struct {
    int type;
    const char* tables;
    const char16_t* view;
    int first, last;
    const char* text;
  } cases[] = {
      {1, four, nullptr, -1, -1,
       " AND ((T.OWNER='a' AND T.TABNAME='t0') OR (T.TABNAME='t1') OR (T.OWNER='c' AND "
       "T.TABNAME='t3'))"},
      {5, four, nullptr, 0, 0, " AND ((T.TABSCHEMA='a' AND T.TABNAME='t0'))"},
      {8, four, nullptr, 1, 2, " AND ((T.NAME='t1'))"},
      // A slice that begins with a synonym.
      {1, four, nullptr, 2, 3, " AND ( OR (T.OWNER='c' AND T.TABNAME='t3'))"},
      {4, four, nullptr, 1, 1, " AND ((T.OBJECT_NAME='t1'))"},
      {4, four, u"other", 1, 1, " AND ((Tt1'))"},
      {2, four, nullptr, 0, 1, " AND ((Ta' AND Tt0') OR (Tt1'))"},
      {1, four, nullptr, 4, 9, " AND ()"},
      {1, ".t0 - .t2", nullptr, -1, -1, " AND ((T.TABNAME='t0'))"},
      {1, "- .t1", nullptr, 1, 1, " AND ()"},
      {1, "", nullptr, -1, -1, ""},
  };
  for (const auto& test : cases) {
    std::u16string sql = u"q";
    AddSpecificTablesAndViews(Choose("joe", test.tables), sql, test.type, test.view, test.first,
                              test.last);
    EXPECT_EQ(base::ToUtf8(sql), std::string("q") + test.text);
  }
}

TEST(AnySpecific, CountsOwnersForBothKinds) {
  const LcImportChoices owners = Choose("joe", "");
  EXPECT_TRUE(odbcimport::AnySpecificTablesOrViews(owners));
  EXPECT_TRUE(odbcimport::AnySpecificSynonyms(owners));
  EXPECT_FALSE(odbcimport::AnySpecificSynonyms(Choose("", ".t")));
  LcImportChoices synonyms;
  synonyms.selected_synonyms.Append(std::make_unique<LcTableInfo>());
  EXPECT_FALSE(odbcimport::AnySpecificTablesOrViews(synonyms));
  EXPECT_TRUE(odbcimport::AnySpecificSynonyms(synonyms));
}

}  // namespace
