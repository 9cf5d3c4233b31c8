#include "export/sql_lists.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace wbexport::sql {
namespace {

struct Form {
  std::string_view middle;
  std::string_view word;
};
constexpr Form kForms[] = {{")::text = ANY ((ARRAY[", " IN ("},
                           {")::text <> ALL ((ARRAY[", " NOT IN ("}};
constexpr std::string_view kEnd = "])::text[])";
constexpr std::string_view kType = "::character varying";

// `'a', 'b'` of `'a'::character varying, 'b'::character varying])::text[])` at the place, which
// moves behind it; nothing where it is something else.
std::optional<std::string> ReadList(std::string_view text, std::size_t& at) {
  std::string list;
  std::size_t i = at;
  while (i < text.size() && text[i] == '\'') {
    const std::size_t begin = i++;
    while (i < text.size() && (text[i] != '\'' || text.substr(i, 2) == "''")) {
      i += text[i] == '\'' ? 2 : 1;
    }
    if (text.substr(++i < text.size() ? i : text.size(), kType.size()) != kType) break;
    list += (list.empty() ? "" : ", ") + std::string(text.substr(begin, i - begin));
    i += kType.size();
    if (text.substr(i, kEnd.size()) == kEnd) {
      at = i + kEnd.size();
      return list;
    }
    if (text.substr(i, 2) != ", ") break;
    i += 2;
  }
  return std::nullopt;
}

}  // namespace

std::string WithPlainLists(std::string_view text) {
  std::string plain;
  plain.reserve(text.size());
  char quote = 0;
  for (std::size_t i = 0; i < text.size();) {
    const char c = text[i];
    if (quote != 0 || c == '\'' || c == '"') {
      quote = quote == 0 ? c : quote == c ? '\0' : quote;
    } else if (c == ')') {
      const auto* form = std::find_if(std::begin(kForms), std::end(kForms), [&](const Form& each) {
        return text.substr(i, each.middle.size()) == each.middle;
      });
      if (form != std::end(kForms)) {
        std::size_t end = i + form->middle.size();
        if (const std::optional<std::string> list = ReadList(text, end)) {
          plain += ')' + std::string(form->word) + *list + ')';
          i = end;
          continue;
        }
      }
    }
    plain += c;
    ++i;
  }
  return plain;
}

}  // namespace wbexport::sql
