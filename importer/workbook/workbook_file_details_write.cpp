// Writes the optional members of the workbook file. What is absent, empty or the ordinary case is
// left out.
#include "importer/workbook/workbook_file_details.h"

namespace workbookfile {
namespace {

void Optional(JsonWriter& json, std::string_view key, const LcText& text) {
  if (!text.IsPresent()) return;
  json.KeptKey(key);  // an empty text is not an absent one
  json.Text(text.View());
}

void Optional(JsonWriter& json, std::string_view key, const std::u16string& text) {
  if (!text.empty()) json.Member(key, text);
}

// Left out where it is the ordinary case.
void Unless(JsonWriter& json, std::string_view key, bool ordinary, bool value) {
  if (value == ordinary) return;
  json.KeptKey(key);
  json.Bool(value);
}

template <class Enum>
void OptionalName(JsonWriter& json, std::string_view key, Enum value) {
  if (const char16_t* name = LcNameOf(value); name != nullptr) json.Member(key, name);
}

void WriteOptions(JsonWriter& json, const LcOptions& options) {
  if (options.IsEmpty()) return;
  json.Key("options");
  json.BeginObject();
  for (const LcOptions::Option& option : options.All()) {
    json.TextKey(option.name.View());
    json.Text(option.value.View());
  }
  json.EndObject();
}

// A list with a line for each entry; nothing for an empty one.
template <class Entry, class Write>
void WriteLines(JsonWriter& json, const char* key, const std::vector<Entry>& list, int indent,
                Write write) {
  if (list.empty()) return;
  json.NewLine(indent);
  json.Key(key);
  json.BeginArray();
  for (const Entry& entry : list) {
    json.NewLine(indent + 2);
    json.BeginObject();
    write(entry);
    json.EndObject();
  }
  json.NewLine(indent);
  json.EndArray();
}

void WriteColumnNames(JsonWriter& json, const std::vector<LcWorkbookColumn*>& columns) {
  json.Key("columns");
  json.BeginArray();
  for (const LcWorkbookColumn* column : columns) json.Text(column->GetName());
  json.EndArray();
}

void WriteKey(JsonWriter& json, const LcKeyDetails& key) {
  Optional(json, "name", key.name);
  json.Member("kind", LcNameOf(key.kind));
  WriteColumnNames(json, key.columns);
  OptionalName(json, "deferrable", key.deferrable);
  Optional(json, "comment", key.comment);
  WriteOptions(json, key.options);
}

void WriteIndex(JsonWriter& json, const LcIndexDetails& index) {
  Optional(json, "name", index.name);
  json.Member("unique", index.unique);
  Optional(json, "method", index.method);
  json.Key("columns");
  json.BeginArray();
  for (const LcIndexPart& part : index.parts) {
    json.BeginObject();
    if (part.column != nullptr) json.Member("column", part.column->GetName());
    Optional(json, "expression", part.expression);
    Unless(json, "descending", false, part.descending);
    Unless(json, "included", false, part.included);
    WriteOptions(json, part.options);
    json.EndObject();
  }
  json.EndArray();
  Optional(json, "predicate", index.predicate);
  Optional(json, "comment", index.comment);
  WriteOptions(json, index.options);
}

void WriteCheck(JsonWriter& json, const LcCheckDetails& check) {
  Optional(json, "name", check.name);
  Optional(json, "expression", check.expression);
  Optional(json, "comment", check.comment);
  WriteOptions(json, check.options);
}

void WriteTrigger(JsonWriter& json, const LcTriggerDetails& trigger) {
  Optional(json, "name", trigger.name);
  Optional(json, "timing", trigger.timing);
  Optional(json, "events", trigger.events);
  Optional(json, "text", trigger.text);
  Optional(json, "comment", trigger.comment);
  WriteOptions(json, trigger.options);
}

void WriteOutsideKey(JsonWriter& json, const LcOutsideKey& key) {
  WriteForeignKeyDetails(json, &key.details);
  WriteColumnNames(json, key.columns);
  json.Key("target");
  json.BeginObject();
  Optional(json, "owner", key.target_owner);
  Optional(json, "table", key.target_table);
  json.Key("columns");
  json.BeginArray();
  for (const LcText& column : key.target_columns) json.Text(column.View());
  json.EndArray();
  json.EndObject();
}

void WriteType(JsonWriter& json, const LcTypeDetails& type) {
  Optional(json, "schema", type.schema);
  Optional(json, "name", type.name);
  json.Member("kind", LcNameOf(type.kind));
  Optional(json, "baseType", type.base_type);
  Unless(json, "nullable", true, type.nullable);
  Optional(json, "default", type.default_text);
  if (!type.labels.empty()) {
    json.Key("labels");
    json.BeginArray();
    for (const LcText& label : type.labels) json.Text(label.View());
    json.EndArray();
  }
  if (!type.attributes.empty()) {
    json.Key("attributes");
    json.BeginArray();
    for (const LcTypeAttribute& attribute : type.attributes) {
      json.BeginObject();
      Optional(json, "name", attribute.name);
      Optional(json, "type", attribute.type);
      json.EndObject();
    }
    json.EndArray();
  }
  WriteLines(json, "checks", type.checks, 6, [&](const LcCheckDetails& c) { WriteCheck(json, c); });
  Optional(json, "comment", type.comment);
  WriteOptions(json, type.options);
}

void WriteSequence(JsonWriter& json, const LcSequenceDetails& sequence) {
  Optional(json, "schema", sequence.schema);
  Optional(json, "name", sequence.name);
  Optional(json, "type", sequence.type);
  Optional(json, "start", sequence.start);
  Optional(json, "increment", sequence.increment);
  Optional(json, "minimum", sequence.minimum);
  Optional(json, "maximum", sequence.maximum);
  Unless(json, "cycle", false, sequence.cycle);
  Optional(json, "ownerTable", sequence.owner_table);
  Optional(json, "ownerColumn", sequence.owner_column);
  Optional(json, "comment", sequence.comment);
  WriteOptions(json, sequence.options);
}

void WriteRoutine(JsonWriter& json, const LcRoutineDetails& routine) {
  Optional(json, "schema", routine.schema);
  Optional(json, "name", routine.name);
  Optional(json, "id", routine.id);
  json.Member("kind", LcNameOf(routine.kind));
  WriteLines(json, "parameters", routine.parameters, 6, [&](const LcParameterDetails& parameter) {
    Optional(json, "name", parameter.name);
    Optional(json, "mode", parameter.mode);
    Optional(json, "type", parameter.type);
    Optional(json, "default", parameter.default_text);
  });
  Optional(json, "result", routine.result);
  Optional(json, "language", routine.language);
  Optional(json, "text", routine.text);
  Optional(json, "comment", routine.comment);
  WriteOptions(json, routine.options);
}

void WriteNotRead(JsonWriter& json, const LcNotRead& missing) {
  Optional(json, "kind", missing.kind);
  Optional(json, "owner", missing.owner);
  Optional(json, "name", missing.name);
  Optional(json, "reason", missing.reason);
  Unless(json, "withheld", false, missing.withheld);
}

}  // namespace

void WriteSource(JsonWriter& json, const LcWorkbookFileInfo& info) {
  Optional(json, "dialect", info.dialect);
  Optional(json, "database", info.database);
  Optional(json, "title", info.title);
  Optional(json, "importedAt", info.imported_at);
  Optional(json, "nameCase", info.name_case);
  if (!info.choices.empty()) {
    json.NewLine(4);
    json.Key("choices");
    json.Raw(info.choices);
  }
}

void WriteColumnDetails(JsonWriter& json, const LcWorkbookColumn& column) {
  if (const LcWorkbookDatatype* type = column.GetDataType(); type != nullptr) {
    Optional(json, "databaseType", type->GetDatabaseType());
  }
  const LcColumnDetails* details = column.GetDetails();
  if (details == nullptr) return;
  Optional(json, "default", details->default_text);
  OptionalName(json, "generated", details->generated);
  Optional(json, "expression", details->expression);
  OptionalName(json, "identity", details->identity);
  Optional(json, "collation", details->collation);
  Optional(json, "comment", details->comment);
  WriteOptions(json, details->options);
}

void WriteForeignKeyDetails(JsonWriter& json, const LcForeignKeyDetails* details) {
  if (details == nullptr) return;
  Optional(json, "name", details->name);
  Optional(json, "onUpdate", details->on_update);
  Optional(json, "onDelete", details->on_delete);
  Optional(json, "match", details->match);
  OptionalName(json, "deferrable", details->deferrable);
  Unless(json, "enforced", true, details->enforced);
  Optional(json, "comment", details->comment);
  WriteOptions(json, details->options);
}

void WriteTableDetails(JsonWriter& json, const LcWorkbookTable& table) {
  const LcTableDetails* details = table.GetDetails();
  if (details == nullptr) return;
  json.NewLine(6);
  OptionalName(json, "kind", details->kind);
  Optional(json, "comment", details->comment);
  Optional(json, "viewText", details->view_text);
  if (details->parent_table.IsPresent()) {
    json.Key("partitionOf");
    json.BeginObject();
    Optional(json, "owner", details->parent_owner);
    Optional(json, "table", details->parent_table);
    json.EndObject();
  }
  if (const LcKeyDetails* key = details->primary_key.get(); key != nullptr) {
    Optional(json, "keyName", key->name);
    json.Key("key");
    json.BeginObject();
    WriteKey(json, *key);
    json.EndObject();
  }
  WriteOptions(json, details->options);
  WriteLines(json, "uniqueKeys", details->unique_keys, 6,
             [&](const LcKeyDetails& key) { WriteKey(json, key); });
  WriteLines(json, "indexes", details->indexes, 6,
             [&](const LcIndexDetails& index) { WriteIndex(json, index); });
  WriteLines(json, "checks", details->checks, 6,
             [&](const LcCheckDetails& check) { WriteCheck(json, check); });
  WriteLines(json, "triggers", details->triggers, 6,
             [&](const LcTriggerDetails& trigger) { WriteTrigger(json, trigger); });
  WriteLines(json, "outsideKeys", details->outside_keys, 6,
             [&](const LcOutsideKey& key) { WriteOutsideKey(json, key); });
}

void WriteWorkbookDetails(JsonWriter& json, const LcWorkbookDetails& details) {
  WriteLines(json, "schemas", details.schemas, 2, [&](const LcSchemaDetails& schema) {
    Optional(json, "name", schema.name);
    Unless(json, "default", false, schema.is_default);
    Optional(json, "comment", schema.comment);
    WriteOptions(json, schema.options);
  });
  WriteLines(json, "types", details.types, 2, [&](const LcTypeDetails& t) { WriteType(json, t); });
  WriteLines(json, "sequences", details.sequences, 2,
             [&](const LcSequenceDetails& s) { WriteSequence(json, s); });
  WriteLines(json, "routines", details.routines, 2,
             [&](const LcRoutineDetails& r) { WriteRoutine(json, r); });
  if (!details.options.IsEmpty()) {
    json.NewLine(2);
    WriteOptions(json, details.options);
  }
  WriteLines(json, "notRead", details.not_read, 2,
             [&](const LcNotRead& missing) { WriteNotRead(json, missing); });
}

}  // namespace workbookfile
