// Texts between the command line (UTF-8) and the module (UTF-16), and names as a user types them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace wbhost {

// Invalid input becomes U+FFFD, one for each byte or code unit that cannot be read.
std::u16string ToUtf16(std::string_view utf8);
std::string ToUtf8(std::u16string_view utf16);

struct QualifiedName {
  std::u16string owner;  // empty: none given
  std::u16string name;
};
// Parts `[OWNER.]NAME` at the first dot outside double quotes. A part that begins and ends with a
// double quote loses them; a doubled quote inside stands for one.
QualifiedName ParseQualifiedName(std::string_view text);

// `owner.name`, or the name alone where there is no owner.
std::string DisplayName(std::u16string_view owner, std::u16string_view name);

// The text for one line of a terminal: control characters, line ends among them, become blanks.
std::string OneLine(std::string_view text);

// The whole of a file, as it is; empty where it cannot be read.
std::optional<std::string> ReadWholeFile(const std::string& file);

// Equal when upper and lower case of ASCII letters are not told apart.
bool EqualIgnoringCase(std::string_view a, std::string_view b);

}  // namespace wbhost
