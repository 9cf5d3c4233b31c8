// Reads the workbook file.
#include <istream>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "importer/workbook/json_pieces.h"
#include "importer/workbook/workbook_file_details.h"

namespace {

enumTableType ReadTableType(const JsonField& object) {
  enumTableType type = ttTable;
  object.IfGiven("type", [&](const JsonField& field) {
    const std::u16string name = field.Text();
    if (name == u"view") {
      type = ttView;
    } else if (name == u"synonym") {
      type = ttSynonym;
    } else if (name != u"table") {
      field.Refuse("expected \"table\", \"view\" or \"synonym\"");
    }
  });
  return type;
}

LcSynonymDetails ReadSynonymMembers(const JsonField& object) {
  LcSynonymDetails details;
  details.synonym_id = object.Number<std::int32_t>("synonymId");
  details.base_table_id = object.Number<std::int32_t>("baseTableId");
  details.server_name = object.Text("serverName");
  details.database_name = object.Text("databaseName");
  details.base_owner = object.Text("baseOwner");
  details.base_table_name = object.Text("baseTableName");
  return details;
}

// Codes that are no known enumerator are kept as they are.
template <class Enum>
Enum ReadCode(const JsonField& object, std::string_view key) {
  return static_cast<Enum>(object.Number<std::int32_t>(key));
}

std::unique_ptr<LcWorkbookDatatype> ReadDatatype(const JsonField& field, int depth = 0) {
  if (field.IsNull()) return nullptr;
  field.ExpectObject();
  if (depth > kDeepestComponent) field.Refuse("nested too deep");
  auto type = std::make_unique<LcWorkbookDatatype>();
  type->SetTypeName(field.Text("typeName"));
  type->SetOtherTypeName(field.Text("otherTypeName"));
  type->SetName(field.Text("name"));
  type->SetOwner(field.Text("owner"));
  type->SetPhysicalCode(field.Number<int>("physicalCode"));
  type->SetGenericCode(ReadCode<enumDataType>(field, "genericCode"));
  type->SetTypeGroup(ReadCode<enumDataTypeGroup>(field, "typeGroup"));
  type->SetLength(field.Number<unsigned long>("length"));
  type->SetPrecision(field.Number<unsigned short>("precision"));
  type->SetScale(field.Number<unsigned short>("scale"));
  type->SetLong(field.Flag("long"));
  type->SetSizeModifiable(field.Flag("sizeModifiable"));
  type->SetDistinct(field.Flag("distinct"));
  type->SetExtendedId(field.Number<long>("extendedId"));
  field.ForEach("extendedTypeNames",
                [&](const JsonField& name) { type->AddExtendedTypeName(name.Text()); });
  field.IfGiven("base", [&](const JsonField& base) {
    base.ExpectObject();
    type->SetBaseCode(base.Number<int>("code"));
    type->SetBaseOwner(base.Text("owner"));
    type->SetBaseExtendedTypeName(base.Text("extendedTypeName"));
    type->SetGenericBaseCode(ReadCode<enumDataType>(base, "genericCode"));
    type->SetBaseTypeGroup(ReadCode<enumDataTypeGroup>(base, "typeGroup"));
  });
  field.ForEach("components", [&](const JsonField& component) {
    component.ExpectObject();
    type->AddComponent(ReadDatatype(component, depth + 1).release());
  });
  return type;
}

std::unique_ptr<LcWorkbookDatatype> ReadDatatypeMember(const JsonField& object) {
  std::unique_ptr<LcWorkbookDatatype> type;
  object.IfGiven("dataType", [&](const JsonField& field) { type = ReadDatatype(field); });
  return type;
}

enumIntervalPart ReadInterval(const JsonField& object, std::string_view key) {
  return static_cast<enumIntervalPart>(object.Number<std::uint8_t>(key));
}

std::unique_ptr<LcWorkbookColumn> ReadColumn(const JsonField& field) {
  auto column = std::make_unique<LcWorkbookColumn>();
  column->SetName(field.RequiredText("name"));
  column->SetColumnId(field.Number<std::int32_t>("columnId"));
  column->SetDataType(ReadDatatypeMember(field).release(), true, true);
  column->SetPhysicalCode(field.Number<int>("physicalCode"));
  column->SetWidth(field.Number<int>("width"));
  column->SetPrecision(field.Number<std::uint32_t>("precision"));
  column->SetScale(field.Number<unsigned short>("scale"));
  column->SetRequired(field.Flag("required"));
  column->SetReadOnly(field.Flag("readOnly"));
  column->SetGeneratedKey(field.Flag("generatedKey"));
  column->SetPrimaryKey(field.Flag("primaryKey"));
  column->SetIntervalMax(ReadInterval(field, "intervalMax"));
  column->SetIntervalMin(ReadInterval(field, "intervalMin"));
  column->SetExtendedTypeName(field.Text("extendedTypeName"));
  workbookfile::ReadColumnDetails(field, *column);
  return column;
}

void ReadFunction(const JsonField& field, LcWorkbookFunctionList& list) {
  auto function =
      std::make_unique<LcWorkbookFunction>(field.Text("owner"), field.RequiredText("name"));
  field.ForEach("overloads", [&](const JsonField& overload) {
    overload.ExpectObject();
    function->AddFunctionOverload(
        new LcWorkbookFunctionOverload(overload.Text("signature"), overload.Text("result")));
  });
  list.Append(std::move(function));
}

template <class Named>
void ReadDescribed(const JsonField& field, LcObjectList<Named>& list) {
  list.Append(std::make_unique<Named>(field.RequiredText("name"), field.Text("description")));
}

class Reader : public JsonPieces {
 public:
  Reader(LcWorkbook& workbook, LcWorkbookFileInfo& info) : workbook_(workbook), info_(info) {}

