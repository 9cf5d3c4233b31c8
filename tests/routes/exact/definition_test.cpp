// Texts of CREATE statements, against definitions.txt.
#include "routes/exact/definition.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace odbcimport::exact {
namespace {

std::string List(const std::vector<std::string>& names) {
  std::string text = "(";
  for (const std::string& name : names) text += (text.size() > 1 ? ", " : "") + name;
  return text + ")";
}

void Say(std::ostream& out, const char* what, const std::string& value) {
  if (!value.empty()) out << ' ' << what << '<' << value << '>';
}

std::string Describe(const TableDefinition& table) {
  std::ostringstream out;
  if (table.without_rowid) out << "without rowid\n";
  if (table.strict) out << "strict\n";
  if (!table.module.empty()) out << "module <" << table.module << ">\n";
  for (const DefinedColumn& column : table.columns) {
    std::ostringstream facts;
    Say(facts, "collate", column.collation);
    Say(facts, "as", column.expression);
    Say(facts, "not null", column.not_null_name);
    Say(facts, "on null", column.on_null);
    if (column.auto_increment) facts << " auto increment";
    if (column.is_rowid) facts << " rowid";
    if (!facts.str().empty()) out << column.name << ':' << facts.str() << '\n';
  }
  for (const DefinedKey& key : table.keys) {
    out << (key.primary ? "primary <" : "unique <") << key.name << "> " << List(key.columns);
    Say(out, "on conflict", key.on_conflict);
    out << '\n';
  }
  for (const DefinedForeignKey& key : table.foreign_keys) {
    constexpr const char* kDeferrable[] = {"", " deferrable", " deferred"};
    out << "foreign <" << key.name << "> " << List(key.columns) << " -> " << key.target_table
        << List(key.target_columns) << kDeferrable[key.deferrable];
    Say(out, "update", key.on_update);
    Say(out, "delete", key.on_delete);
    out << '\n';
  }
  for (const DefinedCheck& check : table.checks) {
    out << "check <" << check.name << "> <" << check.expression << ">";
    Say(out, "of", check.column);
    out << '\n';
  }
  return out.str();
}

std::string Describe(const std::string& kind, const std::string& text) {
  std::ostringstream out;
  if (kind == "table") return Describe(ReadTableDefinition(text));
  if (kind == "view") out << ReadViewQuery(text) << '\n';
  if (kind == "trigger") {
    const TriggerDefinition trigger = ReadTriggerDefinition(text);
    out << trigger.timing << ": " << trigger.events << '\n';
  }
  if (kind == "index") {
    const IndexDefinition index = ReadIndexDefinition(text);
    for (const IndexDefinition::Part& part : index.parts) {
      out << (part.is_column ? "column <" : "expression <") << part.expression << '>';
      Say(out, "collate", part.collation);
      out << '\n';
    }
    if (!index.predicate.empty()) out << "where <" << index.predicate << ">\n";
  }
  return out.str();
}

TEST(Definition, TellsWhatTheTextSays) {
  std::ifstream in(WB_SOURCE_DIR "/tests/routes/exact/definitions.txt");
  std::string kind;
  std::string text;
  std::string expected;
  bool in_text = false;
  int cases = 0;
  const auto check = [&] {
    if (kind.empty()) return;
    ++cases;
    EXPECT_EQ(Describe(kind, text), expected) << text;
  };
  for (std::string line; std::getline(in, line);) {
    if (line.rfind("== ", 0) == 0) {
      check();
      kind = line.substr(3);
      text.clear();
      expected.clear();
      in_text = true;
    } else if (line == "--") {
      in_text = false;
    } else {
      (in_text ? text : expected) += line + '\n';
    }
  }
  check();
  EXPECT_GE(cases, 20);
}

}  // namespace
}  // namespace odbcimport::exact
