// One self-contained page: a skeleton, a style sheet and scripts (export/html), with the schema as
// compact JSON that the scripts make into pages when a reader asks for them. Needs no network.
#include <algorithm>
#include <nlohmann/json.hpp>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "embedded_wbexport.h"
#include "export/diagram.h"
#include "export/model.h"
#include "export/writers.h"

namespace wbexport {

namespace {

using Json = nlohmann::json;

// Flags of a column and of a data type; model.js and pages.js know the same numbers.
enum ColumnFlag { kRequired = 1, kReadOnly = 2, kGenerated = 4, kPrimary = 8 };
enum TypeFlag { kSizeModifiable = 1, kLong = 2, kDistinct = 4 };

// Text between tags.
std::string EscapeHtml(const std::string& text) {
  std::string escaped;
  for (const char c : text) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

// JSON for a script element: without any "<", so that no name can end the element or begin a
// comment in it.
void WriteJsonData(std::ostream& out, const Json& value) {
  for (const char c : value.dump(-1, ' ', false, Json::error_handler_t::replace)) {
    if (c == '<') {
      out << "\\u003c";
    } else {
      out.put(c);
    }
  }
}

// Gives each distinct text a number, in the order in which they come up.
class Numbers {
 public:
  std::size_t Of(const std::string& text) {
    const auto [at, is_new] = numbers_.try_emplace(text, texts_.size());
    if (is_new) texts_.push_back(text);
    return at->second;
  }
  const std::vector<std::string>& texts() const { return texts_; }

 private:
  std::unordered_map<std::string, std::size_t> numbers_;
  std::vector<std::string> texts_;
};

// Writes the workbook's parts one after the other, a table at a time: a schema of millions of
// columns is never in memory as JSON.
class PageData {
 public:
  PageData(const Document& document, std::ostream& out)
      : workbook_(document.workbook), info_(document.info), out_(out) {}

  void Write(const Options& options, const LcWorkbookTable* around) {
    WriteSource();
    WriteTables();
    WriteRelations();
    WriteFunctions("functions", workbook_.functions);
    WriteFunctions("booleanFunctions", workbook_.boolean_functions);
    WriteLists();
    WriteProcedures(options);
    WriteTypes();
    // Last, since the texts are numbered on the way.
    Member("owners", owners_.texts());
    Member("types", types_.texts());
    const auto place = numbers_.find(around);
    Member("view", Json{{"around", place == numbers_.end() ? -1 : static_cast<int>(place->second)},
                        {"distance", std::clamp(options.distance, 1, 3)},
                        {"whole", options.whole},
                        {"mostTables", kLargestDiagram}});
    out_ << '}';
  }

 private:
  void Key(const char* key) {
    out_ << (first_member_ ? "{\"" : ",\"") << key << "\":";
    first_member_ = false;
  }
  void Member(const char* key, const Json& value) {
    Key(key);
    WriteJsonData(out_, value);
  }
  // An array with make(entry) for each entry of `list`, an element a line.
  template <class List, class Make>
  void Array(const char* key, const List& list, Make make) {
    Key(key);
    const char* separator = "[\n";
    for (const auto& entry : list) {
      const Json value = make(entry);
      if (value.is_null()) continue;  // an empty entry of a list
      out_ << separator;
      separator = ",\n";
      WriteJsonData(out_, value);
    }
    out_ << (*separator == '[' ? "[]" : "]");
  }

  void WriteSource() {
    Member("source", {{"dbmsName", Display(info_.dbms_name)},
                      {"dbmsVersion", info_.dbms_version},
                      {"route", Display(info_.route)},
                      {"result", info_.result},
                      {"errorsShown", info_.errors_shown},
                      {"cutShort", IncompleteText(info_)}});
  }

  Json ColumnData(const LcWorkbookColumn& column) {
    const int flags =
        (column.IsRequired() ? kRequired : 0) | (column.IsReadOnly() ? kReadOnly : 0) |
        (column.IsGeneratedKey() ? kGenerated : 0) | (column.IsPrimaryKey() ? kPrimary : 0);
    return {Display(column.GetName()), types_.Of(TypeText(column)), flags};
  }

  Json TableData(const LcWorkbookTable& table) {
    numbers_.emplace(&table, numbers_.size());
    const std::string owner = Display(table.GetOwner(true));
    const std::string name = Display(table.GetName());
    read_.insert(owner + '\n' + name);
    Json columns = Json::array();
    for (int i = 0; i < table.GetColumnCount(); ++i) {
      columns_.emplace(table.GetColumn(i), i);
      columns.push_back(ColumnData(*table.GetColumn(i)));
    }
    Json key = Json::array();
    for (const LcWorkbookColumn* column : table.GetPrimaryKey().GetColumns()) {
      const auto place = columns_.find(column);
      if (place != columns_.end()) key.push_back(place->second);
    }
    Json synonym;
    if (table.GetType() == ttSynonym) {
      const LcSynonymDetails details = table.GetSynonymDetails();
      synonym = {{"owner", Display(details.base_owner)},
                 {"name", Display(details.base_table_name)},
                 {"database", Display(details.database_name)},
                 {"server", Display(details.server_name)}};
    }
    return {owners_.Of(owner), name, static_cast<int>(table.GetType()), columns, key, synonym};
  }

  // The tables, and behind them the names of those that were not read themselves.
  void WriteTables() {
    Array("tables", workbook_.tables, [&](const LcWorkbookTable* table) {
      return table == nullptr ? Json() : TableData(*table);
    });
    Array("names", workbook_.table_names, [&](const LcTableInfo* info) -> Json {
      if (info == nullptr) return {};
      const std::string owner = Display(info->owner);
      const std::string name = Display(info->name);
      if (!read_.insert(owner + '\n' + name).second) return {};
      return {owners_.Of(owner), name, static_cast<int>(info->type)};
    });
  }

  void WriteRelations() {
    const auto positions = [&](const std::vector<LcWorkbookColumn*>& columns) {
      Json list = Json::array();
      for (const LcWorkbookColumn* column : columns) {
        const auto place = columns_.find(column);
        if (place != columns_.end()) list.push_back(place->second);
      }
      return list;
    };
    const Relationships relationships(workbook_);
    Array("relations", relationships.All(), [&](const Relationship& relationship) -> Json {
      const auto from = numbers_.find(relationship.from);
      const auto to = numbers_.find(relationship.to);
      if (from == numbers_.end() || to == numbers_.end()) return {};
      return {from->second, positions(relationship.from_columns), to->second,
              positions(relationship.to_columns), relationship.one_to_one};
    });
  }

  void WriteFunctions(const char* key, const LcWorkbookFunctionList& functions) {
    Array(key, functions, [](const LcWorkbookFunction* function) -> Json {
      if (function == nullptr) return {};
      Json overloads = Json::array();
      for (const auto& overload : function->GetOverloads()) {
        overloads.push_back({Display(overload->GetText()), Display(overload->GetResultType())});
      }
      return {Display(function->GetOwner()), Display(function->GetName()), overloads};
    });
  }

  void WriteLists() {
    const auto named = [](const auto* entry) {
      return entry == nullptr ? Json()
                              : Json{Display(entry->GetName()), Display(entry->GetDescription())};
    };
    Array("operators", workbook_.operators, named);
    Array("aggregates", workbook_.aggregates, named);
    Array("ownerNames", workbook_.owner_names, [](const LcOwnerInfo* owner) {
      return owner == nullptr ? Json() : Json(Display(owner->name));
    });
    Array("columnNames", workbook_.column_names, [&](const LcWBColumnInfo* column) -> Json {
      if (column == nullptr) return {};
      const std::string type = column->data_type ? TypeName(*column->data_type) : "";
      return {Display(column->name), types_.Of(type)};
    });
  }

  void WriteProcedures(const Options& options) {
    const ListedProcedures procedures = ProceduresToList({workbook_, info_}, options);
    Array("procedures", procedures.listed, [](const LcWorkbookProcedure* procedure) -> Json {
      return {Display(procedure->GetOwner()), Display(procedure->GetName()),
              Display(procedure->GetQualifier())};
    });
    Member("systemProcedures", procedures.left_out);
  }

  void WriteTypes() {
    Array("dataTypes", workbook_.data_types, [](const LcWorkbookDatatype* type) -> Json {
      if (type == nullptr) return {};
      const int flags = (type->IsSizeModifiable() ? kSizeModifiable : 0) |
                        (type->IsLong() ? kLong : 0) | (type->IsDistinct() ? kDistinct : 0);
      Json components = Json::array();
      for (int i = 0; i < type->GetComponentCount(); ++i) {
        const LcWorkbookDatatype& component = *type->GetComponent(i);
        components.push_back({Display(component.GetName()), TypeName(component)});
      }
      return {TypeName(*type),
              Display(type->GetOtherTypeName()),
              Display(type->GetOwner()),
              static_cast<int>(type->GetTypeGroup()),
              type->GetLength(),
              type->GetPrecision(),
              type->GetScale(),
              flags,
              Display(type->GetBaseExtendedTypeName()),
              components};
    });
  }

  const LcWorkbook& workbook_;
  const LcWorkbookFileInfo& info_;
  std::ostream& out_;
  bool first_member_ = true;
  Numbers owners_;
  Numbers types_;
  std::unordered_set<std::string> read_;                             // "owner\nname"
  std::unordered_map<const LcWorkbookTable*, std::size_t> numbers_;  // positions in "tables"
  std::unordered_map<const LcWorkbookColumn*, int> columns_;         // positions in their table
};

}  // namespace

bool WriteHtml(const Document& document, const Options& options, std::ostream& out, Notes& notes) {
  const LcWorkbookTable* around = nullptr;
  if (!options.around.empty()) {
    around = FindAround(document.workbook, options.around, notes);
    if (around == nullptr) return false;
  }
  const std::size_t tables = document.workbook.tables.GetCount();
  if (tables > kLargestDiagram && !options.whole && around == nullptr) {
    notes.push_back("The page's diagram does not draw " + std::to_string(tables) +
                    " tables at once: choose a table there, or start with --around TABLE "
                    "--distance N, or with --whole.");
  }
  const std::string title =
      (document.info.incomplete ? "Incomplete: " : "") + SourceText(document.info);
  // The skeleton names what goes where; everything else in it is written as it stands.
  std::string_view rest = embedded::kPage;
  while (true) {
    const std::size_t open = rest.find("{{");
    out << rest.substr(0, open);
    if (open == std::string_view::npos) break;
    const std::size_t close = rest.find("}}", open);
    const std::string_view place = rest.substr(open + 2, close - open - 2);
    rest.remove_prefix(close + 2);
    if (place == "title") {
      out << EscapeHtml(title);
    } else if (place == "style") {
      out << embedded::kStyle;
    } else if (place == "data") {
      PageData(document, out).Write(options, around);
    } else if (place == "script") {
      // One scope for all scripts, in the order in which they use one another.
      out << "(() => {\n\"use strict\";\n";
      for (const std::string_view script :
           {embedded::kDom, embedded::kModel, embedded::kSidebar, embedded::kLayout,
            embedded::kPanZoom, embedded::kDiagram, embedded::kPages, embedded::kLists,
            embedded::kApp}) {
        out << script << '\n';
      }
      out << "})();";
    }
  }
  return true;
}

}  // namespace wbexport
