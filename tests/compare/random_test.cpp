// Random schemas and random edits: exactly the edits are found, whatever the order of the tables;
// a schema does not differ from itself; and a comparison the other way round is the mirror of it.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <functional>

#include "tests/compare/schemas.h"

namespace wbtest {
namespace {

using Lines = std::multiset<std::string>;

class Schemas {
 public:
  explicit Schemas(unsigned seed) : random_(seed) {}
  std::mt19937& random() { return random_; }

  std::size_t Below(std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(random_);
  }
  bool OneIn(std::size_t count) { return Below(count) == 0; }
  std::string Fresh(const char* prefix) { return fmt::format("{}{}", prefix, ++number_); }
  template <class List>
  auto& OneOf(List& list) {
    return list[Below(list.size())];
  }
  std::string Type() {
    static const std::vector<std::string> types = {
        "integer", "bigint",  "character varying(40)",   "text", "numeric(10,2)",
        "date",    "boolean", "timestamp with time zone"};
    return types[Below(types.size())];
  }
  // A type that there is only once.
  std::string OwnType() { return fmt::format("numeric({},3)", 12 + ++number_); }

  Json MakeColumn() {
    Json column = Column(Fresh("c"), Type(), OneIn(2));
    if (OneIn(3)) column["default"] = Fresh("'d") + "'";
    if (OneIn(4)) column["comment"] = Fresh("about ");
    if (OneIn(6)) column["collation"] = "de_DE";
    if (OneIn(8)) column["identity"] = "by default";
    return column;
  }
  Json MakeIndex(const Json& table) {
    return {{"name", Fresh("ix")},
            {"unique", false},
            {"method", "btree"},
            {"columns", {{{"column", OneColumn(table)}, {"descending", OneIn(2)}}}}};
  }
  Json MakeKey(const Json& table) {
    return {{"name", Fresh("uq")}, {"kind", "unique"}, {"columns", {OneColumn(table)}}};
  }
  Json MakeCheck(const Json&) { return {{"name", Fresh("ck")}, {"expression", Fresh("x > ")}}; }
  Json MakeTrigger(const Json&) {
    return {
        {"name", Fresh("tr")}, {"timing", "before"}, {"events", "insert"}, {"text", Fresh("f")}};
  }
  std::string OneColumn(const Json& table) {
    return table["columns"][Below(table["columns"].size())]["name"];
  }

  Json MakeTable(const std::string& owner) {
    Json table = Table(owner, Fresh("t"));
    const std::size_t count = 2 + Below(9);
    for (std::size_t i = 0; i < count; ++i) table["columns"].push_back(MakeColumn());
    table["kind"] = "table";
    if (OneIn(6)) {
      table["type"] = table["kind"] = "view";
      table["viewText"] = Fresh("SELECT ");
      return table;
    }
    if (OneIn(3)) table["comment"] = Fresh("table ");
    if (!OneIn(5)) {
      const std::string key = table["columns"][0]["name"];
      table["primaryKey"] = {key};
      table["key"] = {{"name", Fresh("pk")}, {"kind", "primary"}, {"columns", {key}}};
    }
    Fill(table, "indexes", [&] { return MakeIndex(table); });
    Fill(table, "uniqueKeys", [&] { return MakeKey(table); });
    Fill(table, "checks", [&] { return MakeCheck(table); });
    Fill(table, "triggers", [&] { return MakeTrigger(table); });
    return table;
  }
  Json MakeForeignKey(const Json& table, const Json& target) {
    return {{"name", Fresh("fk")},
            {"columns", {OneColumn(table)}},
            {"table", target["owner"].get<std::string>() + "." + target["name"].get<std::string>()},
            {"targets", {OneColumn(target)}},
            {"onDelete", OneIn(2) ? "cascade" : "no action"}};
  }
  Json MakeSchema() {
    Json schema = EmptySchema();
    const std::size_t count = 12 + Below(20);
    for (std::size_t i = 0; i < count; ++i) {
      schema["tables"].push_back(MakeTable(OneIn(3) ? "hr" : "sales"));
    }
    for (Json& table : schema["tables"]) {
      if (IsTable(table) && OneIn(2)) {
        table["fks"] = {MakeForeignKey(table, OneOf(schema["tables"]))};
      }
    }
    schema["schemas"] = {{{"name", "hr"}}, {{"name", "sales"}, {"comment", "what we sell"}}};
    for (int i = 0; i < 3; ++i) {
      schema["types"].push_back({{"schema", "hr"},
                                 {"name", Fresh("mood")},
                                 {"kind", "enum"},
                                 {"labels", {"glad", "sad"}}});
      schema["sequences"].push_back(
          {{"schema", "hr"}, {"name", Fresh("seq")}, {"start", "1"}, {"increment", "1"}});
      schema["routines"].push_back({{"schema", "hr"},
                                    {"name", "f"},
                                    {"kind", "function"},
                                    {"parameters", {{{"name", "a"}, {"type", Fresh("typ")}}}},
                                    {"result", "integer"},
                                    {"text", Fresh("return ")}});
    }
    return schema;
  }
  static bool IsTable(const Json& table) { return table["type"] == "table"; }

