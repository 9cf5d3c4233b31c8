// Names of tables, views and synonyms as a user types them: `[OWNER.]NAME`.
#pragma once

#include <string>
#include <string_view>

namespace base {

struct QualifiedName {
  std::u16string owner;  // empty: none given
  std::u16string name;
  bool owner_quoted = false;  // it stood in double quotes
  bool name_quoted = false;
};
// Parts the text (UTF-8) at the first dot outside double quotes. A part that begins and ends with a
// double quote loses them; a doubled quote inside stands for one.
[[nodiscard]] QualifiedName ParseQualifiedName(std::string_view text);

// `owner.name`, or the name alone where there is no owner. For people: what needs quotes has none.
[[nodiscard]] std::string DisplayName(std::u16string_view owner, std::u16string_view name);

}  // namespace base
