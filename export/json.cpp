// The workbook file.
#include "export/writers.h"

namespace wbexport {

bool WriteJson(const Document& document, const Options& options, std::ostream& out,
               Notes& /*notes*/) {
  if (options.compact) {
    WriteCompactWorkbookFile(document.workbook, document.info, out);
  } else {
    WriteWorkbookFile(document.workbook, document.info, out);
  }
  return true;
}

}  // namespace wbexport
