// Writes the workbook file. Keys stand in the order that the file promises; the lists at the top,
// the columns and the keys of a table have a line for each entry, so that two files can be
// compared.
#include <cstdint>
#include <future>
#include <string>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

#include "importer/workbook/json_writer.h"
#include "importer/workbook/workbook_file_details.h"

namespace {

// Empty entries are not written: a table's position here is the one among those that are.
using TablePositions = std::unordered_map<const LcWorkbookTable*, std::size_t>;

const char16_t* TableTypeName(enumTableType type) {
  switch (type) {
    case ttTable:
      break;
    case ttView:
      return u"view";
    case ttSynonym:
      return u"synonym";
  }
  return u"table";
}

template <class List, class WriteEntry>
void WriteList(JsonWriter& json, const char* key, const List& list, int indent,
               WriteEntry write_entry) {
  json.Key(key);
  json.BeginArray();
  bool any = false;
  for (const auto& entry : list) {
    if (entry == nullptr) continue;
    any = true;
    json.NewLine(indent + 2);
    write_entry(*entry);
  }
  if (any) json.NewLine(indent);
  json.EndArray();
}

// Deeper components are left out: no server nests types like that, and the reader refuses it.
void WriteDatatype(JsonWriter& json, const LcWorkbookDatatype* type, int depth = 0) {
  if (type == nullptr) return json.Null();
  json.BeginObject();
  json.Member("typeName", type->GetTypeName());
  json.Member("otherTypeName", type->GetOtherTypeName());
  json.Member("name", type->GetName());
  json.Member("owner", type->GetOwner());
  json.Member("physicalCode", type->GetPhysicalCode());
  json.Member("genericCode", std::int32_t{type->GetGenericCode()});
  json.Member("typeGroup", std::int32_t{type->GetTypeGroup()});
  json.Member("length", type->GetLength());
  json.Member("precision", type->GetPrecision());
  json.Member("scale", type->GetScale());
  json.Member("long", type->IsLong());
  json.Member("sizeModifiable", type->IsSizeModifiable());
  json.Member("distinct", type->IsDistinct());
  json.Member("extendedId", type->GetExtendedId());
  json.Key("extendedTypeNames");
  json.BeginArray();
  for (int i = 0; i < type->GetExtendedTypeNameCount(); ++i) {
    json.Text(type->GetExtendedTypeName(i));
  }
  json.EndArray();
  json.Key("base");
  json.BeginObject();
  json.Member("code", type->GetBaseCode());
  json.Member("owner", type->GetBaseOwner());
  json.Member("extendedTypeName", type->GetBaseExtendedTypeName());
  json.Member("genericCode", std::int32_t{type->GetGenericBaseCode()});
  json.Member("typeGroup", std::int32_t{type->GetBaseTypeGroup()});
  json.EndObject();
  json.Key("components");
  json.BeginArray();
  for (int i = 0; i < type->GetComponentCount() && depth < kDeepestComponent; ++i) {
    WriteDatatype(json, type->GetComponent(i), depth + 1);
  }
  json.EndArray();
  json.EndObject();
}

// The types of columns are written once each: those that share their contents and have the same
// sizes read the same.
class DatatypeTexts {
 public:
  explicit DatatypeTexts(bool compact) : compact_(compact) {}

  void Write(JsonWriter& json, const LcWorkbookDatatype* type) {
    if (type == nullptr) return json.Null();
    const Key key = {type->GetContentsId(), type->GetLength(), type->GetPrecision(),
                     type->GetScale(),      type->IsLong(),    type->IsSizeModifiable()};
    const auto known = texts_.find(key);
    if (known != texts_.end()) return json.RawObject(known->second);
    // More are made for a column each, and seen once.
    if (texts_.size() >= kMost) return WriteDatatype(json, type);
    JsonWriter one(compact_);
    WriteDatatype(one, type);
    json.RawObject(texts_.emplace(key, one.Kept()).first->second);
  }

