#include "compare/pairs.h"

#include <algorithm>

#include "compare/items.h"

namespace wbcompare {

namespace {

bool IsGeneric(const LcWorkbookFileInfo& info) { return info.route == u"odbc"; }

bool HasKeys(const LcWorkbook& workbook) {
  for (const LcWorkbookTable* table : workbook.tables) {
    if (table != nullptr && !table->GetPrimaryKey().IsEmpty()) return true;
  }
  return false;
}

ObjectRef PrimaryKeyOf(const LcWorkbookTable& table) {
  const LcTableDetails* details = table.GetDetails();
  if (details != nullptr && details->primary_key) {
    return static_cast<const LcKeyDetails*>(details->primary_key.get());
  }
  if (table.GetPrimaryKey().IsEmpty()) return {};
  return PlainKey{&table};
}

// Where a table has no primary key, the compatible reading takes a unique index for one.
bool IsMadeOfUnique(const LcWorkbookTable& before, const LcWorkbookTable& after) {
  const bool old_has = PrimaryKeyOf(before).index() != 0;
  if (old_has == (PrimaryKeyOf(after).index() != 0)) return false;
  const LcTableDetails* details = (old_has ? after : before).GetDetails();
  if (details == nullptr) return false;
  return !details->unique_keys.empty() ||
         std::any_of(details->indexes.begin(), details->indexes.end(),
                     [](const LcIndexDetails& index) { return index.unique; });
}

// The key of the table that has the index's name; null where there is none.
const LcKeyDetails* KeyOf(const LcWorkbookTable& table, const LcIndexDetails& index) {
  const LcTableDetails* details = table.GetDetails();
  if (details == nullptr) return nullptr;
  if (details->primary_key && details->primary_key->name == index.name) {
    return details->primary_key.get();
  }
  for (const LcKeyDetails& key : details->unique_keys) {
    if (key.name == index.name) return &key;
  }
  return nullptr;
}

}  // namespace

PairComparison::PairComparison(Context& context)
    : context_(context),
      old_foreign_keys_(context.before.workbook),
      new_foreign_keys_(context.after.workbook),
      in_pairs_(context.mixed && (IsGeneric(context.before.info) || IsGeneric(context.after.info))),
      keys_known_(!context.mixed || context.readings ||
                  (HasKeys(context.before.workbook) && HasKeys(context.after.workbook))) {}

void PairComparison::Compare(const TablePair& pair) {
  const LcWorkbookTable& before = *pair.before;
  const LcWorkbookTable& after = *pair.after;
  context_.old_names.TakeInHand(&before);
  if (pair.renamed.action == Action::kRenamed) context_.Add(pair.renamed);
  context_.ComparePair(ObjectOf(&before, &after), &before, &after, &before, &after);
  CompareColumns(context_, before, after, pair.columns.get());
  CompareKeys(before, after);
  CompareForeignKeys(before, after);
  CompareIndexes(before, after);
  CompareLists(Object::kCheck, before, after, &LcTableDetails::checks);
  CompareLists(Object::kTrigger, before, after, &LcTableDetails::triggers);
  context_.old_names.TakeInHand(nullptr);
}

template <class Entry>
void PairComparison::CompareLists(Object object, const LcWorkbookTable& before,
                                  const LcWorkbookTable& after,
                                  std::vector<Entry> LcTableDetails::*list) {
  if (!context_.Compares(object)) return;
  const LcTableDetails* old_details = before.GetDetails();
  const LcTableDetails* new_details = after.GetDetails();
  const bool old_has = old_details != nullptr && !(old_details->*list).empty();
  const bool new_has = new_details != nullptr && !(new_details->*list).empty();
  if (!old_has && !new_has) return;
  ItemMatcher matcher(context_, object, &before, &after);
  if (old_has) {
    for (const Entry& entry : old_details->*list) matcher.AddBefore(&entry);
  }
  if (new_has) {
    for (const Entry& entry : new_details->*list) matcher.AddAfter(&entry);
  }
  matcher.Compare();
}

void PairComparison::CompareKeys(const LcWorkbookTable& before, const LcWorkbookTable& after) {
  const bool may_differ = context_.mixed && !context_.readings;
  if (keys_known_ && !(may_differ && IsMadeOfUnique(before, after))) {
    ItemMatcher matcher(context_, Object::kPrimaryKey, &before, &after);
    if (const auto key = PrimaryKeyOf(before); key.index() != 0) matcher.AddBefore(key);
    if (const auto key = PrimaryKeyOf(after); key.index() != 0) matcher.AddAfter(key);
    matcher.Compare();
  }
  CompareLists(Object::kUniqueKey, before, after, &LcTableDetails::unique_keys);
}

void PairComparison::CompareForeignKeys(const LcWorkbookTable& before,
                                        const LcWorkbookTable& after) {
  ItemMatcher matcher(context_, Object::kForeignKey, &before, &after);
  old_foreign_keys_.ForEach(before, in_pairs_,
                            [&](const ForeignKeyRef& key) { matcher.AddBefore(key); });
  new_foreign_keys_.ForEach(after, in_pairs_,
                            [&](const ForeignKeyRef& key) { matcher.AddAfter(key); });
  matcher.Compare();
}

// An index that a key made comes, goes and changes its columns and its name with the key, which
// tells it; what is the index's alone is told where all that has stayed.
void PairComparison::CompareIndexes(const LcWorkbookTable& before, const LcWorkbookTable& after) {
  if (!context_.Compares(Object::kIndex)) return;
  ItemMatcher matcher(context_, Object::kIndex, &before, &after);
  const auto add = [&](const LcWorkbookTable& table, const Names& names,
                       const LcWorkbookTable& other, const Names& other_names, auto add_one) {
    if (table.GetDetails() == nullptr) return;
    for (const LcIndexDetails& index : table.GetDetails()->indexes) {
      const LcKeyDetails* key = KeyOf(table, index);
      const LcKeyDetails* like = key == nullptr ? nullptr : KeyOf(other, index);
      const auto columns = [](const LcKeyDetails* of, const Names& spelled) {
        return FactOf(ObjectRef(of), Property::kColumns, spelled);
      };
      if (key == nullptr ||
          (like != nullptr && columns(key, names) == columns(like, other_names))) {
        add_one(&index);
      }
    }
  };
  add(before, context_.old_names, after, context_.new_names,
      [&](const LcIndexDetails* index) { matcher.AddBefore(index); });
  add(after, context_.new_names, before, context_.old_names,
      [&](const LcIndexDetails* index) { matcher.AddAfter(index); });
  matcher.Compare();
}

}  // namespace wbcompare
