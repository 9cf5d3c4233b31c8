// One self-contained page: a skeleton, a style sheet and scripts (export/html), with the schema as
// compact JSON that the scripts make into pages when a reader asks for them. Needs no network.
#include <string>

#include "base/markup.h"
#include "embedded_wbexport.h"
#include "export/diagram.h"
#include "export/model.h"
#include "export/page_data.h"
#include "export/writers.h"

namespace wbexport {

bool WriteHtml(const Document& document, const Options& options, std::ostream& out, Notes& notes) {
  const LcWorkbookTable* around = nullptr;
  if (!options.around.empty()) {
    around = FindAround(document.workbook, options.around, notes);
    if (around == nullptr) return false;
  }
  const std::size_t tables = document.workbook.tables.GetCount();
  if (tables > kLargestDiagram && !options.whole && around == nullptr) {
    notes.push_back("The page's diagram does not draw " + std::to_string(tables) +
                    " tables at once: choose a table there, or start with --around TABLE "
                    "--distance N, or with --whole.");
  }
  const std::string title =
      (document.info.incomplete ? "Incomplete: " : "") + SourceText(document.info);
  // The skeleton names what goes where; everything else in it is written as it stands.
  std::string_view rest = embedded::kPage;
  while (true) {
    const std::size_t open = rest.find("{{");
    out << rest.substr(0, open);
    if (open == std::string_view::npos) break;
    const std::size_t close = rest.find("}}", open);
    const std::string_view place = rest.substr(open + 2, close - open - 2);
    rest.remove_prefix(close + 2);
    if (place == "title") {
      out << base::EscapeMarkup(title);
    } else if (place == "style") {
      out << embedded::kStyle;
    } else if (place == "data") {
      WritePageData(document, options, around, out);
    } else if (place == "script") {
      // One scope for all scripts, in the order in which they use one another.
      out << "(() => {\n\"use strict\";\n";
      for (const std::string_view script :
           {embedded::kDom, embedded::kModel, embedded::kSidebar, embedded::kLayout,
            embedded::kPanZoom, embedded::kDiagram, embedded::kSql, embedded::kTablePage,
            embedded::kPages, embedded::kLists, embedded::kApp}) {
        out << script << '\n';
      }
      out << "})();";
    }
  }
  return true;
}

}  // namespace wbexport
