// Names as a user types them.
#include "base/qualified_name.h"

#include "base/utf.h"

namespace base {
namespace {

bool IsQuoted(std::string_view part) {
  return part.size() >= 2 && part.front() == '"' && part.back() == '"';
}

std::u16string Unquote(std::string_view part) {
  if (!IsQuoted(part)) return ToUtf16(part);
  std::string name;
  const std::string_view inside = part.substr(1, part.size() - 2);
  for (std::size_t i = 0; i < inside.size(); ++i) {
    name += inside[i];
    if (inside[i] == '"' && i + 1 < inside.size() && inside[i + 1] == '"') ++i;
  }
  return ToUtf16(name);
}

}  // namespace

QualifiedName ParseQualifiedName(std::string_view text) {
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '"') quoted = !quoted;
    if (text[i] != '.' || quoted) continue;
    const std::string_view owner = text.substr(0, i);
    const std::string_view name = text.substr(i + 1);
    return {Unquote(owner), Unquote(name), IsQuoted(owner), IsQuoted(name)};
  }
  return {u"", Unquote(text), false, IsQuoted(text)};
}

std::string DisplayName(std::u16string_view owner, std::u16string_view name) {
  return owner.empty() ? ToUtf8(name) : ToUtf8(owner) + "." + ToUtf8(name);
}

}  // namespace base
