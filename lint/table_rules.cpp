// Rules about the keys, indexes and comments of a table.
#include <fmt/format.h>

#include <algorithm>
#include <unordered_map>

#include "lint/rules.h"

namespace wblint {
namespace {

// SQLite's key that is the row's number itself takes no NULL, nor does a table without such
// numbers.
bool TakesNull(const Schema& schema, const LcWorkbookTable& table, const LcWorkbookColumn& column) {
  if (column.IsRequired()) return false;
  const LcColumnDetails* details = column.GetDetails();
  if (details != nullptr &&
      (details->options.Find(u"rowid").IsPresent() || details->identity != idNone)) {
    return false;
  }
  return !schema.IsDialect(u"sqlite") || table.GetDetails() == nullptr ||
         !table.GetDetails()->options.Find(u"without rowid").IsPresent();
}

std::string NullableOf(const Columns& columns) {
  std::vector<std::string> names;
  for (const LcWorkbookColumn* column : columns) {
    if (!column->IsRequired()) names.push_back(Shown(column->GetName()));
  }
  return Some(names);
}

// An index of any kind with the columns that it is on.
struct Indexed {
  std::string name;
  Columns columns;
  bool unique = false;
  bool key = false;
  std::vector<int> places;  // of the columns in their table
};

std::vector<Indexed> IndexesOf(const Table& entry) {
  std::vector<Indexed> all;
  for (const Key& key : entry.keys) {
    const std::string name = !key.name.empty() ? key.name
                             : key.primary     ? "primary key"
                                               : "unique key";
    all.push_back({name, key.columns, true, true, {}});
  }
  for (const LcIndexDetails* index : entry.indexes) {
    Columns columns = PlainColumns(*index);
    if (columns.empty()) continue;
    all.push_back({Shown(index->name.View()), std::move(columns), index->unique, false, {}});
  }
  std::unordered_map<const LcWorkbookColumn*, int> place;
  for (int i = 0; i < entry.table->GetColumnCount(); ++i) place[entry.table->GetColumn(i)] = i;
  for (Indexed& each : all) {
    for (const LcWorkbookColumn* column : each.columns) each.places.push_back(place[column]);
  }
  // Those that begin alike stand together, the shorter first; of equals a key or a unique one.
  std::stable_sort(all.begin(), all.end(), [](const Indexed& a, const Indexed& b) {
    if (a.places != b.places) return a.places < b.places;
    return (a.key ? 2 : a.unique ? 1 : 0) > (b.key ? 2 : b.unique ? 1 : 0);
  });
  return all;
}

}  // namespace

void CheckNoKey(const Schema& schema, Finds& finds) {
  for (const Table& entry : schema.tables) {
    const bool unique = std::any_of(entry.indexes.begin(), entry.indexes.end(),
                                    [](const LcIndexDetails* index) { return index->unique; });
    if (entry.keys.empty() && !unique && entry.table->GetColumnCount() > 0) {
      finds.Add(*entry.table, "", "has no key: nothing tells its rows apart");
    }
  }
}

void CheckNoPrimaryKey(const Schema& schema, Finds& finds) {
  const bool all_known = (schema.known & (knUniqueKeys | knIndexes)) == (knUniqueKeys | knIndexes);
  for (const Table& entry : schema.tables) {
    const bool primary = std::any_of(entry.keys.begin(), entry.keys.end(),
                                     [](const Key& key) { return key.primary; });
    // One without any key is told of by the other rule, where that can be known.
    const bool unique = !entry.keys.empty() ||
                        std::any_of(entry.indexes.begin(), entry.indexes.end(),
                                    [](const LcIndexDetails* index) { return index->unique; });
    if (primary || entry.table->GetColumnCount() == 0 || (all_known && !unique)) continue;
    finds.Add(
        *entry.table, "",
        unique ? "has unique keys, but none of them is the primary one" : "has no primary key");
  }
}

void CheckNullableKey(const Schema& schema, Finds& finds) {
  for (const Table& entry : schema.tables) {
    for (const Key& key : entry.keys) {
      if (!key.primary) continue;
      std::vector<std::string> names;
      for (const LcWorkbookColumn* column : key.columns) {
        if (TakesNull(schema, *entry.table, *column)) names.push_back(Shown(column->GetName()));
      }
      if (!names.empty()) {
        finds.Add(*entry.table, key.name,
                  fmt::format("the primary key takes NULL in {}", Some(names)));
      }
    }
  }
}

void CheckNullableUnique(const Schema& schema, Finds& finds) {
  const auto tell = [&](const Table& entry, const std::string& name, const char* what,
                        const Columns& columns) {
    const std::string nullable = NullableOf(columns);
    if (nullable.empty()) return;
    finds.Add(*entry.table, name,
              fmt::format("the unique {} on {} takes any number of rows with NULL in {}", what,
                          Shown(columns), nullable));
  };
  for (const Table& entry : schema.tables) {
    for (const Key& key : entry.keys) {
      if (!key.primary && !key.nulls_equal) tell(entry, key.name, "key", key.columns);
    }
    for (const LcIndexDetails* index : entry.indexes) {
      if (!index->unique || index->options.Find(u"nulls not distinct").IsPresent()) continue;
      tell(entry, Shown(index->name.View()), "index", PlainColumns(*index));
    }
  }
}

void CheckDuplicateIndex(const Schema& schema, Finds& finds) {
  for (const Table& entry : schema.tables) {
    const std::vector<Indexed> all = IndexesOf(entry);
    for (std::size_t i = 1; i < all.size(); ++i) {
      if (all[i].columns != all[i - 1].columns) continue;
      finds.Add(
          *entry.table, all[i].name,
          fmt::format("is on the same columns as {}: {}", all[i - 1].name, Shown(all[i].columns)));
    }
  }
}

void CheckRedundantIndex(const Schema& schema, Finds& finds) {
  for (const Table& entry : schema.tables) {
    const std::vector<Indexed> all = IndexesOf(entry);
    for (std::size_t i = 0; i + 1 < all.size(); ++i) {
      const Indexed& index = all[i];
      const Indexed& next = all[i + 1];
      // A unique one holds rows to more than the longer one does.
      if (index.unique || next.columns.size() == index.columns.size() ||
          !BeginsWith(next.columns, index.columns)) {
        continue;
      }
      finds.Add(*entry.table, index.name,
                fmt::format("is on the first columns of {}: {} of {}", next.name,
                            Shown(index.columns), Shown(next.columns)));
    }
  }
}

void CheckNotEnforced(const Schema& schema, Finds& finds) {
  const auto is_off = [](const LcOptions& options) {
    return options.Find(u"validated").View() == u"no";
  };
  for (const Table& entry : schema.tables) {
    for (const Reference& reference : entry.references) {
      if (reference.details == nullptr) continue;
      const bool enforced = reference.details->enforced;
      if (enforced && !is_off(reference.details->options)) continue;
      finds.Add(*entry.table, reference.name,
                enforced ? "the foreign key was not checked against the rows that were there"
                         : "the foreign key is not enforced");
    }
    if (entry.table->GetDetails() == nullptr) continue;
    for (const LcCheckDetails& check : entry.table->GetDetails()->checks) {
      const bool enforced = check.options.Find(u"enforced").View() != u"no";
      if (enforced && !is_off(check.options)) continue;
      finds.Add(*entry.table, Shown(check.name.View()),
                enforced ? "the check was not made on the rows that were there"
                         : "the check is not enforced");
    }
    for (const LcIndexDetails* index : entry.indexes) {
      if (index->options.Find(u"valid").View() != u"no") continue;
      finds.Add(*entry.table, Shown(index->name.View()),
                "the index is not valid: it was never built to its end");
    }
  }
}

void CheckNoColumns(const Schema& schema, Finds& finds) {
  for (const Table& entry : schema.tables) {
    if (entry.table->GetColumnCount() == 0) finds.Add(*entry.table, "", "has no columns");
  }
}

void CheckNoComment(const Schema& schema, Finds& finds) {
  for (const Table& entry : schema.tables) {
    const LcTableDetails* details = entry.table->GetDetails();
    if (details == nullptr || details->comment.View().empty()) {
      finds.Add(*entry.table, "", "has no comment");
    }
    std::vector<std::string> silent;
    for (int i = 0; i < entry.table->GetColumnCount(); ++i) {
      const LcWorkbookColumn& column = *entry.table->GetColumn(i);
      if (column.GetDetails() == nullptr || column.GetDetails()->comment.View().empty()) {
        silent.push_back(Shown(column.GetName()));
      }
    }
    if (silent.empty()) continue;
    finds.Add(*entry.table, "",
              fmt::format("{} of {} columns have no comment: {}", silent.size(),
                          entry.table->GetColumnCount(), Some(silent)));
  }
}

}  // namespace wblint
