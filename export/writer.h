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
  std::string dialect_out;  // sql: the dialect of the server that it is for; empty: the one read
  bool whole = false;       // diagrams: draw a schema of more than 60 tables whole all the same
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

// Writes Markdown as a folder: README.md and a page a table under tables/. Creates what is missing
// of `folder` (in the encoding of the file system), overwrites pages of the same name and leaves
// other files alone. False, with a sentence in `notes`, when a page cannot be written.
bool WriteMarkdownFolder(const Document& document, const std::string& folder,
                         std::vector<std::string>& notes);

}  // namespace wbexport