 private:
  template <class Make>
  void Fill(Json& table, const char* list, Make make) {
    table[list] = Json::array();
    while (OneIn(2)) table[list].push_back(make());
  }

  std::mt19937 random_;
  int number_ = 0;
};

// Edits of a schema, each with the line that tells it. An edit takes what no other edit has taken.
class Editor {
 public:
  Editor(Schemas& schemas, Json& schema) : schemas_(schemas), schema_(schema) {}
  Lines expected;

  // False where nothing is there to be edited like that.
  bool EditSomething() {
    static const std::vector<bool (Editor::*)()> edits = {
        &Editor::AddTable,         &Editor::RemoveTable,      &Editor::ChangeTable,
        &Editor::AddColumn,        &Editor::RemoveColumn,     &Editor::ChangeColumn,
        &Editor::ChangeColumn,     &Editor::ChangeColumn,     &Editor::MoveColumn,
        &Editor::AddMember,        &Editor::RemoveMember,     &Editor::ChangeMember,
        &Editor::ChangeMember,     &Editor::ChangeKey,        &Editor::AddForeignKey,
        &Editor::RemoveForeignKey, &Editor::ChangeForeignKey, &Editor::EditTop};
    return (this->*edits[schemas_.Below(edits.size())])();
  }

 private:
  static std::string NameOf(const Json& table) {
    return table["owner"].get<std::string>() + "." + table["name"].get<std::string>();
  }
  static std::string Spoken(const Json& value) {
    return value.is_null() ? "none" : value.get<std::string>();
  }
  bool Take(const std::string& what) { return taken_.insert(what).second; }
  void Expect(const std::string& line) { expected.insert(line); }
  Json& OneTable() { return schemas_.OneOf(schema_["tables"]); }

  // What other tables or members of the table need.
  bool IsUsed(const std::string& table, const std::string& column = "") {
    for (const Json& other : schema_["tables"]) {
      for (const Json& key : other.value("fks", Json::array())) {
        if (key["table"] == table && (column.empty() || key["targets"][0] == column)) return true;
        if (NameOf(other) == table && key["columns"][0] == column) return true;
      }
      if (NameOf(other) != table || column.empty()) continue;
      for (const char* list : {"indexes", "uniqueKeys"}) {
        if (other.contains(list) &&
            other[list].dump().find('"' + column + '"') != std::string::npos)
          return true;
      }
      if (other.contains("key") && other["key"]["columns"][0] == column) return true;
    }
    return false;
  }

