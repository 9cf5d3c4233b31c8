// Texts in XML and HTML.
#include "base/markup.h"

namespace base {

std::string EscapeMarkup(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    const std::string_view rest = text.substr(at, 3);
    if (rest == "\uFFFE" || rest == "\uFFFF") {
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

}  // namespace base
