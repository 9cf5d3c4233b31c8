// See page_value.h.
#include "export/page_value.h"

namespace wbexport {

PageValue::PageValue(std::string_view utf8) : text_(1, '"'), kind_(kScalar) {
  constexpr std::string_view kHex = "0123456789abcdef";
  constexpr std::string_view kShort = "\b\f\n\r\t\"\\";
  constexpr std::string_view kLetters = "bfnrt\"\\";
  for (const char c : utf8) {
    const auto code = static_cast<unsigned char>(c);
    if (const std::size_t at = kShort.find(c); at != std::string_view::npos) {
      (text_ += '\\') += kLetters[at];
    } else if (code < 0x20 || c == '<') {
      (((text_ += "\\u00") += kHex[code >> 4U]) += kHex[code & 15U]);
    } else {
      text_ += c;
    }
  }
  text_ += '"';
}

void PageValue::AppendTo(std::string& out) const {
  switch (kind_) {
    case kNull:
      out += "null";
      break;
    case kScalar:
      out += text_;
      break;
    case kArray:
      ((out += '[') += text_) += ']';
      break;
    case kObject:
      ((out += '{') += text_) += '}';
      break;
  }
}

}  // namespace wbexport