  // What can be done only once everything has been read.
  void Finish() {
    if (!has_format_) throw JsonRefusal{"format: missing, so this is no workbook file"};
    if (!has_version_) throw JsonRefusal{"version: missing"};
    for (const KeyColumn& column : key_columns_) Resolve(column);
    PairKeys();
  }

 private:
  // A key's column as the file gives it: its table may come later.
  struct KeyColumn {
    LcWorkbookForeignKey* key;
    bool foreign_side;
    std::size_t table;
    std::u16string name;
    std::string path;
  };

  void OnList(const std::string& key) override {
    if (FindList(key) == nullptr && FindMember(key) != nullptr) Refuse(key, "expected one value");
  }

  void OnElement(const std::string& key, std::size_t index, const nlohmann::json& value) override {
    const ReadPiece read = FindList(key);
    if (read == nullptr) return;
    const nlohmann::json none;
    const JsonField list(none, nullptr, key);
    (this->*read)(JsonField(value, &list, index));
  }

  void OnMember(const std::string& key, const nlohmann::json& value) override {
    if (FindList(key) != nullptr) Refuse(key, "expected a list");
    const ReadPiece read = FindMember(key);
    if (read != nullptr) (this->*read)(JsonField(value, nullptr, key));
  }

  [[noreturn]] static void Refuse(const std::string& field, const std::string& reason) {
    throw JsonRefusal{field + ": " + reason};
  }

  using ReadPiece = void (Reader::*)(const JsonField&);
  static ReadPiece FindList(const std::string& key);
  static ReadPiece FindMember(const std::string& key);

  void ReadFormat(const JsonField& field) {
    if (field.Text() != u"workbook") field.Refuse("expected \"workbook\"");
    has_format_ = true;
  }
  void ReadVersion(const JsonField& field) {
    if (field.Number<int>() != kWorkbookFileVersion) {
      field.Refuse("this program reads version " + std::to_string(kWorkbookFileVersion));
    }
    has_version_ = true;
  }
  void ReadSource(const JsonField& field) {
    field.ExpectObject();
    info_.dbms_name = field.Text("dbmsName");
    info_.dbms_version = field.Number<std::int32_t>("dbmsVersion");
    info_.dbms_type = ReadCode<LeDBMSType>(field, "dbmsType");
    info_.route = field.Text("route");
    workbookfile::ReadSource(field, info_);
  }
  void ReadResult(const JsonField& field) { info_.result = field.Flag(); }
  void ReadStatus(const JsonField& field) { info_.status = field.Number<std::uint16_t>(); }
  void ReadErrorsShown(const JsonField& field) {
    info_.errors_shown = field.Number<std::uint32_t>();
  }
  void ReadIncomplete(const JsonField& field) { info_.incomplete = field.Flag(); }

  void ReadOwnerName(const JsonField& field) {
    workbook_.owner_names.Append(std::make_unique<LcOwnerInfo>())->name = field.Text();
  }
  void ReadTableName(const JsonField& field) {
    auto table = std::make_unique<LcTableInfo>();
    table->name = field.RequiredText("name");
    table->owner = field.Text("owner");
    table->type = ReadTableType(field);
    table->synonym = ReadSynonymMembers(field);
    workbook_.table_names.Append(std::move(table));
  }
  void ReadColumnName(const JsonField& field) {
    auto column = std::make_unique<LcWBColumnInfo>();
    column->name = field.RequiredText("name");
    column->data_type = ReadDatatypeMember(field);
    workbook_.column_names.Append(std::move(column));
  }
  void ReadListedDatatype(const JsonField& field) {
    field.ExpectObject();
    workbook_.data_types.AddDataType(ReadDatatype(field).release());
  }

