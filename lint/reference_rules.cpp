// Rules about foreign keys, and about columns of several tables.
#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>

#include "base/ascii.h"
#include "base/utf.h"
#include "importer/workbook/type_text.h"
#include "lint/rules.h"

namespace wblint {
namespace {

std::string Where(const Reference& reference) {
  return fmt::format("({}) to {}", Shown(reference.columns),
                     reference.target != nullptr ? Shown(*reference.target) : "another schema");
}

bool IsRequired(const Reference& reference) {
  return std::all_of(reference.columns.begin(), reference.columns.end(),
                     [](const LcWorkbookColumn* column) { return column->IsRequired(); });
}

// Tables and whom they need a row of before they can have one.
class Needs {
 public:
  explicit Needs(const Schema& schema) : needs_(schema.tables.size()) {
    for (std::size_t i = 0; i < needs_.size(); ++i) {
      for (const Reference& reference : schema.tables[i].references) {
        const auto target = schema.places.find(reference.target);
        const bool late = reference.details != nullptr && reference.details->deferrable != dfNot;
        if (target == schema.places.end() || target->second == i || late ||
            !IsRequired(reference)) {
          continue;
        }
        needs_[i].push_back(target->second);
      }
    }
  }

  // Groups of two and more that all need one another: strongly connected components, with a stack
  // of its own, since chains of references can be deeper than a thread's stack is.
  std::vector<std::vector<std::size_t>> Circles() {
    for (std::size_t i = 0; i < needs_.size(); ++i) {
      if (number_.find(i) == number_.end()) Visit(i);
    }
    return std::move(circles_);
  }

 private:
  struct Frame {
    std::size_t table;
    std::size_t next;
  };

  void Enter(std::size_t table) {
    number_[table] = low_[table] = count_++;
    path_.push_back(table);
    on_path_.insert(table);
    frames_.push_back({table, 0});
  }

  void Visit(std::size_t first) {
    Enter(first);
    while (!frames_.empty()) {
      Frame& frame = frames_.back();
      const std::size_t table = frame.table;
      if (frame.next < needs_[table].size()) {
        const std::size_t other = needs_[table][frame.next++];
        if (number_.find(other) == number_.end()) {
          Enter(other);
        } else if (on_path_.count(other) != 0) {
          low_[table] = std::min(low_[table], number_[other]);
        }
        continue;
      }
      frames_.pop_back();
      if (!frames_.empty()) {
        std::size_t& low = low_[frames_.back().table];
        low = std::min(low, low_[table]);
      }
      if (low_[table] == number_[table]) Leave(table);
    }
  }

  void Leave(std::size_t table) {
    std::vector<std::size_t> circle;
    for (std::size_t at = 0;;) {
      at = path_.back();
      path_.pop_back();
      on_path_.erase(at);
      circle.push_back(at);
      if (at == table) break;
    }
    if (circle.size() < 2) return;
    std::sort(circle.begin(), circle.end());
    circles_.push_back(std::move(circle));
  }

