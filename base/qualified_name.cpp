// Names as a user types them.
#include "base/qualified_name.h"

#include "base/utf.h"

namespace base {
namespace {

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

}  // namespace

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

}  // namespace base
