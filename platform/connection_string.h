// ODBC connection strings: KEYWORD=value;KEYWORD={value with ; and }} for a brace};...
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace platform {

class ConnectionString {
 public:
  // Takes any text: what is no keyword with a value is passed over.
  explicit ConnectionString(std::u16string_view text);

  // The value of the keyword without its braces, the first where a keyword comes twice, as the
  // driver manager has it. The case of `keyword` does not matter.
  std::optional<std::u16string> Find(std::u16string_view keyword) const;

 private:
  std::vector<std::pair<std::u16string, std::u16string>> entries_;
};

}  // namespace platform
