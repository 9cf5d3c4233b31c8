#include "compare/tables.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "base/utf.h"
#include "compare/asked_renames.h"
#include "compare/renames.h"

namespace wbcompare {

namespace {

using Tables = std::vector<const LcWorkbookTable*>;

// Finds tables by the spelling of their names; of several alike the next that is free.
class FreeTables {
 public:
  FreeTables(const Tables& tables, const Names& names) {
    by_name_.reserve(tables.size());
    for (std::size_t i = tables.size(); i-- > 0;) {
      const auto [at, is_new] = by_name_.try_emplace(names.Table(*tables[i]), i);
      if (is_new) continue;
      next_.emplace(i, at->second);
      at->second = i;
    }
  }
  // The position, which is not free any more; none where there is no such table.
  std::optional<std::size_t> Take(const std::string& name) {
    const auto at = by_name_.find(name);
    if (at == by_name_.end()) return std::nullopt;
    const std::size_t found = at->second;
    const auto next = next_.find(found);
    if (next == next_.end()) {
      by_name_.erase(at);
    } else {
      at->second = next->second;
    }
    return found;
  }

 private:
  std::unordered_map<std::string, std::size_t> by_name_;
  std::unordered_map<std::size_t, std::size_t> next_;
};

Tables TablesOf(const Context& context, const LcWorkbook& workbook) {
  Tables tables;
  tables.reserve(workbook.tables.GetCount());
  for (const LcWorkbookTable* table : workbook.tables) {
    if (table != nullptr && !context.LeavesOut(table->GetOwner(false), table->GetName())) {
      tables.push_back(table);
    }
  }
  return tables;
}

// Owners with the number of their tables.
using Owners = std::unordered_map<std::string, std::size_t>;
Owners CountOwners(const Tables& tables, const Names& names) {
  Owners owners;
  for (const LcWorkbookTable* table : tables) ++owners[names.Owner(table->GetOwner(false))];
  return owners;
}

// Guesses owners with another name: most of their tables have the same names.
void GuessOwners(Context& context, const Tables& before, const Tables& after) {
  const Owners old_owners = CountOwners(before, context.old_names);
  const Owners new_owners = CountOwners(after, context.new_names);
  const auto is_loose = [](const std::string& owner, const Owners& others) {
    return others.find(owner) == others.end();
  };
  constexpr std::size_t kFew = 4;  // what more owners have tells none of them
  std::unordered_map<std::string, Tables> by_name;
  for (const LcWorkbookTable* table : after) {
    if (is_loose(context.new_names.Owner(table->GetOwner(false)), old_owners)) {
      by_name[context.new_names.Name(table->GetName())].push_back(table);
    }
  }
  if (by_name.empty()) return;
  struct Shared {
    std::size_t tables = 0;
    const LcWorkbookTable* before = nullptr;
    const LcWorkbookTable* after = nullptr;
  };
  std::unordered_map<std::string, std::unordered_map<std::string, Shared>> shared;
  for (const LcWorkbookTable* table : before) {
    const std::string owner = context.old_names.Owner(table->GetOwner(false));
    if (!is_loose(owner, new_owners)) continue;
    const auto found = by_name.find(context.old_names.Name(table->GetName()));
    if (found == by_name.end() || found->second.size() > kFew) continue;
    for (const LcWorkbookTable* like : found->second) {
      Shared& pair = shared[owner][context.new_names.Owner(like->GetOwner(false))];
      pair = {pair.tables + 1, table, like};
    }
  }
  for (const auto& [owner, likes] : shared) {
    for (const auto& [like, pair] : likes) {
      const std::size_t all = std::max(old_owners.at(owner), new_owners.at(like));
      // More than half of the larger can be true of one pair only, from either side.
      if (pair.tables * 2 <= all) continue;
      Change change;
      change.action = Action::kRenamed;
      change.object = Object::kOwner;
      change.guess = true;
      change.evidence = evTables;
      change.shared = static_cast<std::uint32_t>(pair.tables);
      change.all = static_cast<std::uint32_t>(all);
      change.before = pair.before;
      change.after = pair.after;
      context.old_names.RenameOwner(owner, like);
      context.Add(std::move(change));
    }
  }
}

class TableMatching {
 public:
  TableMatching(Context& context, std::vector<TablePair>& pairs)
      : context_(context),
        pairs_(pairs),
        before_(TablesOf(context, context.before.workbook)),
        after_(TablesOf(context, context.after.workbook)),
        matched_(after_.size()) {}

  bool Match(std::string& why) {
    AskedRenames asked;
    if (!asked.Resolve(context_, why)) return false;
    if (context_.options.guess_renames) GuessOwners(context_, before_, after_);
    MatchAsked(asked);
    MatchByName();
    if (context_.options.guess_renames) GuessTablesLeft();
    for (std::size_t i = 0; i < before_.size(); ++i) {
      if (!taken_.count(before_[i])) pairs_.push_back({before_[i], nullptr, {}, {}});
    }
    for (std::size_t i = 0; i < after_.size(); ++i) {
      if (!matched_[i]) pairs_.push_back({nullptr, after_[i], {}, {}});
    }
    MatchAllColumns(asked);
    return true;
  }

