// Which tables a diagram shows: the whole schema, its most connected part when it is large, or the
// neighbourhood of one table.
#pragma once

#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "export/model.h"
#include "export/writer.h"

namespace wbexport {

// A larger schema is drawn in part unless the whole is asked for: nobody can read more, and the
// layout takes minutes.
constexpr std::size_t kLargestDiagram = 60;

struct Diagram {
  std::vector<const LcWorkbookTable*> tables;                       // in workbook order
  std::unordered_map<const LcWorkbookTable*, std::size_t> numbers;  // positions in `tables`
  std::vector<Relationship> relationships;              // those whose tables are both shown
  std::unordered_set<const LcWorkbookColumn*> foreign;  // columns of a referencing side
  std::vector<std::string> captions;  // incomplete, left out: shown in the diagram too
};

// The first table of that name (UTF-8): as it stands, then parted into owner and name. Null, with a
// sentence in `notes`, when there is none.
const LcWorkbookTable* FindAround(const LcWorkbook& workbook, const std::string& text,
                                  std::vector<std::string>& notes);

// False, with a sentence in `notes`, when `options` ask for a table that is not there. Otherwise
// `notes` say what is left out and how to ask for it.
bool SelectDiagram(const Document& document, const Options& options, Diagram& diagram,
                   std::vector<std::string>& notes);

// "PK", "FK", "PK,FK" or nothing.
const char* KeyMark(const LcWorkbookColumn& column, const Diagram& diagram);

}  // namespace wbexport
