// Rules about names.
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <map>
#include <unordered_set>

#include "base/ascii.h"
#include "base/letters.h"
#include "base/utf.h"
#include "lint/rules.h"

namespace wblint {
namespace {

constexpr std::size_t kMostBytes = 63;

// Words that PostgreSQL, MariaDB, SQLite or the standard keep to themselves, those that most
// servers do.
constexpr std::array<std::string_view, 105> kReserved = {
    "add",          "all",
    "alter",        "analyze",
    "and",          "any",
    "as",           "asc",
    "between",      "both",
    "by",           "case",
    "cast",         "check",
    "collate",      "column",
    "constraint",   "create",
    "cross",        "current_date",
    "current_time", "current_timestamp",
    "current_user", "cursor",
    "default",      "delete",
    "desc",         "distinct",
    "drop",         "else",
    "end",          "except",
    "exists",       "false",
    "fetch",        "for",
    "foreign",      "from",
    "full",         "grant",
    "group",        "having",
    "in",           "index",
    "inner",        "insert",
    "intersect",    "interval",
    "into",         "is",
    "join",         "key",
    "leading",      "left",
    "like",         "limit",
    "lock",         "natural",
    "not",          "null",
    "of",           "offset",
    "on",           "only",
    "or",           "order",
    "outer",        "overlaps",
    "partition",    "primary",
    "procedure",    "range",
    "rank",         "references",
    "release",      "rename",
    "replace",      "returning",
    "revoke",       "right",
    "row",          "rows",
    "select",       "session_user",
    "set",          "show",
    "some",         "table",
    "then",         "to",
    "trailing",     "trigger",
    "true",         "union",
    "unique",       "update",
    "user",         "using",
    "values",       "view",
    "when",         "where",
    "window",       "with",
    "write",
};
static_assert(std::is_sorted(kReserved.begin(), kReserved.end()));

using base::IsDigit;
using base::IsLower;
using base::IsUpper;

bool NeedsQuotes(const Schema& schema, std::u16string_view name) {
  if (name.empty()) return false;
  // A server that makes small letters of large ones finds only names in small ones.
  const bool folds = schema.IsDialect(u"postgresql");
  const bool mariadb = schema.IsDialect(u"mariadb");
  if (mariadb)
    return std::any_of(name.begin(), name.end(),
                       [](char16_t c) {
                         return !(IsUpper(c) || IsLower(c) || IsDigit(c) || c == u'_' ||
                                  c == u'$' || c >= 0x80);
                       }) ||
           std::all_of(name.begin(), name.end(), base::IsDigit<char16_t>);
  if (IsDigit(name.front()) || name.front() == u'$') return true;
  return std::any_of(name.begin(), name.end(), [&](char16_t c) {
    return !(IsLower(c) || (IsUpper(c) && !folds) || IsDigit(c) || c == u'_' || c == u'$' ||
             c >= 0x80);
  });
}

bool IsReserved(std::u16string_view name) {
  return std::binary_search(kReserved.begin(), kReserved.end(),
                            base::ToUtf8(base::LowerAscii(name)));
}

// Names of tables and of their columns for which `is_bad` holds: one finding for the table's own,
// one for its columns together.
template <class IsBad>
void CheckEachName(const Schema& schema, Finds& finds, const char* own, const char* columns,
                   IsBad is_bad) {
  for (const LcWorkbookTable* table : schema.named) {
    if (is_bad(table->GetName())) finds.Add(*table, "", own);
    std::vector<std::string> names;
    for (int i = 0; i < table->GetColumnCount(); ++i) {
      const std::u16string& name = table->GetColumn(i)->GetName();
      if (is_bad(name)) names.push_back(Shown(name));
    }
    if (!names.empty()) finds.Add(*table, "", fmt::format("{}: {}", columns, Some(names)));
  }
}

// The styles of names. Small letters alone go with two of them.
enum Style { stSnake, stCamel, stPascal, stUpper, stOther, stCount };
constexpr std::array<const char*, stCount> kStyles = {"snake_case", "camelCase", "PascalCase",
                                                      "UPPER_CASE", "none"};

// The styles that a name fits, as bits.
unsigned StylesOf(std::u16string_view name) {
  bool upper = false;
  bool lower = false;
  bool underscore = false;
  for (const char16_t c : name) {
    if (c >= 0x80 || c == u' ' || c == u'-' || c == u'.') return 1U << stOther;
    upper = upper || IsUpper(c);
    lower = lower || IsLower(c);
    underscore = underscore || c == u'_';
  }
  if (!upper && !lower) return (1U << stOther) - 1;
  if (!upper) return underscore ? 1U << stSnake : (1U << stSnake) | (1U << stCamel);
  if (!lower) return name.size() == 1 ? (1U << stPascal) | (1U << stUpper) : 1U << stUpper;
  if (underscore) return 1U << stOther;
  return IsUpper(name.front()) ? 1U << stPascal : 1U << stCamel;
}

class Names {
 public:
  // A name that many tables have counts once.
  void Add(const std::u16string& name) {
    if (!seen_.insert(name).second) return;
    const unsigned styles = StylesOf(name);
    names_.push_back(&name);
    styles_.push_back(styles);
    for (unsigned i = 0; i < stOther; ++i) counts_[i] += (styles >> i) & 1U;
  }

