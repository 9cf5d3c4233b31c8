// See json_text.h. Written by hand because every cell of a schema passes here.
#include "recording/json_text.h"

#include <utf8.h>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <iterator>

namespace recording {
namespace {

constexpr char kDigits[] = "0123456789abcdef";

bool NeedsEscape(char c) { return static_cast<unsigned char>(c) < 0x20 || c == '"' || c == '\\'; }

void AppendEscaped(char c, Bytes& line) {
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

// Not zero where one of the eight bytes is no ASCII or needs an escape. Bytes before such a one
// may be taken for one as well, which makes no difference.
std::uint64_t SpecialBytes(std::uint64_t word) {
  constexpr std::uint64_t kOnes = 0x0101010101010101;
  const std::uint64_t control = word - kOnes * 0x20;
  const std::uint64_t quote = (word ^ kOnes * '"') - kOnes;
  const std::uint64_t backslash = (word ^ kOnes * '\\') - kOnes;
  return (word | control | quote | backslash) & kOnes * 0x80;
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

void AppendNumber(std::int64_t number, Bytes& line) {
  constexpr std::size_t kMost = 24;
  char* const at = line.Room(kMost);
  line.EndAt(std::to_chars(at, at + kMost, number).ptr);
}

void AppendString(std::string_view text, Bytes& line) {
  line += '"';
  while (!text.empty()) {
    const auto special = std::find_if(text.begin(), text.end(), NeedsEscape);
    const auto plain = static_cast<std::size_t>(special - text.begin());
    line += text.substr(0, plain);
    if (special == text.end()) break;
    AppendEscaped(*special, line);
    text.remove_prefix(plain + 1);
  }
  line += '"';
}

bool AppendPlainString(std::string_view text, Bytes& line) {
  char* at = line.Room(text.size() + 2);
  *at++ = '"';
  const char* from = text.data();
  const char* const end = from + text.size();
  constexpr std::size_t kWord = sizeof(std::uint64_t);
  std::uint64_t word = 0;
  std::uint64_t special = 0;
  if (text.size() >= kWord) {
    for (; from + kWord <= end; from += kWord, at += kWord) {
      std::memcpy(&word, from, kWord);
      special |= SpecialBytes(word);
      std::memcpy(at, &word, kWord);
    }
    // The last word once more, from where it is whole.
    at -= from + kWord - end;
    from = end - kWord;
    std::memcpy(&word, from, kWord);
    special |= SpecialBytes(word);
    std::memcpy(at, &word, kWord);
    at += kWord;
    if (special != 0) return false;
  } else {
    for (; from != end; ++from) {
      if (static_cast<unsigned char>(*from) >= 0x80 || NeedsEscape(*from)) return false;
      *at++ = *from;
    }
  }
  *at++ = '"';
  line.EndAt(at);
  return true;
}

bool AppendPlainString(std::u16string_view text, Bytes& line) {
  char* at = line.Room(text.size() + 2);
  *at++ = '"';
  for (const char16_t unit : text) {
    if (unit >= 0x80 || NeedsEscape(static_cast<char>(unit))) return false;
    *at++ = static_cast<char>(unit);
  }
  *at++ = '"';
  line.EndAt(at);
  return true;
}

void AppendHex(std::string_view bytes, Bytes& line) {
  line += '"';
  for (const char c : bytes) {
    line += kDigits[static_cast<unsigned char>(c) >> 4];
    line += kDigits[c & 15];
  }
  line += '"';
}

}  // namespace recording
