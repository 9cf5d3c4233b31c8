// Reads the optional members of the workbook file.
#include "base/utf.h"
#include "importer/workbook/workbook_file_details.h"

namespace workbookfile {
namespace {

LcText Optional(const JsonField& object, std::string_view key) {
  LcText text;
  object.IfGiven(key, [&](const JsonField& field) { text = field.Text(); });
  return text;
}

// A value by its name; as it was where the member is left out.
template <class Enum>
void IfNamed(const JsonField& object, std::string_view key, Enum& value) {
  object.IfGiven(key, [&](const JsonField& field) {
    if (!LcFindByName(field.Text(), value)) field.Refuse("there is no such " + std::string(key));
  });
}

void IfFlagged(const JsonField& object, std::string_view key, bool& flag) {
  object.IfGiven(key, [&](const JsonField& field) { flag = field.Flag(); });
}

LcOptions OptionsMember(const JsonField& object) {
  LcOptions options;
  object.IfGiven("options", [&](const JsonField& field) { options = ReadOptions(field); });
  return options;
}

LcWorkbookColumn* FindColumn(const JsonField& name, const LcWorkbookTable& table) {
  LcWorkbookColumn* column = table.FindColumn(name.Text());
  if (column == nullptr) name.Refuse("the table has no such column");
  return column;
}

std::vector<LcWorkbookColumn*> ReadColumnNames(const JsonField& object,
                                               const LcWorkbookTable& table) {
  std::vector<LcWorkbookColumn*> columns;
  object.ForEach("columns",
                 [&](const JsonField& name) { columns.push_back(FindColumn(name, table)); });
  return columns;
}

LcKeyDetails ReadKey(const JsonField& field, const LcWorkbookTable& table) {
  field.ExpectObject();
  LcKeyDetails key;
  key.name = Optional(field, "name");
  IfNamed(field, "kind", key.kind);
  key.columns = ReadColumnNames(field, table);
  IfNamed(field, "deferrable", key.deferrable);
  key.comment = Optional(field, "comment");
  key.options = OptionsMember(field);
  return key;
}

LcIndexDetails ReadIndex(const JsonField& field, const LcWorkbookTable& table) {
  field.ExpectObject();
  LcIndexDetails index;
  index.name = Optional(field, "name");
  index.unique = field.Flag("unique");
  index.method = Optional(field, "method");
  field.ForEach("columns", [&](const JsonField& element) {
    element.ExpectObject();
    LcIndexPart part;
    element.IfGiven("column",
                    [&](const JsonField& name) { part.column = FindColumn(name, table); });
    part.expression = Optional(element, "expression");
    part.descending = element.Flag("descending");
    part.included = element.Flag("included");
    part.options = OptionsMember(element);
    index.parts.push_back(std::move(part));
  });
  index.predicate = Optional(field, "predicate");
  index.comment = Optional(field, "comment");
  index.options = OptionsMember(field);
  return index;
}

LcCheckDetails ReadCheck(const JsonField& field) {
  field.ExpectObject();
  return {Optional(field, "name"), Optional(field, "expression"), Optional(field, "comment"),
          OptionsMember(field)};
}

LcTriggerDetails ReadTrigger(const JsonField& field) {
  field.ExpectObject();
  return {Optional(field, "name"), Optional(field, "timing"),  Optional(field, "events"),
          Optional(field, "text"), Optional(field, "comment"), OptionsMember(field)};
}

void ReadForeignKeyMembers(const JsonField& field, LcForeignKeyDetails& details) {
  details.name = Optional(field, "name");
  details.on_update = Optional(field, "onUpdate");
  details.on_delete = Optional(field, "onDelete");
  details.match = Optional(field, "match");
  IfNamed(field, "deferrable", details.deferrable);
  IfFlagged(field, "enforced", details.enforced);
  details.comment = Optional(field, "comment");
  details.options = OptionsMember(field);
}

LcOutsideKey ReadOutsideKey(const JsonField& field, const LcWorkbookTable& table) {
  field.ExpectObject();
  LcOutsideKey key;
  ReadForeignKeyMembers(field, key.details);
  key.columns = ReadColumnNames(field, table);
  field.IfGiven("target", [&](const JsonField& target) {
    target.ExpectObject();
    key.target_owner = Optional(target, "owner");
    key.target_table = Optional(target, "table");
    target.ForEach("columns",
                   [&](const JsonField& name) { key.target_columns.push_back(name.Text()); });
  });
  return key;
}

bool HasAny(const JsonField& object, std::initializer_list<std::string_view> keys) {
  bool any = false;
  for (const std::string_view key : keys)
    object.IfGiven(key, [&](const JsonField&) { any = true; });
  return any;
}

}  // namespace

LcOptions ReadOptions(const JsonField& options) {
  LcOptions read;
  options.ForEachMember([&](const std::string& name, const JsonField& value) {
    read.Set(base::ToUtf16(name), value.Text());
  });
  return read;
}

void ReadSource(const JsonField& source, LcWorkbookFileInfo& info) {
  info.dialect = source.Text("dialect");
  info.database = source.Text("database");
  info.title = source.Text("title");
  info.imported_at = source.Text("importedAt");
  info.name_case = source.Text("nameCase");
  source.IfGiven("choices", [&](const JsonField& choices) {
    choices.ExpectObject();
    info.choices = choices.Raw();
  });
}

void ReadColumnDetails(const JsonField& field, LcWorkbookColumn& column) {
  field.IfGiven("databaseType", [&](const JsonField& type) {
    if (column.GetDataType() == nullptr) column.SetDataType(new LcWorkbookDatatype(), true, true);
    column.GetDataType()->SetDatabaseType(type.Text());
  });
  if (!HasAny(field, {"default", "generated", "expression", "identity", "collation", "comment",
                      "options"})) {
    return;
  }
  LcColumnDetails& details = column.ChangeDetails();
  details.default_text = Optional(field, "default");
  IfNamed(field, "generated", details.generated);
  details.expression = Optional(field, "expression");
  IfNamed(field, "identity", details.identity);
  details.collation = Optional(field, "collation");
  details.comment = Optional(field, "comment");
  details.options = OptionsMember(field);
}

void ReadForeignKeyDetails(const JsonField& field, LcWorkbookForeignKey& key) {
  if (!HasAny(field, {"name", "onUpdate", "onDelete", "match", "deferrable", "enforced", "comment",
                      "options"})) {
    return;
  }
  auto details = std::make_shared<LcForeignKeyDetails>();
  ReadForeignKeyMembers(field, *details);
  key.SetDetails(std::move(details));
}

void ReadTableDetails(const JsonField& field, LcWorkbookTable& table) {
  if (!HasAny(field, {"kind", "comment", "viewText", "partitionOf", "keyName", "key", "uniqueKeys",
                      "indexes", "checks", "triggers", "outsideKeys", "options"})) {
    return;
  }
  LcTableDetails& details = table.ChangeDetails();
  IfNamed(field, "kind", details.kind);
  details.comment = Optional(field, "comment");
  details.view_text = Optional(field, "viewText");
  field.IfGiven("partitionOf", [&](const JsonField& parent) {
    parent.ExpectObject();
    details.parent_owner = Optional(parent, "owner");
    details.parent_table = Optional(parent, "table");
  });
  field.IfGiven("keyName", [&](const JsonField& name) {
    details.primary_key = std::make_unique<LcKeyDetails>();
    details.primary_key->name = name.Text();
    details.primary_key->columns = table.GetPrimaryKey().GetColumns();
  });
  field.IfGiven("key", [&](const JsonField& key) {
    details.primary_key = std::make_unique<LcKeyDetails>(ReadKey(key, table));
  });
  details.options = OptionsMember(field);
  field.ForEach("uniqueKeys",
                [&](const JsonField& key) { details.unique_keys.push_back(ReadKey(key, table)); });
  field.ForEach("indexes", [&](const JsonField& index) {
    details.indexes.push_back(ReadIndex(index, table));
  });
  field.ForEach("checks",
                [&](const JsonField& check) { details.checks.push_back(ReadCheck(check)); });
  field.ForEach("triggers", [&](const JsonField& trigger) {
    details.triggers.push_back(ReadTrigger(trigger));
  });
  field.ForEach("outsideKeys", [&](const JsonField& key) {
    details.outside_keys.push_back(ReadOutsideKey(key, table));
  });
}

LcSchemaDetails ReadSchema(const JsonField& field) {
  return {field.RequiredText("name"), Optional(field, "comment"), OptionsMember(field),
          field.Flag("default")};
}

LcTypeDetails ReadType(const JsonField& field) {
  LcTypeDetails type;
  type.name = field.RequiredText("name");
  type.schema = Optional(field, "schema");
  IfNamed(field, "kind", type.kind);
  type.base_type = Optional(field, "baseType");
  IfFlagged(field, "nullable", type.nullable);
  type.default_text = Optional(field, "default");
  field.ForEach("labels", [&](const JsonField& label) { type.labels.push_back(label.Text()); });
  field.ForEach("attributes", [&](const JsonField& attribute) {
    attribute.ExpectObject();
    type.attributes.push_back({Optional(attribute, "name"), Optional(attribute, "type")});
  });
  field.ForEach("checks", [&](const JsonField& check) { type.checks.push_back(ReadCheck(check)); });
  type.comment = Optional(field, "comment");
  type.options = OptionsMember(field);
  return type;
}

LcSequenceDetails ReadSequence(const JsonField& field) {
  LcSequenceDetails sequence;
  sequence.name = field.RequiredText("name");
  sequence.schema = Optional(field, "schema");
  sequence.type = Optional(field, "type");
  sequence.start = Optional(field, "start");
  sequence.increment = Optional(field, "increment");
  sequence.minimum = Optional(field, "minimum");
  sequence.maximum = Optional(field, "maximum");
  sequence.cycle = field.Flag("cycle");
  sequence.owner_table = Optional(field, "ownerTable");
  sequence.owner_column = Optional(field, "ownerColumn");
  sequence.comment = Optional(field, "comment");
  sequence.options = OptionsMember(field);
  return sequence;
}

LcRoutineDetails ReadRoutine(const JsonField& field) {
  LcRoutineDetails routine;
  routine.name = field.RequiredText("name");
  routine.schema = Optional(field, "schema");
  routine.id = Optional(field, "id");
  IfNamed(field, "kind", routine.kind);
  field.ForEach("parameters", [&](const JsonField& parameter) {
    parameter.ExpectObject();
    routine.parameters.push_back({Optional(parameter, "name"), Optional(parameter, "mode"),
                                  Optional(parameter, "type"), Optional(parameter, "default")});
  });
  routine.result = Optional(field, "result");
  routine.language = Optional(field, "language");
  routine.text = Optional(field, "text");
  routine.comment = Optional(field, "comment");
  routine.options = OptionsMember(field);
  return routine;
}

LcNotRead ReadNotRead(const JsonField& field) {
  field.ExpectObject();
  LcNotRead missing;
  missing.kind = Optional(field, "kind");
  missing.owner = Optional(field, "owner");
  missing.name = Optional(field, "name");
  missing.reason = Optional(field, "reason");
  missing.withheld = field.Flag("withheld");
  return missing;
}

}  // namespace workbookfile
