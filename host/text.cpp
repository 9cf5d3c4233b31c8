// Texts between the command line (UTF-8) and the module (UTF-16), and names as a user types them.
#include "host/text.h"

#include <utf8.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace wbhost {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

// A name as typed, without the quotes around it.
std::string Unquote(std::string_view part) {
  if (part.size() < 2 || part.front() != '"' || part.back() != '"') return std::string(part);
  std::string name;
  const std::string_view inside = part.substr(1, part.size() - 2);
  for (std::size_t i = 0; i < inside.size(); ++i) {
    name += inside[i];
    if (inside[i] == '"' && i + 1 < inside.size() && inside[i + 1] == '"') ++i;
  }
  return name;
}

char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

std::u16string ToUtf16(std::string_view utf8) {
  std::string valid;
  valid.reserve(utf8.size());
  utf8::replace_invalid(utf8.begin(), utf8.end(), std::back_inserter(valid), kReplacement);
  std::u16string utf16;
  utf16.reserve(valid.size());
  utf8::utf8to16(valid.begin(), valid.end(), std::back_inserter(utf16));
  return utf16;
}

std::string ToUtf8(std::u16string_view utf16) {
  std::string out;
  out.reserve(utf16.size());
  for (std::size_t i = 0; i < utf16.size(); ++i) {
    char32_t code = utf16[i];
    const bool has_next = i + 1 < utf16.size();
    if (code >= 0xD800 && code < 0xDC00 && has_next && utf16[i + 1] >= 0xDC00 &&
        utf16[i + 1] < 0xE000) {
      code = 0x10000 + ((code - 0xD800) << 10) + (static_cast<char32_t>(utf16[++i]) - 0xDC00);
    } else if (code >= 0xD800 && code < 0xE000) {
      code = kReplacement;
    }
    utf8::append(code, std::back_inserter(out));
  }
  return out;
}

QualifiedName ParseQualifiedName(std::string_view text) {
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '"') quoted = !quoted;
    if (text[i] == '.' && !quoted) {
      return {ToUtf16(Unquote(text.substr(0, i))), ToUtf16(Unquote(text.substr(i + 1)))};
    }
  }
  return {u"", ToUtf16(Unquote(text))};
}

std::string DisplayName(std::u16string_view owner, std::u16string_view name) {
  return owner.empty() ? ToUtf8(name) : ToUtf8(owner) + "." + ToUtf8(name);
}

std::string OneLine(std::string_view text) {
  std::string line(text);
  std::replace_if(
      line.begin(), line.end(),
      [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7f; }, ' ');
  return line;
}

std::optional<std::string> ReadWholeFile(const std::string& file) {
  std::error_code error;
  std::ifstream in(file, std::ios::binary);
  // A folder opens like a file and throws when it is read.
  if (!in || std::filesystem::is_directory(file, error)) return std::nullopt;
  std::string text{std::istreambuf_iterator<char>(in), {}};
  if (in.bad()) return std::nullopt;
  return text;
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return LowerAscii(x) == LowerAscii(y); });
}

}  // namespace wbhost
