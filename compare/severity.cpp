// How much a change matters to the programs that use the schema.
#include <algorithm>

#include "compare/context.h"
#include "compare/types.h"

namespace wbcompare {

namespace {

constexpr Severity kHarmless = Severity::kHarmless;
constexpr Severity kCareful = Severity::kCareful;
constexpr Severity kBreaking = Severity::kBreaking;

Severity BreakingIf(bool breaking, Severity otherwise = kCareful) {
  return breaking ? kBreaking : otherwise;
}

bool IsUnique(const ObjectRef& ref) {
  const auto* const* index = std::get_if<const LcIndexDetails*>(&ref);
  return index != nullptr && (*index)->unique;
}

// A column that every insert has to give.
bool HasToBeGiven(const ObjectRef& ref) {
  const auto given = [&](Property property) {
    return FactOf(ref, property, ShownNames()).has_value();
  };
  return FactOf(ref, Property::kNullable, ShownNames()) == "not null" &&
         !given(Property::kDefault) && !given(Property::kIdentity) && !given(Property::kGenerated);
}

Severity OfAdded(const Change& change) {
  switch (change.object) {
    case Object::kColumn:
      return BreakingIf(HasToBeGiven(change.after), kHarmless);
    // Rows that were taken before are refused now.
    case Object::kPrimaryKey:
    case Object::kUniqueKey:
    case Object::kForeignKey:
    case Object::kCheck:
      return kBreaking;
    case Object::kIndex:
      return BreakingIf(IsUnique(change.after));
    case Object::kTrigger:
      return kCareful;
    default:
      return kHarmless;
  }
}

Severity OfRemoved(const Change& change) {
  switch (change.object) {
    case Object::kUniqueKey:
    case Object::kForeignKey:
    case Object::kCheck:
    case Object::kIndex:
    case Object::kTrigger:
      return kCareful;
    default:
      return kBreaking;
  }
}

Severity OfRenamed(const Change& change) {
  if ((change.evidence & evCase) != 0) return kHarmless;
  return BreakingIf(change.object <= Object::kColumn);
}

Severity OfType(const std::string& from, const std::string& to) {
  const TypeChange change = CompareTypes(from, to);
  return BreakingIf(change == TypeChange::kNarrowed || change == TypeChange::kOther, kHarmless);
}

Severity OfLabels(const Change& change) {
  const auto* const* from = std::get_if<const LcTypeDetails*>(&change.before);
  const auto* const* to = std::get_if<const LcTypeDetails*>(&change.after);
  if (from == nullptr || to == nullptr) return kBreaking;
  // The labels that stay have to stay in their order for comparisons to mean the same.
  std::size_t in_order = 0;
  bool all_stay = true;
  for (const LcText& label : (*from)->labels) {
    const auto& labels = (*to)->labels;
    const auto at = std::find(labels.begin(), labels.end(), label);
    if (at == labels.end()) return kBreaking;
    const auto place = static_cast<std::size_t>(at - labels.begin());
    all_stay = all_stay && place >= in_order;
    in_order = place;
  }
  return all_stay ? kHarmless : kCareful;
}

Severity OfChanged(const Change& change) {
  const auto fact = [&](const ObjectRef& ref) {
    return FactOf(ref, change.property, ShownNames()).value_or("");
  };
  const std::string from = fact(change.before);
  const std::string to = fact(change.after);
  switch (change.property) {
    case Property::kComment:
      return kHarmless;
    case Property::kDataType:
    case Property::kBaseType:
      return OfType(from, to);
    case Property::kNullable:
      return BreakingIf(to == "not null", kHarmless);
    case Property::kReadOnly:
      return BreakingIf(to == "yes", kHarmless);
    case Property::kIdentity:
      return BreakingIf(to == "always" || to.empty());
    case Property::kGenerated:
      return BreakingIf(from.empty());
    case Property::kEnforced:
    case Property::kUnique:
      return BreakingIf(to == "yes");
    case Property::kKind:
      return BreakingIf(change.object == Object::kRoutine || change.object == Object::kType ||
                        (from == "view") != (to == "view"));
    case Property::kExpression:
      return BreakingIf(change.object == Object::kCheck);
    case Property::kColumns:
    case Property::kPredicate:
      return BreakingIf(change.object != Object::kIndex || IsUnique(change.after));
    case Property::kTarget:
      return BreakingIf(change.object == Object::kForeignKey);
    case Property::kLabels:
      return OfLabels(change);
    case Property::kAttributes:
    case Property::kChecks:
    case Property::kParameters:
    case Property::kResult:
      return kBreaking;
    default:
      return kCareful;
  }
}

}  // namespace

Severity SeverityOf(const Change& change) {
  switch (change.action) {
    case Action::kAdded:
      return OfAdded(change);
    case Action::kRemoved:
      return OfRemoved(change);
    case Action::kRenamed:
      return OfRenamed(change);
    case Action::kChanged:
      break;
  }
  return OfChanged(change);
}

}  // namespace wbcompare
