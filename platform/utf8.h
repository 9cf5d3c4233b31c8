// Between UTF-16, which the module speaks, and UTF-8, which files, terminals and the driver
// manager's profiles speak. What is not valid becomes U+FFFD; nothing is thrown.
#pragma once

#include <utf8.h>

#include <iterator>
#include <string>
#include <string_view>

namespace platform {

inline std::string ToUtf8(std::u16string_view text) {
  constexpr char32_t kReplacement = 0xFFFD;
  std::string out;
  out.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    char32_t code_point = text[at];
    if (utf8::internal::is_lead_surrogate(code_point) && at + 1 < text.size() &&
        utf8::internal::is_trail_surrogate(text[at + 1])) {
      code_point = 0x10000 + ((code_point - 0xD800) << 10) + (text[at + 1] - 0xDC00);
      ++at;
    } else if (utf8::internal::is_surrogate(code_point)) {
      code_point = kReplacement;
    }
    utf8::unchecked::append(code_point, std::back_inserter(out));
  }
  return out;
}

inline std::u16string ToUtf16(std::string_view text) {
  std::string valid;
  utf8::replace_invalid(text.begin(), text.end(), std::back_inserter(valid));
  std::u16string out;
  utf8::unchecked::utf8to16(valid.begin(), valid.end(), std::back_inserter(out));
  return out;
}

}  // namespace platform
