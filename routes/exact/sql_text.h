// Statements as texts: where quotes and comments begin and end, so that what stands in them is left
// alone. Knows what the dialects of SQL have in common: '...', "...", `...` with doubled
// quotes inside, `-- ...` and `/* ... */`.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace odbcimport::exact {

enum class SqlPart { kText, kQuoted, kLineComment, kBlockComment };

// `backslashes`: in '...' and "..." a backslash takes the next character out of its meaning.
//
// The end of the part that begins at `begin`, and what it is. A quote or comment that is not closed
// ends with the text.
struct SqlSpan {
  SqlPart part = SqlPart::kText;
  std::size_t end = 0;
};
[[nodiscard]] SqlSpan FindSpan(std::string_view sql, std::size_t begin, bool backslashes = false);

// The words outside quotes and comments, in upper case.
[[nodiscard]] std::vector<std::string> WordsOf(std::string_view sql, bool backslashes = false);

// Where the statement that begins at `begin` ends: at its semicolon or at the end of the text.
[[nodiscard]] std::size_t FindStatementEnd(std::string_view sql, std::size_t begin,
                                           bool backslashes = false);

// Why a module that only reads does not run this statement; empty for one that it does.
// `first_words` are those that the dialect allows besides SELECT, WITH and VALUES, in upper case.
[[nodiscard]] std::string WhyNotReading(std::string_view sql,
                                        const std::vector<std::string>& first_words);

}  // namespace odbcimport::exact
