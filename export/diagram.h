// What a diagram shows: which tables (the whole schema, its most connected part when it is large,
// or the neighbourhood of one table) and how much of each.
#pragma once

#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "export/facts.h"
#include "export/model.h"
#include "export/writer.h"

namespace wbexport {

// A larger schema is drawn in part unless the whole is asked for: nobody can read more, and the
// layout takes minutes.
constexpr std::size_t kLargestDiagram = 60;
// A table with more neighbours is drawn with those that have the most relationships.
constexpr std::size_t kMostNeighbours = 30;

struct Diagram {
  std::vector<const LcWorkbookTable*> tables;                       // in workbook order
  std::unordered_map<const LcWorkbookTable*, std::size_t> numbers;  // positions in `tables`
  std::vector<Relationship> relationships;              // those whose tables are both shown
  std::unordered_set<const LcWorkbookColumn*> foreign;  // columns of a referencing side
  // Columns that refer to their own table, and those tables. They are marked and have no line: no
  // layout keeps a loop off what stands around it.
  std::unordered_set<const LcWorkbookColumn*> looping;
  std::unordered_set<const LcWorkbookTable*> looping_tables;
  std::unordered_map<const LcWorkbookTable*, std::size_t> parts;  // how many are folded
  const LcWorkbookTable* middle = nullptr;                        // what is drawn around it
  Detail detail = Detail::kFull;                                  // never kAuto
  bool is_map = false;                // names spread over the plane, not in layers
  bool all_rows = false;              // however many columns a table has
  std::string title;                  // the database and where it was read
  std::vector<std::string> comments;  // what was not read: for those who read the text itself
  std::vector<std::string> captions;  // incomplete, left out: shown in the diagram too
};

// The first table of that name (UTF-8): as it stands, then parted into owner and name. Null, with a
// sentence in `notes`, when there is none.
[[nodiscard]] const LcWorkbookTable* FindAround(const LcWorkbook& workbook, const std::string& text,
                                                std::vector<std::string>& notes);

// False, with a sentence in `notes`, when `options` ask for a table that is not there. Otherwise
// `notes` say what is left out and how to ask for it.
[[nodiscard]] bool SelectDiagram(const Document& document, const Options& options, Diagram& diagram,
                                 std::vector<std::string>& notes);
// Leaves of the tables those with the most relationships; the caller says so in the captions.
void KeepMostConnected(Diagram& diagram, std::size_t most);

// The columns of a table that the diagram has a row for, in their order.
[[nodiscard]] std::vector<const LcWorkbookColumn*> ShownColumns(const LcWorkbookTable& table,
                                                                const Diagram& diagram);
// What stands under the shown columns: "9 more columns", "12 partitions"; empty for nothing.
[[nodiscard]] std::string RestOf(const LcWorkbookTable& table, const Diagram& diagram,
                                 std::size_t shown);

// "PK", "FK", "PK,FK" or nothing.
[[nodiscard]] const char* KeyMark(const LcWorkbookColumn& column, const Diagram& diagram);

// A line of a diagram: the relationships of one table with another.
struct DiagramLine {
  const Relationship* first = nullptr;
  std::size_t count = 1;
};
// A line for each relationship between two tables; where there are many, or nothing but names, one
// for each pair.
[[nodiscard]] std::vector<DiagramLine> Lines(const Diagram& diagram);
// Whether layers would make no picture: too many tables, or too many lines for them.
[[nodiscard]] bool IsMap(const Diagram& diagram, const std::vector<DiagramLine>& lines);
// "sales.order (customer_id) -> sales.customer (id)", with the name of the key.
[[nodiscard]] std::string DescribeRelationship(const Relationship& relationship);

// How a line lies in the layers of a drawing.
struct LineCourse {
  int length = 1;            // how many layers lie between its ends at least
  bool is_reversed = false;  // the table that refers stands before the other
};
// By position in `lines`; chosen so that the drawing becomes wide and not one tall column.
[[nodiscard]] std::vector<LineCourse> LineCourses(const Diagram& diagram,
                                                  const std::vector<DiagramLine>& lines);

}  // namespace wbexport
