// Names as options give them.
#include "host/name_pattern.h"

#include <fmt/format.h>
#include <fnmatch.h>

#include "host/outcome.h"
#include "host/text.h"

namespace wbhost {

// Brackets and backslashes are no wildcards: names have them.
NamePattern::Part NamePattern::ReadPart(std::u16string plain, bool quoted) {
  Part part;
  part.quoted = quoted;
  for (const char c : ToUtf8(plain)) {
    const bool wild = (c == '*' || c == '?') && !part.quoted;
    if (!wild && std::string_view("*?[\\").find(c) != std::string_view::npos) part.glob += '\\';
    part.glob += c;
    part.wild = part.wild || wild;
  }
  part.plain = std::move(plain);
  return part;
}

bool NamePattern::Fits(const Part& part, std::u16string_view name, bool ignoring_case) {
  return fnmatch(part.glob.c_str(), ToUtf8(name).c_str(),
                 ignoring_case && !part.quoted ? FNM_CASEFOLD : 0) == 0;
}

NamePattern NamePattern::OfTable(const std::string& text, const char* option) {
  const QualifiedName parsed = ParseQualifiedName(text);
  if (parsed.name.empty()) {
    throw Failure(ExitCode::kUsage,
                  fmt::format("{}: '{}' has no name; it takes [OWNER.]NAME", option, text));
  }
  NamePattern pattern;
  pattern.text_ = text;
  pattern.option_ = option;
  pattern.has_owner_ = !parsed.owner.empty();
  pattern.owner_ = ReadPart(parsed.owner, parsed.owner_quoted);
  pattern.name_ = ReadPart(parsed.name, parsed.name_quoted);
  return pattern;
}

NamePattern NamePattern::OfName(const std::string& text, const char* option) {
  NamePattern pattern;
  pattern.text_ = text;
  pattern.option_ = option;
  const QualifiedName parsed = ParseQualifiedName(text);
  const bool quoted = parsed.name_quoted && parsed.owner.empty();
  pattern.name_ = ReadPart(quoted ? parsed.name : ToUtf16(text), quoted);
  return pattern;
}

bool NamePattern::Matches(std::u16string_view owner, std::u16string_view name,
                          bool ignoring_case) const {
  return (!has_owner_ || Fits(owner_, owner, ignoring_case)) && Fits(name_, name, ignoring_case);
}

}  // namespace wbhost
