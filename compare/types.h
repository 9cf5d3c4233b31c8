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
TypeChange CompareTypes(std::string_view from, std::string_view to);

// Whether a type as a driver tells it can be the one that the catalog tells, which is often more
// exact: a size that one of them leaves out, and a name that is not known, speak against nothing.
bool CanBeSameType(std::string_view a, std::string_view b);

}  // namespace wbcompare
