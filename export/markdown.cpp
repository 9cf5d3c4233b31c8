// Markdown: one page, or a folder with a page for each table.
#include <fmt/format.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <unordered_map>

#include "base/ascii.h"
#include "base/utf.h"
#include "export/model.h"
#include "export/writers.h"

namespace wbexport {

namespace {

// Text that shows as it is, in a table's cell too.
std::string Escape(const std::string& text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '&') {
      escaped += "&amp;";
    } else if (c == '<') {
      escaped += "&lt;";
    } else if (std::string_view("\\`*_{}[]#|~!>$^").find(c) != std::string_view::npos) {
      escaped += '\\';
      escaped += c;
    } else {
      escaped += c;
    }
  }
  return escaped;
}

// Where the page or section of a table is.
using Links = std::unordered_map<const LcWorkbookTable*, std::string>;

class Pages {
 public:
  Pages(const Document& document, const Options& options, const Links& links)
      : workbook_(document.workbook),
        info_(document.info),
        options_(options),
        links_(links),
        relationships_(document.workbook) {}

  void WriteHead(std::ostream& out) const {
    out << "# Schema\n\n" << Escape(SourceText(info_)) << ": " << TableCounts(workbook_) << ".\n";
    if (info_.incomplete) out << "\n**" << Escape(IncompleteText(info_)) << "**\n";
  }

  void WriteTableList(std::ostream& out) const {
    bool any = false;
    for (const LcWorkbookTable* table : workbook_.tables.Present()) {
      if (!any) out << "\n| Table | Kind | Columns | Refers to |\n|---|---|--:|---|\n";
      any = true;
      std::string targets;
      std::set<const LcWorkbookTable*> seen;
      for (const std::size_t at : relationships_.From(*table)) {
        const LcWorkbookTable* to = relationships_.All()[at].to;
        if (!seen.insert(to).second) continue;
        targets += (targets.empty() ? "" : ", ") + Link(*to);
      }
      out << fmt::format("| {} | {} | {} | {} |\n", Link(*table), KindName(table->GetType()),
                         table->GetColumnCount(), targets);
    }
  }

  void WriteTable(std::ostream& out, const LcWorkbookTable& table) const {
    if (table.GetType() == ttView) out << "\nA view.\n";
    if (table.GetType() == ttSynonym) {
      out << "\nA synonym of " << Escape(SynonymTarget(table.GetSynonymDetails())) << ".\n";
    }
    if (table.GetColumnCount() == 0) {
      out << "\nNo columns.\n";
      return;
    }
    out << "\n| Column | Type | Nullable | Key | |\n|---|---|---|---|---|\n";
    const std::vector<LcWorkbookColumn*> key = table.GetPrimaryKey().GetColumns();
    for (int i = 0; i < table.GetColumnCount(); ++i) {
      const LcWorkbookColumn& column = *table.GetColumn(i);
      std::string mark = column.IsPrimaryKey() ? "key" : "";
      for (std::size_t k = 0; k < key.size() && key.size() > 1; ++k) {
        if (key[k] == &column) mark = fmt::format("key {}", k + 1);
      }
      std::string remarks = column.IsGeneratedKey() ? "generated" : "";
      if (column.IsReadOnly()) remarks += remarks.empty() ? "read only" : ", read only";
      out << fmt::format("| {} | {} | {} | {} | {} |\n", Escape(Display(column.GetName())),
                         Escape(TypeText(column)), column.IsRequired() ? "no" : "yes", mark,
                         remarks);
    }
    if (!relationships_.From(table).empty()) out << "\nRefers to:\n\n";
    for (const std::size_t at : relationships_.From(table)) {
      const Relationship& r = relationships_.All()[at];
      WriteReference(out, r, r.from_columns, *r.to, r.to_columns);
    }
    if (!relationships_.To(table).empty()) out << "\nReferred to by:\n\n";
    for (const std::size_t at : relationships_.To(table)) {
      const Relationship& r = relationships_.All()[at];
      WriteReference(out, r, r.to_columns, *r.from, r.from_columns);
    }
  }

  void WriteRest(std::ostream& out) const {
    bool any = false;
    for (const LcWorkbookDatatype* type : workbook_.data_types.Present()) {
      if (!any) out << "\n## Data types\n\n";
      any = true;
      const std::string other = Display(type->GetOtherTypeName());
      out << "- " << Escape(TypeName(*type)) << (other.empty() ? "" : " (" + Escape(other) + ")")
          << '\n';
    }
    WriteFunctions(out, "Boolean functions", workbook_.boolean_functions);
    WriteFunctions(out, "Functions", workbook_.functions);
    WriteDescribed(out, "Operators", workbook_.operators);
    WriteDescribed(out, "Aggregates", workbook_.aggregates);
    WriteProcedures(out);
  }

  std::string Link(const LcWorkbookTable& table) const {
    const std::string name = Escape(DisplayName(table));
    const auto link = links_.find(&table);
    return link == links_.end() ? name : fmt::format("[{}]({})", name, link->second);
  }

 private:
  void WriteProcedures(std::ostream& out) const {
    const ListedProcedures procedures = ProceduresToList({workbook_, info_}, options_);
    if (procedures.listed.empty() && procedures.left_out == 0) return;
    out << "\n## Procedures\n\n";
    for (const LcWorkbookProcedure* procedure : procedures.listed) {
      out << "- " << Escape(DisplayName(*procedure)) << '\n';
    }
    if (procedures.left_out == 0) return;
    out << (procedures.listed.empty() ? "" : "\n") << procedures.left_out
        << " of the server's own are left out; --system lists them.\n";
  }

