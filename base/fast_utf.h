// UTF-8 and UTF-16 for texts that come by the ten thousand and are ASCII, nearly all of them: the
// same result as the conversions of utf.h, into a string whose room is used again.
#pragma once

#include <string>
#include <string_view>

#include "base/utf.h"

namespace base {

inline void AssignUtf16(std::string_view text, std::u16string& out) {
  out.resize(text.size());
  unsigned char seen = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    seen = static_cast<unsigned char>(seen | byte);
    out[i] = byte;
  }
  if (seen >= 0x80) out = ToUtf16(text);
}

inline void AssignUtf8(std::u16string_view text, std::string& out) {
  out.resize(text.size());
  char16_t seen = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    seen = static_cast<char16_t>(seen | text[i]);
    out[i] = static_cast<char>(text[i]);
  }
  if (seen >= 0x80) out = ToUtf8(text);
}

}  // namespace base
