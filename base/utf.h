// Between UTF-16, which the module and the workbook speak, and UTF-8, which files, terminals and
// the driver manager's profiles speak. Never fails: what is not valid becomes U+FFFD, one for each
// byte sequence or code unit that cannot be read.
#pragma once

#include <string>
#include <string_view>

namespace base {

[[nodiscard]] std::string ToUtf8(std::u16string_view text);
[[nodiscard]] std::u16string ToUtf16(std::string_view text);

// Appends the UTF-8 form of one code point; a surrogate or a value above U+10FFFF as U+FFFD.
void AppendUtf8(char32_t code_point, std::string& out);
// The same where there is room for it, four bytes at most; returns where it ends.
[[nodiscard]] char* PutUtf8(char32_t code_point, char* to);
// The code point at `at`, which moves behind it; U+FFFD for half a surrogate pair.
[[nodiscard]] char32_t NextCodePoint(std::u16string_view text, std::size_t& at);
// The first `count` code points of valid UTF-8; the whole text when it has fewer.
[[nodiscard]] std::string_view FirstCodePoints(std::string_view text, int count);

}  // namespace base
