// The list of formats, in the order in which a user is shown them. Nothing else knows one by name.
#include <string>

#include "base/ascii.h"
#include "export/writers.h"

namespace wbexport {

const std::vector<Format>& AllFormats() {
  static const std::vector<Format> formats = {
      {"text", "a readable outline", "txt", false, WriteText},
      {"json", "the workbook file, which wbimport render reads", "json", false, WriteJson, nullptr,
       true},
      {"sql", "CREATE statements with keys and references", "sql", false, WriteSql},
      {"dot", "an entity-relationship diagram for Graphviz", "dot gv", true, WriteDot},
      {"svg", "an entity-relationship diagram as a picture", "svg", true, WriteSvg},
      {"png", "the same picture in pixels", "png", true, WritePng},
      {"html", "one page to search, browse and draw, for any browser", "html htm", true, WriteHtml},
      {"mermaid", "an entity-relationship diagram for Mermaid", "mmd mermaid", true, WriteMermaid},
      {"plantuml", "an entity-relationship diagram for PlantUML", "puml plantuml pu", true,
       WritePlantUml},
      {"markdown", "one page, or in a folder a page for each table", "md markdown", false,
       WriteMarkdown, WriteMarkdownFolder},
      {"dbml", "tables, keys, indexes and references in DBML", "dbml", false, WriteDbml},
      {"csv", "a line for each column", "csv", false, WriteCsv},
  };
  return formats;
}

const Format* FindFormat(std::string_view name) {
  for (const Format& format : AllFormats()) {
    if (name == format.name) return &format;
  }
  return nullptr;
}

const Format* FindFormatOfFile(std::string_view file) {
  const std::size_t dot = file.rfind('.');
  if (dot == std::string_view::npos) return nullptr;
  const std::string extension = base::LowerAscii(file.substr(dot + 1));
  for (const Format& format : AllFormats()) {
    const std::string known = std::string(" ") + format.extensions + " ";
    if (known.find(" " + extension + " ") != std::string::npos) return &format;
  }
  return nullptr;
}

const Format& DefaultFormat(bool terminal) { return *FindFormat(terminal ? "text" : "json"); }

}  // namespace wbexport
