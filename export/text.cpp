// A readable outline for a terminal: what a person asks first about a schema.
#include <fmt/format.h>

#include <algorithm>

#include "base/utf.h"
#include "export/facts.h"
#include "export/model.h"
#include "export/writers.h"

namespace wbexport {

namespace {

// Long type names and column names do not push the rest of their table to the right.
constexpr std::size_t kWidestCell = 40;
constexpr std::size_t kLineWidth = 100;

enum class Style { kTitle, kName, kType, kKey, kComment, kWarning };

const char* EscapeCode(Style style) {
  switch (style) {
    case Style::kTitle:
      return "\033[1m";
    case Style::kName:
      return "\033[1;34m";
    case Style::kType:
      return "\033[36m";
    case Style::kKey:
      return "\033[33m";
    case Style::kComment:
      return "\033[32m";
    case Style::kWarning:
      return "\033[1;31m";
  }
  return "";
}

// Code points, which is the width of most names.
std::size_t Width(const std::string& text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return (c & '\xC0') != '\x80'; }));
}

std::string Pad(const std::string& text, std::size_t width) {
  const std::size_t own = Width(text);
  return own >= width ? text : text + std::string(width - own, ' ');
}

class Outline {
 public:
  Outline(const Document& document, const Options& options, std::ostream& out)
      : workbook_(document.workbook),
        info_(document.info),
        options_(options),
        out_(out),
        relationships_(document.workbook),
        facts_(document) {}

  void Write() {
    WriteHead();
    WriteTables();
    WriteNames();
    WriteDetails();
    WriteTypes();
    WriteFunctions("Boolean functions", workbook_.boolean_functions);
    WriteFunctions("Functions", workbook_.functions);
    WriteDescribed("Operators", workbook_.operators);
    WriteDescribed("Aggregates", workbook_.aggregates);
    WriteProcedures();
  }

 private:
  std::string In(Style style, const std::string& text) const {
    return options_.colour ? EscapeCode(style) + text + "\033[0m" : text;
  }
  void Title(const std::string& title, std::size_t count) {
    out_ << '\n' << In(Style::kTitle, fmt::format("{} ({})", title, count)) << '\n';
  }
  // Behind a line: the comment, on the same line.
  std::string Comment(const std::string& comment) const {
    return comment.empty() ? "" : "  " + In(Style::kComment, "-- " + Flat(comment));
  }
  // Texts one after the other, as many on a line as fit.
  void WriteWrapped(const std::vector<std::string>& texts) {
    std::string line = "  ";
    for (std::size_t i = 0; i < texts.size(); ++i) {
      const std::string text = texts[i] + (i + 1 < texts.size() ? "," : "");
      if (line.size() > 2 && Width(line) + Width(text) + 1 > kLineWidth) {
        out_ << line << '\n';
        line = "  ";
      }
      line += (line.size() > 2 ? " " : "") + text;
    }
    out_ << line << '\n';
  }

  void WriteHead() {
    out_ << In(Style::kTitle, SourceText(info_)) << '\n';
    if (info_.incomplete) out_ << In(Style::kWarning, IncompleteText(info_)) << '\n';
    WriteNotRead();
    if (!workbook_.tables.IsEmpty()) {
      const std::size_t count = relationships_.All().size();
      out_ << TableCounts(workbook_) << ", " << Count(count, "relationship", "relationships")
           << '\n';
    }
    std::vector<std::string> owners;
    for (const LcOwnerInfo* owner : workbook_.owner_names.Present())
      owners.push_back(Display(owner->name));
    if (owners.empty()) return;
    Title("Owners", owners.size());
    WriteWrapped(owners);
  }

  void WriteNotRead() {
    for (const LcNotRead& missing : workbook_.details.not_read) {
      out_ << In(Style::kWarning, "Not read: " + Facts::OfNotRead(missing)) << '\n';
    }
  }

  void WriteTables() {
    for (const LcWorkbookTable* table : workbook_.tables.Present()) {
      if (!facts_.IsFolded(*table)) WriteTable(*table);
    }
  }

