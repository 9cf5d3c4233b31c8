// A Mermaid entity-relationship diagram. Identifiers are made of ASCII letters, digits and
// underscores, which every version of Mermaid reads; the real name stands beside one that differs.
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <set>
#include <unordered_map>

#include "base/letters.h"
#include "base/utf.h"
#include "export/diagram.h"
#include "export/writers.h"

namespace wbexport {

namespace {

// Mermaid's own limit, which a page may raise (maxTextSize).
constexpr std::size_t kMostCharacters = 50000;

// Words that Mermaid takes for something else where an entity's name may stand.
constexpr std::array<std::string_view, 16> kReserved = {
    "accDescr", "accTitle",   "class", "classDef", "direction", "end", "erDiagram", "many",
    "one",      "optionally", "only",  "style",    "title",     "to",  "u",         "zero",
};

using base::IsLetter;
bool IsWordCharacter(char c) { return base::IsLetterOrDigit(c) || c == '_'; }

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
  static constexpr std::string_view kCoded = "\"#;<>&%\\`";
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

// The line of a YAML text that Mermaid reads before the diagram. JSON is YAML.
std::string YamlText(const std::string& text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + '"';
}

class Chart {
 public:
  explicit Chart(Diagram& diagram) : diagram_(diagram) {}

  std::string Text(const std::string& title) {
    text_.clear();
    if (!title.empty()) text_ += "---\ntitle: " + YamlText(title) + "\n---\n";
    text_ += "%% " + Comment(diagram_.title) + '\n';
    for (const std::string& caption : diagram_.captions) text_ += "%% " + Comment(caption) + '\n';
    for (const std::string& comment : diagram_.comments) text_ += "%% " + Comment(comment) + '\n';
    text_ += "erDiagram\n";
    Identifiers entities;
    std::vector<std::string> ids;
    for (const LcWorkbookTable* table : diagram_.tables) {
      const std::string name = DisplayName(*table);
      ids.push_back(entities.For(name));
      text_ += "    " + ids.back();
      if (ids.back() != name) text_ += '[' + Quoted(name) + ']';
      WriteRows(*table);
    }
    for (const DiagramLine& line : Lines(diagram_)) {
      const Relationship& r = *line.first;
      text_ += fmt::format("    {} {}--{} {} : {}\n", ids[diagram_.numbers[r.to]],
                           r.required ? "||" : "|o", r.one_to_one ? "o|" : "o{",
                           ids[diagram_.numbers[r.from]],
                           line.count == 1 ? Quoted(DisplayColumns(r.from_columns))
                                           : fmt::format("\"{} relationships\"", line.count));
    }
    return text_;
  }

 private:
  // Inside a comment "%%{" would begin a directive.
  static std::string Comment(std::string text) {
    std::replace(text.begin(), text.end(), '{', '(');
    std::replace(text.begin(), text.end(), '}', ')');
    return text;
  }

  void WriteRows(const LcWorkbookTable& table) {
    const std::vector<const LcWorkbookColumn*> shown = ShownColumns(table, diagram_);
    text_ += shown.empty() ? "\n" : " {\n";
    Identifiers attributes;
    for (const LcWorkbookColumn* column : shown) {
      const std::string name = Display(column->GetName());
      const std::string id = attributes.For(name);
      const std::string mark = KeyMark(*column, diagram_);
      text_ += "        " + TypeWord(*column) + ' ' + id + (mark.empty() ? "" : " " + mark) +
               (id == name ? "" : " " + Quoted(name)) + '\n';
    }
    if (!shown.empty()) text_ += "    }\n";
  }

  Diagram& diagram_;
  std::string text_;
};

}  // namespace

// Mermaid reads no text above 50,000 characters unless a page allows more: columns, then tables are
// left out until it is short enough, or said to be too long where more was asked for.
bool WriteMermaid(const Document& document, const Options& options, std::ostream& out,
                  Notes& notes) {
  Diagram diagram;
  if (!SelectDiagram(document, options, diagram, notes)) return false;
  const std::string title = DatabaseTitle(document.info);
  std::string text = Chart(diagram).Text(title);
  const auto is_long = [&] { return base::ToUtf16(text).size() >= kMostCharacters; };
  const bool may_shrink = !options.whole && options.detail == Detail::kAuto;
  while (is_long() && may_shrink && diagram.detail != Detail::kNames) {
    diagram.detail = diagram.detail == Detail::kFull ? Detail::kKeys : Detail::kNames;
    notes.push_back(fmt::format("The diagram shows {} of each table to stay below Mermaid's limit.",
                                diagram.detail == Detail::kKeys ? "the keys" : "the name"));
    text = Chart(diagram).Text(title);
  }
  if (const std::size_t all = diagram.tables.size(); is_long() && !options.whole && all > 1) {
    diagram.captions.emplace_back();
    while (is_long() && diagram.tables.size() > 1) {
      KeepMostConnected(diagram, diagram.tables.size() * 4 / 5);
      diagram.captions.back() =
          fmt::format("{} of {} tables, to stay below Mermaid's limit of {} characters",
                      diagram.tables.size(), all, kMostCharacters);
      text = Chart(diagram).Text(title);
    }
    notes.push_back("The diagram shows " + diagram.captions.back() + ".");
  }
  if (is_long()) {
    notes.push_back(fmt::format(
        "The diagram is longer than {} characters: Mermaid draws it where maxTextSize allows more.",
        kMostCharacters));
  }
  out << text;
  return true;
}

}  // namespace wbexport
