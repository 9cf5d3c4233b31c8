#include "export/page_data.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "export/diagram.h"
#include "export/facts.h"
#include "export/model.h"
#include "export/page_value.h"

namespace wbexport {

namespace {

// Flags of a column and of a data type; model.js and pages.js know the same numbers.
enum ColumnFlag { kRequired = 1, kReadOnly = 2, kGenerated = 4, kPrimary = 8 };
enum TypeFlag { kSizeModifiable = 1, kLong = 2, kDistinct = 4 };

void WriteValue(std::ostream& out, const PageValue& value) {
  std::string text;
  value.AppendTo(text);
  out << text;
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
      : document_(document),
        workbook_(document.workbook),
        info_(document.info),
        facts_(document),
        out_(out) {}

  void Write(const Options& options, const LcWorkbookTable* around) {
    WriteSource();
    WriteTables();
    WriteRelations();
    WriteFunctions("functions", workbook_.functions);
    WriteFunctions("booleanFunctions", workbook_.boolean_functions);
    WriteLists();
    WriteProcedures(options);
    WriteTypes();
    WriteDetails();
    // Last, since the texts are numbered on the way.
    Member("owners", PageValue::Array(owners_.texts()));
    Member("types", PageValue::Array(types_.texts()));
    const auto place = numbers_.find(around);
    Member("view", PageValue::Object(
                       {{"around", place == numbers_.end() ? -1 : static_cast<int>(place->second)},
                        {"distance", std::clamp(options.distance, 1, 3)},
                        {"mostTables", kLargestDiagram},
                        {"whole", options.whole}}));
    out_ << '}';
  }

 private:
  void Key(const char* key) {
    out_ << (first_member_ ? "{\"" : ",\"") << key << "\":";
    first_member_ = false;
  }
  void Member(const char* key, const PageValue& value) {
    Key(key);
    WriteValue(out_, value);
  }
  // An array with make(entry) for each entry of `list`, an element a line.
  template <class List, class Make>
  void Array(const char* key, const List& list, Make make) {
    Key(key);
    const char* separator = "[\n";
    for (const auto& entry : list) {
      const PageValue value = make(entry);
      if (value.IsNull()) continue;  // an empty entry of a list
      out_ << separator;
      separator = ",\n";
      WriteValue(out_, value);
    }
    out_ << (*separator == '[' ? "[]" : "]");
  }

  void WriteSource() {
    Member("source", PageValue::Object({{"cutShort", IncompleteText(info_)},
                                        {"database", Display(info_.database)},
                                        {"dbmsName", Display(info_.dbms_name)},
                                        {"dbmsVersion", info_.dbms_version},
                                        {"errorsShown", info_.errors_shown},
                                        {"importedAt", Display(info_.imported_at)},
                                        {"result", info_.result},
                                        {"route", Display(info_.route)},
                                        {"title", DatabaseTitle(info_)}}));
  }

  PageValue ColumnData(const LcWorkbookColumn& column) {
    const int flags =
        (column.IsRequired() ? kRequired : 0) | (column.IsReadOnly() ? kReadOnly : 0) |
        (column.IsGeneratedKey() ? kGenerated : 0) | (column.IsPrimaryKey() ? kPrimary : 0);
    PageValue data = {Display(column.GetName()), types_.Of(TypeText(column)), flags};
    const LcColumnDetails* details = column.GetDetails();
    if (details == nullptr) return data;
    std::string notes;
    for (const std::string& remark : Facts::OfColumn(column)) {
      if (!remark.starts_with("default ")) notes += (notes.empty() ? "" : ", ") + remark;
    }
    const std::string value = DisplayLine(details->default_text.View());
    return WithTexts(std::move(data), {value, notes, CommentOf(column)});
  }

  // Appends the texts but for the empty ones at their end.
  static PageValue WithTexts(PageValue list, std::vector<std::string> texts) {
    while (!texts.empty() && texts.back().empty()) texts.pop_back();
    for (std::string& text : texts) list.Add(text);
    return list;
  }

  static PageValue FactData(const Fact& fact) {
    return WithTexts(PageValue::Array(), {fact.kind, fact.name, fact.text, fact.comment, fact.body,
                                          fact.made_name ? "made" : ""});
  }

  template <class List>
  static void SetFacts(PageValue& object, const char* key, const List& facts) {
    PageValue list = PageValue::Array();
    for (const Fact& fact : facts) list.Add(FactData(fact));
    if (!list.IsEmpty()) object.Set(key, list);
  }

  // What only the exact reading knows, by name; null where there is nothing.
  PageValue MoreOf(const LcWorkbookTable& table) const {
    const LcTableDetails* details = table.GetDetails();
    if (details == nullptr) return {};
    PageValue more = PageValue::Object();
    if (const std::string comment = CommentOf(table); !comment.empty())
      more.Set("comment", comment);
    SetFacts(more, "facts", facts_.OfTable(table));
    if (details->primary_key && details->primary_key->name.IsPresent()) {
      more.Set("keyName", Display(details->primary_key->name.View()));
    }
    const std::string kind = KindName(table);
    if (kind != KindName(table.GetType())) more.Set("kind", kind);
    SetFacts(more, "outside", facts_.OutsideKeys(table));
    if (const LcWorkbookTable* whole = facts_.WholeOf(table); whole != nullptr) {
      const LcText bound = details->options.Find(u"partition bound");
      more.Set("partOf", {Display(whole->GetOwner(true)), Display(whole->GetName()),
                          DisplayLine(bound.View())});
    }
    if (const std::string text = ViewTextOf(table); !text.empty()) more.Set("text", text);
    return more.IsEmpty() ? PageValue() : more;
  }

  PageValue TableData(const LcWorkbookTable& table) {
    numbers_.emplace(&table, numbers_.size());
    const std::string owner = Display(table.GetOwner(true));
    const std::string name = Display(table.GetName());
    read_.insert(owner + '\n' + name);
    PageValue columns = PageValue::Array();
    for (int i = 0; i < table.GetColumnCount(); ++i) {
      columns_.emplace(table.GetColumn(i), i);
      columns.Add(ColumnData(*table.GetColumn(i)));
    }
    PageValue key = PageValue::Array();
    for (const LcWorkbookColumn* column : table.GetPrimaryKey().GetColumns()) {
      const auto place = columns_.find(column);
      if (place != columns_.end()) key.Add(place->second);
    }
    PageValue synonym;
    if (table.GetType() == ttSynonym) {
      const LcSynonymDetails details = table.GetSynonymDetails();
      synonym = PageValue::Object({{"database", Display(details.database_name)},
                                   {"name", Display(details.base_table_name)},
                                   {"owner", Display(details.base_owner)},
                                   {"server", Display(details.server_name)}});
    }
    PageValue data = {owners_.Of(owner), name, static_cast<int>(table.GetType()),
                      columns,           key,  synonym};
    if (PageValue more = MoreOf(table); !more.IsNull()) data.Add(more);
    return data;
  }

  // The tables, and behind them the names of those that were not read themselves.
  void WriteTables() {
    Array("tables", workbook_.tables, [&](const LcWorkbookTable* table) {
      return table == nullptr ? PageValue() : TableData(*table);
    });
    Array("names", workbook_.table_names, [&](const LcTableInfo* info) -> PageValue {
      if (info == nullptr) return {};
      const std::string owner = Display(info->owner);
      const std::string name = Display(info->name);
      if (!read_.insert(owner + '\n' + name).second) return {};
      return {owners_.Of(owner), name, static_cast<int>(info->type)};
    });
  }

  void WriteRelations() {
    const auto positions = [&](const std::vector<LcWorkbookColumn*>& columns) {
      PageValue list = PageValue::Array();
      for (const LcWorkbookColumn* column : columns) {
        const auto place = columns_.find(column);
        if (place != columns_.end()) list.Add(place->second);
      }
      return list;
    };
    const Relationships relationships(workbook_);
    Array("relations", relationships.All(), [&](const Relationship& relationship) -> PageValue {
      const auto from = numbers_.find(relationship.from);
      const auto to = numbers_.find(relationship.to);
      if (from == numbers_.end() || to == numbers_.end()) return {};
      PageValue data = {from->second, positions(relationship.from_columns), to->second,
                        positions(relationship.to_columns), relationship.one_to_one};
      const LcForeignKeyDetails* details = relationship.details;
      if (details == nullptr) return data;
      const std::string acts = Facts::OfReference(details);
      return WithTexts(std::move(data),
                       {Display(details->name.View()), acts.empty() ? acts : acts.substr(2),
                        DisplayLines(details->comment.View())});
    });
  }

  void WriteFunctions(const char* key, const LcWorkbookFunctionList& functions) {
    Array(key, functions, [](const LcWorkbookFunction* function) -> PageValue {
      if (function == nullptr) return {};
      PageValue overloads = PageValue::Array();
      for (const auto& overload : function->GetOverloads()) {
        overloads.Add({Display(overload->GetText()), Display(overload->GetResultType())});
      }
      return {Display(function->GetOwner()), Display(function->GetName()), overloads};
    });
  }

  void WriteLists() {
    const auto named = [](const auto* entry) {
      return entry == nullptr
                 ? PageValue()
                 : PageValue{Display(entry->GetName()), Display(entry->GetDescription())};
    };
    Array("operators", workbook_.operators, named);
    Array("aggregates", workbook_.aggregates, named);
    Array("ownerNames", workbook_.owner_names, [](const LcOwnerInfo* owner) {
      return owner == nullptr ? PageValue() : PageValue(Display(owner->name));
    });
    Array("columnNames", workbook_.column_names, [&](const LcWBColumnInfo* column) -> PageValue {
      if (column == nullptr) return {};
      const std::string type = column->data_type ? TypeName(*column->data_type) : "";
      return {Display(column->name), types_.Of(type)};
    });
  }

  void WriteProcedures(const Options& options) {
    const ListedProcedures procedures = ProceduresToList(document_, options);
    Array("procedures", procedures.listed, [](const LcWorkbookProcedure* procedure) -> PageValue {
      return {Display(procedure->GetOwner()), Display(procedure->GetName()),
              Display(procedure->GetQualifier())};
    });
    Member("systemProcedures", procedures.left_out);
  }

  void WriteTypes() {
    Array("dataTypes", workbook_.data_types, [](const LcWorkbookDatatype* type) -> PageValue {
      if (type == nullptr) return {};
      const int flags = (type->IsSizeModifiable() ? kSizeModifiable : 0) |
                        (type->IsLong() ? kLong : 0) | (type->IsDistinct() ? kDistinct : 0);
      PageValue components = PageValue::Array();
      for (int i = 0; i < type->GetComponentCount(); ++i) {
        const LcWorkbookDatatype& component = *type->GetComponent(i);
        components.Add({Display(component.GetName()), TypeName(component)});
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

  void WriteDetails() {
    const LcWorkbookDetails& details = workbook_.details;
    Array("schemas", details.schemas, [](const LcSchemaDetails& schema) -> PageValue {
      return WithTexts({Display(schema.name.View()), schema.is_default},
                       {DisplayLines(schema.comment.View())});
    });
    Array("userTypes", details.types,
          [](const auto& type) { return FactData(Facts::OfType(type)); });
    Array("sequences", details.sequences,
          [](const auto& sequence) { return FactData(Facts::OfSequence(sequence)); });
    Array("routines", details.routines,
          [](const auto& routine) { return FactData(Facts::OfRoutine(routine)); });
    Array("notRead", details.not_read,
          [](const LcNotRead& missing) { return PageValue(Facts::OfNotRead(missing)); });
  }

  const Document& document_;
  const LcWorkbook& workbook_;
  const LcWorkbookFileInfo& info_;
  const Facts facts_;
  std::ostream& out_;
  bool first_member_ = true;
  Numbers owners_;
  Numbers types_;
  std::unordered_set<std::string> read_;                             // "owner\nname"
  std::unordered_map<const LcWorkbookTable*, std::size_t> numbers_;  // positions in "tables"
  std::unordered_map<const LcWorkbookColumn*, int> columns_;         // positions in their table
};

}  // namespace

void WritePageData(const Document& document, const Options& options, const LcWorkbookTable* around,
                   std::ostream& out) {
  PageData(document, out).Write(options, around);
}

}  // namespace wbexport
