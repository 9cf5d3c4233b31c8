#include "compare/context.h"

#include <algorithm>

#include "base/utf.h"
#include "compare/spellings.h"
#include "compare/types.h"

namespace wbcompare {

namespace {

bool HasOwners(const LcWorkbook& workbook) {
  for (const LcWorkbookTable* table : workbook.tables) {
    if (table != nullptr && !table->GetOwner(false).empty()) return true;
  }
  return false;
}

bool IgnoresCase(const LcWorkbookFileInfo& info) { return info.name_case == u"ignored"; }

// What the compatible reading gives too.
bool IsKnownToAll(Object object, Property property) {
  switch (object) {
    case Object::kTable:
    case Object::kView:
    case Object::kSynonym:
      return property == Property::kNone || property == Property::kKind ||
             property == Property::kTarget;
    case Object::kColumn:
      return property == Property::kNone || property == Property::kDataType ||
             property == Property::kNullable || property == Property::kPlace;
    case Object::kPrimaryKey:
      return property == Property::kNone || property == Property::kColumns;
    case Object::kForeignKey:
      return property == Property::kNone || property == Property::kColumns ||
             property == Property::kTarget;
    default:
      return false;
  }
}

const std::string kHidden = "drivers do not tell of every generated column";

bool IsGenerated(const ObjectRef& ref) {
  const auto* const* column = std::get_if<const LcWorkbookColumn*>(&ref);
  return column != nullptr && (*column)->GetDetails() != nullptr &&
         (*column)->GetDetails()->generated != gnNone;
}

bool IsInKey(const ObjectRef& ref) {
  const auto* const* column = std::get_if<const LcWorkbookColumn*>(&ref);
  return column != nullptr && (*column)->IsPrimaryKey();
}

bool IsInTable(Object object) { return object >= Object::kColumn; }

// "table", "view" or "synonym", which every reading tells.
const char* PlainKind(const ObjectRef& ref) {
  const auto* const* table = std::get_if<const LcWorkbookTable*>(&ref);
  if (table == nullptr) return "";
  return (*table)->GetType() == ttView ? "view" : (*table)->GetType() == ttSynonym ? "synonym" : "";
}

bool KnowsKind(const ObjectRef& ref) {
  const auto* const* table = std::get_if<const LcWorkbookTable*>(&ref);
  return table == nullptr ||
         ((*table)->GetDetails() != nullptr && (*table)->GetDetails()->kind != tkUnknown);
}

}  // namespace

Context::Context(const Side& old_side, const Side& new_side, const Options& wanted,
                 Comparison& filled)
    : before(old_side),
      after(new_side),
      options(wanted),
      result(filled),
      old_names(IgnoresCase(old_side.info) || IgnoresCase(new_side.info),
                HasOwners(old_side.workbook) && HasOwners(new_side.workbook)),
      new_names(old_names),
      old_knows(old_side),
      new_knows(new_side),
      both_exact(old_knows.IsExact() && new_knows.IsExact()),
      mixed(old_knows.IsExact() != new_knows.IsExact()),
      readings(wanted.readings.has_value()),
      product(FindProduct(old_side.info) == FindProduct(new_side.info) ? FindProduct(old_side.info)
                                                                       : Product::kOther) {}

bool Context::Compares(Object object, Property property) const {
  // What a driver says of reading only is no part of the schema.
  if (readings) return property != Property::kReadOnly;
  return IsShared(object, property);
}

bool Context::IsShared(Object object, Property property) const {
  if (mixed) return IsKnownToAll(object, property);
  // The driver's word, which the catalog's replaces.
  return property != Property::kReadOnly || !both_exact;
}

std::string Context::DefinitionOf(Object object, const ObjectRef& ref, const Names& names) const {
  std::string definition;
  for (const Property property : PropertiesOf(object)) {
    if (property == Property::kComment || !IsShared(object, property)) continue;
    const Fact fact = FactOf(ref, property, names);
    if (fact) definition += "=" + *fact;
    definition += '\n';
  }
  const LcOptions* own = mixed ? nullptr : OptionsOf(ref);
  return own == nullptr ? definition : definition + OptionsText(*own);
}

bool Context::Ignores(const Change& change) const {
  const bool key = change.object == Object::kPrimaryKey || change.object == Object::kUniqueKey;
  const std::string object = NameOf(change.object);
  const std::string property = NameOf(change.property);
  return std::any_of(options.ignore.begin(), options.ignore.end(), [&](const std::string& word) {
    if (word == object || (key && word == "key")) return true;
    const std::string& rest = key && word.rfind("key.", 0) == 0 ? "key." : object + ".";
    if (change.property == Property::kNone) return word == rest + NameOf(change.action);
    return word == property || word == rest + property;
  });
}

bool Context::LeavesOutPart(const Change& change) const {
  if (!options.leaves_out_part || !IsInTable(change.object)) return false;
  const auto leaves_out = [&](const ObjectRef& ref, const LcWorkbookTable* table) {
    return ref.index() != 0 && table != nullptr &&
           options.leaves_out_part(table->GetName(), base::ToUtf16(NameOf(ref, ShownNames())));
  };
  return leaves_out(change.before, change.old_table) || leaves_out(change.after, change.new_table);
}

void Context::Add(Change change) {
  if (Ignores(change) || LeavesOutPart(change)) return;
  if (!readings) change.severity = SeverityOf(change);
  result.changes.push_back(std::move(change));
}

void Context::AddUnknown(Object object, bool old_side, const std::string& reason,
                         const std::string& name) {
  auto at = std::find_if(result.unknown.begin(), result.unknown.end(), [&](const Unknown& unknown) {
    return unknown.object == object && unknown.old_side == old_side && unknown.reason == reason;
  });
  if (at == result.unknown.end()) {
    result.unknown.push_back({object, old_side, reason, 0, {}});
    at = result.unknown.end() - 1;
  }
  if (++at->count <= Unknown::kMostNames) at->names.push_back(name);
}

const std::string* Context::WhyMissing(const Change& change, bool old_side) const {
  const Knowledge& knows = old_side ? old_knows : new_knows;
  const LcWorkbookTable* table = old_side ? change.old_table : change.new_table;
  if (table != nullptr) {
    return knows.WhyMissing(change.object, table->GetOwner(false), table->GetName(),
                            change.property);
  }
  const ObjectRef& ref = change.before.index() != 0 ? change.before : change.after;
  return knows.WhyMissing(change.object, base::ToUtf16(OwnerOf(ref, ShownNames())),
                          base::ToUtf16(NameOf(ref, ShownNames())), change.property);
}

void Context::AddOneSided(Object object, const ObjectRef& ref, bool is_old,
                          const LcWorkbookTable* old_table, const LcWorkbookTable* new_table) {
  Change change;
  change.action = is_old ? Action::kRemoved : Action::kAdded;
  change.object = object;
  change.old_table = old_table;
  change.new_table = new_table;
  (is_old ? change.before : change.after) = ref;
  if (LeavesOutPart(change)) return;
  if (mixed && !readings && IsGenerated(ref)) {
    AddUnknown(object, !is_old, kHidden, FullName(object, ref, is_old ? old_table : new_table));
    return;
  }
  if (const std::string* why = WhyMissing(change, !is_old); why != nullptr) {
    AddUnknown(object, !is_old, *why, FullName(object, ref, is_old ? old_table : new_table));
    return;
  }
  Add(std::move(change));
}

bool Context::AreEqual(const Change& change, const Fact& a, const Fact& b) const {
  if (a == b) return true;
  if (change.property == Property::kKind && IsInTable(change.object) == false &&
      std::holds_alternative<const LcWorkbookTable*>(change.before) &&
      (!KnowsKind(change.before) || !KnowsKind(change.after))) {
    return std::string_view(PlainKind(change.before)) == PlainKind(change.after);
  }
  // MariaDB's driver 3.1 tells of a numbered key column that it may be null.
  if (mixed && !readings && change.property == Property::kNullable &&
      (IsInKey(change.before) || IsInKey(change.after))) {
    return true;
  }
  if (mixed && change.property == Property::kDataType) {
    return !a || !b ||
           (readings ? CompareTypes(*a, *b) == TypeChange::kNone : CanBeSameType(*a, *b));
  }
  // What only the exact reading can tell to be otherwise.
  if (readings && change.property == Property::kEnforced && a.value_or("yes") == b.value_or("yes"))
    return true;
  return !options.spellings && AreSpellingsOfOne(product, change.object, change.property, a, b);
}

void Context::AddChanged(const Change& change, bool old_missing, bool new_missing) {
  if (LeavesOutPart(change)) return;
  for (const bool old_side : {true, false}) {
    if (!(old_side ? old_missing : new_missing)) continue;
    if (const std::string* why = WhyMissing(change, old_side); why != nullptr) {
      const ObjectRef& ref = old_side ? change.before : change.after;
      AddUnknown(change.object, old_side, *why,
                 FullName(change.object, ref, old_side ? change.old_table : change.new_table) +
                     ": " + NameOf(change.property));
      return;
    }
  }
  Add(change);
}

void Context::ComparePair(Object object, const ObjectRef& old_ref, const ObjectRef& new_ref,
                          const LcWorkbookTable* old_table, const LcWorkbookTable* new_table) {
  Change change;
  change.object = object;
  change.before = old_ref;
  change.after = new_ref;
  change.old_table = old_table;
  change.new_table = new_table;
  for (const Property property : PropertiesOf(object)) {
    if (!Compares(object, property)) continue;
    change.property = property;
    const Fact a = FactOf(old_ref, property, old_names);
    const Fact b = FactOf(new_ref, property, new_names);
    if (AreEqual(change, a, b)) continue;
    // What comes or goes with a generated column is told by that.
    if (object == Object::kColumn && property == Property::kExpression && (!a || !b)) continue;
    AddChanged(change, !a, !b);
  }
  if (!mixed || readings) CompareOptions(change);
}

void Context::CompareOptions(const Change& pair) {
  static const LcOptions none;
  const LcOptions* old_options = OptionsOf(pair.before);
  const LcOptions* new_options = OptionsOf(pair.after);
  const auto& a = (old_options != nullptr ? *old_options : none).All();
  const auto& b = (new_options != nullptr ? *new_options : none).All();
  if (a == b) return;
  Change change = pair;
  change.property = Property::kOption;
  // Both are in the order of their names.
  auto at_a = a.begin();
  auto at_b = b.begin();
  while (at_a != a.end() || at_b != b.end()) {
    const bool has_a =
        at_a != a.end() && (at_b == b.end() || at_a->name.View() <= at_b->name.View());
    const bool has_b =
        at_b != b.end() && (at_a == a.end() || at_b->name.View() <= at_a->name.View());
    change.option = has_a ? at_a->name : at_b->name;
    const Fact from = has_a ? Fact(base::ToUtf8(at_a->value.View())) : Fact();
    const Fact to = has_b ? Fact(base::ToUtf8(at_b->value.View())) : Fact();
    if (!AreEqual(change, from, to)) AddChanged(change, !from, !to);
    if (has_a) ++at_a;
    if (has_b) ++at_b;
  }
}

std::string FullName(Object object, const ObjectRef& ref, const LcWorkbookTable* table) {
  if (!IsInTable(object)) {
    return ShownNames().Table(base::ToUtf16(OwnerOf(ref, ShownNames())),
                              base::ToUtf16(NameOf(ref, ShownNames())));
  }
  std::string name = table == nullptr ? std::string() : ShownNames().Table(*table);
  const std::string own = NameOf(ref, ShownNames());
  return own.empty() ? name : name + "." + own;
}

}  // namespace wbcompare
