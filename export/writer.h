// The formats that a workbook is written in. A writer sees the workbook and nothing else; it writes
// UTF-8 to a stream, whose state tells of failures.
#pragma once

#include <functional>
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

// What a diagram shows of a table.
enum class Detail { kAuto, kFull, kKeys, kNames };

struct Options {
  bool colour = false;         // text: terminal colours
  bool all_functions = false;  // text: list functions with their overloads instead of counts
  bool system = false;         // for people: list the server's own procedures instead of a count
  // Diagrams: only the tables within `distance` relationships of this table (UTF-8, owner and name
  // parted by a dot, or the name alone); empty: the whole schema.
  std::string around;
  int distance = 1;
  Detail detail = Detail::kAuto;  // diagrams: kAuto goes by the size
  // Asked now and then while a picture is laid out; true ends that with nothing written.
  std::function<bool()> is_cancelled;
  std::string dialect_out;  // sql: the dialect of the server that it is for; empty: the one read
  bool compact = false;     // json: without indentation, zeroes and empty members
  bool whole = false;       // diagrams: draw a schema of more than 60 tables whole all the same
};

// A format, by its name on the command line.
struct Format {
  const char* name;
  const char* description;
  // The extensions of its files, parted by blanks, lower case, without the dot.
  const char* extensions;
  bool draws;  // the options about diagrams mean something to it
  // Appends to `notes` one sentence (UTF-8) for whatever was left out and how to ask for it.
  // Returns false with a sentence in `notes` when nothing could be written (no such table).
  bool (*write)(const Document& document, const Options& options, std::ostream& out,
                std::vector<std::string>& notes);
  // Writes a folder of pages, for a format that has such a form; else null. Creates what is missing
  // of `folder` (in the encoding of the file system), overwrites files of the same name and leaves
  // others alone. False, with a sentence in `notes`, when a page cannot be written.
  bool (*write_folder)(const Document& document, const Options& options, const std::string& folder,
                       std::vector<std::string>& notes) = nullptr;
  bool compacts = false;  // Options::compact means something to it
};
// Whether there is a table to draw the surroundings of, as Options::around names it.
[[nodiscard]] bool HasTableToDrawAround(const LcWorkbook& workbook, const std::string& around);

[[nodiscard]] const std::vector<Format>& AllFormats();
// Null when there is no such format.
[[nodiscard]] const Format* FindFormat(std::string_view name);
// The format that a file's extension stands for, whatever its case; null when there is none.
[[nodiscard]] const Format* FindFormatOfFile(std::string_view file);
// The format for readers who did not choose one: people at a terminal, or programs.
[[nodiscard]] const Format& DefaultFormat(bool terminal);

}  // namespace wbexport
