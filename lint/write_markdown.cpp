// The findings for the comment of a pull request: a table.
#include <fmt/format.h>

#include "lint/writer.h"

namespace wblint {
namespace {

// Plain text in which no character means anything.
std::string Plain(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (std::string_view("\\`*_[]<>|#&~").find(c) != std::string_view::npos) escaped += '\\';
    escaped += c;
  }
  return escaped;
}

}  // namespace

void WriteMarkdown(const Document& document, const WriteOptions& /*options*/, std::ostream& out) {
  const Report& report = document.report;
  out << "### " << Summary(report) << "\n\nOf " << Plain(document.label);
  const std::string title = DatabaseTitle(document.info);
  out << (title.empty() ? "" : " (" + Plain(title) + ")") << ".\n";
  if (!report.findings.empty()) {
    out << "\n| Where | | Rule | What |\n|---|---|---|---|\n";
    for (const Finding& finding : report.findings) {
      out << fmt::format("| {} | {} | {} {} | {}{} |\n", Plain(Subject(finding)),
                         NameOf(finding.rule->severity), finding.rule->id, finding.rule->name,
                         finding.part.empty() ? "" : Plain(finding.part) + ": ",
                         Plain(finding.text));
    }
  }
  if (report.not_checked.empty()) return;
  out << "\n#### Not checked\n\n";
  for (const NotChecked& entry : report.not_checked) {
    out << "- " << entry.rule->id << ' ' << entry.rule->name << ": " << entry.reason << '\n';
  }
}

}  // namespace wblint
