// The list of formats, in the order in which a user is shown them.
#include "export/writers.h"

namespace wbexport {

const std::vector<Format>& AllFormats() {
  static const std::vector<Format> formats = {
      {"text", "a readable outline", WriteText},
      {"json", "the workbook file, which wbimport render reads", WriteJson},
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
