// The reader of workbook files: any bytes are refused with a reason or read; what was read is
// written and read back to the same file.
#include "importer/workbook/workbook_file.h"

#include <cstdlib>
#include <sstream>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  LcWorkbook workbook;
  LcWorkbookFileInfo info;
  std::string why;
  if (!ReadWorkbookFile(text, workbook, info, why)) {
    if (why.empty()) std::abort();
    return 0;
  }
  std::ostringstream first;
  WriteWorkbookFile(workbook, info, first);
  LcWorkbook again;
  LcWorkbookFileInfo info_again;
  if (!ReadWorkbookFile(first.str(), again, info_again, why)) std::abort();
  std::ostringstream second;
  WriteWorkbookFile(again, info_again, second);
  if (first.str() != second.str()) std::abort();
  return 0;
}
