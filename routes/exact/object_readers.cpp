#include "routes/exact/object_readers.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "base/utf.h"

namespace odbcimport::exact {
namespace {

// The comment in the row, else the one that was read by the number in `id_field`.
LcText CommentOf(Model& model, const Row& row, Comments::Of of, Field id_field) {
  LcText comment = model.catalog.texts().Get(row.Text(Field::kComment));
  if (!comment && row.Has(id_field)) comment = model.comments.Find(of, row.Number(id_field));
  return comment;
}

bool InOrder(const LcText& schema_a, const LcText& name_a, const LcText& schema_b,
             const LcText& name_b) {
  return std::make_tuple(schema_a.View(), name_a.View()) <
         std::make_tuple(schema_b.View(), name_b.View());
}

template <class Pairs>
void SortByFirst(Pairs& pairs) {
  std::stable_sort(pairs.begin(), pairs.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
}

}  // namespace

void TriggerReader::Read(const Row& row) {
  const std::uint32_t table = model_.FindTable(row);
  if (table == kNoTable || !model_.tables[table].wanted) return;
  TextStore& texts = model_.catalog.texts();
  Trigger& trigger = all_.emplace_back();
  trigger.table = table;
  trigger.name = row.Text(Field::kName);
  LcTriggerDetails& details = trigger.details;
  details.name = texts.Get(trigger.name);
  details.timing = texts.Get(row.Text(Field::kTiming));
  details.events = texts.Get(row.Text(Field::kEvents));
  details.text = texts.Get(row.Text(Field::kText));
  if (row.Has(Field::kDefinition)) {
    const std::string_view text = row.Text(Field::kDefinition);
    const TriggerDefinition definition = ReadTriggerDefinition(text);
    details.timing = texts.Get(definition.timing);
    details.events = texts.Get(definition.events);
    details.text = texts.Get(text);
  }
  details.comment = CommentOf(model_, row, Comments::Of::kTrigger, Field::kTriggerId);
  model_.TakeOptions(row, details.options);
}

void TriggerReader::Finish() {
  std::stable_sort(all_.begin(), all_.end(), [](const Trigger& a, const Trigger& b) {
    return std::tie(a.table, a.name) < std::tie(b.table, b.name);
  });
  for (Trigger& trigger : all_) {
    model_.tables[trigger.table].table->ChangeDetails().triggers.push_back(
        std::move(trigger.details));
  }
  all_.clear();
}

void TypeReader::Undo() { all_.resize(mark_); }

TypeReader::Type& TypeReader::Find(const Row& row, std::string_view schema, bool& is_new) {
  const std::string_view name = row.Text(Field::kName);
  is_new = all_.size() == mark_ || all_.back().schema != schema || all_.back().name != name;
  if (!is_new) return all_.back();
  Type& type = all_.emplace_back();
  type.schema = schema;
  type.name = name;
  return type;
}

void TypeReader::Read(const Row& row) {
  std::string_view schema;
  if (!model_.FindSchema(row, schema)) return;
  // Types in use come whatever their schema is.
  if (!selection_.HasTables() && !selection_.WantsSchema(schema)) return;
  bool is_new = false;
  Type& type = Find(row, schema, is_new);
  if (is_new) ReadFacts(row, type);
  TextStore& texts = model_.catalog.texts();
  if (row.Has(Field::kLabel)) {
    type.labels.emplace_back(row.Number(Field::kPosition), texts.Get(row.Text(Field::kLabel)));
  }
  if (row.Has(Field::kAttribute)) {
    type.attributes.emplace_back(row.Number(Field::kPosition),
                                 LcTypeAttribute{texts.Get(row.Text(Field::kAttribute)),
                                                 texts.Get(row.Text(Field::kAttributeType))});
  }
}

void TypeReader::ReadFacts(const Row& row, Type& type) {
  TextStore& texts = model_.catalog.texts();
  type.kind = row.Text(Field::kKind);
  type.id = row.Number(Field::kTypeId);
  LcTypeDetails& details = type.details;
  details.schema = texts.Get(type.schema);
  details.name = texts.Get(type.name);
  LcFindByName(texts.Wide(type.kind), details.kind);
  details.base_type = texts.Get(row.Text(Field::kBaseType));
  details.default_text = texts.Get(row.Text(Field::kDefault));
  details.comment = CommentOf(model_, row, Comments::Of::kType, Field::kTypeId);
  details.nullable =
      row.Has(Field::kNullable) ? row.Flag(Field::kNullable) : !row.Flag(Field::kNotNull);
  if (row.Has(Field::kCheck)) {
    details.checks.emplace_back().expression = texts.Get(row.Text(Field::kCheck));
  }
  const LcText collation = model_.NameOf(row, Field::kCollation, Field::kCollationId, "collation");
  if (collation) details.options.Set(u"collation", collation);
  model_.TakeOptions(row, details.options);
}

void TypeReader::TakeParts(Type& type) {
  SortByFirst(type.labels);
  SortByFirst(type.attributes);
  for (auto& label : type.labels) type.details.labels.push_back(std::move(label.second));
  for (auto& attribute : type.attributes) {
    type.details.attributes.push_back(std::move(attribute.second));
  }
}

// A type in use is there already; another one is put together from what it is made of.
std::unique_ptr<LcWorkbookDatatype> TypeReader::ListEntry(const Type& type) {
  if (const LcWorkbookDatatype* used = model_.types.Find(type.id); used != nullptr) {
    return std::unique_ptr<LcWorkbookDatatype>(used->Copy());
  }
  const std::string base = base::ToUtf8(type.details.base_type.View());
  const bool domain = type.kind == "domain";
  std::unique_ptr<LcWorkbookDatatype> entry = model_.types.Make(
      type.name, domain ? base.substr(0, base.find('(')) : type.name, type.schema, type.kind);
  const std::u16string name = model_.catalog.texts().Wide(type.name);
  entry->SetTypeName(name);
  entry->SetExtendedTypeName(name, 0);
  entry->SetExtendedId(static_cast<long>(type.id));
  return entry;
}

void TypeReader::Finish(const Constraints& constraints, LcWorkbookDatatypeList* list) {
  std::stable_sort(all_.begin(), all_.end(), [](const Type& a, const Type& b) {
    return std::tie(a.schema, a.name) < std::tie(b.schema, b.name);
  });
  for (Type& type : all_) {
    TakeParts(type);
    for (LcCheckDetails& check : constraints.ChecksOf(type.id)) {
      type.details.checks.push_back(std::move(check));
    }
    if (list != nullptr) list->Append(ListEntry(type));
    model_.catalog.session().sink.workbook()->details.types.push_back(std::move(type.details));
  }
  all_.clear();
  mark_ = 0;
}

void SequenceReader::Read(const Row& row) {
  std::string_view schema;
  if (!model_.FindSchema(row, schema)) return;
  TextStore& texts = model_.catalog.texts();
  LcSequenceDetails details;
  ReadOwner(row, schema, details);
  // Beside single tables only their own sequences are meant.
  if (selection_.HasTables() ? !details.owner_table : !selection_.WantsSchema(schema)) return;
  details.schema = texts.Get(schema);
  details.name = texts.Get(row.Text(Field::kName));
  details.type = texts.Get(row.Text(Field::kType));
  details.start = texts.Get(row.Text(Field::kStart));
  details.increment = texts.Get(row.Text(Field::kIncrement));
  details.minimum = texts.Get(row.Text(Field::kMinimum));
  details.maximum = texts.Get(row.Text(Field::kMaximum));
  details.cycle = row.Flag(Field::kCycle);
  details.comment = CommentOf(model_, row, Comments::Of::kRelation, Field::kSequenceId);
  if (row.Number(Field::kCache, 1) != 1)
    details.options.Set(u"cache", texts.Get(row.Text(Field::kCache)));
  model_.TakeOptions(row, details.options);
  all_.push_back(std::move(details));
}

void SequenceReader::ReadOwner(const Row& row, std::string_view schema,
                               LcSequenceDetails& details) {
  TextStore& texts = model_.catalog.texts();
  std::uint32_t table = kNoTable;
  if (row.Has(Field::kOwnerTableId)) {
    table = model_.FindTable(row.Number(Field::kOwnerTableId));
  } else if (row.Has(Field::kOwnerTable)) {
    table = model_.FindTable(row.Has(Field::kOwnerSchema) ? row.Text(Field::kOwnerSchema) : schema,
                             row.Text(Field::kOwnerTable));
  }
  if (table == kNoTable || !model_.tables[table].wanted) return;
  const TableEntry& entry = model_.tables[table];
  details.owner_table = texts.Get(entry.name);
  if (entry.schema != schema) details.options.Set(u"owner schema", texts.Get(entry.schema));
  const LcWorkbookColumn* column = row.Has(Field::kOwnerPosition)
                                       ? model_.FindColumn(table, row.Number(Field::kOwnerPosition))
                                       : model_.FindColumn(table, row.Text(Field::kOwnerColumn));
  if (column != nullptr) details.owner_column = LcText(column->GetName());
}

void SequenceReader::Finish() {
  std::stable_sort(all_.begin(), all_.end(), [](const auto& a, const auto& b) {
    return InOrder(a.schema, a.name, b.schema, b.name);
  });
  for (LcSequenceDetails& details : all_) {
    model_.catalog.session().sink.workbook()->details.sequences.push_back(std::move(details));
  }
  all_.clear();
  mark_ = 0;
}

void RoutineReader::Undo() {
  all_.resize(mark_);
  for (auto at = places_.begin(); at != places_.end();) {
    at = at->second >= mark_ ? places_.erase(at) : std::next(at);
  }
}

void RoutineReader::Read(const Row& row) {
  std::string_view schema;
  if (!model_.FindSchema(row, schema) || !selection_.WantsSchema(schema)) return;
  TextStore& texts = model_.catalog.texts();
  places_.emplace(row.Text(Field::kId), all_.size());
  Routine& routine = all_.emplace_back();
  LcRoutineDetails& details = routine.details;
  details.schema = texts.Get(schema);
  details.name = texts.Get(row.Text(Field::kName));
  details.id = texts.Get(row.Text(Field::kId));
  LcFindByName(texts.Wide(row.Text(Field::kKind)), details.kind);
  details.result = texts.Get(row.Text(Field::kResult));
  details.language = texts.Get(row.Text(Field::kLanguage));
  details.text = texts.Get(row.Text(Field::kText));
  details.comment = CommentOf(model_, row, Comments::Of::kRoutine, Field::kId);
  if (row.Has(Field::kReason)) {
    model_.catalog.AddNotRead(NameOf(Kind::kRoutines), schema, row.Text(Field::kName),
                              texts.Get(row.Text(Field::kReason)), true);
  }
  routine.arguments = texts.Get(row.Text(Field::kArguments));
  model_.TakeOptions(row, details.options);
}

void RoutineReader::ReadParameter(const Row& row) {
  const auto place = places_.find(std::string(row.Text(Field::kId)));
  if (place == places_.end()) return;
  TextStore& texts = model_.catalog.texts();
  LcParameterDetails parameter;
  // A parameter without a name has none; some servers write an empty one.
  if (!row.Text(Field::kName).empty()) parameter.name = texts.Get(row.Text(Field::kName));
  parameter.mode = texts.Get(row.Text(Field::kMode));
  parameter.type = texts.Get(row.Text(Field::kType));
  parameter.default_text = texts.Get(row.Text(Field::kDefault));
  all_[place->second].parameters.emplace_back(row.Number(Field::kPosition), std::move(parameter));
}

std::u16string RoutineReader::SignatureOf(const Routine& routine) const {
  std::u16string signature = routine.details.name.Text() + u"(";
  if (routine.arguments) return signature.append(routine.arguments.View()) + u")";
  bool first = true;
  for (const LcParameterDetails& parameter : routine.details.parameters) {
    if (!first) signature += u", ";
    first = false;
    if (parameter.mode && parameter.mode.View() != u"in") {
      signature.append(parameter.mode.View()) += u' ';
    }
    if (parameter.name) signature.append(parameter.name.View()) += u' ';
    signature += parameter.type.View();
  }
  return signature + u")";
}

void RoutineReader::Finish(std::uint32_t items) {
  std::vector<Routine*> sorted;
  for (Routine& routine : all_) {
    SortByFirst(routine.parameters);
    for (auto& parameter : routine.parameters) {
      routine.details.parameters.push_back(std::move(parameter.second));
    }
    sorted.push_back(&routine);
  }
  std::stable_sort(sorted.begin(), sorted.end(), [this](const Routine* a, const Routine* b) {
    if (a->details.schema != b->details.schema || a->details.name != b->details.name) {
      return InOrder(a->details.schema, a->details.name, b->details.schema, b->details.name);
    }
    return SignatureOf(*a) < SignatureOf(*b);
  });
  Sink& sink = model_.catalog.session().sink;
  for (Routine* routine : sorted) {
    LcRoutineDetails& details = routine->details;
    const std::u16string owner = details.schema.Text();
    const std::u16string name = details.name.Text();
    if ((items & ibFunctions) != 0 && sink.functions() != nullptr) {
      LcWorkbookFunction* function = sink.functions()->FindFunction(owner, name);
      if (function == nullptr) {
        function = sink.functions()->Append(std::make_unique<LcWorkbookFunction>(owner, name));
      }
      function->AddFunctionOverload(
          new LcWorkbookFunctionOverload(SignatureOf(*routine), details.result.Text()));
    }
    if ((items & ibAggregates) != 0 && sink.aggregates() != nullptr &&
        details.kind == rkAggregate) {
      sink.aggregates()->Append(std::make_unique<LcWorkbookAggregate>(name, SignatureOf(*routine)));
    }
    if ((items & ibProcedures) != 0 && sink.procedures() != nullptr &&
        details.kind == rkProcedure) {
      sink.procedures()->Append(std::make_unique<LcWorkbookProcedure>(owner, name));
    }
    model_.catalog.session().sink.workbook()->details.routines.push_back(std::move(details));
  }
  all_.clear();
  places_.clear();
  mark_ = 0;
}

}  // namespace odbcimport::exact
