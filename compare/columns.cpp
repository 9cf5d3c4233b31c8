#include "compare/columns.h"

#include <algorithm>
#include <unordered_map>

#include "base/utf.h"

namespace wbcompare {

namespace {

bool HaveOneName(const Context& context, const LcWorkbookColumn& a, const LcWorkbookColumn& b) {
  if (a.GetName() == b.GetName()) return true;
  return context.new_names.ignores_case() &&
         context.old_names.Name(a.GetName()) == context.new_names.Name(b.GetName());
}

bool AreEqual(const LcWorkbookDatatype* a, const LcWorkbookDatatype* b) {
  if (a == nullptr || b == nullptr) return a == b;
  return a->GetDatabaseType() == b->GetDatabaseType() && a->GetTypeName() == b->GetTypeName() &&
         a->GetExtendedTypeName(0) == b->GetExtendedTypeName(0) &&
         a->IsSizeModifiable() == b->IsSizeModifiable() && a->GetTypeGroup() == b->GetTypeGroup();
}

bool AreEqual(const LcColumnDetails* a, const LcColumnDetails* b) {
  if (a == nullptr || b == nullptr) return a == b;
  return a->default_text == b->default_text && a->expression == b->expression &&
         a->collation == b->collation && a->comment == b->comment && a->options == b->options &&
         a->generated == b->generated && a->identity == b->identity;
}

// Equal in everything that is compared: a quick answer for nearly every column.
bool AreEqual(const LcWorkbookColumn& a, const LcWorkbookColumn& b) {
  return a.IsRequired() == b.IsRequired() && a.IsReadOnly() == b.IsReadOnly() &&
         a.IsGeneratedKey() == b.IsGeneratedKey() && a.GetPrecision() == b.GetPrecision() &&
         a.GetScale() == b.GetScale() && a.GetWidth() == b.GetWidth() &&
         a.GetIntervalMin() == b.GetIntervalMin() && a.GetIntervalMax() == b.GetIntervalMax() &&
         a.GetExtendedTypeName() == b.GetExtendedTypeName() &&
         AreEqual(a.GetDataType(), b.GetDataType()) && AreEqual(a.GetDetails(), b.GetDetails());
}

using Pairs = std::vector<std::pair<int, int>>;

// The columns of both tables that have one name; of several alike the next. Positions that found
// none go to the lists of the match.
void MatchByName(const Context& context, const LcWorkbookTable& before,
                 const LcWorkbookTable& after, std::vector<bool>& taken_before,
                 std::vector<bool>& taken_after, ColumnMatch& match) {
  std::unordered_map<std::string, std::vector<int>> by_name;
  for (int i = after.GetColumnCount() - 1; i >= 0; --i) {
    if (!taken_after[static_cast<std::size_t>(i)]) {
      by_name[context.new_names.Name(after.GetColumn(i)->GetName())].push_back(i);
    }
  }
  for (int i = 0; i < before.GetColumnCount(); ++i) {
    if (taken_before[static_cast<std::size_t>(i)]) continue;
    const auto found = by_name.find(context.old_names.Name(before.GetColumn(i)->GetName()));
    if (found == by_name.end() || found->second.empty()) continue;
    const int at = found->second.back();
    found->second.pop_back();
    taken_before[static_cast<std::size_t>(i)] = true;
    taken_after[static_cast<std::size_t>(at)] = true;
    match.pairs.emplace_back(i, at);
  }
}

// Columns without their like. The place of each is told by the column before it that has one, and
// by how many without one stand between: a number that both sides make alike.
std::vector<LooseColumn> LooseColumns(const LcWorkbookTable& table, const std::vector<bool>& taken,
                                      const std::vector<int>& numbers) {
  std::vector<LooseColumn> loose;
  std::size_t anchor = 0;
  std::size_t behind = 0;
  for (int i = 0; i < table.GetColumnCount(); ++i) {
    if (taken[static_cast<std::size_t>(i)]) {
      anchor = static_cast<std::size_t>(numbers[static_cast<std::size_t>(i)]) + 1;
      behind = 0;
      continue;
    }
    loose.push_back({table.GetColumn(i), (anchor << 32) + behind++});
  }
  return loose;
}

void GuessRenames(const LcWorkbookTable& before, const LcWorkbookTable& after,
                  std::vector<bool>& taken_before, std::vector<bool>& taken_after,
                  ColumnMatch& match) {
  std::vector<int> old_numbers(taken_before.size());
  std::vector<int> new_numbers(taken_after.size());
  std::vector<int> old_positions;
  std::vector<int> new_positions;
  for (const auto& [a, b] : match.pairs) {
    old_numbers[static_cast<std::size_t>(a)] = a;
    new_numbers[static_cast<std::size_t>(b)] = a;
  }
  const auto positions_of = [](const std::vector<bool>& taken, std::vector<int>& positions) {
    for (std::size_t i = 0; i < taken.size(); ++i) {
      if (!taken[i]) positions.push_back(static_cast<int>(i));
    }
  };
  positions_of(taken_before, old_positions);
  positions_of(taken_after, new_positions);
  for (const RenameGuess& guess : GuessColumns(LooseColumns(before, taken_before, old_numbers),
                                               LooseColumns(after, taken_after, new_numbers))) {
    const int a = old_positions[guess.before];
    const int b = new_positions[guess.after];
    taken_before[static_cast<std::size_t>(a)] = true;
    taken_after[static_cast<std::size_t>(b)] = true;
    match.pairs.emplace_back(a, b);
    match.renamed.push_back({a, b, true, guess.evidence});
  }
}

// A sum over the columns of an order that can be compared: how many there are, then a number of
// their names, so that of several orders of one length both sides choose the same.
using Weight = std::pair<std::uint64_t, std::uint64_t>;

std::uint64_t NumberOf(const std::string& name) {
  return std::hash<std::string>()(name) >> 20;  // so that sums do not run over
}

// The columns that moved: those outside of the longest row of columns that kept its order.
std::vector<std::pair<int, int>> FindMoved(const LcWorkbookTable& before,
                                           const LcWorkbookTable& after, const Pairs& pairs) {
  const auto in_order = [](const auto& a, const auto& b) { return a.second < b.second; };
  if (std::is_sorted(pairs.begin(), pairs.end(), in_order)) return {};
  struct Best {
    Weight weight;
    std::size_t end = 0;  // the pair that the row ends with, from 1 on; 0: none
  };
  // The best row that ends at a place up to this one, as a tree of sums.
  std::vector<Best> tree(static_cast<std::size_t>(after.GetColumnCount()) + 1);
  std::vector<std::size_t> previous(pairs.size() + 1);
  Best whole;
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    const auto place = static_cast<std::size_t>(pairs[i].second) + 1;
    Best best;
    for (std::size_t at = place - 1; at > 0; at &= at - 1) {
      if (tree[at].weight > best.weight) best = tree[at];
    }
    previous[i + 1] = best.end;
    ++best.weight.first;
    best.weight.second += NumberOf(base::ToUtf8(before.GetColumn(pairs[i].first)->GetName())) +
                          NumberOf(base::ToUtf8(after.GetColumn(pairs[i].second)->GetName()));
    best.end = i + 1;
    for (std::size_t at = place; at < tree.size(); at += at & (~at + 1)) {
      if (best.weight > tree[at].weight) tree[at] = best;
    }
    if (best.weight > whole.weight) whole = best;
  }
  std::vector<bool> stays(pairs.size() + 1);
  for (std::size_t at = whole.end; at != 0; at = previous[at]) stays[at] = true;
  Pairs moved;
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    if (!stays[i + 1]) moved.push_back(pairs[i]);
  }
  return moved;
}