  bool AddTable() {
    Json table = schemas_.MakeTable("hr");
    const std::string name = NameOf(table);
    taken_.insert("table " + name);
    Expect(std::string("added ") + table["type"].get<std::string>() + " " + name);
    added_.insert(name);
    schema_["tables"].push_back(std::move(table));
    return true;
  }
  bool RemoveTable() {
    const std::size_t at = schemas_.Below(schema_["tables"].size());
    const Json& table = schema_["tables"][at];
    const std::string name = NameOf(table);
    if (IsUsed(name) || touched_.count(name) != 0 || !Take("table " + name)) return false;
    Expect(std::string("removed ") + table["type"].get<std::string>() + " " + name);
    schema_["tables"].erase(at);
    return true;
  }
  // A table to edit: one that stays and was there before.
  Json* TableToEdit(const std::string& what) {
    Json& table = OneTable();
    const std::string name = NameOf(table);
    if (added_.count(name) != 0 || !Take(name + "/" + what)) return nullptr;
    touched_.insert(name);
    return &table;
  }
  bool ChangeTable() {
    Json* table = TableToEdit("table");
    if (table == nullptr) return false;
    const bool view = !Schemas::IsTable(*table);
    const std::string member = view ? "viewText" : "comment";
    const std::string from = Spoken((*table)[member]);
    (*table)[member] = schemas_.Fresh("new ");
    Expect(fmt::format("changed {} {} {}: {} -> {}", view ? "view" : "table", NameOf(*table),
                       view ? "text" : "comment", from, Spoken((*table)[member])));
    return true;
  }

  bool AddColumn() {
    Json* table = TableToEdit("add column");
    if (table == nullptr) return false;
    Json column = schemas_.MakeColumn();
    column["databaseType"] = schemas_.OwnType();
    Expect("added column " + NameOf(*table) + "." + column["name"].get<std::string>());
    taken_.insert(NameOf(*table) + "/" + column["name"].get<std::string>());
    Json& columns = (*table)["columns"];
    columns.insert(columns.begin() + static_cast<long>(schemas_.Below(columns.size() + 1)), column);
    return true;
  }
  bool RemoveColumn() {
    Json& table = OneTable();
    const std::size_t at = schemas_.Below(table["columns"].size());
    const std::string column = table["columns"][at]["name"];
    if (table["columns"].size() < 2 || IsUsed(NameOf(table), column)) return false;
    if (added_.count(NameOf(table)) != 0 || !Take(NameOf(table) + "/" + column)) return false;
    touched_.insert(NameOf(table));
    Expect("removed column " + NameOf(table) + "." + column);
    table["columns"].erase(at);
    return true;
  }
  bool ChangeColumn() {
    struct Part {
      const char* name;
      const char* property;
      std::vector<std::string> values;  // empty: a fresh one
    };
    static const std::vector<Part> members = {
        {"databaseType", "data-type", {}},    {"default", "default", {}},
        {"comment", "comment", {}},           {"collation", "collation", {"C", "sv_SE"}},
        {"identity", "identity", {"always"}}, {"required", "nullable", {}}};
    const Part& member = members[schemas_.Below(members.size())];
    Json& table = OneTable();
    Json& column = schemas_.OneOf(table["columns"]);
    const std::string name = column["name"];
    if (added_.count(NameOf(table)) != 0 || !Take(NameOf(table) + "/" + name)) return false;
    touched_.insert(NameOf(table));
    std::string from = "null";
    std::string to = "not null";
    if (member.property == std::string("nullable")) {
      if (column["required"]) std::swap(from, to);
      column["required"] = !column["required"].get<bool>();
    } else {
      from = Spoken(column[member.name]);
      to = member.values.empty() ? member.property == std::string("data-type")
                                       ? schemas_.OwnType()
                                       : schemas_.Fresh("'v")
                                 : member.values[schemas_.Below(member.values.size())];
      if (from != "none" && schemas_.OneIn(3) && member.property != std::string("data-type")) {
        to = "none";
        column.erase(member.name);
      } else {
        column[member.name] = to;
      }
    }
    Expect(fmt::format("changed column {}.{} {}: {} -> {}", NameOf(table), name, member.property,
                       from, to));
    return true;
  }
  // To the front or to the end, of a table in which no column comes or goes.
  bool MoveColumn() {
    Json* table = TableToEdit("add column");
    if (table == nullptr || (*table)["columns"].size() < 3) return false;
    for (const Json& column : (*table)["columns"]) {
      if (!Take(NameOf(*table) + "/" + column["name"].get<std::string>())) return false;
    }
    Json& columns = (*table)["columns"];
    const Json column = columns[1];
    const std::string first = columns[0]["name"];
    const std::string last = columns.back()["name"];
    columns.erase(1);
    columns.push_back(column);
    // Of three columns, the last one may as well have moved to the middle.
    Expect(columns.size() == 3
               ? "moved in " + NameOf(*table)
               : fmt::format("changed column {}.{} place: after {} -> after {}", NameOf(*table),
                             column["name"].get<std::string>(), first, last));
    return true;
  }

