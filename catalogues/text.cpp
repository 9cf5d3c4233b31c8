// Small readings of catalog texts: numbers, names in either case, trailing blanks.
#include "catalogues/text.h"

#include <limits>

namespace odbcimport {
namespace {

constexpr std::u16string_view kWhiteSpace = u" \t\n\v\f\r";

constexpr char16_t Lower(char16_t c) {
  return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + (u'a' - u'A')) : c;
}

}  // namespace

long ParseInteger(std::u16string_view text) {
  std::size_t at = text.find_first_not_of(kWhiteSpace);
  if (at == std::u16string_view::npos) return 0;
  const bool negative = text[at] == u'-';
  if (negative || text[at] == u'+') ++at;

  // Counts downwards: the smallest number has no positive counterpart.
  constexpr long kMin = std::numeric_limits<long>::min();
  constexpr long kMax = std::numeric_limits<long>::max();
  long value = 0;
  for (; at < text.size() && text[at] >= u'0' && text[at] <= u'9'; ++at) {
    const long digit = text[at] - u'0';
    if (value < (kMin + digit) / 10) return negative ? kMin : kMax;
    value = value * 10 - digit;
  }
  if (negative) return value;
  return value == kMin ? kMax : -value;
}

bool EqualIgnoringCase(std::u16string_view a, std::u16string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (a[i] != b[i] && Lower(a[i]) != Lower(b[i])) return false;
  }
  return true;
}

std::u16string_view TrimRightBlanks(std::u16string_view text) {
  return text.substr(0, text.find_last_not_of(u' ') + 1);
}

std::u16string_view TrimRightSpace(std::u16string_view text) {
  return text.substr(0, text.find_last_not_of(kWhiteSpace) + 1);
}

}  // namespace odbcimport
