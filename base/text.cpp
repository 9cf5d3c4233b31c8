// Small readings of texts: numbers and blanks.
#include "base/text.h"

#include <algorithm>
#include <limits>

namespace base {
namespace {

constexpr std::u16string_view kWhiteSpace = u" \t\n\v\f\r";

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

std::u16string_view TrimLeftBlanks(std::u16string_view text) {
  return text.substr(std::min(text.find_first_not_of(u' '), text.size()));
}

std::u16string_view TrimRightBlanks(std::u16string_view text) {
  return text.substr(0, text.find_last_not_of(u' ') + 1);
}

std::u16string_view TrimRightSpace(std::u16string_view text) {
  return text.substr(0, text.find_last_not_of(kWhiteSpace) + 1);
}

std::string_view TrimSpace(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  text = text.substr(0, text.find_last_not_of(kBlanks) + 1);
  return text.substr(std::min(text.find_first_not_of(kBlanks), text.size()));
}

}  // namespace base
