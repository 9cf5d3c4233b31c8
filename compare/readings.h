// What one reading of a schema has and another one of the same schema has not, counted by kinds.
#pragma once

#include <string>
#include <vector>

#include "compare/changes.h"

namespace wbcompare {

// Objects of a kind, or a property of theirs.
struct ReadingCount {
  Object object = Object::kTable;
  Property property = Property::kNone;
  std::size_t old_lacks = 0;  // the new side has them and the old one has not
  std::size_t new_lacks = 0;
  std::size_t differ = 0;  // both have something else
};

// In the order of objects and properties; without kinds of which nothing differs.
[[nodiscard]] std::vector<ReadingCount> CountByKind(const std::vector<Change>& changes);

// "The compatible reading lacks 12 column defaults and 4 checks.": a sentence for each side that
// lacks something, one for what differs; one sentence where nothing does.
[[nodiscard]] std::vector<std::string> LeadOf(const std::vector<Change>& changes,
                                              const Readings& readings);

}  // namespace wbcompare
