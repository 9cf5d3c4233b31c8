// The list of formats, which nothing else knows by name, and what the writers share.
#include <fmt/format.h>

#include <unordered_set>

#include "lint/schema.h"
#include "lint/writer.h"

namespace wblint {
namespace {

std::string Count(std::size_t count, const char* one) {
  return fmt::format("{} {}{}", count, one, count == 1 ? "" : "s");
}

}  // namespace

const std::vector<Format>& AllFormats() {
  static const std::vector<Format> formats = {
      {"text", "for people, grouped by table", WriteText},
      {"json", "for programs", WriteJson},
      {"markdown", "for the comment of a pull request", WriteMarkdown},
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

std::string DatabaseTitle(const LcWorkbookFileInfo& info) {
  return Shown(info.title.empty() ? info.database : info.title);
}

std::string Summary(const Report& report) {
  if (report.findings.empty()) {
    return fmt::format("Nothing found in {} by {}", Count(report.tables, "table"),
                       Count(report.checked.size(), "rule"));
  }
  std::unordered_set<const LcWorkbookTable*> tables;
  for (const Finding& finding : report.findings) {
    if (finding.table != nullptr) tables.insert(finding.table);
  }
  std::string text = fmt::format("{} in {} of {}", Count(report.findings.size(), "finding"),
                                 tables.size(), Count(report.tables, "table"));
  const char* separator = ": ";
  for (const Severity severity : {Severity::kError, Severity::kWarning, Severity::kNote}) {
    const std::size_t count = report.Count(severity);
    if (count == 0) continue;
    text += separator + Count(count, NameOf(severity));
    separator = ", ";
  }
  return text;
}

std::string Subject(const Finding& finding) {
  if (finding.table != nullptr) return Shown(*finding.table);
  return finding.owner.empty() ? "schema" : Shown(finding.owner);
}

}  // namespace wblint
