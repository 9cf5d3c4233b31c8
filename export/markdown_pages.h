// The pieces that Markdown is made of: in one page, or in a folder with a page for each table.
#pragma once

#include <ostream>
#include <string>
#include <unordered_map>
#include <vector>

#include "export/facts.h"
#include "export/model.h"

namespace wbexport {

class MarkdownPages {
 public:
  // Where the page or section of a table is; a table without one is named and not linked.
  using Links = std::unordered_map<const LcWorkbookTable*, std::string>;

  // `links` stay the caller's.
  MarkdownPages(const Document& document, const Options& options, const Links& links);

  void WriteHead(std::ostream& out) const;
  void WriteTableList(std::ostream& out) const;
  // Under its heading: what it is, its columns, keys, references and the rest.
  void WriteTable(std::ostream& out, const LcWorkbookTable& table) const;
  // What stands beside the tables in the database.
  void WriteRest(std::ostream& out) const;
  // A sentence where the import was cut short, else nothing.
  void WriteMark(std::ostream& out) const;

  // The tables with a section or page: all but partitions whose table is there.
  [[nodiscard]] const std::vector<const LcWorkbookTable*>& tables() const { return tables_; }

  // Text that shows as it is, in a table's cell too.
  [[nodiscard]] static std::string Escape(const std::string& text);

 private:
  [[nodiscard]] std::string Link(const LcWorkbookTable& table) const;
  void WriteKind(std::ostream& out, const LcWorkbookTable& table) const;
  void WriteColumns(std::ostream& out, const LcWorkbookTable& table) const;
  void WriteReferences(std::ostream& out, const LcWorkbookTable& table) const;
  void WriteReference(std::ostream& out, const Relationship& r,
                      const std::vector<LcWorkbookColumn*>& here, const LcWorkbookTable& other,
                      const std::vector<LcWorkbookColumn*>& there) const;
  void WriteParts(std::ostream& out, const LcWorkbookTable& table) const;
  void WriteProcedures(std::ostream& out) const;
  static void WriteFact(std::ostream& out, const Fact& fact);
  static void WriteCode(std::ostream& out, const std::string& text, const char* indent);
  static void WriteFunctions(std::ostream& out, const char* title,
                             const LcWorkbookFunctionList& functions);

  const LcWorkbook& workbook_;
  const LcWorkbookFileInfo& info_;
  const Options& options_;
  const Links& links_;
  const Relationships relationships_;
  const Facts facts_;
  std::vector<const LcWorkbookTable*> tables_;
};

}  // namespace wbexport
