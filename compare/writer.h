// The formats in which a comparison is told. UTF-8 to a stream, whose state tells of failures.
#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "compare/changes.h"

namespace wbcompare {

struct Document {
  const Side& before;
  const Side& after;
  const Comparison& comparison;
  std::string old_label;  // what people call the sides: a file, a connection
  std::string new_label;
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
void WriteHtml(const Document& document, const WriteOptions& options, std::ostream& out);

}  // namespace wbcompare
