// The formats that a workbook is written in. A writer sees the workbook and nothing else; it writes
// UTF-8 to a stream, whose state tells of failures.
#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "importer/workbook/workbook.h"
#include "importer/workbook/workbook_file.h"

namespace wbexport {

// What is written: a workbook with its origin. Both stay the caller's.
struct Document {
  const LcWorkbook& workbook;
  const LcWorkbookFileInfo& info;
};

struct Options {
  bool colour = false;         // text: terminal colours
  bool all_functions = false;  // text: list functions with their overloads instead of counts
  // Diagrams: only the tables within `distance` relationships of this table (UTF-8, owner and name
  // parted by a dot, or the name alone); empty: the whole schema.
  std::string around;
  int distance = 1;
  bool whole = false;  // diagrams: draw a schema of more than 60 tables whole all the same
};

// A format by its name on the command line. Null when there is no such format.
struct Format {
  const char* name;
  const char* description;
  // Appends to `notes` one sentence (UTF-8) for whatever was left out and how to ask for it.
  // Returns false with a sentence in `notes` when nothing could be written (no such table).
  bool (*write)(const Document& document, const Options& options, std::ostream& out,
                std::vector<std::string>& notes);
};
const Format* FindFormat(std::string_view name);
const std::vector<Format>& AllFormats();

}  // namespace wbexport
