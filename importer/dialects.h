// The dialects of the exact reading, for hosts that show them or let people write their own. How a
// dialect file is written is told in docs/dialects.md.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/platform.h"

// Texts are UTF-8.
struct LcDialect {
  std::string name;
  std::string product;  // the pattern for SQL_DBMS_NAME
  std::string file;     // its text
};
// Those that are built in.
[[nodiscard]] LC_EXPORT std::vector<LcDialect> OdbcImportDialects();

struct LcDialectProblem {
  int line = 0;      // of the file, from 1
  std::string text;  // one English sentence part
};
// All that is wrong with the text of a dialect file; empty: nothing.
[[nodiscard]] LC_EXPORT std::vector<LcDialectProblem> OdbcImportCheckDialect(std::string_view file);

// What became of one section on a server.
struct LcSectionCheck {
  std::string kind;
  int line = 0;         // of the file, from 1
  std::string problem;  // one English sentence part; empty: none
  bool ran = false;     // false: not for this server's version
  long rows = 0;
};
// Runs every section of a dialect file on a server, as an import of everything would, and compares
// the rows with the headings. The handles are borrowed. Empty, with one English sentence part in
// `why`, where the file is wrong or the dialect is not for the server.
[[nodiscard]] LC_EXPORT std::vector<LcSectionCheck> OdbcImportTryDialect(std::string_view file,
                                                                         void* henv, void* hdbc,
                                                                         std::string& why);
