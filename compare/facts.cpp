// The properties of every kind of object, as texts.
#include <array>

#include "base/utf.h"
#include "compare/objects.h"
#include "importer/workbook/type_text.h"

namespace wbcompare {

namespace {

using P = Property;

Fact Optional(const LcText& text) {
  if (!text.IsPresent()) return std::nullopt;
  return base::ToUtf8(text.View());
}
Fact Present(const std::string& text) { return text.empty() ? Fact() : Fact(text); }
template <class Enum>
Fact Named(Enum value) {
  const char16_t* name = LcNameOf(value);
  return name == nullptr ? Fact() : Fact(base::ToUtf8(name));
}
Fact YesNo(bool value) { return value ? "yes" : "no"; }

template <class Columns>
std::string ColumnsText(const Columns& columns, const Names& names) {
  std::string text;
  for (const LcWorkbookColumn* column : columns) {
    if (!text.empty()) text += ", ";
    text += names.Column(*column);
  }
  return text;
}

template <class List, class Text>
std::string ListText(const List& list, Text text) {
  std::vector<std::string> texts;
  texts.reserve(list.size());
  for (const auto& entry : list) texts.push_back(text(entry));
  return Joined(texts);
}

std::string Quoted(const LcText& text) {
  std::string quoted = "'";
  for (const char c : base::ToUtf8(text.View())) quoted += c == '\'' ? "''" : std::string(1, c);
  return quoted + "'";
}

// One overload of FactOf for every class.

Fact FactOf(std::monostate, Property, const Names&) { return {}; }
Fact FactOf(const LcWorkbookDetails*, Property, const Names&) { return {}; }
Fact FactOf(const LcOwnerInfo*, Property, const Names&) { return {}; }
Fact FactOf(const LcWorkbookProcedure*, Property property, const Names&) {
  return property == P::kKind ? Fact("procedure") : Fact();
}
Fact FactOf(const LcSchemaDetails* schema, Property property, const Names&) {
  return property == P::kComment ? Optional(schema->comment) : Fact();
}

Fact FactOf(const LcTypeDetails* type, Property property, const Names&) {
  switch (property) {
    case P::kKind:
      return Named(type->kind);
    case P::kBaseType:
      return Optional(type->base_type);
    case P::kNullable:
      return type->nullable ? "null" : "not null";
    case P::kDefault:
      return Optional(type->default_text);
    case P::kLabels:
      return Present(ListText(type->labels, Quoted));
    case P::kAttributes:
      return Present(ListText(type->attributes, [](const LcTypeAttribute& attribute) {
        return base::ToUtf8(attribute.name.View()) + " " + base::ToUtf8(attribute.type.View());
      }));
    case P::kChecks:
      return Present(ListText(type->checks, [](const LcCheckDetails& check) {
        return base::ToUtf8(check.expression.View());
      }));
    case P::kComment:
      return Optional(type->comment);
    default:
      return {};
  }
}

Fact FactOf(const LcWorkbookDatatype* type, Property property, const Names&) {
  switch (property) {
    case P::kKind:
      return type->IsDistinct() ? "distinct" : "composite";
    case P::kBaseType:
      return Present(base::ToUtf8(type->GetBaseExtendedTypeName()));
    case P::kAttributes: {
      std::vector<std::string> attributes;
      for (int i = 0; i < type->GetComponentCount(); ++i) {
        const LcWorkbookDatatype& component = *type->GetComponent(i);
        attributes.push_back(base::ToUtf8(component.GetName()) + " " +
                             base::ToUtf8(LcTypeName(component)));
      }
      return Present(Joined(attributes));
    }
    default:
      return {};
  }
}

Fact FactOf(const LcSequenceDetails* sequence, Property property, const Names& names) {
  switch (property) {
    case P::kDataType:
      return Optional(sequence->type);
    case P::kStart:
      return Optional(sequence->start);
    case P::kIncrement:
      return Optional(sequence->increment);
    case P::kMinimum:
      return Optional(sequence->minimum);
    case P::kMaximum:
      return Optional(sequence->maximum);
    case P::kCycle:
      return YesNo(sequence->cycle);
    case P::kOwnedBy:
      if (!sequence->owner_table.IsPresent()) return {};
      return names.Table(sequence->schema.View(), sequence->owner_table.View()) + "." +
             names.Name(sequence->owner_column.View());
    case P::kComment:
      return Optional(sequence->comment);
    default:
      return {};
  }
}

std::string ParameterText(const LcParameterDetails& parameter) {
  std::string text;
  for (const LcText* part : {&parameter.mode, &parameter.name, &parameter.type}) {
    const bool plain = part == &parameter.mode && part->View() == u"in";
    if (part->View().empty() || plain) continue;
    text += (text.empty() ? "" : " ") + base::ToUtf8(part->View());
  }
  const Fact value = Optional(parameter.default_text);
  return value ? text + " default " + *value : text;
}

Fact FactOf(const LcRoutineDetails* routine, Property property, const Names&) {
  switch (property) {
    case P::kKind:
      return Named(routine->kind);
    case P::kParameters:
      return Present(ListText(routine->parameters, ParameterText));
    case P::kResult:
      return Optional(routine->result);
    case P::kLanguage:
      return Optional(routine->language);
    case P::kText:
      return Optional(routine->text);
    case P::kComment:
      return Optional(routine->comment);
    default:
      return {};
  }
}

Fact FactOf(const PlainRoutine& routine, Property property, const Names&) {
  switch (property) {
    case P::kKind:
      return "function";
    case P::kParameters:
      return routine.overload == nullptr ? Fact() : Fact(base::ToUtf8(routine.overload->GetText()));
    case P::kResult:
      return routine.overload == nullptr ? Fact()
                                         : Present(base::ToUtf8(routine.overload->GetResultType()));
    default:
      return {};
  }
}

const char* TypeName(enumTableType type) {
  return type == ttView ? "view" : type == ttSynonym ? "synonym" : "table";
}

Fact FactOf(const LcWorkbookTable* table, Property property, const Names& names) {
  const LcTableDetails* details = table->GetDetails();
  switch (property) {
    case P::kKind:
      if (details != nullptr && details->kind != tkUnknown) return Named(details->kind);
      return TypeName(table->GetType());
    case P::kTarget: {
      if (table->GetType() != ttSynonym) return {};
      const LcSynonymDetails target = table->GetSynonymDetails();
      std::string text = names.Table(target.base_owner, target.base_table_name);
      for (const std::u16string& place : {target.database_name, target.server_name}) {
        if (!place.empty()) text += "@" + names.Name(place);
      }
      return text;
    }
    default:
      break;
  }
  if (details == nullptr) return {};
  switch (property) {
    case P::kText:
      if (!details->view_text.IsPresent()) return {};
      return names.Statement(details->view_text.View());
    case P::kPartitionOf:
      if (!details->parent_table.IsPresent()) return {};
      return names.Table(details->parent_owner.View(), details->parent_table.View());
    case P::kComment:
      return Optional(details->comment);
    default:
      return {};
  }
}

Fact FactOf(const LcWorkbookColumn* column, Property property, const Names& names) {
  const LcColumnDetails* details = column->GetDetails();
  switch (property) {
    case P::kDataType:
      return Present(TypeTextOf(*column));
    case P::kNullable:
      return column->IsRequired() ? "not null" : "null";
    case P::kReadOnly:
      return YesNo(column->IsReadOnly());
    case P::kIdentity:
      if (details != nullptr && details->identity != idNone) return Named(details->identity);
      return column->IsGeneratedKey() ? Fact("generated") : Fact();
    default:
      break;
  }
  if (details == nullptr) return {};
  switch (property) {
    case P::kDefault:
      return Optional(details->default_text);
    case P::kGenerated:
      return Named(details->generated);
    case P::kExpression:
      if (!details->expression.IsPresent()) return {};
      return names.Expression(details->expression.View());
    case P::kCollation:
      return Optional(details->collation);
    case P::kComment:
      return Optional(details->comment);
    default:
      return {};
  }
}

Fact FactOf(const LcKeyDetails* key, Property property, const Names& names) {
  switch (property) {
    case P::kColumns:
      return ColumnsText(key->columns, names);
    case P::kDeferrable:
      return Named(key->deferrable);
    case P::kComment:
      return Optional(key->comment);
    default:
      return {};
  }
}

Fact FactOf(const PlainKey& key, Property property, const Names& names) {
  if (property != P::kColumns) return {};
  return ColumnsText(key.table->GetPrimaryKey().GetColumns(), names);
}

Fact FactOf(const ForeignKeyRef& ref, Property property, const Names& names) {
  const ForeignKeyParts parts = PartsOf(ref, names);
  switch (property) {
    case P::kColumns:
      return ColumnsText(parts.columns, names);
    case P::kTarget:
      return names.Table(parts.target_owner, parts.target_table) + " (" +
             Joined(parts.target_columns) + ")";
    default:
      break;
  }
  if (parts.details == nullptr) return {};
  switch (property) {
    case P::kOnUpdate:
      return Optional(parts.details->on_update);
    case P::kOnDelete:
      return Optional(parts.details->on_delete);
    case P::kMatch:
      return Optional(parts.details->match);
    case P::kDeferrable:
      return Named(parts.details->deferrable);
    case P::kEnforced:
      return YesNo(parts.details->enforced);
    case P::kComment:
      return Optional(parts.details->comment);
    default:
      return {};
  }
}

Fact FactOf(const LcIndexDetails* index, Property property, const Names& names) {
  switch (property) {
    case P::kUnique:
      return YesNo(index->unique);
    case P::kMethod:
      return Optional(index->method);
    case P::kColumns:
      return ListText(index->parts, [&](const LcIndexPart& part) {
        std::string text = part.column != nullptr ? names.Column(*part.column)
                                                  : names.Expression(part.expression.View());
        if (part.descending) text += " desc";
        if (part.included) text += " included";
        if (!part.options.IsEmpty()) text += " (" + OptionsText(part.options) + ")";
        return text;
      });
    case P::kPredicate:
      if (!index->predicate.IsPresent()) return {};
      return names.Expression(index->predicate.View());
    case P::kComment:
      return Optional(index->comment);
    default:
      return {};
  }
}

Fact FactOf(const LcCheckDetails* check, Property property, const Names& names) {
  switch (property) {
    case P::kExpression:
      if (!check->expression.IsPresent()) return {};
      return names.Expression(check->expression.View());
    case P::kComment:
      return Optional(check->comment);
    default:
      return {};
  }
}

Fact FactOf(const LcTriggerDetails* trigger, Property property, const Names&) {
  switch (property) {
    case P::kTiming:
      return Optional(trigger->timing);
    case P::kEvents:
      return Optional(trigger->events);
    case P::kText:
      return Optional(trigger->text);
    case P::kComment:
      return Optional(trigger->comment);
    default:
      return {};
  }
}

constexpr std::array kOfOwner = {P::kComment};
constexpr std::array kOfType = {P::kKind,   P::kBaseType,   P::kNullable, P::kDefault,
                                P::kLabels, P::kAttributes, P::kChecks,   P::kComment};
constexpr std::array kOfSequence = {P::kDataType, P::kStart, P::kIncrement, P::kMinimum,
                                    P::kMaximum,  P::kCycle, P::kOwnedBy,   P::kComment};
constexpr std::array kOfRoutine = {P::kKind,     P::kParameters, P::kResult,
                                   P::kLanguage, P::kText,       P::kComment};
constexpr std::array kOfTable = {P::kKind, P::kText, P::kTarget, P::kPartitionOf, P::kComment};
constexpr std::array kOfColumn = {P::kDataType,  P::kNullable,  P::kDefault,
                                  P::kIdentity,  P::kGenerated, P::kExpression,
                                  P::kCollation, P::kReadOnly,  P::kComment};
constexpr std::array kOfKey = {P::kColumns, P::kDeferrable, P::kComment};
constexpr std::array kOfForeignKey = {P::kColumns, P::kTarget,     P::kOnUpdate, P::kOnDelete,
                                      P::kMatch,   P::kDeferrable, P::kEnforced, P::kComment};
constexpr std::array kOfIndex = {P::kUnique, P::kMethod, P::kColumns, P::kPredicate, P::kComment};
constexpr std::array kOfCheck = {P::kExpression, P::kComment};
constexpr std::array kOfTrigger = {P::kTiming, P::kEvents, P::kText, P::kComment};

}  // namespace

std::span<const Property> PropertiesOf(Object object) {
  switch (object) {
    case Object::kDatabase:
      return {};
    case Object::kOwner:
      return kOfOwner;
    case Object::kType:
      return kOfType;
    case Object::kSequence:
      return kOfSequence;
    case Object::kRoutine:
      return kOfRoutine;
    case Object::kTable:
    case Object::kView:
    case Object::kSynonym:
      return kOfTable;
    case Object::kColumn:
      return kOfColumn;
    case Object::kPrimaryKey:
    case Object::kUniqueKey:
      return kOfKey;
    case Object::kForeignKey:
      return kOfForeignKey;
    case Object::kIndex:
      return kOfIndex;
    case Object::kCheck:
      return kOfCheck;
    case Object::kTrigger:
      return kOfTrigger;
  }
  return {};
}

Fact FactOf(const ObjectRef& ref, Property property, const Names& names) {
  return std::visit([&](const auto& object) { return FactOf(object, property, names); }, ref);
}

ForeignKeyParts PartsOf(const ForeignKeyRef& ref, const Names& names) {
  ForeignKeyParts parts;
  if (ref.outside != nullptr) {
    parts.columns.assign(ref.outside->columns.begin(), ref.outside->columns.end());
    parts.target_owner = ref.outside->target_owner.Text();
    parts.target_table = ref.outside->target_table.Text();
    for (const LcText& column : ref.outside->target_columns) {
      parts.target_columns.push_back(names.Name(column.View()));
    }
    parts.details = &ref.outside->details;
    return parts;
  }
  const bool mirror = ref.key->GetRole() == fkMirror;
  const LcWorkbookKeyList* from = mirror ? ref.key->GetKey() : ref.key->GetForeignKey();
  const LcWorkbookKeyList* to = mirror ? ref.key->GetForeignKey() : ref.key->GetKey();
  const auto take = [&](const LcWorkbookKeyList* side, auto use) {
    if (side == nullptr) return;
    const std::vector<LcWorkbookColumn*> columns = side->GetColumns();
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (ref.pair < 0 || static_cast<std::size_t>(ref.pair) == i) use(*columns[i]);
    }
  };
  take(from, [&](const LcWorkbookColumn& column) { parts.columns.push_back(&column); });
  take(to, [&](const LcWorkbookColumn& column) {
    parts.target_columns.push_back(names.Column(column));
    if (const LcWorkbookTable* table = column.GetParentTable(); table != nullptr) {
      parts.target_owner = table->GetOwner(false);
      parts.target_table = table->GetName();
    }
  });
  parts.details = ref.key->GetDetails();
  return parts;
}

std::string TypeTextOf(const LcWorkbookColumn& column) {
  const LcWorkbookDatatype* type = column.GetDataType();
  if (type != nullptr && type->GetDatabaseType().IsPresent()) {
    return base::ToUtf8(type->GetDatabaseType().View());
  }
  return base::ToUtf8(LcTypeText(column));
}

}  // namespace wbcompare