  void ReadTable(const JsonField& field) {
    auto table = std::make_unique<LcWorkbookTable>();
    table->SetName(field.RequiredText("name"));
    table->SetOwner(field.Text("owner"));
    table->SetType(ReadTableType(field));
    field.IfGiven("synonym", [&](const JsonField& synonym) {
      synonym.ExpectObject();
      table->SetSynonymDetails(ReadSynonymMembers(synonym));
    });
    field.ForEach("columns",
                  [&](const JsonField& column) { table->AddColumn(ReadColumn(column).release()); });
    field.ForEach("primaryKey", [&](const JsonField& name) {
      LcWorkbookColumn* column = table->FindColumn(name.Text());
      if (column == nullptr) name.Refuse("the table has no such column");
      table->GetPrimaryKey().AddKeyColumn(column);
    });
    field.ForEach("foreignKeys", [&](const JsonField& key) { ReadForeignKey(key, *table); });
    workbookfile::ReadTableDetails(field, *table);
    workbook_.tables.Append(std::move(table));
  }

  void ReadForeignKey(const JsonField& field, LcWorkbookTable& table) {
    field.ExpectObject();
    auto key = std::make_unique<LcWorkbookForeignKey>();
    key->SetKey(new LcWorkbookKeyList());
    key->SetForeignKey(new LcWorkbookKeyList());
    key->SetOneToOne(field.Flag("oneToOne"));
    field.IfGiven("role", [&](const JsonField& role) {
      const std::u16string name = role.Text();
      if (name != u"forward" && name != u"mirror") {
        role.Refuse("expected \"forward\" or \"mirror\"");
      }
      key->SetRole(name == u"mirror" ? fkMirror : fkForward);
    });
    ReadKeySide(field, "key", *key, false);
    ReadKeySide(field, "foreignKey", *key, true);
    workbookfile::ReadForeignKeyDetails(field, *key);
    table.AddForeignKey(key.release());
  }

  void ReadKeySide(const JsonField& field, std::string_view side, LcWorkbookForeignKey& key,
                   bool foreign_side) {
    field.ForEach(side, [&](const JsonField& column) {
      std::u16string name = column.RequiredText("column");
      // For people: the index tells the table. Only what is no text is refused.
      static_cast<void>(column.Text("owner"));
      static_cast<void>(column.Text("table"));
      key_columns_.push_back({&key, foreign_side, column.Number<std::uint32_t>("index"),
                              std::move(name), column.Path()});
    });
  }

  void Resolve(const KeyColumn& wanted) {
    const LcWorkbookTable* table = workbook_.tables.GetAt(wanted.table);
    if (table == nullptr) Refuse(wanted.path + ".index", "there is no such table");
    LcWorkbookColumn* column = table->FindColumn(wanted.name);
    if (column == nullptr) Refuse(wanted.path + ".column", "the table has no such column");
    if (wanted.foreign_side) {
      wanted.key->SetForeignKey(column);
    } else {
      wanted.key->SetKey(column);
    }
  }

  // A forward key's partner is the mirror key with the sides swapped; of several alike, the next.
  void PairKeys() {
    using Columns = std::vector<LcWorkbookColumn*>;
    std::multimap<std::pair<Columns, Columns>, LcWorkbookForeignKey*> mirrors;
    const auto for_each_key = [&](LeForeignKeyRole role, auto use) {
      for (LcWorkbookTable* table : workbook_.tables) {
        for (const auto& key : table->GetForeignKeys()) {
          if (key->GetRole() == role) use(*key);
        }
      }
    };
    for_each_key(fkMirror, [&](LcWorkbookForeignKey& key) {
      mirrors.emplace(std::pair(key.GetForeignKey()->GetColumns(), key.GetKey()->GetColumns()),
                      &key);
    });
    for_each_key(fkForward, [&](LcWorkbookForeignKey& key) {
      const auto mirror =
          mirrors.find(std::pair(key.GetKey()->GetColumns(), key.GetForeignKey()->GetColumns()));
      if (mirror == mirrors.end()) return;
      LcWorkbookForeignKey::Pair(&key, mirror->second);
      mirrors.erase(mirror);
    });
  }

