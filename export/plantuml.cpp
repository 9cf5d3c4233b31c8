// A PlantUML entity-relationship diagram.
#include <fmt/format.h>

#include "base/utf.h"
#include "export/diagram.h"
#include "export/writers.h"

namespace wbexport {

namespace {

// Text that PlantUML shows as it is: whatever may mean something to it is written by its number.
std::string Plain(const std::string& text) {
  static constexpr std::string_view kKept = " .,()";
  std::string plain;
  const std::u16string wide = base::ToUtf16(text);
  for (std::size_t at = 0; at < wide.size();) {
    const char32_t c = base::NextCodePoint(wide, at);
    const bool word = (c >= U'a' && c <= U'z') || (c >= U'A' && c <= U'Z') ||
                      (c >= U'0' && c <= U'9') || (c >= 0x80 && c != 0x2028 && c != 0x2029);
    if (word || (c < 0x80 && kKept.find(static_cast<char>(c)) != std::string_view::npos)) {
      base::AppendUtf8(c, plain);
    } else {
      plain += fmt::format("<U+{:04X}>", static_cast<unsigned>(c));
    }
  }
  return plain;
}

std::string Row(const LcWorkbookColumn& column, const Diagram& diagram) {
  const std::string mark = KeyMark(column, diagram);
  const std::string type = TypeText(column);
  return fmt::format("  {{field}} {}{}{}{}\n", column.IsRequired() ? "* " : "",
                     Plain(Display(column.GetName())), type.empty() ? "" : " : " + Plain(type),
                     mark.empty() ? "" : " <<" + mark + ">>");
}

}  // namespace

bool WritePlantUml(const Document& document, const Options& options, std::ostream& out,
                   Notes& notes) {
  Diagram diagram;
  if (!SelectDiagram(document, options, diagram, notes)) return false;
  out << "@startuml\ntitle\n" << Plain(diagram.title) << '\n';
  for (const std::string& caption : diagram.captions) out << Plain(caption) << '\n';
  out << "end title\n";
  for (const std::string& comment : diagram.comments) out << "' " << Plain(comment) << '\n';
  out << "left to right direction\nhide circle\nhide empty members\n\n";
  for (std::size_t i = 0; i < diagram.tables.size(); ++i) {
    const LcWorkbookTable& table = *diagram.tables[i];
    const std::string kind = KindName(table);
    out << fmt::format("entity \"{}\" as t{}{} {{\n", Plain(DisplayName(table)), i,
                       kind == "table" ? "" : " <<" + kind + ">>");
    const std::vector<const LcWorkbookColumn*> shown = ShownColumns(table, diagram);
    for (const LcWorkbookColumn* column : shown) {
      if (column->IsPrimaryKey()) out << Row(*column, diagram);
    }
    if (!shown.empty()) out << "  --\n";
    for (const LcWorkbookColumn* column : shown) {
      if (!column->IsPrimaryKey()) out << Row(*column, diagram);
    }
    const std::string rest = RestOf(table, diagram, shown.size());
    if (!rest.empty()) out << "  {field} " << rest << '\n';
    out << "}\n";
  }
  out << '\n';
  for (const DiagramLine& line : Lines(diagram)) {
    const Relationship& r = *line.first;
    out << fmt::format("t{} {}--{} t{} : {}\n", diagram.numbers[r.to], r.required ? "||" : "|o",
                       r.one_to_one ? "o|" : "o{", diagram.numbers[r.from],
                       line.count == 1 ? Plain(DisplayColumns(r.from_columns))
                                       : Count(line.count, "relationship", "relationships"));
  }
  out << "@enduml\n";
  return true;
}

}  // namespace wbexport
