// The findings for programs, one a line. lint.schema.json describes it.
#include <nlohmann/json.hpp>
#include <unordered_map>

#include "base/utf.h"
#include "lint/writer.h"

namespace wblint {
namespace {

using Json = nlohmann::ordered_json;

std::string Dump(const Json& value) {
  return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

// An array with an element a line.
void WriteArray(std::ostream& out, const char* key, const std::vector<Json>& elements) {
  out << ",\n  \"" << key << "\": [";
  const char* separator = "\n    ";
  for (const Json& element : elements) {
    out << separator << Dump(element);
    separator = ",\n    ";
  }
  out << (elements.empty() ? "]" : "\n  ]");
}

}  // namespace

void WriteJson(const Document& document, const WriteOptions& /*options*/, std::ostream& out) {
  const Report& report = document.report;
  const LcWorkbookFileInfo& info = document.info;
  out << "{\n  \"format\": \"workbook-lint\", \"version\": 1,\n  \"source\": "
      << Dump({{"label", document.label},
               {"database", base::ToUtf8(info.database)},
               {"title", base::ToUtf8(info.title)},
               {"dbmsName", base::ToUtf8(info.dbms_name)},
               {"dbmsVersion", info.dbms_version},
               {"route", base::ToUtf8(info.route)},
               {"dialect", base::ToUtf8(info.dialect)}});
  std::unordered_map<const RuleInfo*, std::size_t> counts;
  for (const Finding& finding : report.findings) ++counts[finding.rule];
  std::vector<Json> rules;
  for (const RuleInfo* rule : report.checked) {
    rules.push_back({{"id", rule->id},
                     {"name", rule->name},
                     {"severity", NameOf(rule->severity)},
                     {"description", rule->what},
                     {"findings", counts[rule]}});
  }
  WriteArray(out, "rules", rules);
  out << ",\n  \"findings\": [";
  const char* separator = "\n    ";
  for (const Finding& finding : report.findings) {
    out << separator
        << Dump({{"rule", finding.rule->id},
                 {"name", finding.rule->name},
                 {"severity", NameOf(finding.rule->severity)},
                 {"owner", base::ToUtf8(finding.owner)},
                 {"table", finding.table == nullptr ? "" : base::ToUtf8(finding.table->GetName())},
                 {"part", finding.part},
                 {"text", finding.text}});
    separator = ",\n    ";
  }
  out << (report.findings.empty() ? "]" : "\n  ]");
  std::vector<Json> not_checked;
  for (const NotChecked& entry : report.not_checked) {
    not_checked.push_back(
        {{"rule", entry.rule->id}, {"name", entry.rule->name}, {"reason", entry.reason}});
  }
  WriteArray(out, "notChecked", not_checked);
  out << ",\n  \"summary\": "
      << Dump({{"error", report.Count(Severity::kError)},
               {"warning", report.Count(Severity::kWarning)},
               {"note", report.Count(Severity::kNote)},
               {"tables", report.tables}})
      << "\n}\n";
}

}  // namespace wblint
