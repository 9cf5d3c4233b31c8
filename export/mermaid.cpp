// A Mermaid entity-relationship diagram. Identifiers are made of ASCII letters, digits and
// underscores, which every version of Mermaid reads; the real name stands beside one that differs.
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <set>
#include <unordered_map>

#include "export/diagram.h"
#include "export/writers.h"

namespace wbexport {

namespace {

// Words that Mermaid takes for something else where an entity's name may stand.
constexpr std::array<std::string_view, 16> kReserved = {
    "accDescr", "accTitle",   "class", "classDef", "direction", "end", "erDiagram", "many",
    "one",      "optionally", "only",  "style",    "title",     "to",  "u",         "zero",
};

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsWordCharacter(char c) { return IsLetter(c) || (c >= '0' && c <= '9') || c == '_'; }

std::string Identifier(const std::string& name) {
  std::string id;
  for (const char c : name) {
    if (IsWordCharacter(c)) {
      id += c;
    } else if (id.empty() || id.back() != '_') {
      id += '_';
    }
  }
  if (id.empty() || !IsLetter(id.front())) id.insert(0, "x");
  if (std::find(kReserved.begin(), kReserved.end(), id) != kReserved.end()) id += '_';
  return id;
}

// Gives names that would become the same identifier a number each.
class Identifiers {
 public:
  std::string For(const std::string& name) {
    const std::string base = Identifier(name);
    std::string id = base;
    int& number = last_number_[base];
    while (!taken_.insert(id).second) id = fmt::format("{}_{}", base, ++number + 1);
    return id;
  }

 private:
  std::set<std::string> taken_;
  std::unordered_map<std::string, int> last_number_;  // given to an identifier
};

// Inside double quotes: Mermaid has codes for what would end them, start a code or Markdown, or is
// not allowed there.
std::string Quoted(const std::string& text) {
  static constexpr std::string_view kCoded = "\"#;<>%\\`";
  std::string quoted = "\"";
  for (const char c : text) {
    if (kCoded.find(c) != std::string_view::npos) {
      quoted += fmt::format("#{};", static_cast<int>(c));
    } else {
      quoted += c;
    }
  }
  return quoted + '"';
}

// A type is one word that may hold parentheses: "DECIMAL(12,2)" is written "DECIMAL(12_2)".
std::string TypeWord(const LcWorkbookColumn& column) {
  std::string word;
  for (const char c : TypeText(column)) {
    const bool kept = IsWordCharacter(c) || c == '(' || c == ')';
    word += kept ? c : '_';
  }
  if (word.empty()) return "unknown";
  return IsLetter(word.front()) ? word : "x" + word;
}

}  // namespace

bool WriteMermaid(const Document& document, const Options& options, std::ostream& out,
                  Notes& notes) {
  Diagram diagram;
  if (!SelectDiagram(document, options, diagram, notes)) return false;
  for (const std::string& caption : diagram.captions) out << "%% " << caption << '\n';
  out << "erDiagram\n";
  Identifiers entities;
  std::vector<std::string> ids;
  for (const LcWorkbookTable* table : diagram.tables) {
    const std::string name = DisplayName(*table);
    ids.push_back(entities.For(name));
    out << "    " << ids.back();
    if (ids.back() != name) out << '[' << Quoted(name) << ']';
    out << (table->GetColumnCount() > 0 ? " {\n" : "\n");
    Identifiers attributes;
    for (int i = 0; i < table->GetColumnCount(); ++i) {
      const LcWorkbookColumn& column = *table->GetColumn(i);
      const std::string column_name = Display(column.GetName());
      const std::string id = attributes.For(column_name);
      const std::string mark = KeyMark(column, diagram);
      out << "        " << TypeWord(column) << ' ' << id << (mark.empty() ? "" : " " + mark)
          << (id == column_name ? "" : " " + Quoted(column_name)) << '\n';
    }
    if (table->GetColumnCount() > 0) out << "    }\n";
  }
  for (const Relationship& r : diagram.relationships) {
    out << fmt::format("    {} {}--{} {} : {}\n", ids[diagram.numbers[r.to]],
                       r.required ? "||" : "|o", r.one_to_one ? "o|" : "o{",
                       ids[diagram.numbers[r.from]], Quoted(DisplayColumns(r.from_columns)));
  }
  return true;
}

}  // namespace wbexport
