// An entity-relationship diagram as Graphviz text: a box for each table with a row for each column,
// an edge for each relationship with crow's-foot ends.
#include "export/dot.h"

#include <fmt/format.h>

#include <unordered_map>

#include "base/markup.h"
#include "export/writers.h"

namespace wbexport {

namespace {

// Beyond this many lines curved edges cost more time than the rest of the layout.
constexpr std::size_t kCurvedEdges = 150;
// Marks what refers to its own table.
constexpr const char* kLoop = " \u21BA";

// A quoted text; Graphviz makes a line end of \n in it.
std::string Quote(const std::string& text) {
  std::string quoted = "\"";
  for (std::size_t at = 0; at < text.size(); ++at) {
    const std::string_view rest = std::string_view(text).substr(at, 3);
    if (rest == "\uFFFE" || rest == "\uFFFF") {  // a tooltip becomes XML
      quoted += "\uFFFD";
      at += 2;
      continue;
    }
    if (text[at] == '"' || text[at] == '\\') quoted += '\\';
    quoted += text[at];
  }
  return quoted + '"';
}

std::string Heading(const LcWorkbookTable& table, const Diagram& diagram) {
  const std::string kind = KindName(table);
  const bool names = diagram.detail == Detail::kNames;
  return fmt::format("<tr><td colspan=\"3\" bgcolor=\"{}\"><b>{}</b>{}{}</td></tr>",
                     table.GetType() == ttTable ? "#dbe7f5" : "#ececec",
                     base::EscapeMarkup(DisplayName(table)),
                     kind == "table" ? "" : fmt::format(" <i>({})</i>", base::EscapeMarkup(kind)),
                     names && diagram.looping_tables.count(&table) ? kLoop : "");
}

std::string Box(const LcWorkbookTable& table, const Diagram& diagram) {
  std::string box = "<table border=\"0\" cellborder=\"1\" cellspacing=\"0\" cellpadding=\"4\">" +
                    Heading(table, diagram);
  const std::vector<const LcWorkbookColumn*> shown = ShownColumns(table, diagram);
  for (std::size_t i = 0; i < shown.size(); ++i) {
    const LcWorkbookColumn& column = *shown[i];
    const std::string name = base::EscapeMarkup(Display(column.GetName()));
    box += fmt::format(
        "<tr><td align=\"left\" port=\"l{0}\">{1}</td><td align=\"left\">{2}</td>"
        "<td align=\"left\" port=\"r{0}\">{3}</td></tr>",
        i, column.IsRequired() ? "<b>" + name + "</b>" : name, base::EscapeMarkup(TypeText(column)),
        std::string(KeyMark(column, diagram)) + (diagram.looping.count(&column) ? kLoop : ""));
  }
  const std::string rest = RestOf(table, diagram, shown.size());
  if (!rest.empty()) box += "<tr><td colspan=\"3\"><i>" + rest + "</i></td></tr>";
  return box + "</table>";
}

// Where an edge meets a table: at the row of the column, on the side that faces the other table.
using Ports = std::unordered_map<const LcWorkbookColumn*, std::size_t>;
std::string Port(const Ports& ports, const LcWorkbookColumn* column, char side) {
  const auto port = ports.find(column);
  return port == ports.end() ? "" : fmt::format(":{}{}", side, port->second);
}

// What stands above the picture: what it is of, and what is not in it.
std::string Label(const Diagram& diagram) {
  std::string label = base::EscapeMarkup(diagram.title);
  for (const std::string& caption : diagram.captions) {
    label += "<br/><b>" + base::EscapeMarkup(caption) + "</b>";
  }
  return label;
}

std::string Edge(const Diagram& diagram, const DiagramLine& line, const LineCourse& course,
                 const Ports& ports) {
  const Relationship& r = *line.first;
  struct End {
    std::string port;
    const char* arrow;
  };
  const bool one = line.count == 1;
  // From the left to the right end.
  End to{one ? Port(ports, r.to_columns.front(), course.is_reversed ? 'l' : 'r') : "",
         r.required ? "teetee" : "teeodot"};
  End from{one ? Port(ports, r.from_columns.front(), course.is_reversed ? 'r' : 'l') : "",
           r.one_to_one ? "teeodot" : "crowodot"};
  std::string left = fmt::format("t{}{}", diagram.numbers.at(r.to), to.port);
  std::string right = fmt::format("t{}{}", diagram.numbers.at(r.from), from.port);
  if (course.is_reversed) {
    std::swap(left, right);
    std::swap(to, from);
  }
  const std::string text = one ? DescribeRelationship(r)
                               : fmt::format("{} -> {}, {} relationships", DisplayName(*r.from),
                                             DisplayName(*r.to), line.count);
  return fmt::format(
      "  {} -> {} [arrowtail={}, arrowhead={}{}, tooltip={}];\n", left, right, to.arrow, from.arrow,
      course.length > 1 ? fmt::format(", minlen={}", course.length) : "", Quote(text));
}

}  // namespace

std::string DotText(const Diagram& diagram) {
  std::vector<DiagramLine> lines = Lines(diagram);
  std::erase_if(lines, [](const DiagramLine& line) { return line.first->from == line.first->to; });
  std::string text;
  for (const std::string& comment : diagram.comments) text += "// " + comment + '\n';
  text += "digraph schema {\n  graph [fontname=\"Helvetica\", fontsize=12, ";
  const bool is_map = IsMap(diagram, lines);
  if (is_map) {
    text += "layout=sfdp, overlap=prism, sep=\"+10\", splines=line, outputorder=edgesfirst";
  } else {
    // Parts of the schema that nothing relates are packed beside one another.
    text += "rankdir=LR, nodesep=0.3, ranksep=1.0, pack=20, packmode=\"graph\"";
    if (lines.size() > kCurvedEdges) text += ", splines=line, nslimit=2, mclimit=0.3";
  }
  text += ", labelloc=t, label=<" + Label(diagram) +
          ">];\n"
          "  node [shape=plain, fontname=\"Helvetica\", fontsize=10];\n";
  text += is_map ? "  edge [dir=both, color=\"#9aa5b5\", penwidth=0.6, arrowsize=0.5];\n"
                 : "  edge [dir=both, color=\"#555555\", arrowsize=0.8];\n";
  Ports ports;
  for (std::size_t i = 0; i < diagram.tables.size(); ++i) {
    const LcWorkbookTable& table = *diagram.tables[i];
    const std::string hover =
        DisplayName(table) + ", " +
        Count(static_cast<std::size_t>(table.GetColumnCount()), "column", "columns");
    text += fmt::format("  t{} [tooltip={}, label=<{}>];\n", i, Quote(hover), Box(table, diagram));
    std::size_t row = 0;
    for (const LcWorkbookColumn* column : ShownColumns(table, diagram))
      ports.emplace(column, row++);
  }
  const std::vector<LineCourse> courses =
      is_map ? std::vector<LineCourse>(lines.size()) : LineCourses(diagram, lines);
  for (std::size_t i = 0; i < lines.size(); ++i) text += Edge(diagram, lines[i], courses[i], ports);
  return text + "}\n";
}

bool WriteDot(const Document& document, const Options& options, std::ostream& out, Notes& notes) {
  Diagram diagram;
  if (!SelectDiagram(document, options, diagram, notes)) return false;
  out << DotText(diagram);
  return true;
}

}  // namespace wbexport
