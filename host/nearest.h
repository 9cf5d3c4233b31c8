// What a user may have meant by a name that does not exist.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wbhost {

// At most three of `names` that `word` may be a slip of the keys for, the nearest first: letters
// left out, added, exchanged or swapped, upper and lower case not told apart; or one begins with
// the other. All UTF-8.
[[nodiscard]] std::vector<std::string> Nearest(std::string_view word,
                                               const std::vector<std::string>& names);

// `; did you mean 'a' or 'b'?`; where no name is near, the names of a short list, else nothing.
[[nodiscard]] std::string DidYouMean(std::string_view word, const std::vector<std::string>& names);

// The names of the entries of a table.
template <class Entries>
[[nodiscard]] std::vector<std::string> NamesOf(const Entries& entries) {
  std::vector<std::string> names;
  for (const auto& entry : entries) names.emplace_back(entry.name);
  return names;
}

}  // namespace wbhost
