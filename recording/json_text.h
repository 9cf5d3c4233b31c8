// Pieces of JSON, appended to a line. Texts of the driver manager are UTF-16 and need not be well
// formed; JSON's are UTF-8.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "recording/bytes.h"

namespace recording {

// Appends the text as UTF-8. False when it is not well formed; `out` then holds no sensible end.
[[nodiscard]] bool AppendUtf8(std::u16string_view text, std::string& out);
[[nodiscard]] bool IsUtf8(std::string_view text);

void AppendNumber(std::int64_t number, Bytes& line);
// A JSON string of UTF-8, with its quotes.
void AppendString(std::string_view text, Bytes& line);
// The same where it is ASCII without anything to escape; else false, and nothing is appended.
[[nodiscard]] bool AppendPlainString(std::string_view text, Bytes& line);
[[nodiscard]] bool AppendPlainString(std::u16string_view text, Bytes& line);
// A JSON string of hexadecimal digits, two a byte.
void AppendHex(std::string_view bytes, Bytes& line);

}  // namespace recording