 private:
  using Key = std::tuple<const void*, unsigned long, unsigned, unsigned, bool, bool>;
  static constexpr std::size_t kMost = 4096;
  struct Hash {
    std::size_t operator()(const Key& key) const {
      constexpr std::size_t kSpread = 0x9E3779B97F4A7C15U;
      const auto place = reinterpret_cast<std::uintptr_t>(std::get<0>(key)) >> 4U;
      return ((place * kSpread + std::get<1>(key)) * kSpread + std::get<2>(key)) * kSpread +
             std::get<3>(key);
    }
  };
  const bool compact_;
  std::unordered_map<Key, std::string, Hash> texts_;
};

void WriteSynonymMembers(JsonWriter& json, const LcSynonymDetails& synonym) {
  json.Member("synonymId", synonym.synonym_id);
  json.Member("baseTableId", synonym.base_table_id);
  json.Member("serverName", synonym.server_name);
  json.Member("databaseName", synonym.database_name);
  json.Member("baseOwner", synonym.base_owner);
  json.Member("baseTableName", synonym.base_table_name);
}

void WriteColumn(JsonWriter& json, const LcWorkbookColumn& column, DatatypeTexts& types) {
  json.BeginObject();
  json.KeptMember("name", column.GetName());
  json.Member("columnId", column.GetColumnId());
  json.Key("dataType");
  types.Write(json, column.GetDataType());
  json.Member("physicalCode", column.GetPhysicalCode());
  json.Member("width", column.GetWidth());
  json.Member("precision", column.GetPrecision());
  json.Member("scale", column.GetScale());
  json.Member("required", column.IsRequired());
  json.Member("readOnly", column.IsReadOnly());
  json.Member("generatedKey", column.IsGeneratedKey());
  json.Member("primaryKey", column.IsPrimaryKey());
  json.Member("intervalMax", std::int32_t{column.GetIntervalMax()});
  json.Member("intervalMin", std::int32_t{column.GetIntervalMin()});
  json.Member("extendedTypeName", column.GetExtendedTypeName());
  workbookfile::WriteColumnDetails(json, column);
  json.EndObject();
}

// A column of a table that the workbook does not hold is left out: no reader could find it.
// `holder` is the table that the key stands in: one side of each key is its own.
void WriteKeySide(JsonWriter& json, const char* key, const LcWorkbookKeyList* side,
                  const TablePositions& positions, const TablePositions::value_type& holder) {
  json.Key(key);
  json.BeginArray();
  const auto write_column = [&](const LcWorkbookColumn* column) {
    const LcWorkbookTable* const table = column->GetParentTable();
    std::size_t position = holder.second;
    if (table != holder.first) {
      const auto found = positions.find(table);
      if (found == positions.end()) return;
      position = found->second;
    }
    json.BeginObject();
    json.Member("owner", table->GetOwner(false));
    json.Member("table", table->GetName());
    json.Member("index", position);
    json.KeptMember("column", column->GetName());
    json.EndObject();
  };
  if (side != nullptr) side->ForEachColumn(write_column);
  json.EndArray();
}

void WriteTable(JsonWriter& json, const LcWorkbookTable& table, const TablePositions& positions,
                DatatypeTexts& types) {
  const TablePositions::value_type& holder = *positions.find(&table);
  json.BeginObject();
  json.Member("owner", table.GetOwner(false));
  json.KeptMember("name", table.GetName());
  json.Member("type", TableTypeName(table.GetType()));
  json.NewLine(6);
  json.Key("synonym");
  json.BeginObject();
  WriteSynonymMembers(json, table.GetSynonymDetails());
  json.EndObject();
  json.NewLine(6);
  json.Key("columns");
  json.BeginArray();
  for (int i = 0; i < table.GetColumnCount(); ++i) {
    json.NewLine(8);
    WriteColumn(json, *table.GetColumn(i), types);
  }
  json.EndArray();
  json.NewLine(6);
  json.Key("primaryKey");
  json.BeginArray();
  table.GetPrimaryKey().ForEachColumn([&](const LcWorkbookColumn* column) {
    if (column->GetParentTable() == &table) json.Text(column->GetName());
  });
  json.EndArray();
  json.NewLine(6);
  json.Key("foreignKeys");
  json.BeginArray();
  for (const auto& key : table.GetForeignKeys()) {
    json.NewLine(8);
    json.BeginObject();
    WriteKeySide(json, "key", key->GetKey(), positions, holder);
    WriteKeySide(json, "foreignKey", key->GetForeignKey(), positions, holder);
    json.Member("oneToOne", key->IsOneToOne());
    json.Member("role", key->GetRole() == fkForward ? u"forward" : u"mirror");
    workbookfile::WriteForeignKeyDetails(json, key->GetDetails());
    json.EndObject();
  }
  json.EndArray();
  workbookfile::WriteTableDetails(json, table);
  json.EndObject();
}

// Tables in a row that are made into text at a time: about so many columns together.
constexpr std::size_t kColumnsAtATime = 1024;

using Tables = std::vector<const LcWorkbookTable*>;

// Where the row ends that begins at `begin`; tables without columns count too.
std::size_t EndOfRow(const Tables& tables, std::size_t begin) {
  std::size_t end = begin;
  for (std::size_t columns = 0; end < tables.size() && columns < kColumnsAtATime; ++end) {
    columns += static_cast<std::size_t>(tables[end]->GetColumnCount()) + 1;
  }
  return end;
}

// The tables are most of a file, and making their text takes longer than writing it: every other
// row of them is made on another thread, or later on this one where no other can be had.
void WriteTables(JsonWriter& json, const TablePositions& positions, const Tables& tables,
                 bool compact) {
  DatatypeTexts types(compact);
  DatatypeTexts other_types(compact);
  JsonWriter other(compact);
  const auto write_row = [&](JsonWriter& to, DatatypeTexts& known, std::size_t begin,
                             std::size_t end) {
    for (std::size_t i = begin; i < end; ++i) {
      to.NewLine(4);
      WriteTable(to, *tables[i], positions, known);
    }
  };
  json.Key("tables");
  json.BeginArray();
  for (std::size_t begin = 0; begin < tables.size();) {
    const std::size_t middle = EndOfRow(tables, begin);
    const std::size_t end = EndOfRow(tables, middle);
    std::future<void> others;
    if (end > middle) {
      others = std::async([&, middle, end] {
        other.Restart();
        write_row(other, other_types, middle, end);
      });
    }
    write_row(json, types, begin, middle);
    if (others.valid()) {
      others.get();
      json.Entries(other.Kept());
    }
    begin = end;
  }
  if (!tables.empty()) json.NewLine(2);
  json.EndArray();
}

void WriteFunction(JsonWriter& json, const LcWorkbookFunction& function) {
  json.BeginObject();
  json.Member("owner", function.GetOwner());
  json.KeptMember("name", function.GetName());
  json.Key("overloads");
  json.BeginArray();
  for (const auto& overload : function.GetOverloads()) {
    json.BeginObject();
    json.Member("signature", overload->GetText());
    json.Member("result", overload->GetResultType());
    json.EndObject();
  }
  json.EndArray();
  json.EndObject();
}

// Operators and aggregates.
template <class Named>
void WriteDescribed(JsonWriter& json, const Named& named) {
  json.BeginObject();
  json.KeptMember("name", named.GetName());
  json.Member("description", named.GetDescription());
  json.EndObject();
}

void WriteHead(JsonWriter& json, const LcWorkbookFileInfo& info) {
  json.NewLine(2);
  json.Member("format", u"workbook");
  json.Member("version", kWorkbookFileVersion);
  json.NewLine(2);
  json.KeptKey("source");
  json.BeginObject();
  json.Member("dbmsName", info.dbms_name);
  json.Member("dbmsVersion", info.dbms_version);
  json.Member("dbmsType", std::int32_t{info.dbms_type});
  json.Member("route", info.route);
  workbookfile::WriteSource(json, info);
  json.EndObject();
  json.NewLine(2);
  json.Member("result", info.result);
  json.Member("status", info.status);
  json.Member("errorsShown", info.errors_shown);
}

void WriteNames(JsonWriter& json, const LcWorkbook& workbook) {
  json.NewLine(2);
  WriteList(json, "ownerNames", workbook.owner_names, 2,
            [&](const LcOwnerInfo& owner) { json.Text(owner.name); });
  json.NewLine(2);
  WriteList(json, "tableNames", workbook.table_names, 2, [&](const LcTableInfo& table) {
    json.BeginObject();
    json.Member("owner", table.owner);
    json.KeptMember("name", table.name);
    json.Member("type", TableTypeName(table.type));
    WriteSynonymMembers(json, table.synonym);
    json.EndObject();
  });
  json.NewLine(2);
  WriteList(json, "columnNames", workbook.column_names, 2, [&](const LcWBColumnInfo& column) {
    json.BeginObject();
    json.KeptMember("name", column.name);
    json.Key("dataType");
    WriteDatatype(json, column.data_type.get());
    json.EndObject();
  });
}

void WriteRoutines(JsonWriter& json, const LcWorkbook& workbook) {
  const auto described = [&](const auto& named) { WriteDescribed(json, named); };
  const auto function = [&](const LcWorkbookFunction& f) { WriteFunction(json, f); };
  json.NewLine(2);
  WriteList(json, "operators", workbook.operators, 2, described);
  json.NewLine(2);
  WriteList(json, "booleanFunctions", workbook.boolean_functions, 2, function);
  json.NewLine(2);
  WriteList(json, "functions", workbook.functions, 2, function);
  json.NewLine(2);
  WriteList(json, "aggregates", workbook.aggregates, 2, described);
  json.NewLine(2);
  WriteList(json, "procedures", workbook.procedures, 2, [&](const LcWorkbookProcedure& p) {
    json.BeginObject();
    json.Member("owner", p.GetOwner());
    json.KeptMember("name", p.GetName());
    json.Member("qualifier", p.GetQualifier());
    json.Member("server", p.GetServer());
    json.EndObject();
  });
}

void WriteFile(const LcWorkbook& workbook, const LcWorkbookFileInfo& info, std::ostream& out,
               bool compact) {
  Tables tables;
  tables.reserve(workbook.tables.GetCount());
  TablePositions positions;
  positions.reserve(workbook.tables.GetCount());
  for (const LcWorkbookTable* table : workbook.tables.Present()) {
    positions.emplace(table, tables.size());
    tables.push_back(table);
  }
  {
    JsonWriter json(out, compact);
    json.BeginObject();
    WriteHead(json, info);
    WriteNames(json, workbook);
    json.NewLine(2);
    WriteList(json, "dataTypes", workbook.data_types, 2,
              [&](const LcWorkbookDatatype& type) { WriteDatatype(json, &type); });
    json.NewLine(2);
    WriteTables(json, positions, tables, compact);
    WriteRoutines(json, workbook);
    workbookfile::WriteWorkbookDetails(json, workbook.details);
    if (info.incomplete) {
      json.NewLine(2);
      json.Member("incomplete", true);
    }
    json.NewLine(0);
    json.EndObject();
  }
  out << '\n';
}

}  // namespace

void WriteWorkbookFile(const LcWorkbook& workbook, const LcWorkbookFileInfo& info,
                       std::ostream& out) {
  WriteFile(workbook, info, out, false);
}

void WriteCompactWorkbookFile(const LcWorkbook& workbook, const LcWorkbookFileInfo& info,
                              std::ostream& out) {
  WriteFile(workbook, info, out, true);
}
