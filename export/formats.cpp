// The list of formats, in the order in which a user is shown them.
#include "export/writers.h"

namespace wbexport {

const std::vector<Format>& AllFormats() {
  static const std::vector<Format> formats = {
      {"text", "a readable outline", WriteText},
      {"json", "the workbook file, which wbimport render reads", WriteJson},
      {"sql", "CREATE statements with keys and references", WriteSql},
      {"dot", "an entity-relationship diagram for Graphviz", WriteDot},
      {"svg", "an entity-relationship diagram as a picture", WriteSvg},
      {"html", "one page to search, browse and draw, for any browser", WriteHtml},
      {"mermaid", "an entity-relationship diagram for Mermaid", WriteMermaid},
      {"markdown", "one page with a section for each table", WriteMarkdown},
  };
  return formats;
}

const Format* FindFormat(std::string_view name) {
  for (const Format& format : AllFormats()) {
    if (name == format.name) return &format;
  }
  return nullptr;
}

}  // namespace wbexport
