// See inexact_names.h.
#include "host/inexact_names.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

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

// Owner and name as one text. No name has the character between them, so that a pattern fits both
// or neither.
std::u16string Whole(const LcWorkbookTable& table) {
  return table.GetOwner(true) + u'\0' + table.GetName();
}

// The text with _ at each of the places, which begin at 0 and ascend.
std::u16string Masked(std::u16string text, const std::vector<std::size_t>& places) {
  for (const std::size_t place : places) text[place] = u'_';
  return text;
}

std::vector<std::size_t> PlacesOfUnderscores(std::u16string_view text) {
  std::vector<std::size_t> places;
  for (std::size_t at = text.find(u'_'); at != std::u16string_view::npos;
       at = text.find(u'_', at + 1)) {
    places.push_back(at);
  }
  return places;
}

// The tables whose names, taken for patterns, fit another table's as well. A name with _ fits the
// names of its length that are the same once its places of _ are masked in both: those that have _
// in the same places (table_1, table_2 and so on) are looked for in one pass over the names.
class Finder {
 public:
  explicit Finder(const LcWorkbook& workbook) {
    for (const LcWorkbookTable* table : workbook.tables.Present()) {
      std::u16string whole = Whole(*table);
      if (HasAny(whole, u"%")) {
        anywhere_.push_back({table, whole});
      } else if (std::vector<std::size_t> places = PlacesOfUnderscores(whole); !places.empty()) {
        of_shape_[{whole.size(), std::move(places)}].push_back({table, whole});
      }
      by_length_[whole.size()].push_back(std::move(whole));
    }
    for (const auto& [shape, patterns] : of_shape_) FindOfShape(shape, patterns);
    for (const Pattern& pattern : anywhere_) FindAnywhere(pattern);
  }

  // Whether the driver can have taken the table's names for another's.
  bool FitsAnother(const LcWorkbookTable& table) const { return found_.count(&table) > 0; }

 private:
  struct Pattern {
    const LcWorkbookTable* table;
    std::u16string text;
  };
  using Shape = std::pair<std::size_t, std::vector<std::size_t>>;  // length, places of _

  void FindOfShape(const Shape& shape, const std::vector<Pattern>& patterns) {
    const std::vector<std::u16string>& names = by_length_[shape.first];
    comparisons_ += names.size();
    std::unordered_map<std::u16string_view, std::size_t> fitting;  // names by pattern
    for (const Pattern& pattern : patterns) fitting.emplace(pattern.text, 0);
    if (comparisons_ <= kMostComparisons) {
      for (const std::u16string& name : names) {
        const auto at = fitting.find(Masked(name, shape.second));
        if (at != fitting.end()) ++at->second;
      }
    }
    for (const Pattern& pattern : patterns) {
      // Itself is one of them.
      if (comparisons_ > kMostComparisons || fitting[pattern.text] > 1)
        found_.insert(pattern.table);
    }
  }

  void FindAnywhere(const Pattern& pattern) {
    std::size_t fitting = 0;
    for (const auto& [length, names] : by_length_) {
      for (const std::u16string& name : names) {
        if (++comparisons_ > kMostComparisons || (Fits(pattern.text, name) && ++fitting > 1)) {
          found_.insert(pattern.table);
          return;
        }
      }
    }
  }

  std::unordered_map<std::size_t, std::vector<std::u16string>> by_length_;
  std::map<Shape, std::vector<Pattern>> of_shape_;
  std::vector<Pattern> anywhere_;
  std::unordered_set<const LcWorkbookTable*> found_;
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
  const Finder finder(workbook);
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
