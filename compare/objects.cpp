// Names, owners, options and summaries of every kind of object.
#include "compare/objects.h"

#include <array>

#include "base/utf.h"
#include "importer/workbook/type_text.h"

namespace wbcompare {

namespace {

using P = Property;

// Member of every class with details of its own.
template <class Class>
const LcOptions* OptionsIn(const Class* object) {
  if constexpr (requires { object->options; }) {
    return &object->options;
  } else if constexpr (requires { object->GetDetails()->options; }) {
    return object->GetDetails() == nullptr ? nullptr : &object->GetDetails()->options;
  } else {
    return nullptr;
  }
}
const LcOptions* OptionsIn(const ForeignKeyRef& ref) {
  const LcForeignKeyDetails* details =
      ref.outside != nullptr ? &ref.outside->details : ref.key->GetDetails();
  return details == nullptr ? nullptr : &details->options;
}
template <class Value>
const LcOptions* OptionsIn(const Value&) {
  return nullptr;
}

template <class Class>
std::string NameIn(const Class* object, const Names& names) {
  if constexpr (requires { object->GetName(); }) {
    return names.Name(object->GetName());
  } else if constexpr (requires { object->name.View(); }) {
    return names.Name(object->name.View());
  } else if constexpr (requires { names.Name(object->name); }) {
    return names.Name(object->name);
  } else {
    return {};
  }
}
std::string NameIn(const LcSchemaDetails* schema, const Names& names) {
  return names.Owner(schema->name.View());
}
std::string NameIn(const LcOwnerInfo* owner, const Names& names) {
  return names.Owner(owner->name);
}
std::string NameIn(const LcWorkbookDatatype* type, const Names& names) {
  return names.Name(LcTypeName(*type));
}
std::string NameIn(const LcRoutineDetails* routine, const Names& names) {
  std::vector<std::string> types;
  for (const LcParameterDetails& parameter : routine->parameters) {
    const std::u16string_view mode = parameter.mode.View();
    if (mode != u"out" && mode != u"table") types.push_back(base::ToUtf8(parameter.type.View()));
  }
  return names.Name(routine->name.View()) + "(" + Joined(types) + ")";
}
std::string NameIn(const ForeignKeyRef& ref, const Names& names) {
  const LcForeignKeyDetails* details =
      ref.outside != nullptr ? &ref.outside->details : ref.key->GetDetails();
  return details == nullptr ? std::string() : names.Name(details->name.View());
}
std::string NameIn(const PlainRoutine& routine, const Names& names) {
  const std::string name = names.Name(routine.function->GetName());
  return routine.overload == nullptr ? name : base::ToUtf8(routine.overload->GetText());
}
template <class Value>
std::string NameIn(const Value&, const Names&) {
  return {};
}

template <class Class>
std::string OwnerIn(const Class* object, const Names& names) {
  if constexpr (requires { object->schema; }) {
    return names.Owner(object->schema.View());
  } else if constexpr (requires { object->GetOwner(false); }) {
    return names.Owner(object->GetOwner(false));
  } else if constexpr (requires { object->GetOwner(); }) {
    return names.Owner(object->GetOwner());
  } else {
    return {};
  }
}
std::string OwnerIn(const PlainRoutine& routine, const Names& names) {
  return names.Owner(routine.function->GetOwner());
}
template <class Value>
std::string OwnerIn(const Value&, const Names&) {
  return {};
}

// Texts one after the other, those that are there.
std::string InALine(std::initializer_list<std::string> texts) {
  std::string line;
  for (const std::string& text : texts) {
    if (!text.empty()) line += (line.empty() ? "" : " ") + text;
  }
  return line;
}
std::string With(const char* word, const Fact& fact) { return fact ? word + *fact : std::string(); }

template <class Ref>
std::string SummaryIn(const Ref& ref) {
  const auto fact = [&](Property property) {
    return FactOf(ObjectRef(ref), property, ShownNames());
  };
  const auto text = [&](Property property) { return fact(property).value_or(""); };
  if constexpr (std::is_same_v<Ref, const LcWorkbookColumn*>) {
    return InALine({text(P::kDataType), ref->IsRequired() ? "not null" : "",
                    With("default ", fact(P::kDefault)), With("identity ", fact(P::kIdentity)),
                    With("generated ", fact(P::kGenerated))});
  } else if constexpr (std::is_same_v<Ref, ForeignKeyRef>) {
    return InALine({"(" + text(P::kColumns) + ") ->", text(P::kTarget),
                    With("on update ", fact(P::kOnUpdate)),
                    With("on delete ", fact(P::kOnDelete))});
  } else if constexpr (std::is_same_v<Ref, const LcIndexDetails*>) {
    return InALine({ref->unique ? "unique" : "", text(P::kMethod), "(" + text(P::kColumns) + ")",
                    With("where ", fact(P::kPredicate))});
  } else if constexpr (std::is_same_v<Ref, const LcKeyDetails*> || std::is_same_v<Ref, PlainKey>) {
    return "(" + text(P::kColumns) + ")";
  } else if constexpr (std::is_same_v<Ref, const LcCheckDetails*>) {
    return text(P::kExpression);
  } else if constexpr (std::is_same_v<Ref, const LcTriggerDetails*>) {
    return InALine({text(P::kTiming), text(P::kEvents)});
  } else if constexpr (std::is_same_v<Ref, const LcTypeDetails*> ||
                       std::is_same_v<Ref, const LcWorkbookDatatype*>) {
    return InALine({text(P::kKind), text(P::kBaseType), text(P::kLabels), text(P::kAttributes)});
  } else if constexpr (std::is_same_v<Ref, const LcRoutineDetails*>) {
    return InALine({text(P::kKind), With("returns ", fact(P::kResult))});
  } else if constexpr (std::is_same_v<Ref, const LcSequenceDetails*>) {
    return InALine({text(P::kDataType), With("start ", fact(P::kStart)),
                    With("increment ", fact(P::kIncrement))});
  } else if constexpr (std::is_same_v<Ref, const LcWorkbookTable*>) {
    const int count = ref->GetColumnCount();
    const std::string columns = std::to_string(count) + (count == 1 ? " column" : " columns");
    return InALine({text(P::kKind), With("of ", fact(P::kTarget)), "with " + columns});
  } else {
    return {};
  }
}

}  // namespace

const LcOptions* OptionsOf(const ObjectRef& ref) {
  return std::visit([](const auto& object) { return OptionsIn(object); }, ref);
}

std::string NameOf(const ObjectRef& ref, const Names& names) {
  return std::visit([&](const auto& object) { return NameIn(object, names); }, ref);
}

std::string OwnerOf(const ObjectRef& ref, const Names& names) {
  return std::visit([&](const auto& object) { return OwnerIn(object, names); }, ref);
}

std::string SummaryOf(const ObjectRef& ref) {
  return std::visit([](const auto& object) { return SummaryIn(object); }, ref);
}

std::string OptionsText(const LcOptions& options) {
  std::string text;
  for (const LcOptions::Option& option : options.All()) {
    text += text.empty() ? "" : ", ";
    text += base::ToUtf8(option.name.View()) + " " + base::ToUtf8(option.value.View());
  }
  return text;
}

std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) joined += (joined.empty() ? "" : ", ") + text;
  return joined;
}

}  // namespace wbcompare