  void ReadOperator(const JsonField& field) { ReadDescribed(field, workbook_.operators); }
  void ReadAggregate(const JsonField& field) { ReadDescribed(field, workbook_.aggregates); }
  void ReadBooleanFunction(const JsonField& field) {
    ReadFunction(field, workbook_.boolean_functions);
  }
  void ReadGeneralFunction(const JsonField& field) { ReadFunction(field, workbook_.functions); }
  void ReadProcedure(const JsonField& field) {
    auto procedure =
        std::make_unique<LcWorkbookProcedure>(field.Text("owner"), field.RequiredText("name"));
    procedure->SetQualifier(field.Text("qualifier"));
    procedure->SetServer(field.Text("server"));
    workbook_.procedures.Append(std::move(procedure));
  }

  void ReadSchema(const JsonField& field) {
    workbook_.details.schemas.push_back(workbookfile::ReadSchema(field));
  }
  void ReadType(const JsonField& field) {
    workbook_.details.types.push_back(workbookfile::ReadType(field));
  }
  void ReadSequence(const JsonField& field) {
    workbook_.details.sequences.push_back(workbookfile::ReadSequence(field));
  }
  void ReadRoutine(const JsonField& field) {
    workbook_.details.routines.push_back(workbookfile::ReadRoutine(field));
  }
  void ReadNotRead(const JsonField& field) {
    workbook_.details.not_read.push_back(workbookfile::ReadNotRead(field));
  }
  void ReadOptions(const JsonField& field) {
    workbook_.details.options = workbookfile::ReadOptions(field);
  }

  LcWorkbook& workbook_;
  LcWorkbookFileInfo& info_;
  std::vector<KeyColumn> key_columns_;
  bool has_format_ = false;
  bool has_version_ = false;
};

Reader::ReadPiece Reader::FindList(const std::string& key) {
  static const std::map<std::string, ReadPiece> lists = {
      {"ownerNames", &Reader::ReadOwnerName},
      {"tableNames", &Reader::ReadTableName},
      {"columnNames", &Reader::ReadColumnName},
      {"dataTypes", &Reader::ReadListedDatatype},
      {"tables", &Reader::ReadTable},
      {"operators", &Reader::ReadOperator},
      {"booleanFunctions", &Reader::ReadBooleanFunction},
      {"functions", &Reader::ReadGeneralFunction},
      {"aggregates", &Reader::ReadAggregate},
      {"procedures", &Reader::ReadProcedure},
      {"schemas", &Reader::ReadSchema},
      {"types", &Reader::ReadType},
      {"sequences", &Reader::ReadSequence},
      {"routines", &Reader::ReadRoutine},
      {"notRead", &Reader::ReadNotRead},
  };
  const auto found = lists.find(key);
  return found == lists.end() ? nullptr : found->second;
}

Reader::ReadPiece Reader::FindMember(const std::string& key) {
  static const std::map<std::string, ReadPiece> members = {
      {"format", &Reader::ReadFormat},         {"version", &Reader::ReadVersion},
      {"source", &Reader::ReadSource},         {"result", &Reader::ReadResult},
      {"status", &Reader::ReadStatus},         {"errorsShown", &Reader::ReadErrorsShown},
      {"incomplete", &Reader::ReadIncomplete}, {"options", &Reader::ReadOptions},
  };
  const auto found = members.find(key);
  return found == members.end() ? nullptr : found->second;
}

void EmptyWorkbook(LcWorkbook& workbook) {
  workbook.owner_names.EmptyList();
  workbook.table_names.EmptyList();
  workbook.column_names.EmptyList();
  workbook.data_types.EmptyList();
  workbook.tables.EmptyList();
  workbook.operators.EmptyList();
  workbook.boolean_functions.EmptyList();
  workbook.functions.EmptyList();
  workbook.aggregates.EmptyList();
  workbook.procedures.EmptyList();
  workbook.details = {};
}

template <class Input>
bool Read(Input& input, LcWorkbook& workbook, LcWorkbookFileInfo& info, std::string& why) {
  try {
    Reader reader(workbook, info);
    reader.Parse(input);
    reader.Finish();
    return true;
  } catch (const JsonRefusal& refusal) {
    why = refusal.why;
  } catch (const std::exception& error) {  // no memory, or a number beyond all types
    why = error.what();
  }
  EmptyWorkbook(workbook);
  return false;
}

}  // namespace

bool ReadWorkbookFile(std::string_view text, LcWorkbook& workbook, LcWorkbookFileInfo& info,
                      std::string& why) {
  return Read(text, workbook, info, why);
}

bool ReadWorkbookFile(std::istream& in, LcWorkbook& workbook, LcWorkbookFileInfo& info,
                      std::string& why) {
  if (Read(in, workbook, info, why)) return true;
  if (in.bad()) why = "it cannot be read to its end";
  return false;
}
