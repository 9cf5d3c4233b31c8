#include "importer/workbook/json_writer.h"

#include <algorithm>

#include "base/utf.h"

namespace {

// The longest that a code unit becomes: \u001f.
constexpr std::size_t kLongest = 6;
// Code units of a text that room is made for at a time.
constexpr std::size_t kPiece = 4096;

bool IsPlain(char16_t c) { return c >= 0x20 && c < 0x80 && c != u'"' && c != u'\\'; }

char* PutEscaped(char16_t c, char* to) {
  static constexpr char kHex[] = "0123456789abcdef";
  *to++ = '\\';
  if (c == u'"' || c == u'\\') {
    *to++ = static_cast<char>(c);
  } else if (c == u'\n' || c == u'\t') {
    *to++ = c == u'\n' ? 'n' : 't';
  } else {
    for (const char digit : {'u', '0', '0', kHex[c >> 4], kHex[c & 15]}) *to++ = digit;
  }
  return to;
}

}  // namespace

void JsonWriter::Text(std::u16string_view text) {
  if (text.empty() && Dropped()) return;
  Separate();
  Put('"');
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.size(), at + kPiece);
    char* to = Reserve((end - at) * kLongest);
    while (at < end) {
      const char16_t c = text[at];
      if (IsPlain(c)) {
        *to++ = static_cast<char>(c);
        ++at;
      } else if (c >= 0x80) {
        to = base::PutUtf8(base::NextCodePoint(text, at), to);
      } else {
        to = PutEscaped(c, to);
        ++at;
      }
    }
    Took(to);
    if (size_ >= kFlushAt) Flush();
  }
  Put('"');
}

void JsonWriter::Flush() {
  if (out_ == nullptr) return;
  out_->write(buffer_.data(), static_cast<std::streamsize>(size_));
  size_ = 0;
}
