#include "compare/text.h"

#include <dtl/dtl.hpp>
#include <sstream>

#include "base/text.h"
#include "base/utf.h"

namespace wbcompare {

std::string Shown(std::string_view text) {
  std::u16string wide = base::ToUtf16(text);
  for (char16_t& c : wide) c = base::ShownCharacter(c);
  return base::ToUtf8(wide);
}

std::vector<std::string> LinesOf(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    lines.emplace_back(line);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return lines;
}

std::vector<std::string> UnifiedDiff(std::string_view from, std::string_view to) {
  dtl::Diff<std::string> diff(LinesOf(from), LinesOf(to));
  diff.onHuge();  // no more room than a long text needs, whatever it is compared with
  diff.compose();
  diff.composeUnifiedHunks();
  std::ostringstream out;
  diff.printUnifiedFormat(out);
  return LinesOf(out.str());
}

}  // namespace wbcompare
