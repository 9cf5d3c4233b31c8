// An entity-relationship diagram as Graphviz text: a box for each table with a row for each column,
// an edge for each relationship with crow's-foot ends.
#include "export/dot.h"

#include <fmt/format.h>

#include "export/writers.h"

namespace wbexport {

namespace {

// Beyond this many relationships curved edges cost more time than the rest of the layout.
constexpr std::size_t kCurvedEdges = 400;

std::string EscapeXml(const std::string& text) {
  std::string escaped;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const std::string_view rest = std::string_view(text).substr(at, 3);
    if (rest == "\uFFFE" || rest == "\uFFFF") {  // which no XML text may hold
      escaped += "\uFFFD";
      at += 2;
    } else if (text[at] == '&') {
      escaped += "&amp;";
    } else if (text[at] == '<') {
      escaped += "&lt;";
    } else if (text[at] == '>') {
      escaped += "&gt;";
    } else if (text[at] == '"') {
      escaped += "&quot;";
    } else {
      escaped += text[at];
    }
  }
  return escaped;
}

std::string Box(const LcWorkbookTable& table, const Diagram& diagram) {
  std::string box = fmt::format(
      "<table border=\"0\" cellborder=\"1\" cellspacing=\"0\" cellpadding=\"4\">"
      "<tr><td colspan=\"3\" bgcolor=\"{}\"><b>{}</b>{}</td></tr>",
      table.GetType() == ttTable ? "#dbe7f5" : "#ececec", EscapeXml(DisplayName(table)),
      table.GetType() == ttTable ? "" : fmt::format(" <i>({})</i>", KindName(table.GetType())));
  for (int i = 0; i < table.GetColumnCount(); ++i) {
    const LcWorkbookColumn& column = *table.GetColumn(i);
    const std::string name = EscapeXml(Display(column.GetName()));
    const char* mark = KeyMark(column, diagram);
    box += fmt::format(
        "<tr><td align=\"left\" port=\"l{0}\">{1}</td><td align=\"left\">{2}</td>"
        "<td align=\"left\" port=\"r{0}\">{3}</td></tr>",
        i, column.IsRequired() ? "<b>" + name + "</b>" : name, EscapeXml(TypeText(column)), mark);
  }
  return box + "</table>";
}

// Where an edge meets a table: at the row of the column, on the side that faces the other table.
std::string Port(const LcWorkbookTable& table, const LcWorkbookColumn* column, char side) {
  for (int i = 0; i < table.GetColumnCount(); ++i) {
    if (table.GetColumn(i) == column) return fmt::format(":{}{}", side, i);
  }
  return "";
}

}  // namespace

std::string DotText(const Diagram& diagram) {
  std::string text =
      "digraph schema {\n"
      "  graph [rankdir=LR, fontname=\"Helvetica\", fontsize=12, nodesep=0.3, ranksep=1.0";
  if (diagram.relationships.size() > kCurvedEdges) text += ", splines=line";
  if (!diagram.captions.empty()) {
    text += ", labelloc=t, label=<";
    for (std::size_t i = 0; i < diagram.captions.size(); ++i) {
      text += (i == 0 ? "<b>" : "<br/><b>") + EscapeXml(diagram.captions[i]) + "</b>";
    }
    text += '>';
  }
  text +=
      "];\n"
      "  node [shape=plain, fontname=\"Helvetica\", fontsize=10];\n"
      "  edge [dir=both, color=\"#555555\", arrowsize=0.8];\n";
  for (std::size_t i = 0; i < diagram.tables.size(); ++i) {
    text += fmt::format("  t{} [label=<{}>];\n", i, Box(*diagram.tables[i], diagram));
  }
  for (const Relationship& r : diagram.relationships) {
    const char from_side = r.from == r.to ? 'r' : 'l';  // a loop stays on one side
    text +=
        fmt::format("  t{}{} -> t{}{} [arrowtail={}, arrowhead={}];\n", diagram.numbers.at(r.to),
                    Port(*r.to, r.to_columns.front(), 'r'), diagram.numbers.at(r.from),
                    Port(*r.from, r.from_columns.front(), from_side),
                    r.required ? "teetee" : "teeodot", r.one_to_one ? "teeodot" : "crowodot");
  }
  return text + "}\n";
}

bool WriteDot(const Document& document, const Options& options, std::ostream& out, Notes& notes) {
  Diagram diagram;
  if (!SelectDiagram(document, options, diagram, notes)) return false;
  out << DotText(diagram);
  return true;
}

}  // namespace wbexport
