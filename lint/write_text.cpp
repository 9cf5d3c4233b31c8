// The findings for people: a line each under the name of its table.
#include <fmt/format.h>

#include "lint/writer.h"

namespace wblint {
namespace {

const char* ColourOf(Severity severity) {
  switch (severity) {
    case Severity::kNote:
      return "\x1b[36m";
    case Severity::kWarning:
      return "\x1b[33m";
    case Severity::kError:
      break;
  }
  return "\x1b[31m";
}

}  // namespace

void WriteText(const Document& document, const WriteOptions& options, std::ostream& out) {
  const Report& report = document.report;
  const Finding* last = nullptr;
  for (const Finding& finding : report.findings) {
    const bool same = last != nullptr && last->table == finding.table &&
                      (finding.table != nullptr || last->owner == finding.owner);
    if (!same) out << (last == nullptr ? "" : "\n") << Subject(finding) << '\n';
    last = &finding;
    const std::string severity = fmt::format("{:<7}", NameOf(finding.rule->severity));
    out << "  "
        << (options.colour ? ColourOf(finding.rule->severity) + severity + "\x1b[0m" : severity)
        << "  " << finding.rule->id << ' ' << finding.rule->name << ": "
        << (finding.part.empty() ? "" : finding.part + ": ") << finding.text << '\n';
  }
  if (last != nullptr) out << '\n';
  const std::string title = DatabaseTitle(document.info);
  out << title << (title.empty() ? "" : ": ") << Summary(report) << ".\n";
  for (const NotChecked& entry : report.not_checked) {
    out << fmt::format("Not checked: {} {}: {}.\n", entry.rule->id, entry.rule->name, entry.reason);
  }
}

}  // namespace wblint
