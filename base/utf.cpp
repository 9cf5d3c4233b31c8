// UTF-8 and UTF-16.
#include "base/utf.h"

#include <utf8.h>

#include <algorithm>
#include <iterator>

namespace base {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsLead(char16_t c) { return c >= 0xD800 && c <= 0xDBFF; }
bool IsTrail(char16_t c) { return c >= 0xDC00 && c <= 0xDFFF; }

}  // namespace

char32_t NextCodePoint(std::u16string_view text, std::size_t& at) {
  const char16_t c = text[at++];
  if (!IsLead(c) && !IsTrail(c)) return c;
  if (IsTrail(c) || at == text.size() || !IsTrail(text[at])) return kReplacement;
  const char16_t trail = text[at++];
  return 0x10000U + ((static_cast<char32_t>(c) - 0xD800U) << 10U) +
         (static_cast<char32_t>(trail) - 0xDC00U);
}

char* PutUtf8(char32_t code_point, char* to) {
  const bool valid = code_point <= 0x10FFFF && !(code_point >= 0xD800 && code_point <= 0xDFFF);
  return utf8::unchecked::append(valid ? code_point : kReplacement, to);
}

void AppendUtf8(char32_t code_point, std::string& out) {
  char bytes[4];
  out.append(bytes, PutUtf8(code_point, bytes));
}

std::string ToUtf8(std::u16string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    if (text[at] < 0x80) {
      out += static_cast<char>(text[at++]);
    } else {
      AppendUtf8(NextCodePoint(text, at), out);
    }
  }
  return out;
}

std::u16string ToUtf16(std::string_view text) {
  std::string valid;
  valid.reserve(text.size());
  utf8::replace_invalid(text.begin(), text.end(), std::back_inserter(valid), kReplacement);
  std::u16string out;
  out.reserve(valid.size());
  utf8::unchecked::utf8to16(valid.begin(), valid.end(), std::back_inserter(out));
  return out;
}

std::string_view FirstCodePoints(std::string_view text, int count) {
  const char* at = text.data();
  const char* const end = at + text.size();
  for (int i = 0; i < count && at < end; ++i) utf8::unchecked::next(at);
  return text.substr(0, static_cast<std::size_t>(std::min(at, end) - text.data()));
}

}  // namespace base
