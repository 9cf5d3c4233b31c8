// Small readings of catalog texts: numbers, names in either case, trailing blanks.
#pragma once

#include <string>
#include <string_view>

namespace odbcimport {

// The decimal integer at the beginning of a text: leading white space and a sign are allowed, it
// ends at the first other character; 0 without digits. Saturates at the limits of 64 bits.
long ParseInteger(std::u16string_view text);
// The number in decimal.
inline std::u16string FormatInteger(long value) {
  const std::string digits = std::to_string(value);
  return {digits.begin(), digits.end()};
}
// Equal when upper and lower case of ASCII letters are not told apart.
bool EqualIgnoringCase(std::u16string_view a, std::u16string_view b);
// The text without trailing blanks, and without trailing white space (space, \t \n \v \f \r).
std::u16string_view TrimRightBlanks(std::u16string_view text);
std::u16string_view TrimRightSpace(std::u16string_view text);

}  // namespace odbcimport
