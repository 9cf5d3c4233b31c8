// The formats in which findings are told. UTF-8 to a stream, whose state tells of failures.
#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "lint/lint.h"

namespace wblint {

struct Document {
  const LcWorkbook& workbook;
  const LcWorkbookFileInfo& info;
  const Report& report;
  std::string label;  // what people call the schema: a file, a connection
};

struct WriteOptions {
  bool colour = false;  // text: terminal colours
};

struct Format {
  const char* name;
  const char* description;
  void (*write)(const Document& document, const WriteOptions& options, std::ostream& out);
};
// Null when there is no such format.
[[nodiscard]] const Format* FindFormat(std::string_view name);
[[nodiscard]] const std::vector<Format>& AllFormats();
// The format for readers who did not choose one: people at a terminal, or programs.
[[nodiscard]] const Format& DefaultFormat(bool terminal);

void WriteText(const Document& document, const WriteOptions& options, std::ostream& out);
void WriteJson(const Document& document, const WriteOptions& options, std::ostream& out);
void WriteMarkdown(const Document& document, const WriteOptions& options, std::ostream& out);

// What people call the database: its title, else its name; empty where neither is known.
[[nodiscard]] std::string DatabaseTitle(const LcWorkbookFileInfo& info);
// "3 findings in 2 of 40 tables: 1 error, 2 warnings"
[[nodiscard]] std::string Summary(const Report& report);
// Their names with their owners; of a finding about the whole schema its owner, or "schema".
[[nodiscard]] std::string Subject(const Finding& finding);

}  // namespace wblint