  std::vector<std::vector<std::size_t>> needs_;
  std::map<std::size_t, std::size_t> number_;
  std::map<std::size_t, std::size_t> low_;
  std::vector<std::size_t> path_;
  std::set<std::size_t> on_path_;
  std::vector<Frame> frames_;
  std::vector<std::vector<std::size_t>> circles_;
  std::size_t count_ = 0;
};

// Small letters, and MariaDB's whole numbers without the width that only shows.
std::string Plain(const std::string& type) {
  std::string plain = base::LowerAscii(std::string_view(type));
  const std::size_t open = plain.find("int(");
  const std::size_t close = open == std::string::npos ? open : plain.find(')', open);
  if (close != std::string::npos) plain.erase(open + 3, close - open - 2);
  return plain;
}

}  // namespace

std::string TypeOf(const LcWorkbookColumn& column) {
  const LcWorkbookDatatype* type = column.GetDataType();
  if (type == nullptr) return "";
  if (type->GetDatabaseType().IsPresent()) return Shown(type->GetDatabaseType().View());
  return Shown(LcTypeText(column));
}

bool SameType(const Schema& schema, const LcWorkbookColumn& a, const LcWorkbookColumn& b) {
  const LcWorkbookDatatype* first = a.GetDataType();
  const LcWorkbookDatatype* second = b.GetDataType();
  if (first == nullptr || second == nullptr) return true;
  // SQLite has many words for few types.
  if (schema.IsDialect(u"sqlite") && first->GetPhysicalCode() == second->GetPhysicalCode() &&
      first->GetLength() == second->GetLength()) {
    return true;
  }
  return Plain(TypeOf(a)) == Plain(TypeOf(b));
}

void CheckReferenceIndex(const Schema& schema, Finds& finds) {
  for (const Table& entry : schema.tables) {
    for (const Reference& reference : entry.references) {
      const bool found =
          std::any_of(
              entry.keys.begin(), entry.keys.end(),
              [&](const Key& key) { return BeginsWithAll(key.columns, reference.columns); }) ||
          std::any_of(entry.indexes.begin(), entry.indexes.end(), [&](const LcIndexDetails* index) {
            Columns columns;
            for (const LcIndexPart& part : index->parts) {
              if (!part.included) columns.push_back(part.column);
            }
            return !index->predicate.IsPresent() && BeginsWithAll(columns, reference.columns);
          });
      if (found) continue;
      finds.Add(
          *entry.table, reference.name,
          fmt::format("no index begins with the columns of the foreign key {}", Where(reference)));
    }
  }
}

void CheckReferenceTypes(const Schema& schema, Finds& finds) {
  for (const Table& entry : schema.tables) {
    for (const Reference& reference : entry.references) {
      const std::size_t count = std::min(reference.columns.size(), reference.target_columns.size());
      for (std::size_t i = 0; i < count; ++i) {
        const LcWorkbookColumn& from = *reference.columns[i];
        const LcWorkbookColumn& to = *reference.target_columns[i];
        if (SameType(schema, from, to)) continue;
        finds.Add(*entry.table, Shown(from.GetName()),
                  fmt::format("is {}, and refers to {}.{}, which is {}", TypeOf(from),
                              Shown(*reference.target), Shown(to.GetName()), TypeOf(to)));
      }
    }
  }
}

void CheckReferenceTarget(const Schema& schema, Finds& finds) {
  for (const Table& entry : schema.tables) {
    for (const Reference& reference : entry.references) {
      const Table* target = schema.Find(reference.target);
      if (target == nullptr) continue;
      const auto same = [&](const Columns& columns) {
        return columns.size() == reference.target_columns.size() &&
               BeginsWithAll(columns, reference.target_columns);
      };
      const bool found = std::any_of(target->keys.begin(), target->keys.end(),
                                     [&](const Key& key) { return same(key.columns); }) ||
                         std::any_of(target->indexes.begin(), target->indexes.end(),
                                     [&](const LcIndexDetails* index) {
                                       return index->unique && same(PlainColumns(*index));
                                     });
      if (found) continue;
      finds.Add(*entry.table, reference.name,
                fmt::format("refers to {} ({}), which no key holds", Shown(*reference.target),
                            Shown(reference.target_columns)));
    }
  }
}

void CheckDuplicateReference(const Schema& schema, Finds& finds) {
  for (const Table& entry : schema.tables) {
    std::map<std::pair<Columns, Columns>, const Reference*> seen;
    for (const Reference& reference : entry.references) {
      if (reference.target == nullptr) continue;
      // The pairs of columns in one order.
      std::vector<std::pair<const LcWorkbookColumn*, const LcWorkbookColumn*>> pairs;
      const std::size_t count = std::min(reference.columns.size(), reference.target_columns.size());
      for (std::size_t i = 0; i < count; ++i) {
        pairs.emplace_back(reference.columns[i], reference.target_columns[i]);
      }
      std::sort(pairs.begin(), pairs.end());
      std::pair<Columns, Columns> both;
      for (const auto& [from, to] : pairs) {
        both.first.push_back(from);
        both.second.push_back(to);
      }
      const auto [first, added] = seen.emplace(std::move(both), &reference);
      if (added) continue;
      finds.Add(*entry.table, reference.name,
                fmt::format("says the same as {}: {}",
                            first->second->name.empty() ? std::string("another foreign key")
                                                        : "the foreign key " + first->second->name,
                            Where(reference)));
    }
  }
}

void CheckHalfNull(const Schema& schema, Finds& finds) {
  for (const Table& entry : schema.tables) {
    for (const Reference& reference : entry.references) {
      if (reference.details != nullptr && reference.details->match.View() == u"full") continue;
      const auto required =
          std::count_if(reference.columns.begin(), reference.columns.end(),
                        [](const LcWorkbookColumn* column) { return column->IsRequired(); });
      const auto all = static_cast<std::ptrdiff_t>(reference.columns.size());
      if (all < 2 || required == all) continue;
      finds.Add(*entry.table, reference.name,
                fmt::format("the foreign key {} refers to nothing where one of its columns is NULL",
                            Where(reference)));
    }
  }
}

void CheckRequiredCycle(const Schema& schema, Finds& finds) {
  for (const std::vector<std::size_t>& circle : Needs(schema).Circles()) {
    std::vector<std::string> names;
    for (const std::size_t at : circle) names.push_back(Shown(*schema.tables[at].table));
    finds.Add(
        *schema.tables[circle.front()].table, "",
        fmt::format("{} tables require a row of one another: {}", circle.size(), Some(names, 10)));
  }
}

void CheckAlone(const Schema& schema, Finds& finds) {
  for (const Table& entry : schema.tables) {
    if (entry.references.empty() && !entry.referred) {
      finds.Add(*entry.table, "", "refers to no table, and none refers to it");
    }
  }
}

void CheckSameName(const Schema& schema, Finds& finds) {
  struct Use {
    std::string type;
    std::vector<std::string> tables;
  };
  std::map<std::pair<std::u16string, std::u16string>, std::map<std::string, Use>> by_name;
  for (const Table& entry : schema.tables) {
    for (int i = 0; i < entry.table->GetColumnCount(); ++i) {
      const LcWorkbookColumn& column = *entry.table->GetColumn(i);
      const std::string type = TypeOf(column);
      if (type.empty()) continue;
      Use& use = by_name[{entry.table->GetOwner(false), column.GetName()}][Plain(type)];
      use.type = type;
      use.tables.push_back(Shown(entry.table->GetName()));
    }
  }
  for (const auto& [name, uses] : by_name) {
    if (uses.size() < 2) continue;
    std::vector<std::string> texts;
    for (const auto& [plain, use] : uses) {
      texts.push_back(fmt::format("{} in {}", use.type, Some(use.tables, 3)));
    }
    std::string text;
    for (const std::string& each : texts) text += (text.empty() ? "" : "; ") + each;
    finds.Add(name.first, fmt::format("column {} is {}", Shown(name.second), text));
  }
}

}  // namespace wblint
