// See json_text.h. Written by hand because every cell of a schema passes here.
#include "recording/json_text.h"

#include <utf8.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>

namespace recording {
namespace {

constexpr char kDigits[] = "0123456789abcdef";

bool NeedsEscape(char c) { return static_cast<unsigned char>(c) < 0x20 || c == '"' || c == '\\'; }

void AppendEscaped(char c, std::string& line) {
  switch (c) {
    case '"':
      line += "\\\"";
      break;
    case '\\':
      line += "\\\\";
      break;
    case '\n':
      line += "\\n";
      break;
    case '\t':
      line += "\\t";
      break;
    case '\r':
      line += "\\r";
      break;
    default:
      line += "\\u00";
      line += kDigits[static_cast<unsigned char>(c) >> 4];
      line += kDigits[c & 15];
  }
}

}  // namespace

bool AppendUtf8(std::u16string_view text, std::string& out) {
  const auto first_wide =
      std::find_if(text.begin(), text.end(), [](char16_t unit) { return unit >= 0x80; });
  const std::size_t at = out.size();
  out.resize(at + static_cast<std::size_t>(first_wide - text.begin()));
  std::transform(text.begin(), first_wide, out.begin() + static_cast<std::ptrdiff_t>(at),
                 [](char16_t unit) { return static_cast<char>(unit); });
  if (first_wide == text.end()) return true;
  try {
    utf8::utf16to8(first_wide, text.end(), std::back_inserter(out));
    return true;
  } catch (const utf8::exception&) {
    return false;
  }
}

bool IsUtf8(std::string_view text) {
  const auto first_wide = std::find_if(
      text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
  return first_wide == text.end() || utf8::is_valid(first_wide, text.end());
}

void AppendNumber(std::int64_t number, std::string& line) {
  std::array<char, 24> digits;
  const auto end = std::to_chars(digits.begin(), digits.end(), number).ptr;
  line.append(digits.begin(), end);
}

void AppendString(std::string_view text, std::string& line) {
  line += '"';
  while (!text.empty()) {
    const auto special = std::find_if(text.begin(), text.end(), NeedsEscape);
    line.append(text.begin(), special);
    if (special == text.end()) break;
    AppendEscaped(*special, line);
    text.remove_prefix(static_cast<std::size_t>(special - text.begin()) + 1);
  }
  line += '"';
}

void AppendHex(std::string_view bytes, std::string& line) {
  line += '"';
  for (const char c : bytes) {
    line += kDigits[static_cast<unsigned char>(c) >> 4];
    line += kDigits[c & 15];
  }
  line += '"';
}

}  // namespace recording
