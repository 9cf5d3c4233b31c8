#include "tests/compare/schemas.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "compare/lines.h"

namespace wbtest {

Read::Read(const std::string& file) {
  std::string why;
  EXPECT_TRUE(ReadWorkbookFile(file, workbook, info, why)) << why;
}

Json EmptySchema(const Json& top) {
  Json schema = {{"format", "workbook"},
                 {"version", 1},
                 {"source", {{"dbmsName", "PostgreSQL"}, {"dbmsVersion", 15}, {"route", "exact"}}},
                 {"result", true},
                 {"tables", Json::array()}};
  schema.merge_patch(top);
  return schema;
}

Json Table(const std::string& owner, const std::string& name, const Json& columns) {
  return {{"owner", owner}, {"name", name}, {"type", "table"}, {"columns", columns}};
}

Json Column(const std::string& name, const std::string& type, bool required) {
  return {{"name", name},
          {"dataType", {{"typeName", type}}},
          {"databaseType", type},
          {"required", required}};
}

namespace {

// Both sides of every key, by the positions of their tables.
void SpreadForeignKeys(Json& tables) {
  std::map<std::string, std::size_t> positions;
  const auto name_of = [](const Json& table) {
    return table["owner"].get<std::string>() + "." + table["name"].get<std::string>();
  };
  for (std::size_t i = 0; i < tables.size(); ++i) positions[name_of(tables[i])] = i;
  for (Json& table : tables) table["foreignKeys"] = Json::array();
  for (std::size_t i = 0; i < tables.size(); ++i) {
    const Json keys = tables[i].value("fks", Json::array());
    for (const Json& key : keys) {
      const std::size_t target = positions.at(key["table"].get<std::string>());
      const auto side = [](const Json& columns, std::size_t table) {
        Json list = Json::array();
        for (const Json& column : columns) list.push_back({{"index", table}, {"column", column}});
        return list;
      };
      Json mirror = key;
      mirror["role"] = "mirror";
      mirror["key"] = side(key["columns"], i);
      mirror["foreignKey"] = side(key["targets"], target);
      Json forward = mirror;
      forward["role"] = "forward";
      std::swap(forward["key"], forward["foreignKey"]);
      tables[i]["foreignKeys"].push_back(mirror);
      tables[target]["foreignKeys"].push_back(forward);
    }
  }
}

std::string Path(const wbcompare::Line& line) {
  std::string path;
  for (const std::string& part : {line.owner, line.table, line.name}) {
    if (!part.empty()) path += (path.empty() ? "" : ".") + part;
  }
  return path;
}

std::multiset<std::string> Lines(const wbcompare::Comparison& comparison, bool mirrored) {
  using wbcompare::Action;
  std::multiset<std::string> told;
  wbcompare::Lines lines;
  for (const wbcompare::Change& change : comparison.changes) {
    wbcompare::Line line = lines.Describe(change);
    Action action = change.action;
    std::string name = wbcompare::NameOf(change.object);
    if (mirrored) {
      std::swap(line.from, line.to);
      if (!line.new_table.empty()) {
        std::swap(line.owner, line.new_owner);
        std::swap(line.table, line.new_table);
      }
      if (!line.new_name.empty()) std::swap(line.name, line.new_name);
      if (action == Action::kAdded || action == Action::kRemoved) {
        action = action == Action::kAdded ? Action::kRemoved : Action::kAdded;
      }
    }
    std::string text = std::string(wbcompare::NameOf(action)) + " " + name + " " + Path(line);
    if (action == Action::kChanged) {
      text += " " + line.property + ": " + line.from.value_or("none") + " -> " +
              line.to.value_or("none");
    } else if (action == Action::kRenamed) {
      line.owner = line.new_owner;
      line.table = line.new_table;
      line.name = line.new_name;
      text += " -> " + Path(line) + (change.guess ? " (guess)" : "");
    }
    told.insert(text);
  }
  return told;
}

}  // namespace

std::unique_ptr<Read> ReadSchema(const Json& schema, std::mt19937& random) {
  Json file = schema;
  std::shuffle(file["tables"].begin(), file["tables"].end(), random);
  SpreadForeignKeys(file["tables"]);
  return std::make_unique<Read>(file.dump());
}

std::unique_ptr<Read> ReadSchema(const Json& schema) {
  Json file = schema;
  SpreadForeignKeys(file["tables"]);
  return std::make_unique<Read>(file.dump());
}

std::multiset<std::string> Tell(const wbcompare::Comparison& comparison) {
  return Lines(comparison, false);
}
std::multiset<std::string> Mirrored(const wbcompare::Comparison& comparison) {
  return Lines(comparison, true);
}

std::multiset<std::string> Differences(const Json& before, const Json& after,
                                       const wbcompare::Options& options) {
  const auto old_side = ReadSchema(before);
  const auto new_side = ReadSchema(after);
  wbcompare::Comparison comparison;
  std::string why;
  EXPECT_TRUE(wbcompare::Compare(old_side->side(), new_side->side(), options, comparison, why))
      << why;
  return Tell(comparison);
}

}  // namespace wbtest
