// Markdown: one page, or a folder with a page for each table.
#include <fmt/format.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "base/ascii.h"
#include "base/letters.h"
#include "export/markdown_pages.h"
#include "export/writers.h"

namespace wbexport {

namespace {

namespace fs = std::filesystem;

// File names for tables: letters and digits stay, others become '-'. Names that then are alike,
// also on a file system that ignores case, are told apart by a number.
class FileNames {
 public:
  std::string For(const LcWorkbookTable& table) {
    std::string stem;
    for (const char c : DisplayName(table)) {
      const bool kept = base::IsLetterOrDigit(c) || c == '_' || c == '.';
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

bool WritePage(const fs::path& path, const std::string& text) {
  std::ofstream out(path, std::ios::binary);
  out << text;
  out.close();
  return !out.fail();
}

bool WritePages(const Document& document, const Options& options, const fs::path& folder,
                fs::path& failed) {
  // Links as the start page sees them; from a table's page the others lie beside it.
  MarkdownPages::Links from_start;
  MarkdownPages::Links from_table;
  const MarkdownPages start(document, options, from_start);
  const MarkdownPages beside(document, options, from_table);
  FileNames names;
  for (const LcWorkbookTable* table : start.tables()) {
    const std::string name = names.For(*table);
    from_start.emplace(table, "tables/" + name);
    from_table.emplace(table, name);
  }
  std::ostringstream page;
  start.WriteHead(page);
  start.WriteTableList(page);
  start.WriteRest(page);
  failed = folder / "tables";
  std::error_code error;
  fs::create_directories(failed, error);
  if (!fs::is_directory(failed, error)) return false;
  failed = folder / "README.md";
  if (!WritePage(failed, page.str())) return false;
  const std::string database = DatabaseTitle(document.info);
  const std::string title = database.empty() ? "All tables" : database;
  for (const LcWorkbookTable* table : beside.tables()) {
    page.str("");
    page << "# " << MarkdownPages::Escape(DisplayName(*table)) << "\n\n["
         << MarkdownPages::Escape(title) << "](../README.md)\n";
    beside.WriteMark(page);
    beside.WriteTable(page, *table);
    failed = folder / "tables" / from_table[table];
    if (!WritePage(failed, page.str())) return false;
  }
  return true;
}

}  // namespace

bool WriteMarkdown(const Document& document, const Options& options, std::ostream& out,
                   Notes& /*notes*/) {
  MarkdownPages::Links links;
  const MarkdownPages pages(document, options, links);
  for (const LcWorkbookTable* table : pages.tables()) {
    links.emplace(table, fmt::format("#table-{}", links.size() + 1));
  }
  pages.WriteHead(out);
  pages.WriteTableList(out);
  for (const LcWorkbookTable* table : pages.tables()) {
    out << fmt::format("\n<a id=\"{}\"></a>\n\n## {}\n", links[table].substr(1),
                       MarkdownPages::Escape(DisplayName(*table)));
    pages.WriteTable(out, *table);
  }
  pages.WriteRest(out);
  return true;
}

bool WriteMarkdownFolder(const Document& document, const Options& options,
                         const std::string& folder, Notes& notes) {
  fs::path failed;
  if (WritePages(document, options, folder, failed)) return true;
  notes.push_back("Cannot write " + failed.string() + ".");
  return false;
}

}  // namespace wbexport