class ColumnComparison {
 public:
  ColumnComparison(Context& context, const LcWorkbookTable& before, const LcWorkbookTable& after)
      : context_(context), before_(before), after_(after) {}

  void ComparePairs(const ColumnMatch* match) {
    if (match == nullptr) {
      for (int i = 0; i < before_.GetColumnCount(); ++i) ComparePair(i, i);
      return;
    }
    for (const auto& [a, b] : match->pairs) ComparePair(a, b);
  }
  void TellRenamed(const ColumnMatch& match) {
    for (const ColumnMatch::Renamed& renamed : match.renamed) {
      Change change = Start(renamed.before, renamed.after);
      change.action = Action::kRenamed;
      change.guess = renamed.guess;
      change.evidence = renamed.evidence;
      context_.Add(std::move(change));
    }
  }
  void TellMoved(const ColumnMatch& match) {
    if (!context_.Compares(Object::kColumn, Property::kPlace)) return;
    for (const auto& [a, b] : FindMoved(before_, after_, match.pairs)) {
      Change change = Start(a, b);
      change.property = Property::kPlace;
      context_.Add(std::move(change));
    }
  }
  void TellOneSided(const ColumnMatch& match) {
    for (const int at : match.removed) TellOneSided(*before_.GetColumn(at), true);
    for (const int at : match.added) TellOneSided(*after_.GetColumn(at), false);
  }

