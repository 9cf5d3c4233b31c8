// See inexact_names.h.
#include "host/inexact_names.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <unordered_map>

#include "host/text.h"

namespace wbhost {
namespace {

constexpr std::size_t kMostCharacters = 63;  // of a name that a catalog function's row can have
constexpr std::size_t kMostNamed = 100;      // of each kind
// Comparisons of names; beyond them a name counts as one that fits another, which it may.
constexpr std::size_t kMostComparisons = 20'000'000;

bool HasAny(std::u16string_view name, std::u16string_view characters) {
  return name.find_first_of(characters) != std::u16string_view::npos;
}

// Whether the catalog functions' pattern fits the name: _ is one character, % any number.
bool Fits(std::u16string_view pattern, std::u16string_view name) {
  std::size_t at = 0;
  std::size_t in = 0;
  std::size_t after_percent = std::u16string_view::npos;
  std::size_t resume = 0;
  while (in < name.size()) {
    if (at < pattern.size() && pattern[at] == u'%') {
      after_percent = ++at;
      resume = in;
    } else if (at < pattern.size() && (pattern[at] == u'_' || pattern[at] == name[in])) {
      ++at;
      ++in;
    } else if (after_percent != std::u16string_view::npos) {
      at = after_percent;
      in = ++resume;
    } else {
      return false;
    }
  }
  while (at < pattern.size() && pattern[at] == u'%') ++at;
  return at == pattern.size();
}

class Finder {
 public:
  explicit Finder(const LcWorkbook& workbook) {
    for (const LcWorkbookTable* table : workbook.tables.Present()) {
      by_length_[table->GetName().size()].push_back(table);
    }
  }

  // Whether the driver can have taken the table's names for another's.
  bool FitsAnother(const LcWorkbookTable& table) {
    if (!HasAny(table.GetName(), u"%")) {
      return FitsOneOf(by_length_[table.GetName().size()], table);
    }
    return std::any_of(by_length_.begin(), by_length_.end(),
                       [&](const auto& tables) { return FitsOneOf(tables.second, table); });
  }

 private:
  bool FitsOneOf(const std::vector<const LcWorkbookTable*>& others, const LcWorkbookTable& table) {
    for (const LcWorkbookTable* other : others) {
      if (++comparisons_ > kMostComparisons) return true;
      if (other != &table && Fits(table.GetName(), other->GetName()) &&
          Fits(table.GetOwner(true), other->GetOwner(true))) {
        return true;
      }
    }
    return false;
  }

  std::unordered_map<std::size_t, std::vector<const LcWorkbookTable*>> by_length_;
  std::size_t comparisons_ = 0;
};

// The entries of one kind of inexact name.
class Named {
 public:
  Named(const char16_t* kind, const char16_t* reason) : kind_(kind), reason_(reason) {}
  void Add(const LcWorkbookTable& table, const std::u16string& name) {
    if (++count_ > kMostNamed) return;
    LcNotRead& entry = Entry(reason_);
    if (!table.GetOwner(true).empty()) entry.owner = LcText(table.GetOwner(true));
    entry.name = LcText(name);
  }
  void MoveTo(std::vector<LcNotRead>& all) {
    if (count_ > kMostNamed) {
      Entry(ToUtf16(fmt::format("{} more: ", count_ - kMostNamed)) + std::u16string(reason_));
    }
    std::move(entries_.begin(), entries_.end(), std::back_inserter(all));
  }

 private:
  LcNotRead& Entry(std::u16string_view reason) {
    LcNotRead& entry = entries_.emplace_back();
    entry.kind = LcText(std::u16string_view(kind_));
    entry.reason = LcText(reason);
    entry.withheld = true;
    return entry;
  }

  const char16_t* kind_;
  const std::u16string_view reason_;
  std::vector<LcNotRead> entries_;
  std::size_t count_ = 0;
};

}  // namespace

std::vector<LcNotRead> FindInexactNames(const LcWorkbook& workbook, bool is_part) {
  Finder finder(workbook);
  Named patterns(
      u"exact columns",
      u"the driver takes _ and % in a name for wildcards, so that it may have columns of "
      u"other tables; --reading exact asks for the name");
  Named escapes(u"exact columns",
                u"the driver may take the backslash in the name for an escape and find nothing; "
                u"--reading exact asks for the name");
  Named cut(
      u"exact name",
      u"names end at 63 characters here, so that it may be cut, and a table whose name is cut has "
      u"no columns and keys; --reading exact has them whole");
  for (const LcWorkbookTable* table : workbook.tables.Present()) {
    const std::u16string& owner = table->GetOwner(true);
    const std::u16string& name = table->GetName();
    if (HasAny(name, u"\\") || HasAny(owner, u"\\")) escapes.Add(*table, name);
    if ((HasAny(name, u"_%") || HasAny(owner, u"_%")) && (is_part || finder.FitsAnother(*table))) {
      patterns.Add(*table, name);
    }
    if (std::max(name.size(), owner.size()) >= kMostCharacters) cut.Add(*table, name);
    for (int i = 0; i < table->GetColumnCount(); ++i) {
      const std::u16string& column = table->GetColumn(i)->GetName();
      if (column.size() >= kMostCharacters) cut.Add(*table, name + u'.' + column);
    }
  }
  std::vector<LcNotRead> all;
  for (Named* kind : {&patterns, &escapes, &cut}) kind->MoveTo(all);
  return all;
}

}  // namespace wbhost
