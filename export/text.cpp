// A readable outline for a terminal: what a person asks first about a schema.
#include <fmt/format.h>

#include <algorithm>

#include "base/utf.h"
#include "export/model.h"
#include "export/writers.h"

namespace wbexport {

namespace {

// Long type names and column names do not push the rest of their table to the right.
constexpr std::size_t kWidestCell = 40;
constexpr std::size_t kLineWidth = 100;

enum class Style { kTitle, kName, kType, kKey, kWarning };

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
        relationships_(document.workbook) {}

  void Write() {
    WriteHead();
    WriteTables();
    WriteNames();
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

  void WriteTables() {
    for (const LcWorkbookTable* table : workbook_.tables.Present()) WriteTable(*table);
  }

  void WriteTable(const LcWorkbookTable& table) {
    out_ << '\n' << In(Style::kName, DisplayName(table));
    if (table.GetType() != ttTable) out_ << " (" << KindName(table.GetType());
    if (table.GetType() == ttSynonym && !table.GetSynonymDetails().base_table_name.empty()) {
      out_ << " of " << SynonymTarget(table.GetSynonymDetails());
    }
    if (table.GetType() != ttTable) out_ << ')';
    out_ << '\n';
    if (table.GetColumnCount() == 0) out_ << "  no columns\n";
    WriteColumns(table);
    for (const std::size_t at : relationships_.From(table)) {
      const Relationship& r = relationships_.All()[at];
      out_ << fmt::format("  ({}) -> {} ({}){}\n", DisplayColumns(r.from_columns),
                          In(Style::kName, DisplayName(*r.to)), DisplayColumns(r.to_columns),
                          r.one_to_one ? ", one to one" : "");
    }
    for (const std::size_t at : relationships_.To(table)) {
      const Relationship& r = relationships_.All()[at];
      out_ << fmt::format("  ({}) <- {} ({}){}\n", DisplayColumns(r.to_columns),
                          In(Style::kName, DisplayName(*r.from)), DisplayColumns(r.from_columns),
                          r.one_to_one ? ", one to one" : "");
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
      if (column.IsGeneratedKey()) line += "  generated";
      if (column.IsReadOnly()) line += "  read only";
      line.erase(line.find_last_not_of(' ') + 1);
      out_ << line << '\n';
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
};

}  // namespace

bool WriteText(const Document& document, const Options& options, std::ostream& out,
               Notes& /*notes*/) {
  Outline(document, options, out).Write();
  return true;
}

}  // namespace wbexport
