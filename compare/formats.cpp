// The list of formats. Nothing else knows one by name.
#include "compare/writer.h"

namespace wbcompare {

const std::vector<Format>& AllFormats() {
  static const std::vector<Format> formats = {
      {"text", "for people, grouped by table", WriteText},
      {"json", "for programs", WriteJson},
      {"markdown", "for the comment of a pull request", WriteMarkdown},
      {"html", "a page with the tables concerned", WriteHtml},
  };
  return formats;
}

const Format* FindFormat(std::string_view name) {
  for (const Format& format : AllFormats()) {
    if (name == format.name) return &format;
  }
  return nullptr;
}

const Format& DefaultFormat(bool terminal) { return *FindFormat(terminal ? "text" : "json"); }

}  // namespace wbcompare
