// A dialect file taken apart: the head, and the sections with their headings and statements. How
// such a file is written is told in docs/dialects.md.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "routes/exact/kinds.h"
#include "routes/exact/statement.h"
#include "routes/exact/version.h"

namespace odbcimport::exact {

// One of the things that a result cell holds.
struct Slot {
  std::optional<Field> field;  // none: an option, or nothing that is kept
  std::string option;          // the name of a fact that only this server has
  std::vector<std::pair<std::string, std::string>> values;  // what the server has, and means by it
};
// A result column; more than one slot: packed, joined with `|`.
using HeadingCell = std::vector<Slot>;

struct Section {
  Kind kind = Kind::kProbe;
  VersionBounds bounds;
  bool fallback = false;
  std::string each;  // the kind of tables for each of which it runs: "view", ...; empty: once
  int line = 0;      // of the file, from 1
  std::vector<HeadingCell> heading;
  std::u16string heading_text;  // the names in the heading, as they stand, without their values
  StatementText statement;
};

// A kind of type, and the name (`*` for any text) that the server has for it.
struct TypeRule {
  std::string kind;
  std::string pattern;
};

struct Dialect {
  std::string name;
  std::vector<std::string> products;  // patterns
  std::optional<Version> first_version;
  bool owners = true;
  bool each_schema = false;  // a statement is run once for each schema
  bool ignores_case = false;
  NameQuotes quotes;
  std::size_t list_limit = 0;
  bool backslash_escapes = false;              // in the texts of CREATE statements
  std::string unwritten_action = "no action";  // of a foreign key in such a text
  std::vector<std::string> first_words;        // of statements, besides those that read anywhere
  std::vector<TypeRule> types;
  std::string savepoint;
  std::string undo;
  std::string release;
  std::string begin;
  std::string end;
  std::vector<Section> sections;

  [[nodiscard]] bool IsFor(std::string_view product) const;  // UTF-8
  [[nodiscard]] bool IsForAnyProduct() const;
  // The sections of a kind that a server of that version is asked, in turn: the first, and the
  // fallbacks behind it. Empty where the server has no such kind.
  [[nodiscard]] std::vector<const Section*> Find(Kind kind, const Version& version) const;
};

struct DialectProblem {
  int line = 0;
  std::string text;  // one English sentence part, UTF-8
};

// The head of a file alone, without a word on what is wrong with it: for whom the dialect is.
void ReadDialectHead(std::string_view file, Dialect& dialect);
// All that is wrong with the file; none: `dialect` is what it says.
[[nodiscard]] std::vector<DialectProblem> ParseDialect(std::string_view file, Dialect& dialect);

// True when the text is what the pattern describes: case ignored, `*` for any text.
[[nodiscard]] bool MatchesPattern(std::string_view pattern, std::string_view text);

}  // namespace odbcimport::exact
