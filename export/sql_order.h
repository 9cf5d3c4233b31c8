// The order in which things that mention one another can be created.
#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace wbexport::sql {

// A thing to be created: the name that others mention it by, and the text in which it may mention
// others.
struct Mentioning {
  std::u16string name;  // without its schema
  std::u16string text;
};

// Positions of the things, each after those that it mentions, and otherwise in the order given. A
// mention is the name as a whole word, case ignored, wherever it stands: one too many costs
// nothing but the place. Things that mention each other in a circle keep the order given.
// Linear in the texts.
[[nodiscard]] std::vector<std::size_t> OrderByMentions(const std::vector<Mentioning>& things);

// A name as it is looked for: ASCII letters in lower case.
[[nodiscard]] std::u16string Lowered(std::u16string_view text);
// Whether the text mentions one of the names, which are lowered.
[[nodiscard]] bool MentionsAny(std::u16string_view text, const std::set<std::u16string>& names);

}  // namespace wbexport::sql