 private:
  Change Start(int a, int b) const {
    Change change;
    change.object = Object::kColumn;
    change.old_table = &before_;
    change.new_table = &after_;
    change.before = static_cast<const LcWorkbookColumn*>(before_.GetColumn(a));
    change.after = static_cast<const LcWorkbookColumn*>(after_.GetColumn(b));
    return change;
  }
  void TellOneSided(const LcWorkbookColumn& column, bool is_old) {
    context_.AddOneSided(Object::kColumn, &column, is_old, &before_, &after_);
  }
  void ComparePair(int a, int b) {
    const LcWorkbookColumn& before = *before_.GetColumn(a);
    const LcWorkbookColumn& after = *after_.GetColumn(b);
    const bool one_spelling = before.GetName() == after.GetName();
    if (one_spelling && AreEqual(before, after)) return;
    if (!one_spelling && HaveOneName(context_, before, after)) {
      Change change = Start(a, b);
      change.action = Action::kRenamed;
      change.evidence = evCase;
      context_.Add(std::move(change));
    }
    context_.ComparePair(Object::kColumn, &before, &after, &before_, &after_);
  }

  Context& context_;
  const LcWorkbookTable& before_;
  const LcWorkbookTable& after_;
};

}  // namespace

bool AreInPlace(const Context& context, const LcWorkbookTable& before,
                const LcWorkbookTable& after) {
  if (before.GetColumnCount() != after.GetColumnCount()) return false;
  for (int i = 0; i < before.GetColumnCount(); ++i) {
    if (!HaveOneName(context, *before.GetColumn(i), *after.GetColumn(i))) return false;
  }
  return true;
}

ColumnMatch MatchColumns(const Context& context, const LcWorkbookTable& before,
                         const LcWorkbookTable& after,
                         const std::vector<std::pair<int, int>>& asked) {
  ColumnMatch match;
  std::vector<bool> taken_before(static_cast<std::size_t>(before.GetColumnCount()));
  std::vector<bool> taken_after(static_cast<std::size_t>(after.GetColumnCount()));
  for (const auto& [a, b] : asked) {
    taken_before[static_cast<std::size_t>(a)] = true;
    taken_after[static_cast<std::size_t>(b)] = true;
    match.pairs.emplace_back(a, b);
    match.renamed.push_back({a, b, false, evAsked});
  }
  MatchByName(context, before, after, taken_before, taken_after, match);
  if (context.options.guess_renames) {
    GuessRenames(before, after, taken_before, taken_after, match);
  }
  std::sort(match.pairs.begin(), match.pairs.end());
  for (std::size_t i = 0; i < taken_before.size(); ++i) {
    if (!taken_before[i]) match.removed.push_back(static_cast<int>(i));
  }
  for (std::size_t i = 0; i < taken_after.size(); ++i) {
    if (!taken_after[i]) match.added.push_back(static_cast<int>(i));
  }
  return match;
}

void CompareColumns(Context& context, const LcWorkbookTable& before, const LcWorkbookTable& after,
                    const ColumnMatch* match) {
  ColumnComparison comparison(context, before, after);
  if (match != nullptr) comparison.TellRenamed(*match);
  comparison.ComparePairs(match);
  if (match == nullptr) return;
  comparison.TellOneSided(*match);
  comparison.TellMoved(*match);
}

}  // namespace wbcompare
