// What counts as a change, and as which: names that servers make, spellings, severities, renames
// that are guessed and that are asked for, what a side cannot know.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "compare/server_names.h"
#include "compare/spellings.h"
#include "compare/types.h"
#include "tests/compare/schemas.h"

namespace wbtest {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using wbcompare::Comparison;
using wbcompare::Options;
using wbcompare::Property;

// A table with what `more` adds to it.
Json TableWith(const Json& more, const std::string& name = "t") {
  Json table = Table("s", name, {Column("id", "integer", true), Column("a"), Column("b", "text")});
  if (more.is_object()) table.merge_patch(more);
  return table;
}
Json SchemaOf(std::initializer_list<Json> tables, const Json& top = Json::object()) {
  Json schema = EmptySchema(top);
  for (const Json& table : tables) schema["tables"].push_back(table);
  return schema;
}
Json Of(const char* product) { return {{"source", {{"dbmsName", product}, {"route", "exact"}}}}; }

// Two tables that differ in the name of a key, a check or an index alone.
TEST(ServerNames, DoNotCountWhereTheServerMadeBoth) {
  struct Case {
    const char* product;
    const char* member;
    Json before;
    Json after;
    bool counts;
  };
  const auto unique = [](const char* name) {
    return Json{{{"name", name}, {"kind", "unique"}, {"columns", {"a"}}}};
  };
  const auto check = [](const char* name) {
    return Json{{{"name", name}, {"expression", "a > 0"}}};
  };
  const auto index = [](const char* name) {
    return Json{{{"name", name}, {"unique", false}, {"columns", {{{"column", "a"}}}}}};
  };
  const std::vector<Case> cases = {
      {"Oracle", "checks", check("SYS_C0012345"), check("SYS_C0099999"), false},
      {"Oracle", "checks", check("SYS_C0012345"), check("A_POSITIVE"), true},
      {"PostgreSQL", "uniqueKeys", unique("t_a_key"), unique("t_a_key1"), false},
      {"PostgreSQL", "uniqueKeys", unique("t_a_key"), unique("one_a"), true},
      {"PostgreSQL", "uniqueKeys", unique("u_a_key"), unique("v_a_key"), true},
      {"PostgreSQL", "checks", check("t_a_check"), check("t_check"), false},
      {"PostgreSQL", "indexes", index("t_a_idx"), index("t_a_idx2"), false},
      {"PostgreSQL", "indexes", index("t_a_idx"), index("t_b_idx"), true},
      {"MariaDB", "checks", check("CONSTRAINT_1"), check("CONSTRAINT_2"), false},
      {"MariaDB", "checks", check("t_chk_1"), check("other_chk_1"), true},
      {"SQLite", "indexes", index("sqlite_autoindex_t_1"), index("sqlite_autoindex_t_2"), false},
      {"Microsoft SQL Server", "uniqueKeys", unique("UQ__t__3213E83F0AD2A005"),
       unique("UQ__t__72E12F1B9A6F0B3D"), false},
      {"DB2/LINUX", "checks", check("SQL200213095507370"), check("SQL210101101010101"), false},
      {"Informix", "checks", check("c123_45"), check("c99_7"), false},
  };
  for (const Case& each : cases) {
    const Json before = SchemaOf({TableWith({{each.member, each.before}})}, Of(each.product));
    const Json after = SchemaOf({TableWith({{each.member, each.after}})}, Of(each.product));
    EXPECT_EQ(Differences(before, after).size(), each.counts ? 1U : 0U)
        << each.product << each.before << each.after;
    Options all;
    all.server_names = true;
    EXPECT_EQ(Differences(before, after, all).size(), 1U) << each.product << each.before;
  }
}

// Keys that the server numbers are told by what they do, whatever number they have.
TEST(ServerNames, FollowTheKeyAndNotTheNumber) {
  const auto key = [](const char* name, const char* column, const char* action) {
    return Json{{"name", name},
                {"columns", {column}},
                {"table", "s.t"},
                {"targets", {"id"}},
                {"onDelete", action}};
  };
  const Json before = SchemaOf(
      {TableWith({{"fks", {key("t_ibfk_1", "a", "cascade"), key("t_ibfk_2", "b", "cascade")}}})},
      Of("MariaDB"));
  const Json after =
      SchemaOf({TableWith({{"fks", {key("t_ibfk_1", "b", "set null")}}})}, Of("MariaDB"));
  EXPECT_THAT(Differences(before, after),
              ElementsAre("changed foreign-key s.t.t_ibfk_2 on-delete: cascade -> set null",
                          "removed foreign-key s.t.t_ibfk_1"));
}

TEST(Spellings, AreOneThing) {
  using wbcompare::AreSpellingsOfOne;
  using wbcompare::Fact;
  using wbcompare::Object;
  using wbcompare::Product;
  struct Case {
    Product product;
    Object object;
    Property property;
    Fact a;
    Fact b;
    bool one = true;
  };
  const Fact none;
  const std::vector<Case> cases = {
      {Product::kOther, Object::kTrigger, Property::kText, "a \r\nb\r\n", "a\nb"},
      {Product::kOther, Object::kTrigger, Property::kText, "a  b", "a b", false},
      {Product::kOther, Object::kForeignKey, Property::kOnDelete, none, "no action"},
      {Product::kOther, Object::kForeignKey, Property::kOnDelete, none, "restrict", false},
      {Product::kMySQL, Object::kForeignKey, Property::kOnDelete, "restrict", "no action"},
      {Product::kOther, Object::kForeignKey, Property::kMatch, none, "simple"},
      {Product::kMySQL, Object::kColumn, Property::kDataType, "int(11) unsigned", "int unsigned"},
      {Product::kMySQL, Object::kColumn, Property::kDataType, "tinyint(1)", "tinyint", false},
      {Product::kMySQL, Object::kColumn, Property::kCollation, "utf8_bin", "utf8mb3_bin"},
      {Product::kMySQL, Object::kColumn, Property::kCollation, "utf8_bin", "utf8mb4_bin", false},
      {Product::kMySQL, Object::kColumn, Property::kDefault, "it's", "'it''s'"},
      {Product::kMySQL, Object::kColumn, Property::kDefault, none, "NULL"},
      {Product::kMySQL, Object::kColumn, Property::kDefault, none, "''", false},
      {Product::kMySQL, Object::kColumn, Property::kDefault, "CURRENT_TIMESTAMP",
       "current_timestamp()"},
      {Product::kPostgreSQL, Object::kView, Property::kText, " SELECT a,\n    b;", "SELECT a, b"},
      {Product::kPostgreSQL, Object::kView, Property::kText, "SELECT 'a  b'", "SELECT 'a b'",
       false},
      {Product::kPostgreSQL, Object::kRoutine, Property::kText, "if x:\n  y", "if x:\ny", false},
      {Product::kPostgreSQL, Object::kColumn, Property::kDefault, "('now'::text)::date",
       "CURRENT_DATE"},
      {Product::kPostgreSQL, Object::kTrigger, Property::kText, "EXECUTE PROCEDURE f()",
       "EXECUTE FUNCTION f()"},
      {Product::kSQLServer, Object::kColumn, Property::kDefault, "((0))", "(0)"},
      {Product::kSQLServer, Object::kColumn, Property::kDefault, "((1)+(2))", "(1)+(2)"},
      {Product::kOracle, Object::kColumn, Property::kDefault, "sysdate \n", "sysdate"},
  };
  for (const Case& each : cases) {
    EXPECT_EQ(AreSpellingsOfOne(each.product, each.object, each.property, each.a, each.b), each.one)
        << each.a.value_or("none") << " and " << each.b.value_or("none");
  }
}

TEST(Severities, TellWhetherProgramsCanBreak) {
  using enum wbcompare::TypeChange;
  struct Case {
    const char* from;
    const char* to;
    wbcompare::TypeChange change;
    wbcompare::TypeChange back;
  };
  for (const Case& each : std::vector<Case>{
           {"character varying(40)", "character varying(60)", kWidened, kNarrowed},
           {"varchar(40)", "text", kWidened, kNarrowed},
           {"character(4)", "varchar(4)", kWidened, kOther},
           {"tinytext", "mediumtext", kWidened, kNarrowed},
           {"smallint", "integer", kWidened, kNarrowed},
           {"int(10) unsigned", "bigint(20)", kWidened, kNarrowed},
           {"int", "int unsigned", kNarrowed, kNarrowed},
           {"numeric(10,2)", "numeric(12,2)", kWidened, kNarrowed},
           {"numeric(10,2)", "numeric(10,4)", kNarrowed, kNarrowed},
           {"numeric(10,2)", "numeric", kWidened, kNarrowed},
           {"integer", "numeric(12,0)", kWidened, kOther},
           {"integer", "numeric(5,0)", kNarrowed, kOther},
           {"bigint", "double precision", kNarrowed, kOther},
           {"real", "double precision", kWidened, kNarrowed},
           {"timestamp(3) without time zone", "timestamp(6) without time zone", kWidened,
            kNarrowed},
           {"timestamp", "timestamp with time zone", kOther, kOther},
           {"enum('a','b')", "enum('a','b','c')", kWidened, kNarrowed},
           {"date", "integer", kOther, kOther},
           {"int4", "integer", kNone, kNone},
           {"uuid", "jsonb", kOther, kOther},
       }) {
    EXPECT_EQ(wbcompare::CompareTypes(each.from, each.to), each.change) << each.from << each.to;
    EXPECT_EQ(wbcompare::CompareTypes(each.to, each.from), each.back) << each.to << each.from;
  }
}

// The severities of what two versions of one table differ in.
std::multiset<std::string> SeveritiesOf(const Json& before, const Json& after) {
  const auto old_side = ReadSchema(SchemaOf({TableWith(before)}));
  const auto new_side = ReadSchema(SchemaOf({TableWith(after)}));
  Comparison comparison;
  std::string why;
  EXPECT_TRUE(wbcompare::Compare(old_side->side(), new_side->side(), {}, comparison, why)) << why;
  std::multiset<std::string> severities;
  for (const wbcompare::Change& change : comparison.changes) {
    severities.insert(std::string(NameOf(change.object)) + " " + NameOf(change.severity));
  }
  return severities;
}

TEST(Severities, AreThoseOfTheObject) {
  const auto columns = [](std::initializer_list<Json> more) {
    Json list = {Column("id", "integer", true), Column("a"), Column("b", "text")};
    for (const Json& column : more) list.push_back(column);
    return Json{{"columns", list}};
  };
  const auto with = [](Json column, const char* member, const char* value) {
    column[member] = value;
    return column;
  };
  const Json required = Column("n", "integer", true);
  struct Case {
    Json before;
    Json after;
    const char* severity;
  };
  const Json index = {
      {"indexes", {{{"name", "i"}, {"unique", false}, {"columns", {{{"column", "a"}}}}}}}};
  Json unique_index = index;
  unique_index["indexes"][0]["unique"] = true;
  for (const Case& each : std::vector<Case>{
           {columns({}), columns({Column("n")}), "column harmless"},
           {columns({}), columns({required}), "column breaking"},
           {columns({}), columns({with(required, "default", "0")}), "column harmless"},
           {columns({}), columns({with(required, "identity", "always")}), "column harmless"},
           {columns({Column("n")}), columns({}), "column breaking"},
           {columns({Column("n")}), columns({required}), "column breaking"},
           {columns({required}), columns({Column("n")}), "column harmless"},
           {columns({Column("n")}), columns({with(Column("n"), "comment", "x")}),
            "column harmless"},
           {columns({Column("n")}), columns({with(Column("n"), "default", "1")}), "column careful"},
           {Json::object(), index, "index careful"},
           {Json::object(), unique_index, "index breaking"},
           {index, unique_index, "index breaking"},
           {index, Json::object(), "index careful"},
           {Json::object(),
            {{"checks", {{{"name", "c"}, {"expression", "a > 0"}}}}},
            "check breaking"},
       }) {
    EXPECT_THAT(SeveritiesOf(each.before, each.after), ElementsAre(each.severity))
        << each.before << each.after;
  }
}

TEST(Columns, TellTheFewestThatMoved) {
  const auto of = [](std::initializer_list<const char*> names) {
    Json columns = Json::array();
    for (const char* name : names) columns.push_back(Column(name));
    return SchemaOf({Table("s", "t", columns)});
  };
  EXPECT_THAT(Differences(of({"a", "b", "c", "d", "e"}), of({"e", "a", "b", "c", "d"})),
              ElementsAre("changed column s.t.e place: after d -> first"));
  // What comes in between moves nothing.
  EXPECT_THAT(Differences(of({"a", "b"}), of({"x1", "a", "x2", "b"})),
              ElementsAre("added column s.t.x1", "added column s.t.x2"));
}

TEST(Renames, AreGuessedWhereEnoughSpeaksForThem) {
  const auto columns = [](std::initializer_list<Json> list) { return Json{{"columns", list}}; };
  const Json id = Column("id", "integer", true);
  // A column in its place; then one of two of which either could be meant.
  EXPECT_THAT(Differences(SchemaOf({TableWith(columns({id, Column("mail", "text")}))}),
                          SchemaOf({TableWith(columns({id, Column("address", "text")}))})),
              ElementsAre("renamed column s.t.mail -> s.t.address (guess)"));
  EXPECT_THAT(Differences(SchemaOf({TableWith(columns({id, Column("mail", "text")}))}),
                          SchemaOf({TableWith(columns({id, Column("at", "date")}))})),
              ElementsAre("added column s.t.at", "removed column s.t.mail"));
  // What refers to a renamed column has not changed, nor have keys, indexes and checks of it.
  const auto with_name = [&](const char* name) {
    return SchemaOf(
        {TableWith(
             {{"columns", {id, Column(name, "text"), Column("z")}},
              {"indexes", {{{"name", "i"}, {"unique", true}, {"columns", {{{"column", name}}}}}}},
              {"checks",
               {{{"name", "c"}, {"expression", std::string("(") + name + " <> 'mail')"}}}}}),
         TableWith({{"fks",
                     {{{"name", "f"}, {"columns", {"b"}}, {"table", "s.t"}, {"targets", {name}}}}}},
                   "u")});
  };
  EXPECT_THAT(Differences(with_name("mail"), with_name("email")),
              ElementsAre("renamed column s.t.mail -> s.t.email (guess)"));
  // A table; a table in another schema; two of a kind.
  EXPECT_THAT(Differences(SchemaOf({TableWith({}, "person"), TableWith({{"comment", "x"}}, "z")}),
                          SchemaOf({TableWith({}, "people"), TableWith({{"comment", "x"}}, "z")})),
              ElementsAre("renamed table s.person -> s.people (guess)"));
  EXPECT_THAT(Differences(SchemaOf({TableWith({{"owner", "old"}}), TableWith({}, "z")}),
                          SchemaOf({TableWith({{"owner", "s"}}), TableWith({}, "z")})),
              ElementsAre("renamed table old.t -> s.t (guess)"));
  EXPECT_THAT(Differences(SchemaOf({TableWith({}, "aaa"), TableWith({}, "bbb")}),
                          SchemaOf({TableWith({}, "ccc"), TableWith({}, "ddd")}))
                  .size(),
              4U);
  // An owner: the same tables under another name.
  const auto owned = [](const char* owner) {
    return SchemaOf({TableWith({{"owner", owner}}, "t"), TableWith({{"owner", owner}}, "u")});
  };
  EXPECT_THAT(Differences(owned("stage"), owned("prod")),
              ElementsAre("renamed owner stage -> prod (guess)"));
}

TEST(Renames, AreCertainWhereAskedFor) {
  const Json before = SchemaOf({TableWith({}, "one"), TableWith({}, "t")});
  const Json after = SchemaOf(
      {TableWith({}, "another thing"),
       TableWith(
           {{"columns", {Column("id", "integer", true), Column("a"), Column("x.y", "date")}}})});
  Options options;
  options.guess_renames = false;
  options.renames = {{"s.one", "another thing"}, {"t.b", "t.\"x.y\""}};
  EXPECT_THAT(
      Differences(before, after, options),
      ElementsAre("changed column s.t.b data-type: text -> date", "renamed column s.t.b -> s.t.x.y",
                  "renamed table s.one -> s.another thing"));
  options.renames = {{"one", "nowhere"}};
  Comparison comparison;
  std::string why;
  EXPECT_FALSE(wbcompare::Compare(ReadSchema(before)->side(), ReadSchema(after)->side(), options,
                                  comparison, why));
  EXPECT_THAT(why, HasSubstr("--rename one=nowhere: no owner, table or column"));
}

TEST(Renames, OfCaseAloneAreHarmlessWhereTheServerIgnoresIt) {
  Json before = SchemaOf({TableWith({})}, {{"source", {{"nameCase", "ignored"}}}});
  Json after = before;
  after["tables"][0]["name"] = "T";
  after["tables"][0]["columns"][1]["name"] = "A";
  EXPECT_THAT(Differences(before, after),
              ElementsAre("renamed column s.t.a -> s.T.A", "renamed table s.t -> s.T"));
}

// One side has something that the other did not read: nothing has changed, and that is said.
TEST(Unknown, IsNeverRemoved) {
  struct Case {
    Json top;   // of the side that does not have it
    Json more;  // that the other side's table has
    const char* reason;
  };
  const Json key = {{"primaryKey", {"id"}},
                    {"key", {{"name", "p"}, {"kind", "primary"}, {"columns", {"id"}}}}};
  const Json check = {{"checks", {{{"name", "c"}, {"expression", "a > 0"}}}}};
  const Json fks = {
      {"fks", {{{"name", "f"}, {"columns", {"a"}}, {"table", "s.t"}, {"targets", {"id"}}}}}};
  const auto choices = [](const Json& chosen) { return Json{{"source", {{"choices", chosen}}}}; };
  const auto not_read = [](const Json& entry) {
    Json reason = entry;
    reason["reason"] = "no right";
    return Json{{"notRead", {reason}}};
  };
  for (const Case& each : std::vector<Case>{
           {{{"incomplete", true}}, check, "the import was cut short"},
           {{{"result", false}}, key, "the import ended with a failure"},
           {not_read({{"kind", "checks"}}), check, "no right"},
           {not_read({{"kind", "checks"}, {"owner", "s"}}), check, "no right"},
           {not_read({{"kind", "constraints"}, {"owner", "s"}, {"name", "t"}}), key, "no right"},
           {not_read({{"kind", "column_defaults"}}),
            {{"columns",
              {Column("id", "integer", true),
               Column("a"),
               {{"name", "b"},
                {"databaseType", "text"},
                {"dataType", {{"typeName", "text"}}},
                {"default", "1"}}}}},
            "no right"},
           {choices({{"keys", false}}), key, "was not asked for"},
           {choices({{"foreignKeys", false}}), fks, "was not asked for"},
       }) {
    const auto without = ReadSchema(SchemaOf({TableWith({})}, each.top));
    const auto with = ReadSchema(SchemaOf({TableWith(each.more)}));
    for (const bool old_side : {true, false}) {
      Comparison comparison;
      std::string why;
      const Read& before = old_side ? *without : *with;
      const Read& after = old_side ? *with : *without;
      ASSERT_TRUE(wbcompare::Compare(before.side(), after.side(), {}, comparison, why)) << why;
      EXPECT_THAT(Tell(comparison), IsEmpty()) << each.top;
      ASSERT_EQ(comparison.unknown.size(), 1U) << each.top << each.more;
      EXPECT_EQ(comparison.unknown[0].reason, each.reason);
      EXPECT_EQ(comparison.unknown[0].old_side, old_side);
    }
  }
  // The same of another owner or table is a change.
  EXPECT_EQ(
      Differences(SchemaOf({TableWith(check)}),
                  SchemaOf({TableWith({})}, not_read({{"kind", "checks"}, {"owner", "other"}})))
          .size(),
      1U);
}

TEST(Unknown, AreTablesOutsideOfASelection) {
  struct Case {
    Json choices;
    bool removed;
  };
  const Json u = {{"owner", "s"}, {"name", "u"}};
  for (const Case& each : std::vector<Case>{
           {{{"selectedTables", {{{"owner", "s"}, {"name", "t"}}}}}, false},
           {{{"selectedTables", {{{"owner", "s"}, {"name", "t"}}, u}}}, true},
           {{{"selectedOwners", {"s"}}}, true},
           {{{"selectedOwners", {"other"}}}, false},
           {{{"ownerRestriction", "other"}}, false},
           {{{"items", {"views"}}}, false},
           {Json::object(), true},
       }) {
    const Json before = SchemaOf({TableWith({}), TableWith({{"comment", "x"}}, "u")});
    const Json after = SchemaOf({TableWith({})}, {{"source", {{"choices", each.choices}}}});
    EXPECT_EQ(Differences(before, after).size(), each.removed ? 1U : 0U) << each.choices;
  }
}

// What the compatible reading cannot know is not compared with what the exact one knows.
TEST(Readings, AreComparedInWhatBothCanKnow) {
  Json exact = SchemaOf({TableWith(
      {{"comment", "x"},
       {"indexes", {{{"name", "i"}, {"unique", true}, {"columns", {{{"column", "a"}}}}}}},
       {"fks",
        {{{"name", "f"},
          {"columns", {"a", "b"}},
          {"table", "s.t"},
          {"targets", {"id", "b"}},
          {"onDelete", "cascade"}}}}})});
  // The same through the catalog functions: a key of two columns as two relationships.
  const auto single = [](const char* column, const char* target) {
    return Json{{"columns", {column}}, {"table", "s.t"}, {"targets", {target}}};
  };
  Json table = TableWith({{"fks", {single("a", "id"), single("b", "b")}}});
  for (Json& column : table["columns"]) column.erase("databaseType");
  table["columns"][1]["dataType"]["typeName"] = "int4";
  Json compatible = SchemaOf({table}, {{"source", {{"route", "odbc"}}}});
  EXPECT_THAT(Differences(exact, compatible), IsEmpty());
  compatible["tables"][0]["columns"][2]["required"] = true;
  compatible["tables"][0]["fks"].erase(0);
  EXPECT_THAT(
      Differences(exact, compatible),
      ElementsAre("changed column s.t.b nullable: null -> not null", "removed foreign-key s.t.f"));
}

TEST(Ignoring, LeavesOutKindsAndNames) {
  const Json before = SchemaOf({TableWith({})});
  Json after =
      SchemaOf({TableWith({{"comment", "x"},
                           {"indexes", {{{"name", "i"}, {"columns", {{{"column", "a"}}}}}}}}),
                TableWith({}, "tmp_1")});
  after["tables"][0]["columns"][1]["comment"] = "y";
  struct Case {
    std::vector<std::string> ignore;
    std::size_t left;
  };
  for (const Case& each : std::vector<Case>{{{}, 4},
                                            {{"comment"}, 2},
                                            {{"column.comment"}, 3},
                                            {{"index", "comment"}, 1},
                                            {{"table.added"}, 3},
                                            {{"table"}, 2}}) {
    Options options;
    options.ignore = each.ignore;
    EXPECT_EQ(Differences(before, after, options).size(), each.left);
    for (const std::string& word : each.ignore) EXPECT_TRUE(wbcompare::IsIgnorable(word));
  }
  for (const char* word : {"", "tables", "column.", "comment.table", "table.nothing"}) {
    EXPECT_FALSE(wbcompare::IsIgnorable(word)) << word;
  }
  Options options;
  options.leaves_out = [](std::u16string_view, std::u16string_view name) {
    return name.substr(0, 4) == u"tmp_";
  };
  options.leaves_out_part = [](std::u16string_view table, std::u16string_view name) {
    return table == u"t" && name == u"a";
  };
  EXPECT_EQ(Differences(before, after, options).size(), 2U);
}

}  // namespace
}  // namespace wbtest