  struct Member {
    const char* list;
    const char* object;
    Json (Schemas::*make)(const Json&);
    const char* member;  // that can be changed
    const char* property;
  };
  const Member& OneMember() {
    static const std::vector<Member> members = {
        {"indexes", "index", &Schemas::MakeIndex, "predicate", "predicate"},
        {"indexes", "index", &Schemas::MakeIndex, "method", "method"},
        {"uniqueKeys", "unique-key", &Schemas::MakeKey, "comment", "comment"},
        {"checks", "check", &Schemas::MakeCheck, "expression", "expression"},
        {"triggers", "trigger", &Schemas::MakeTrigger, "events", "events"},
        {"triggers", "trigger", &Schemas::MakeTrigger, "text", "text"}};
    return members[schemas_.Below(members.size())];
  }
  bool AddMember() {
    const Member& member = OneMember();
    Json* table = TableToEdit("add " + std::string(member.list) + schemas_.Fresh("#"));
    if (table == nullptr || !Schemas::IsTable(*table)) return false;
    Json made = (schemas_.*member.make)(*table);
    const std::string name = made["name"];
    taken_.insert(NameOf(*table) + "/" + name);
    // Its columns have to stay, and may not be as new as it is.
    for (const Json& column : (*table)["columns"]) {
      const std::string used = column["name"];
      if (made.dump().find('"' + used + '"') != std::string::npos &&
          !Take(NameOf(*table) + "/" + used)) {
        return false;
      }
    }
    if (IsAlike((*table)[member.list], made)) return false;
    Expect(fmt::format("added {} {}.{}", member.object, NameOf(*table), name));
    (*table)[member.list].push_back(std::move(made));
    return true;
  }
  // Another of the same columns could as well be the one that changed its name.
  static bool IsAlike(const Json& list, const Json& made) {
    for (const Json& other : list) {
      if (made.contains("columns") && other["columns"] == made["columns"]) return true;
    }
    return false;
  }
  Json* TakeMember(const Member& member, Json*& table, std::size_t& at) {
    table = &OneTable();
    if (added_.count(NameOf(*table)) != 0 || !table->contains(member.list)) return nullptr;
    Json& list = (*table)[member.list];
    if (list.empty()) return nullptr;
    at = schemas_.Below(list.size());
    if (!Take(NameOf(*table) + "/" + list[at]["name"].get<std::string>())) return nullptr;
    touched_.insert(NameOf(*table));
    return &list[at];
  }
  bool RemoveMember() {
    const Member& member = OneMember();
    Json* table = nullptr;
    std::size_t at = 0;
    const Json* found = TakeMember(member, table, at);
    if (found == nullptr) return false;
    Expect(fmt::format("removed {} {}.{}", member.object, NameOf(*table),
                       (*found)["name"].get<std::string>()));
    (*table)[member.list].erase(at);
    return true;
  }
  bool ChangeMember() {
    const Member& member = OneMember();
    Json* table = nullptr;
    std::size_t at = 0;
    Json* found = TakeMember(member, table, at);
    if (found == nullptr) return false;
    const std::string from = Spoken((*found)[member.member]);
    (*found)[member.member] = schemas_.Fresh("other");
    Expect(fmt::format("changed {} {}.{} {}: {} -> {}", member.object, NameOf(*table),
                       (*found)["name"].get<std::string>(), member.property, from,
                       Spoken((*found)[member.member])));
    return true;
  }
  bool ChangeKey() {
    Json* table = TableToEdit("key");
    if (table == nullptr || !Schemas::IsTable(*table)) return false;
    const std::string name = NameOf(*table);
    if (table->contains("key")) {
      Expect("removed primary-key " + name + "." + (*table)["key"]["name"].get<std::string>());
      table->erase("key");
      (*table)["primaryKey"] = Json::array();
      return true;
    }
    const std::string column = schemas_.OneColumn(*table);
    if (!Take(name + "/" + column)) return false;
    (*table)["key"] = {{"name", schemas_.Fresh("pk")}, {"kind", "primary"}, {"columns", {column}}};
    (*table)["primaryKey"] = {column};
    Expect("added primary-key " + name + "." + (*table)["key"]["name"].get<std::string>());
    return true;
  }

