// The letters and digits of ASCII, in whatever encoding holds them, whatever the locale.
#pragma once

#include <concepts>
#include <string>

namespace base {

template <std::integral Char>
[[nodiscard]] constexpr bool IsDigit(Char c) {
  return c >= '0' && c <= '9';
}
template <std::integral Char>
[[nodiscard]] constexpr bool IsUpper(Char c) {
  return c >= 'A' && c <= 'Z';
}
template <std::integral Char>
[[nodiscard]] constexpr bool IsLower(Char c) {
  return c >= 'a' && c <= 'z';
}
template <std::integral Char>
[[nodiscard]] constexpr bool IsLetter(Char c) {
  return IsUpper(c) || IsLower(c);
}
template <std::integral Char>
[[nodiscard]] constexpr bool IsLetterOrDigit(Char c) {
  return IsLetter(c) || IsDigit(c);
}

// All other characters stay as they are.
template <std::integral Char>
[[nodiscard]] constexpr Char UpperAscii(Char c) {
  return IsLower(c) ? static_cast<Char>(c - 'a' + 'A') : c;
}
[[nodiscard]] inline std::string UpperAscii(std::string text) {
  for (char& c : text) c = UpperAscii(c);
  return text;
}

}  // namespace base