  void WriteTable(const LcWorkbookTable& table) {
    out_ << '\n' << In(Style::kName, DisplayName(table));
    const std::string kind = KindName(table);
    if (kind != "table") out_ << " (" << kind;
    if (table.GetType() == ttSynonym && !table.GetSynonymDetails().base_table_name.empty()) {
      out_ << " of " << SynonymTarget(table.GetSynonymDetails());
    }
    if (kind != "table") out_ << ')';
    out_ << Comment(CommentOf(table)) << '\n';
    if (table.GetColumnCount() == 0) out_ << "  no columns\n";
    WriteColumns(table);
    for (const std::size_t at : relationships_.From(table)) {
      const Relationship& r = relationships_.All()[at];
      WriteReference(r, r.from_columns, "->", *r.to, r.to_columns, true);
    }
    std::size_t repeated = 0;
    for (const std::size_t at : relationships_.To(table)) {
      const Relationship& r = relationships_.All()[at];
      if (facts_.IsRepeated(r)) {
        ++repeated;
      } else {
        WriteReference(r, r.to_columns, "<-", *r.from, r.from_columns, false);
      }
    }
    if (repeated != 0) out_ << "  and <- " << Count(repeated, "partition", "partitions") << '\n';
    WriteFacts(facts_.OutsideKeys(table));
    WriteFacts(facts_.OfTable(table));
    WriteParts(table);
    for (const std::string& line : SplitLines(ViewTextOf(table))) out_ << "  | " << line << '\n';
  }

  void WriteReference(const Relationship& r, const std::vector<LcWorkbookColumn*>& here,
                      const char* arrow, const LcWorkbookTable& other,
                      const std::vector<LcWorkbookColumn*>& there, bool whole) {
    out_ << fmt::format("  ({}) {} {} ({}){}", DisplayColumns(here), arrow,
                        In(Style::kName, DisplayName(other)), DisplayColumns(there),
                        r.one_to_one ? ", one to one" : "");
    if (whole && r.details != nullptr) {
      const std::string name = facts_.NameOfReference(r);
      out_ << Facts::OfReference(r.details) << (name.empty() ? "" : ", named " + name)
           << Comment(DisplayLines(r.details->comment.View()));
    }
    out_ << '\n';
  }

  void WriteFacts(const std::vector<Fact>& facts) {
    for (const Fact& fact : facts) {
      out_ << "  " << In(Style::kKey, fact.kind)
           << (fact.made_name || fact.name.empty() ? "" : " " + fact.name)
           << (fact.text.empty() ? "" : " " + fact.text) << Comment(fact.comment) << '\n';
    }
  }

  void WriteParts(const LcWorkbookTable& table) {
    const std::vector<const LcWorkbookTable*> parts = facts_.PartsOf(table);
    if (parts.empty()) return;
    out_ << "  " << Count(parts.size(), "partition", "partitions") << ":\n";
    for (const LcWorkbookTable* part : parts) {
      out_ << "    " << facts_.OfPart(*part, table) << Comment(CommentOf(*part)) << '\n';
    }
  }

  // What stands beside the tables in the database.
  void WriteDetails() {
    const LcWorkbookDetails& details = workbook_.details;
    if (!details.schemas.empty()) Title("Schemas", details.schemas.size());
    for (const LcSchemaDetails& schema : details.schemas) {
      out_ << "  " << Display(schema.name.View()) << (schema.is_default ? " (default)" : "")
           << Comment(DisplayLines(schema.comment.View())) << '\n';
    }
    WriteList("Types of users", details.types, Facts::OfType);
    WriteList("Sequences", details.sequences, Facts::OfSequence);
    WriteList("Routines", details.routines, Facts::OfRoutine);
  }
  template <class List, class Make>
  void WriteList(const char* title, const List& list, Make make) {
    if (!list.empty()) Title(title, list.size());
    for (const auto& entry : list) {
      const Fact fact = make(entry);
      out_ << "  " << (fact.kind == "sequence" ? "" : fact.kind + " ")
           << In(Style::kName, fact.name)
           << (fact.text.starts_with("(") || fact.text.empty() ? "" : ": ") << fact.text
           << Comment(fact.comment) << '\n';
    }
  }