  bool AddForeignKey() {
    Json* table = TableToEdit("foreign key");
    Json& target = OneTable();
    if (table == nullptr || !Schemas::IsTable(*table) || table->contains("fks")) return false;
    if (!Take("table " + NameOf(target))) return false;
    Json key = schemas_.MakeForeignKey(*table, target);
    if (!Take(NameOf(*table) + "/" + key["columns"][0].get<std::string>()) ||
        !Take(NameOf(target) + "/" + key["targets"][0].get<std::string>())) {
      return false;
    }
    Expect("added foreign-key " + NameOf(*table) + "." + key["name"].get<std::string>());
    (*table)["fks"] = {key};
    return true;
  }
  bool RemoveForeignKey() {
    Json* table = TableToEdit("foreign key");
    if (table == nullptr || !table->contains("fks")) return false;
    Expect("removed foreign-key " + NameOf(*table) + "." +
           (*table)["fks"][0]["name"].get<std::string>());
    table->erase("fks");
    return true;
  }
  bool ChangeForeignKey() {
    Json* table = TableToEdit("foreign key");
    if (table == nullptr || !table->contains("fks")) return false;
    Json& key = (*table)["fks"][0];
    const std::string from = key["onDelete"];
    key["onDelete"] = "set null";
    Expect(fmt::format("changed foreign-key {}.{} on-delete: {} -> set null", NameOf(*table),
                       key["name"].get<std::string>(), from));
    return true;
  }

  // What stands beside the tables: added, removed or changed.
  bool EditTop() {
    struct Top {
      const char* list;
      const char* object;
      Json like;
      const char* member;
      const char* property;
    };
    static const std::vector<Top> tops = {
        {"sequences", "sequence", {{"schema", "hr"}, {"start", "7"}}, "increment", "increment"},
        {"types",
         "type",
         {{"schema", "hr"}, {"kind", "range"}, {"baseType", "date"}},
         "comment",
         "comment"},
        {"routines", "routine", {{"schema", "hr"}, {"kind", "procedure"}}, "text", "text"}};
    const Top& top = tops[schemas_.Below(tops.size())];
    Json& list = schema_[top.list];
    if (schemas_.OneIn(3)) {
      Json made = top.like;
      made["name"] = schemas_.Fresh("top");
      taken_.insert(made["name"].get<std::string>());
      Expect(fmt::format("added {} hr.{}{}", top.object, made["name"].get<std::string>(),
                         top.list == std::string("routines") ? "()" : ""));
      list.push_back(made);
      return true;
    }
    if (list.empty()) return false;
    const std::size_t at = schemas_.Below(list.size());
    std::string name = list[at]["name"];
    if (top.list == std::string("routines")) {
      const Json parameters = list[at].value("parameters", Json::array());
      name += "(" + (parameters.empty() ? "" : parameters[0]["type"].get<std::string>()) + ")";
    }
    if (!Take(name) || taken_.count(list[at]["name"].get<std::string>() + "()")) return false;
    if (schemas_.OneIn(2)) {
      Expect(fmt::format("removed {} hr.{}", top.object, name));
      list.erase(at);
      return true;
    }
    const std::string from = Spoken(list[at][top.member]);
    list[at][top.member] = schemas_.Fresh("");
    Expect(fmt::format("changed {} hr.{} {}: {} -> {}", top.object, name, top.property, from,
                       Spoken(list[at][top.member])));
    return true;
  }

