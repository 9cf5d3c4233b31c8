// Matches what is part of a table, or stands beside the tables, with its like on the other side: by
// name where somebody gave one, else by what it is.
#pragma once

#include <string>
#include <vector>

#include "compare/context.h"

namespace wbcompare {

struct Item {
  ObjectRef ref;
  std::string name;        // empty: none
  std::string definition;  // all but name and comment
  bool matched = false;
};

// Matches two lists of objects of one kind and tells their changes.
class ItemMatcher {
 public:
  ItemMatcher(Context& context, Object object, const LcWorkbookTable* old_table,
              const LcWorkbookTable* new_table)
      : context_(context), object_(object), old_table_(old_table), new_table_(new_table) {}

  void AddBefore(const ObjectRef& ref) { Append(before_, ref, context_.old_names); }
  void AddAfter(const ObjectRef& ref) { Append(after_, ref, context_.new_names); }
  void Compare();

 private:
  using Items = std::vector<Item>;
  void Append(Items& items, const ObjectRef& ref, const Names& names);
  void MatchInPlace();
  template <class Key>
  void MatchBy(Key key, bool unique_only);
  void MatchLeftovers();
  void Tell(Item& before, Item& after);
  void TellRest();
  [[nodiscard]] bool IsMade(const Item& item, const LcWorkbookTable* table) const;
  std::string IdentityOf(const Item& item, const Names& names) const;

  Context& context_;
  const Object object_;
  const LcWorkbookTable* old_table_;
  const LcWorkbookTable* new_table_;
  Items before_;
  Items after_;
};

}  // namespace wbcompare