  void WriteReference(std::ostream& out, const Relationship& r,
                      const std::vector<LcWorkbookColumn*>& here, const LcWorkbookTable& other,
                      const std::vector<LcWorkbookColumn*>& there) const {
    out << fmt::format("- ({}): {} ({}){}\n", Escape(DisplayColumns(here)), Link(other),
                       Escape(DisplayColumns(there)), r.one_to_one ? ", one to one" : "");
  }

  static void WriteFunctions(std::ostream& out, const char* title,
                             const LcWorkbookFunctionList& functions) {
    bool any = false;
    for (const LcWorkbookFunction* function : functions.Present()) {
      if (!any) out << "\n## " << title << "\n\n";
      any = true;
      const std::string owner = Display(function->GetOwner());
      out << "- " << Escape((owner.empty() ? "" : owner + ".") + Display(function->GetName()))
          << '\n';
      for (const auto& overload : function->GetOverloads()) {
        out << "  - " << Escape(Display(overload->GetText()));
        if (!overload->GetResultType().empty()) {
          out << ": " << Escape(Display(overload->GetResultType()));
        }
        out << '\n';
      }
    }
  }

  template <class List>
  static void WriteDescribed(std::ostream& out, const char* title, const List& list) {
    bool any = false;
    for (const auto* entry : list.Present()) {
      if (!any) out << "\n## " << title << "\n\n";
      any = true;
      const bool described =
          !entry->GetDescription().empty() && entry->GetDescription() != entry->GetName();
      out << "- " << Escape(Display(entry->GetName()))
          << (described ? ": " + Escape(Display(entry->GetDescription())) : "") << '\n';
    }
  }

  const LcWorkbook& workbook_;
  const LcWorkbookFileInfo& info_;
  const Options& options_;
  const Links& links_;
  const Relationships relationships_;
};

// File names for tables: letters and digits stay, others become '-'. Names that then are alike,
// also on a file system that ignores case, are told apart by a number.
class FileNames {
 public:
  std::string For(const LcWorkbookTable& table) {
    std::string stem;
    for (const char c : DisplayName(table)) {
      const bool kept = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' || c == '.' ||
                        (c >= 'A' && c <= 'Z');
      if (kept && !(stem.empty() && c == '.')) {
        stem += c;
      } else if (stem.empty() || stem.back() != '-') {
        stem += '-';
      }
    }
    stem.resize(std::min(stem.size(), kLongestStem));
    std::string name = stem;
    int& number = last_number_[base::LowerAscii(stem)];
    while (!taken_.insert(base::LowerAscii(name)).second)
      name = fmt::format("{}-{}", stem, ++number + 1);
    return name + ".md";
  }

 private:
  static constexpr std::size_t kLongestStem = 120;
  std::set<std::string> taken_;
  std::unordered_map<std::string, int> last_number_;  // given to a stem
};

}  // namespace

bool WriteMarkdown(const Document& document, const Options& options, std::ostream& out,
                   Notes& /*notes*/) {
  Links links;
  for (const LcWorkbookTable* table : document.workbook.tables.Present())
    links.emplace(table, fmt::format("#table-{}", links.size() + 1));
  const Pages pages(document, options, links);
  pages.WriteHead(out);
  pages.WriteTableList(out);
  for (const LcWorkbookTable* table : document.workbook.tables.Present()) {
    out << fmt::format("\n<a id=\"{}\"></a>\n\n## {}\n", links[table].substr(1),
                       Escape(DisplayName(*table)));
    pages.WriteTable(out, *table);
  }
  pages.WriteRest(out);
  return true;
}

bool WriteMarkdownFolder(const Document& document, const Options& options,
                         const std::string& folder, Notes& notes) {
  namespace fs = std::filesystem;
  const fs::path tables = fs::path(folder) / "tables";
  std::error_code error;
  fs::create_directories(tables, error);
  const auto write = [&](const fs::path& path, const std::string& text) {
    std::ofstream out(path, std::ios::binary);
    out << text;
    out.close();
    if (!out) notes.push_back("Cannot write " + path.string() + ".");
    return !out.fail();
  };
  // Links as the start page sees them; from a table's page the others lie beside it.
  Links from_start;
  Links from_table;
  FileNames names;
  for (const LcWorkbookTable* table : document.workbook.tables.Present()) {
    const std::string name = names.For(*table);
    from_start.emplace(table, "tables/" + name);
    from_table.emplace(table, name);
  }
  const Pages start(document, options, from_start);
  std::ostringstream page;
  start.WriteHead(page);
  start.WriteTableList(page);
  start.WriteRest(page);
  if (!write(fs::path(folder) / "README.md", page.str())) return false;
  const Pages beside(document, options, from_table);
  for (const LcWorkbookTable* table : document.workbook.tables.Present()) {
    page.str("");
    page << "# " << Escape(DisplayName(*table)) << "\n\n[All tables](../README.md)\n";
    if (document.info.incomplete) {
      page << "\n**" << Escape(IncompleteText(document.info)) << "**\n";
    }
    beside.WriteTable(page, *table);
    if (!write(tables / from_table[table], page.str())) return false;
  }
  return true;
}

}  // namespace wbexport