  Schemas& schemas_;
  Json& schema_;
  std::set<std::string> taken_;
  std::set<std::string> added_;    // tables
  std::set<std::string> touched_;  // tables that have to stay
};

wbcompare::Comparison CompareOrFail(const Read& before, const Read& after, bool guess) {
  wbcompare::Options options;
  options.guess_renames = guess;
  wbcompare::Comparison comparison;
  std::string why;
  EXPECT_TRUE(wbcompare::Compare(before.side(), after.side(), options, comparison, why)) << why;
  EXPECT_TRUE(comparison.unknown.empty());
  return comparison;
}

// Of three columns in another order, either of two may be the one that moved.
Lines WithoutAmbiguity(const Lines& lines, const Lines& expected) {
  Lines plain;
  for (const std::string& line : lines) {
    const std::size_t place = line.find(" place: ");
    std::string table = line.substr(std::string("changed column ").size(), place);
    table = table.substr(0, table.rfind('.', table.find(' ')));
    const std::string moved = "moved in " + table;
    plain.insert(place != std::string::npos && expected.count(moved) != 0 ? moved : line);
  }
  return plain;
}

TEST(RandomSchemas, ShowExactlyTheEditsThatWereMade) {
  std::size_t edits = 0;
  for (unsigned seed = 0; seed < 40; ++seed) {
    Schemas schemas(seed);
    const Json before = schemas.MakeSchema();
    Json after = before;
    Editor editor(schemas, after);
    const std::size_t wanted = 1 + schemas.Below(12);
    for (std::size_t tried = 0; editor.expected.size() < wanted && tried < 200; ++tried) {
      editor.EditSomething();
    }
    const auto old_side = ReadSchema(before, schemas.random());
    const auto new_side = ReadSchema(after, schemas.random());
    const Lines found = Tell(CompareOrFail(*old_side, *new_side, false));
    ASSERT_EQ(WithoutAmbiguity(found, editor.expected), editor.expected) << "seed " << seed;
    edits += editor.expected.size();
  }
  EXPECT_GT(edits, 200u);
}

TEST(RandomSchemas, DoNotDifferFromThemselvesInAnyOrder) {
  for (unsigned seed = 0; seed < 12; ++seed) {
    Schemas schemas(seed);
    const Json schema = schemas.MakeSchema();
    const auto before = ReadSchema(schema, schemas.random());
    const auto after = ReadSchema(schema, schemas.random());
    ASSERT_EQ(Tell(CompareOrFail(*before, *after, true)), Lines()) << "seed " << seed;
  }
}

// Names are taken from one schema's things for another's, so that there is much to guess at.
TEST(RandomSchemas, DifferTheSameWayInTheMirror) {
  std::size_t guesses = 0;
  for (unsigned seed = 0; seed < 30; ++seed) {
    Schemas schemas(seed);
    const Json before = schemas.MakeSchema();
    Json after = before;
    Editor editor(schemas, after);
    for (int i = 0; i < 10; ++i) editor.EditSomething();
    const std::string text = after.dump();
    for (Json& table : after["tables"]) {
      auto& columns = table["columns"];
      if (schemas.OneIn(4)) std::shuffle(columns.begin(), columns.end(), schemas.random());
      Json& name = columns[columns.size() / 2]["name"];
      const bool used = text.find(name.dump()) != text.rfind(name.dump());
      if (!used && schemas.OneIn(3)) name = name.get<std::string>() + "_new";
    }
    const auto old_side = ReadSchema(before, schemas.random());
    const auto new_side = ReadSchema(after, schemas.random());
    const wbcompare::Comparison there = CompareOrFail(*old_side, *new_side, true);
    const wbcompare::Comparison back = CompareOrFail(*new_side, *old_side, true);
    ASSERT_EQ(Tell(there), Mirrored(back)) << "seed " << seed;
    for (const wbcompare::Change& change : there.changes) guesses += change.guess ? 1 : 0;
  }
  EXPECT_GT(guesses, 10u);
}

}  // namespace
}  // namespace wbtest
