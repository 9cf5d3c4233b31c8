// Conversions between the UTF-8 of SQLite and the UTF-16 of the driver manager. Invalid input is
// replaced by U+FFFD, never refused: names come from whoever writes a connection string.
#pragma once

#include <sql.h>
#include <sqlucode.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "base/ascii.h"
#include "base/text.h"

namespace catalogsim {

// Writes at most `capacity` code units, without a terminator. Returns how many the whole text has,
// so that a caller knows what was cut.
[[nodiscard]] std::size_t WidenInto(std::string_view utf8, SQLWCHAR* out, std::size_t capacity);

[[nodiscard]] std::string Narrow(const SQLWCHAR* text, std::size_t length);

// A text argument of an ODBC function: `length` in characters or SQL_NTS. Empty for a null pointer.
[[nodiscard]] std::string TextArgument(const SQLWCHAR* text, SQLLEN length);

// Answers a text with its terminator into a buffer of `capacity` characters, which may be null.
// False when it was cut. `length` receives the whole text's characters and may be null.
[[nodiscard]] bool AnswerText(std::string_view text, SQLWCHAR* buffer, SQLLEN capacity,
                              SQLSMALLINT* length);

// ASCII letters only; the names of keywords and functions have no others.
[[nodiscard]] std::string Upper(std::string_view text);
using base::EqualIgnoringCase;
[[nodiscard]] inline std::string_view Trim(std::string_view text) { return base::TrimSpace(text); }

}  // namespace catalogsim
