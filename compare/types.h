// Data types as servers spell them: "numeric(10,2)", "character varying(40)", "int unsigned",
// "enum('a','b')". Tells whether every value of one fits into another.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wbcompare {

enum class TypeChange {
  kNone,      // two spellings of one type
  kWidened,   // every value fits
  kNarrowed,  // of the same kind, but not every value fits
  kOther,     // another kind of type
};
[[nodiscard]] TypeChange CompareTypes(std::string_view from, std::string_view to);

// Whether a type as a driver tells it can be the one that the catalog tells. Drivers have names and
// sizes of their own: MariaDB's tells a varchar(40) as a CHAR of 160 bytes, SQLite's a NUMERIC as a
// DOUBLE. So only numbers, texts, bytes and times are told apart, and unknown types are anything.
[[nodiscard]] bool CanBeSameType(std::string_view a, std::string_view b);

}  // namespace wbcompare
