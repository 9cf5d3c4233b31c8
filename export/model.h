// What every format needs of the workbook: names and types as text, relationships, the marks of an
// import that was cut short. UTF-8 from here on.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "export/writer.h"

namespace wbexport {

// A name for people: control characters are shown as their pictures (U+2400 and on), so that no
// name moves a terminal's cursor or breaks a line.
[[nodiscard]] std::string Display(std::u16string_view text);
// The same, but line ends and tabs stay: for comments and the texts of views and routines.
[[nodiscard]] std::string DisplayLines(std::u16string_view text);
// The same on one line: blanks and line ends in a row become one blank.
[[nodiscard]] std::string DisplayLine(std::u16string_view text);
// "owner.name", or the name alone where there is no owner.
[[nodiscard]] std::string DisplayName(std::u16string_view owner, std::u16string_view name);
[[nodiscard]] std::string DisplayName(const LcWorkbookTable& table);
// "a, b, c"
[[nodiscard]] std::string DisplayColumns(const std::vector<LcWorkbookColumn*>& columns);
// The column's type as the server spells it, else as it is put together from what was read:
// "DECIMAL(12,2)"; empty when it is not known.
[[nodiscard]] std::string TypeText(const LcWorkbookColumn& column);
[[nodiscard]] std::string TypeName(const LcWorkbookDatatype& type);
// "table", "view" or "synonym".
[[nodiscard]] const char* KindName(enumTableType type);
// The more exact kind where it was read: "materialized view", "foreign table", ...
[[nodiscard]] std::string KindName(const LcWorkbookTable& table);
// What a synonym stands for: "owner.name", with "@database" or "@database@server" behind it.
[[nodiscard]] std::string SynonymTarget(const LcSynonymDetails& synonym);
// What people call the database: its title, else its name on the server; empty where neither is
// known.
[[nodiscard]] std::string DatabaseTitle(const LcWorkbookFileInfo& info);
// "Lending (loans): Handmade Server 3, read through the odbc route": the database by its title and
// name, as far as they are known, then the server ("Unknown server" without a name) and, last, the
// time of the import.
[[nodiscard]] std::string SourceText(const LcWorkbookFileInfo& info);
// One sentence when the import was cut short, else empty.
[[nodiscard]] std::string IncompleteText(const LcWorkbookFileInfo& info);
// Whether a procedure is the server's own, by the owner that it comes under.
[[nodiscard]] bool IsOfSystem(const LcWorkbookProcedure& procedure, const LcWorkbookFileInfo& info);
// The procedures to list for people, and how many of the server's own are left out of them: all but
// where the options ask for them.
struct ListedProcedures {
  std::vector<const LcWorkbookProcedure*> listed;
  std::size_t left_out = 0;
};
[[nodiscard]] ListedProcedures ProceduresToList(const Document& document, const Options& options);
// "owner.name", or the name alone where there is no owner.
[[nodiscard]] std::string DisplayName(const LcWorkbookProcedure& procedure);
// "1 table", "2 tables".
[[nodiscard]] std::string Count(std::size_t count, const char* one, const char* many);

// A relationship: `from_columns` of the referencing table hold the values of `to_columns`.
struct Relationship {
  const LcWorkbookTable* from = nullptr;
  const LcWorkbookTable* to = nullptr;
  std::vector<LcWorkbookColumn*> from_columns;
  std::vector<LcWorkbookColumn*> to_columns;
  bool one_to_one = false;  // a row of `to` is met by one row of `from` at most
  bool required = false;    // every row of `from` meets a row of `to`
  const LcForeignKeyDetails* details = nullptr;  // null where they were not read
};

// The relationships of a workbook, each once: the forward keys in workbook order, then the mirror
// keys that have no partner.
class Relationships {
 public:
  explicit Relationships(const LcWorkbook& workbook);
  [[nodiscard]] const std::vector<Relationship>& All() const { return all_; }
  // Positions in All().
  [[nodiscard]] const std::vector<std::size_t>& From(const LcWorkbookTable& table) const;
  [[nodiscard]] const std::vector<std::size_t>& To(const LcWorkbookTable& table) const;

 private:
  using ByTable = std::unordered_map<const LcWorkbookTable*, std::vector<std::size_t>>;
  void Add(Relationship relationship);

  std::vector<Relationship> all_;
  ByTable from_;
  ByTable to_;
};

// How many tables there are, empty entries not counted.
[[nodiscard]] std::size_t CountTables(const LcWorkbook& workbook, enumTableType type);
// "5 tables, 1 view and 1 synonym"
[[nodiscard]] std::string TableCounts(const LcWorkbook& workbook);

}  // namespace wbexport