  void Tell(const std::u16string& owner, const char* what, Finds& finds) const {
    const auto* most = std::max_element(counts_.begin(), counts_.begin() + stOther);
    const auto style = static_cast<unsigned>(most - counts_.begin());
    if (*most == names_.size() || *most == 0) return;
    std::vector<std::string> others;
    for (std::size_t i = 0; i < names_.size(); ++i) {
      if (((styles_[i] >> style) & 1U) == 0) others.push_back(Shown(*names_[i]));
    }
    finds.Add(owner, fmt::format("{} of {} names of {} are not in {} as the others: {}",
                                 others.size(), names_.size(), what, kStyles[style], Some(others)));
  }

 private:
  std::unordered_set<std::u16string> seen_;
  std::vector<const std::u16string*> names_;
  std::vector<unsigned> styles_;
  std::array<std::size_t, stCount> counts_{};
};

void TellSameByCase(const std::map<std::u16string, std::vector<std::string>>& names,
                    const std::function<void(std::string)>& tell) {
  for (const auto& [lower, same] : names) {
    if (same.size() > 1) tell(Some(same));
  }
}

}  // namespace

void CheckQuotedNames(const Schema& schema, Finds& finds) {
  CheckEachName(schema, finds, "its name needs quotes", "columns whose names need quotes",
                [&](std::u16string_view name) { return NeedsQuotes(schema, name); });
}

void CheckReservedWords(const Schema& schema, Finds& finds) {
  CheckEachName(schema, finds, "its name is a reserved word",
                "columns whose names are reserved words", IsReserved);
}

void CheckLongNames(const Schema& schema, Finds& finds) {
  const auto tell = [&](const LcWorkbookTable& table, const char* what, std::u16string_view name) {
    // As many UTF-16 units are at most three times as many bytes.
    if (name.size() * 3 <= kMostBytes) return;
    const std::size_t bytes = base::ToUtf8(name).size();
    if (bytes <= kMostBytes) return;
    finds.Add(table, Shown(name), fmt::format("the name of the {} has {} bytes", what, bytes));
  };
  for (const LcWorkbookTable* table : schema.named) {
    tell(*table, table->GetType() == ttView ? "view" : "table", table->GetName());
    for (int i = 0; i < table->GetColumnCount(); ++i) {
      tell(*table, "column", table->GetColumn(i)->GetName());
    }
    const LcTableDetails* details = table->GetDetails();
    if (details == nullptr) continue;
    if (details->primary_key != nullptr) {
      tell(*table, "primary key", details->primary_key->name.View());
    }
    for (const LcKeyDetails& key : details->unique_keys) tell(*table, "key", key.name.View());
    for (const LcCheckDetails& check : details->checks) tell(*table, "check", check.name.View());
    for (const LcIndexDetails& index : details->indexes) tell(*table, "index", index.name.View());
    for (const auto& key : table->GetForeignKeys()) {
      if (key->GetRole() == fkMirror && key->GetDetails() != nullptr) {
        tell(*table, "foreign key", key->GetDetails()->name.View());
      }
    }
  }
}

void CheckNamesByCase(const Schema& schema, Finds& finds) {
  std::map<std::u16string, std::map<std::u16string, std::vector<std::string>>> tables;
  for (const LcWorkbookTable* table : schema.named) {
    tables[table->GetOwner(false)][base::LowerAscii(table->GetName())].push_back(
        Shown(table->GetName()));
    std::map<std::u16string, std::vector<std::string>> columns;
    for (int i = 0; i < table->GetColumnCount(); ++i) {
      const std::u16string& name = table->GetColumn(i)->GetName();
      columns[base::LowerAscii(name)].push_back(Shown(name));
    }
    TellSameByCase(columns, [&](const std::string& names) {
      finds.Add(*table, "", "columns whose names differ in case alone: " + names);
    });
  }
  for (const auto& [owner, names] : tables) {
    TellSameByCase(names, [&, key = owner](const std::string& same) {
      finds.Add(key, "tables whose names differ in case alone: " + same);
    });
  }
}

void CheckStyles(const Schema& schema, Finds& finds) {
  std::map<std::u16string, std::pair<Names, Names>> owners;
  for (const LcWorkbookTable* table : schema.named) {
    auto& [tables, columns] = owners[table->GetOwner(false)];
    tables.Add(table->GetName());
    for (int i = 0; i < table->GetColumnCount(); ++i) columns.Add(table->GetColumn(i)->GetName());
  }
  for (const auto& [owner, names] : owners) {
    names.first.Tell(owner, "tables", finds);
    names.second.Tell(owner, "columns", finds);
  }
}

}  // namespace wblint