 private:
  void Pair(const LcWorkbookTable* before, std::size_t after, Change renamed = {}) {
    taken_.insert(before);
    matched_[after] = true;
    renamed.object = ObjectOf(before, after_[after]);
    renamed.old_table = before;
    renamed.new_table = after_[after];
    renamed.before = before;
    renamed.after = after_[after];
    if (renamed.action == Action::kRenamed && renamed.evidence != evCase) {
      context_.old_names.RenameTable(*before, *after_[after]);
    }
    pairs_.push_back({before, after_[after], nullptr, std::move(renamed)});
  }

  void MatchAsked(const AskedRenames& asked) {
    for (const auto& [from, to] : asked.owners) {
      Change change;
      change.action = Action::kRenamed;
      change.object = Object::kOwner;
      change.evidence = evAsked;
      change.before = from;
      change.after = to;
      context_.Add(std::move(change));
    }
    if (asked.tables.empty()) return;
    std::unordered_map<const LcWorkbookTable*, std::size_t> positions;
    for (std::size_t i = 0; i < after_.size(); ++i) positions.emplace(after_[i], i);
    for (const auto& [from, to] : asked.tables) {
      const auto at = positions.find(to);
      if (at == positions.end() || matched_[at->second] || taken_.count(from)) continue;
      Change change;
      change.action = Action::kRenamed;
      change.evidence = evAsked;
      Pair(from, at->second, std::move(change));
    }
  }

  void MatchByName() {
    FreeTables free(after_, context_.new_names);
    for (const LcWorkbookTable* table : before_) {
      if (taken_.count(table)) continue;
      std::optional<std::size_t> found = free.Take(context_.old_names.Table(*table));
      while (found && matched_[*found]) found = free.Take(context_.old_names.Table(*table));
      if (!found) continue;
      Change change;
      if (table->GetName() != after_[*found]->GetName() && context_.new_names.ignores_case()) {
        change.action = Action::kRenamed;
        change.evidence = evCase;
      }
      Pair(table, *found, std::move(change));
    }
  }

  void GuessTablesLeft() {
    Tables gone;
    Tables come;
    std::vector<std::size_t> positions;
    for (const LcWorkbookTable* table : before_) {
      if (!taken_.count(table)) gone.push_back(table);
    }
    for (std::size_t i = 0; i < after_.size(); ++i) {
      if (matched_[i]) continue;
      come.push_back(after_[i]);
      positions.push_back(i);
    }
    if (gone.empty() || come.empty()) return;
    for (const RenameGuess& guess :
         GuessTables(gone, come, context_.old_names, context_.new_names)) {
      Change change;
      change.action = Action::kRenamed;
      change.guess = true;
      change.evidence = guess.evidence;
      change.shared = guess.shared;
      change.all = guess.all;
      Pair(gone[guess.before], positions[guess.after], std::move(change));
    }
  }

  void MatchAllColumns(const AskedRenames& asked) {
    for (TablePair& pair : pairs_) {
      if (pair.before == nullptr || pair.after == nullptr) continue;
      const auto wanted = asked.columns.find(pair.before);
      const bool none_asked = wanted == asked.columns.end();
      if (none_asked && AreInPlace(context_, *pair.before, *pair.after)) continue;
      std::vector<std::pair<int, int>> columns;
      if (!none_asked) columns = asked.ColumnsIn(*pair.before, *pair.after);
      pair.columns =
          std::make_unique<ColumnMatch>(MatchColumns(context_, *pair.before, *pair.after, columns));
      for (const ColumnMatch::Renamed& renamed : pair.columns->renamed) {
        context_.old_names.RenameColumn(*pair.before->GetColumn(renamed.before),
                                        *pair.after->GetColumn(renamed.after));
      }
    }
  }

  Context& context_;
  std::vector<TablePair>& pairs_;
  const Tables before_;
  const Tables after_;
  std::unordered_set<const LcWorkbookTable*> taken_;
  std::vector<bool> matched_;
};

}  // namespace

bool MatchTables(Context& context, std::vector<TablePair>& pairs, std::string& why) {
  return TableMatching(context, pairs).Match(why);
}

Object ObjectOf(const LcWorkbookTable* before, const LcWorkbookTable* after) {
  const enumTableType type = before != nullptr  ? before->GetType()
                             : after != nullptr ? after->GetType()
                                                : ttTable;
  if (after != nullptr && after->GetType() != type) return Object::kTable;
  return type == ttView ? Object::kView : type == ttSynonym ? Object::kSynonym : Object::kTable;
}

}  // namespace wbcompare
