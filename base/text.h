// Small readings of texts: numbers and blanks.
#pragma once

#include <string>
#include <string_view>

namespace base {

// The decimal integer at the beginning of a text: leading white space and a sign are allowed, it
// ends at the first other character; 0 without digits. Saturates at the limits of 64 bits.
[[nodiscard]] long ParseInteger(std::u16string_view text);
// The number in decimal.
[[nodiscard]] inline std::u16string FormatInteger(long value) {
  const std::string digits = std::to_string(value);
  return {digits.begin(), digits.end()};
}

// The text without the blanks before, behind, or on either side. A blank is a space.
[[nodiscard]] std::u16string_view TrimLeftBlanks(std::u16string_view text);
[[nodiscard]] std::u16string_view TrimRightBlanks(std::u16string_view text);
[[nodiscard]] inline std::u16string_view TrimBlanks(std::u16string_view text) {
  return TrimLeftBlanks(TrimRightBlanks(text));
}
// The text without trailing white space: space, \t \n \v \f \r.
[[nodiscard]] std::u16string_view TrimRightSpace(std::u16string_view text);
// The text without space, \t \r \n on either side.
[[nodiscard]] std::string_view TrimSpace(std::string_view text);

// A character for people: a control character as its picture (U+2400 and on), one that has none as
// U+FFFD, so that no text moves a terminal's cursor or breaks a line.
[[nodiscard]] constexpr char16_t ShownCharacter(char16_t c) {
  if (c < 0x20) return static_cast<char16_t>(0x2400 + c);
  if (c == 0x7F) return 0x2421;
  return c > 0x7F && c < 0xA0 ? 0xFFFD : c;
}

}  // namespace base
