#include "importer/workbook/utf.h"

#include <utf8.h>

#include <iterator>

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsLead(char16_t c) { return c >= 0xD800 && c <= 0xDBFF; }
bool IsTrail(char16_t c) { return c >= 0xDC00 && c <= 0xDFFF; }

}  // namespace

char32_t LcNextCodePoint(std::u16string_view text, std::size_t& at) {
  const char16_t c = text[at++];
  if (!IsLead(c) && !IsTrail(c)) return c;
  if (IsTrail(c) || at == text.size() || !IsTrail(text[at])) return kReplacement;
  const char16_t trail = text[at++];
  return 0x10000U + ((static_cast<char32_t>(c) - 0xD800U) << 10U) +
         (static_cast<char32_t>(trail) - 0xDC00U);
}

void LcAppendUtf8(char32_t code_point, std::string& out) {
  const bool valid = code_point <= 0x10FFFF && !(code_point >= 0xD800 && code_point <= 0xDFFF);
  utf8::unchecked::append(valid ? code_point : kReplacement, std::back_inserter(out));
}

std::string LcToUtf8(std::u16string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    if (text[at] < 0x80) {
      out += static_cast<char>(text[at++]);
    } else {
      LcAppendUtf8(LcNextCodePoint(text, at), out);
    }
  }
  return out;
}

std::u16string LcToUtf16(std::string_view text) {
  std::string valid;
  valid.reserve(text.size());
  utf8::replace_invalid(text.begin(), text.end(), std::back_inserter(valid), kReplacement);
  std::u16string out;
  out.reserve(valid.size());
  utf8::unchecked::utf8to16(valid.begin(), valid.end(), std::back_inserter(out));
  return out;
}
