// Rules that a careful reader would hold a schema to, and where a workbook breaks them. The
// findings borrow from the workbook, which has to outlive them.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "importer/workbook/workbook.h"
#include "importer/workbook/workbook_file.h"

namespace wblint {

enum class Severity : std::uint8_t {
  kNote,     // a matter of taste or of other servers
  kWarning,  // costs time or lets in what nobody wants
  kError,    // does not do what it says
};
// "note", "warning", "error"
[[nodiscard]] const char* NameOf(Severity severity);

struct RuleInfo {
  const char* id;    // "L003", for good: a rule that goes leaves its number unused
  const char* name;  // "foreign-key-without-index"
  Severity severity;
  bool on;           // without being asked for
  const char* what;  // what is found, as a phrase: "a foreign key whose columns begin no index"
};
// In the order of their ids.
[[nodiscard]] std::span<const RuleInfo> AllRules();
// By id, upper and lower case alike, or by name. Null where there is none.
[[nodiscard]] const RuleInfo* FindRule(std::string_view id_or_name);

struct Finding {
  const RuleInfo* rule = nullptr;
  const LcWorkbookTable* table = nullptr;  // null: of the whole schema
  std::u16string owner;
  std::string part;  // a column, key or index by name; empty: the table itself
  std::string text;  // a sentence without its full stop; UTF-8, on one line
};

// A rule that the workbook does not say enough for.
struct NotChecked {
  const RuleInfo* rule = nullptr;
  std::string reason;
};

struct Report {
  std::vector<Finding> findings;  // those of the schema, then table by table in workbook order
  std::vector<NotChecked> not_checked;
  std::vector<const RuleInfo*> checked;
  std::size_t tables = 0;  // and views that were looked at

  [[nodiscard]] std::size_t Count(Severity severity) const;
  [[nodiscard]] bool HasAtLeast(Severity severity) const;
};

struct Options {
  std::vector<const RuleInfo*> rules;  // of AllRules(), in any order; others are not checked
  // Tables to pass over, by owner and name. May be empty.
  std::function<bool(std::u16string_view, std::u16string_view)> leaves_out;
};

// Time: a few walks over the workbook, and sorting within a table.
[[nodiscard]] Report Lint(const LcWorkbook& workbook, const LcWorkbookFileInfo& info,
                          const Options& options);

}  // namespace wblint