  void WriteColumns(const LcWorkbookTable& table) {
    std::size_t name_width = 0;
    std::size_t type_width = 0;
    for (int i = 0; i < table.GetColumnCount(); ++i) {
      name_width = std::max(name_width, Width(Display(table.GetColumn(i)->GetName())));
      type_width = std::max(type_width, Width(TypeText(*table.GetColumn(i))));
    }
    name_width = std::min(name_width, kWidestCell);
    type_width = std::min(type_width, kWidestCell);
    const std::vector<LcWorkbookColumn*> key = table.GetPrimaryKey().GetColumns();
    for (int i = 0; i < table.GetColumnCount(); ++i) {
      const LcWorkbookColumn& column = *table.GetColumn(i);
      std::string line = "  " + Pad(Display(column.GetName()), name_width) + "  " +
                         In(Style::kType, Pad(TypeText(column), type_width));
      if (column.IsRequired()) line += "  not null";
      const auto in_key = std::find(key.begin(), key.end(), &column);
      if (in_key != key.end()) {
        const std::string mark =
            key.size() == 1 ? "key" : fmt::format("key {}", in_key - key.begin() + 1);
        line += "  " + In(Style::kKey, mark);
      } else if (column.IsPrimaryKey()) {
        line += "  " + In(Style::kKey, "key");
      }
      for (const std::string& remark : Facts::OfColumn(column)) line += "  " + remark;
      line.erase(line.find_last_not_of(' ') + 1);
      out_ << line << Comment(CommentOf(column)) << '\n';
    }
  }

  // What an import of names alone brings.
  void WriteNames() {
    std::size_t count = 0;
    for (const LcTableInfo* table : workbook_.table_names) count += table != nullptr ? 1 : 0;
    if (count != 0) Title("Names of tables, views and synonyms", count);
    for (const LcTableInfo* table : workbook_.table_names.Present()) {
      out_ << "  " << (table->owner.empty() ? "" : Display(table->owner) + ".")
           << Display(table->name);
      if (table->type != ttTable) out_ << " (" << KindName(table->type) << ')';
      out_ << '\n';
    }
    if (!workbook_.column_names.IsEmpty()) Title("Columns", workbook_.column_names.GetCount());
    for (const LcWBColumnInfo* column : workbook_.column_names.Present()) {
      out_ << "  " << Display(column->name);
      if (column->data_type) out_ << "  " << In(Style::kType, TypeName(*column->data_type));
      out_ << '\n';
    }
  }

  void WriteTypes() {
    std::vector<std::string> names;
    for (const LcWorkbookDatatype* type : workbook_.data_types.Present())
      names.push_back(TypeName(*type));
    if (names.empty()) return;
    Title("Data types", names.size());
    WriteWrapped(names);
  }

  void WriteFunctions(const std::string& title, const LcWorkbookFunctionList& functions) {
    std::size_t count = 0;
    std::size_t overloads = 0;
    for (const LcWorkbookFunction* function : functions.Present()) {
      ++count;
      overloads += function->GetOverloads().size();
    }
    if (count == 0) return;
    Title(title, count);
    if (!options_.all_functions) {
      out_ << "  " << Count(overloads, "overload", "overloads")
           << ", listed with --all-functions\n";
      return;
    }
    for (const LcWorkbookFunction* function : functions.Present()) {
      const std::string owner = Display(function->GetOwner());
      out_ << "  " << (owner.empty() ? "" : owner + ".") << Display(function->GetName()) << '\n';
      for (const auto& overload : function->GetOverloads()) {
        out_ << "    " << Display(overload->GetText());
        if (!overload->GetResultType().empty()) {
          out_ << " -> " << In(Style::kType, Display(overload->GetResultType()));
        }
        out_ << '\n';
      }
    }
  }

  template <class List>
  void WriteDescribed(const std::string& title, const List& list) {
    std::vector<std::string> names;
    for (const auto* entry : list.Present()) names.push_back(Display(entry->GetName()));
    if (names.empty()) return;
    Title(title, names.size());
    WriteWrapped(names);
  }

  void WriteProcedures() {
    const ListedProcedures procedures = ProceduresToList({workbook_, info_}, options_);
    std::vector<std::string> names;
    for (const LcWorkbookProcedure* procedure : procedures.listed) {
      names.push_back(DisplayName(*procedure));
    }
    if (names.empty() && procedures.left_out == 0) return;
    Title("Procedures", names.size());
    if (!names.empty()) WriteWrapped(names);
    if (procedures.left_out != 0) {
      out_ << "  and " << procedures.left_out << " of the server's own, listed with --system\n";
    }
  }

  const LcWorkbook& workbook_;
  const LcWorkbookFileInfo& info_;
  const Options& options_;
  std::ostream& out_;
  const Relationships relationships_;
  const Facts facts_;
};

}  // namespace

bool WriteText(const Document& document, const Options& options, std::ostream& out,
               Notes& /*notes*/) {
  Outline(document, options, out).Write();
  return true;
}

}  // namespace wbexport
