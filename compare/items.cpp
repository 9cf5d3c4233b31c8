#include "compare/items.h"

#include <algorithm>
#include <optional>
#include <unordered_map>

namespace wbcompare {

namespace {

// What stands beside the tables has owners and is found by its name alone: two sequences are alike
// without being one.
bool IsPartOfTable(Object object) { return object >= Object::kColumn; }

}  // namespace

void ItemMatcher::Append(Items& items, const ObjectRef& ref, const Names& names) {
  Item item;
  item.ref = ref;
  item.name = NameOf(ref, names);
  if (!IsPartOfTable(object_)) item.name = OwnerOf(ref, names) + '\x1f' + item.name;
  items.push_back(std::move(item));
}

void ItemMatcher::Compare() {
  MatchInPlace();
  const auto is_left = [](const Item& item) { return !item.matched; };
  if (std::any_of(before_.begin(), before_.end(), is_left) &&
      std::any_of(after_.begin(), after_.end(), is_left)) {
    MatchLeftovers();
  }
  TellRest();
}

// Nearly everything is as it was.
void ItemMatcher::MatchInPlace() {
  for (std::size_t i = 0; i < std::min(before_.size(), after_.size()); ++i) {
    if (before_[i].name != after_[i].name) continue;
    before_[i].definition = context_.DefinitionOf(object_, before_[i].ref, context_.old_names);
    after_[i].definition = context_.DefinitionOf(object_, after_[i].ref, context_.new_names);
    if (before_[i].definition == after_[i].definition) Tell(before_[i], after_[i]);
  }
}

template <class Key>
void ItemMatcher::MatchBy(Key key, bool unique_only) {
  std::unordered_map<std::string, std::vector<Item*>> by_key;
  std::unordered_map<std::string, std::size_t> wanted;
  for (Item& item : after_) {
    if (item.matched) continue;
    if (const std::optional<std::string> of = key(item, context_.new_names, new_table_); of) {
      by_key[*of].push_back(&item);
    }
  }
  if (by_key.empty()) return;
  if (unique_only) {
    for (Item& item : before_) {
      if (item.matched) continue;
      if (const auto of = key(item, context_.old_names, old_table_); of) ++wanted[*of];
    }
  }
  for (Item& item : before_) {
    if (item.matched) continue;
    const std::optional<std::string> of = key(item, context_.old_names, old_table_);
    const auto found = of ? by_key.find(*of) : by_key.end();
    if (found == by_key.end() || found->second.empty()) continue;
    if (unique_only && (found->second.size() != 1 || wanted[*of] != 1)) continue;
    Item* other = found->second.front();
    found->second.erase(found->second.begin());
    Tell(item, *other);
  }
}

void ItemMatcher::MatchLeftovers() {
  for (Item& item : before_) {
    if (!item.matched)
      item.definition = context_.DefinitionOf(object_, item.ref, context_.old_names);
  }
  for (Item& item : after_) {
    if (!item.matched)
      item.definition = context_.DefinitionOf(object_, item.ref, context_.new_names);
  }
  using Key = std::optional<std::string>;
  MatchBy([](const Item& item, const Names&,
             const LcWorkbookTable*) -> Key { return item.name + '\n' + item.definition; },
          false);
  MatchBy(
      [&](const Item& item, const Names&, const LcWorkbookTable* table) -> Key {
        return IsMade(item, table) ? Key() : Key(item.name);
      },
      false);
  if (IsPartOfTable(object_)) {
    MatchBy([](const Item& item, const Names&,
               const LcWorkbookTable*) -> Key { return item.definition; },
            false);
  }
  MatchBy(
      [&](const Item& item, const Names& names, const LcWorkbookTable*) -> Key {
        std::string identity = IdentityOf(item, names);
        return identity.empty() ? Key() : Key(std::move(identity));
      },
      true);
  MatchBy([](const Item& item, const Names&,
             const LcWorkbookTable*) -> Key { return item.name.empty() ? Key() : Key(item.name); },
          false);
}

bool ItemMatcher::IsMade(const Item& item, const LcWorkbookTable* table) const {
  return IsServerMade(context_.product, object_, item.ref, NameOf(item.ref, ShownNames()), table);
}

// What makes it the same thing whatever its name is and however it works. Empty: the name alone.
std::string ItemMatcher::IdentityOf(const Item& item, const Names& names) const {
  const auto fact = [&](Property property) {
    return FactOf(item.ref, property, names).value_or("");
  };
  switch (object_) {
    case Object::kPrimaryKey:
      return "the table's";
    case Object::kUniqueKey:
      return fact(Property::kColumns);
    case Object::kForeignKey:
      return fact(Property::kColumns) + " -> " + fact(Property::kTarget);
    case Object::kIndex:
      return fact(Property::kUnique) + fact(Property::kColumns);
    case Object::kSequence:
      return fact(Property::kOwnedBy);
    case Object::kRoutine:
      // Without the parameters: the only one of that name here and there.
      return item.name.substr(0, item.name.find('('));
    default:
      return {};
  }
}

void ItemMatcher::Tell(Item& before, Item& after) {
  before.matched = after.matched = true;
  if (before.name != after.name && object_ != Object::kRoutine && !context_.mixed &&
      !context_.readings &&
      (context_.options.server_names || !IsMade(before, old_table_) ||
       !IsMade(after, new_table_))) {
    Change change;
    change.action = Action::kRenamed;
    change.object = object_;
    change.evidence = before.definition == after.definition ? evDefinition : 0;
    change.old_table = old_table_;
    change.new_table = new_table_;
    change.before = before.ref;
    change.after = after.ref;
    context_.Add(std::move(change));
  }
  context_.ComparePair(object_, before.ref, after.ref, old_table_, new_table_);
}

void ItemMatcher::TellRest() {
  for (const Item& item : before_) {
    if (!item.matched) context_.AddOneSided(object_, item.ref, true, old_table_, new_table_);
  }
  for (const Item& item : after_) {
    if (!item.matched) context_.AddOneSided(object_, item.ref, false, old_table_, new_table_);
  }
}

}  // namespace wbcompare
