// The table of rules, and the run over a workbook. docs/lint.md describes each.
#include "lint/rules.h"

#include <algorithm>
#include <array>

#include "base/ascii.h"

namespace wblint {
namespace {

constexpr Severity kNote = Severity::kNote;
constexpr Severity kWarning = Severity::kWarning;
constexpr Severity kError = Severity::kError;

struct Rule {
  RuleInfo info;
  unsigned needs;  // Knowledge
  Check check;
};

// clang-format off
constexpr std::array kRules = {
    Rule{{"L001", "no-key", kWarning, true, "a table without a primary or unique key"}, knKeys | knUniqueKeys | knIndexes, CheckNoKey},
    Rule{{"L002", "no-primary-key", kNote, true, "a table without a primary key"}, knKeys, CheckNoPrimaryKey},
    Rule{{"L003", "foreign-key-without-index", kWarning, true, "a foreign key whose columns begin no index"}, knKeys | knForeignKeys | knIndexes, CheckReferenceIndex},
    Rule{{"L004", "nullable-unique", kNote, true, "a unique key or index with a column that may be NULL, and so takes any number of rows"}, knUniqueKeys | knIndexes, CheckNullableUnique},
    Rule{{"L005", "duplicate-index", kWarning, true, "two indexes on the same columns"}, knUniqueKeys | knIndexes, CheckDuplicateIndex},
    Rule{{"L006", "redundant-index", kNote, true, "an index on the first columns of another one"}, knUniqueKeys | knIndexes, CheckRedundantIndex},
    Rule{{"L007", "foreign-key-type", kWarning, true, "a foreign key to a column of another type"}, knForeignKeys, CheckReferenceTypes},
    Rule{{"L008", "foreign-key-to-no-key", kError, true, "a foreign key to columns that no key and no unique index holds"}, knKeys | knForeignKeys | knUniqueKeys | knIndexes, CheckReferenceTarget},
    Rule{{"L009", "required-cycle", kWarning, true, "tables that require a row of one another, so that none can be the first"}, knForeignKeys | knUniqueKeys, CheckRequiredCycle},
    Rule{{"L010", "quoted-name", kNote, true, "a name that needs quotes"}, 0, CheckQuotedNames},
    Rule{{"L011", "reserved-word", kNote, true, "a name that is a reserved word of SQL"}, 0, CheckReservedWords},
    Rule{{"L012", "long-name", kNote, true, "a name longer than the 63 bytes that PostgreSQL takes"}, 0, CheckLongNames},
    Rule{{"L013", "mixed-naming", kNote, true, "names in another style than most"}, 0, CheckStyles},
    Rule{{"L014", "names-by-case", kWarning, true, "names that differ in upper and lower case alone"}, 0, CheckNamesByCase},
    Rule{{"L015", "duplicate-foreign-key", kWarning, true, "two foreign keys with the same columns and target"}, knForeignKeys | knUniqueKeys, CheckDuplicateReference},
    Rule{{"L016", "half-null-foreign-key", kNote, true, "a foreign key of several columns of which some may be NULL, which then refers to nothing"}, knForeignKeys | knUniqueKeys, CheckHalfNull},
    Rule{{"L017", "nullable-primary-key", kWarning, true, "a primary key with a column that may be NULL"}, knKeys, CheckNullableKey},
    Rule{{"L018", "not-enforced", kWarning, true, "a constraint or an index that the server does not hold all rows to"}, knForeignKeys | knIndexes, CheckNotEnforced},
    Rule{{"L019", "no-columns", kNote, false, "a table without columns"}, 0, CheckNoColumns},
    Rule{{"L020", "no-comment", kNote, false, "a table or a column without a comment"}, knComments, CheckNoComment},
    Rule{{"L021", "isolated-table", kNote, false, "a table that refers to none and that none refers to"}, knForeignKeys, CheckAlone},
    Rule{{"L022", "same-name-other-type", kNote, false, "columns of one name and several types"}, 0, CheckSameName},
};
// clang-format on

// The infos of the rules, in a row.
constexpr std::array<RuleInfo, kRules.size()> Infos() {
  std::array<RuleInfo, kRules.size()> infos{};
  for (std::size_t i = 0; i < kRules.size(); ++i) infos[i] = kRules[i].info;
  return infos;
}
constexpr std::array<RuleInfo, kRules.size()> kInfos = Infos();

const Rule& RuleOf(const RuleInfo& info) {
  return kRules[static_cast<std::size_t>(&info - kInfos.data())];
}

std::string WhyNot(const Schema& schema, unsigned missing) {
  constexpr unsigned kExactAlone = knUniqueKeys | knIndexes | knComments;
  if (schema.info.route != u"exact" && (missing & kExactAlone) != 0)
    return "needs an exact reading";
  std::string what;
  const auto add = [&](unsigned bits, const char* name) {
    if ((missing & bits) != 0) what += (what.empty() ? "" : " and ") + std::string(name);
  };
  add(knKeys | knUniqueKeys, "keys");
  add(knForeignKeys, "foreign keys");
  add(knIndexes, "indexes");
  add(knComments, "comments");
  return what + " were not read";
}

// Those of the schema first, by owner, then by table; within one in the order of the rules, which
// the sort keeps.
void Order(const LcWorkbook& workbook, std::vector<Finding>& findings) {
  std::unordered_map<const LcWorkbookTable*, std::size_t> places;
  std::size_t place = 0;
  for (const LcWorkbookTable* table : workbook.tables.Present()) places.emplace(table, ++place);
  const auto place_of = [&](const Finding& finding) {
    return finding.table == nullptr ? 0 : places.at(finding.table);
  };
  std::stable_sort(findings.begin(), findings.end(), [&](const Finding& a, const Finding& b) {
    const bool schema = a.table == nullptr && b.table == nullptr;
    return schema ? a.owner < b.owner : place_of(a) < place_of(b);
  });
}

}  // namespace

const char* NameOf(Severity severity) {
  switch (severity) {
    case Severity::kNote:
      return "note";
    case Severity::kWarning:
      return "warning";
    case Severity::kError:
      break;
  }
  return "error";
}

std::span<const RuleInfo> AllRules() { return kInfos; }

const RuleInfo* FindRule(std::string_view id_or_name) {
  const auto* found = std::find_if(kInfos.begin(), kInfos.end(), [&](const RuleInfo& rule) {
    return id_or_name == rule.name || base::EqualIgnoringCase(rule.id, id_or_name);
  });
  return found == kInfos.end() ? nullptr : found;
}

std::size_t Report::Count(Severity severity) const {
  return static_cast<std::size_t>(
      std::count_if(findings.begin(), findings.end(),
                    [&](const Finding& finding) { return finding.rule->severity == severity; }));
}

bool Report::HasAtLeast(Severity severity) const {
  return std::any_of(findings.begin(), findings.end(),
                     [&](const Finding& finding) { return finding.rule->severity >= severity; });
}

Report Lint(const LcWorkbook& workbook, const LcWorkbookFileInfo& info, const Options& options) {
  const Schema schema(workbook, info, options);
  Report report;
  report.tables = schema.named.size();
  for (const RuleInfo& rule_info : kInfos) {
    if (std::find(options.rules.begin(), options.rules.end(), &rule_info) == options.rules.end()) {
      continue;
    }
    const Rule& rule = RuleOf(rule_info);
    if (const unsigned missing = rule.needs & ~schema.known; missing != 0) {
      report.not_checked.push_back({&rule_info, WhyNot(schema, missing)});
      continue;
    }
    report.checked.push_back(&rule_info);
    Finds finds(rule_info, report.findings);
    rule.check(schema, finds);
  }
  Order(workbook, report.findings);
  return report;
}

}  // namespace wblint
