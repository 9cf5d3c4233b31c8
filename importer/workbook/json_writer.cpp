#include "importer/workbook/json_writer.h"

#include "base/utf.h"

void JsonWriter::Text(std::u16string_view text) {
  static constexpr char kHex[] = "0123456789abcdef";
  if (text.empty() && Dropped()) return;
  Separate();
  buffer_ += '"';
  for (std::size_t at = 0; at < text.size();) {
    const char16_t c = text[at];
    if (c >= 0x80) {
      base::AppendUtf8(base::NextCodePoint(text, at), buffer_);
      continue;
    }
    ++at;
    if (c == u'"' || c == u'\\') {
      buffer_ += '\\';
      buffer_ += static_cast<char>(c);
    } else if (c >= 0x20) {
      buffer_ += static_cast<char>(c);
    } else if (c == u'\n') {
      buffer_ += "\\n";
    } else if (c == u'\t') {
      buffer_ += "\\t";
    } else {
      buffer_ += "\\u00";
      buffer_ += kHex[c >> 4];
      buffer_ += kHex[c & 15];
    }
  }
  buffer_ += '"';
}

void JsonWriter::Flush() {
  out_.write(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
  buffer_.clear();
}
