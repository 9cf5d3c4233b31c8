// Upper and lower case of ASCII letters, the only ones whose case catalogs and connection strings
// leave open; all other characters are compared as they stand. For UTF-8 and UTF-16 alike.
#pragma once

#include <algorithm>
#include <concepts>
#include <string>
#include <string_view>

namespace base {

template <std::integral Char>
[[nodiscard]] constexpr Char LowerAscii(Char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<Char>(c - 'A' + 'a') : c;
}

[[nodiscard]] inline std::string LowerAscii(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = LowerAscii(c);
  return lower;
}
[[nodiscard]] inline std::u16string LowerAscii(std::u16string_view text) {
  std::u16string lower(text);
  for (char16_t& c : lower) c = LowerAscii(c);
  return lower;
}

template <class Char>
[[nodiscard]] constexpr bool EqualIgnoringCaseOf(std::basic_string_view<Char> a,
                                                 std::basic_string_view<Char> b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (a[i] != b[i] && LowerAscii(a[i]) != LowerAscii(b[i])) return false;
  }
  return true;
}
// Equal when upper and lower case are not told apart.
[[nodiscard]] constexpr bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return EqualIgnoringCaseOf(a, b);
}
[[nodiscard]] constexpr bool EqualIgnoringCase(std::u16string_view a, std::u16string_view b) {
  return EqualIgnoringCaseOf(a, b);
}

// Below, at or above zero, as `a` sorts before, with or after `b`.
[[nodiscard]] constexpr int CompareIgnoringCase(std::u16string_view a, std::u16string_view b) {
  const std::size_t common = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < common; ++i) {
    const int difference = LowerAscii(a[i]) - LowerAscii(b[i]);
    if (difference != 0) return difference;
  }
  return a.size() < b.size() ? -1 : a.size() > b.size() ? 1 : 0;
}

[[nodiscard]] constexpr bool ContainsIgnoringCase(std::u16string_view text,
                                                  std::u16string_view part) {
  for (std::size_t at = 0; at + part.size() <= text.size(); ++at) {
    if (EqualIgnoringCase(text.substr(at, part.size()), part)) return true;
  }
  return false;
}

}  // namespace base
