// The words for objects, properties, actions and severities.
#include <array>
#include <cstddef>

#include "compare/changes.h"

namespace wbcompare {

namespace {

// In the order of the enumerators.
constexpr std::array kObjects = {"database",   "owner",       "type",    "sequence", "routine",
                                 "table",      "view",        "synonym", "column",   "primary-key",
                                 "unique-key", "foreign-key", "index",   "check",    "trigger"};
constexpr std::array kProperties = {
    "",           "kind",      "text",      "target",     "partition-of", "data-type", "nullable",
    "default",    "identity",  "generated", "expression", "collation",    "read-only", "place",
    "columns",    "on-update", "on-delete", "match",      "deferrable",   "enforced",  "unique",
    "method",     "predicate", "timing",    "events",     "base-type",    "labels",    "attributes",
    "checks",     "start",     "increment", "minimum",    "maximum",      "cycle",     "owned-by",
    "parameters", "result",    "language",  "comment",    "option"};
constexpr std::array kActions = {"added", "removed", "changed", "renamed"};
constexpr std::array kSeverities = {"harmless", "careful", "breaking"};
static_assert(kObjects.size() == static_cast<std::size_t>(Object::kTrigger) + 1);
static_assert(kProperties.size() == static_cast<std::size_t>(Property::kOption) + 1);

template <class Words>
bool Holds(const Words& words, std::string_view wanted) {
  for (const char* word : words) {
    if (!wanted.empty() && word == wanted) return true;
  }
  return false;
}

}  // namespace

const char* NameOf(Object object) { return kObjects.at(static_cast<std::size_t>(object)); }
const char* NameOf(Property property) { return kProperties.at(static_cast<std::size_t>(property)); }
const char* NameOf(Action action) { return kActions.at(static_cast<std::size_t>(action)); }
const char* NameOf(Severity severity) { return kSeverities.at(static_cast<std::size_t>(severity)); }

bool IsIgnorable(std::string_view word) {
  const auto is_object = [](std::string_view name) {
    return name == "key" || Holds(kObjects, name);
  };
  if (is_object(word) || Holds(kProperties, word)) return true;
  const std::size_t dot = word.find('.');
  if (dot == std::string_view::npos || !is_object(word.substr(0, dot))) return false;
  const std::string_view rest = word.substr(dot + 1);
  return Holds(kProperties, rest) || Holds(kActions, rest);
}

std::string IgnorableWords() {
  std::string words = "key";
  for (const char* word : kObjects) words += std::string(", ") + word;
  for (const char* word : kProperties) {
    if (*word != '\0') words += std::string(", ") + word;
  }
  return words + ", and an object with a property or an action behind a dot";
}

}  // namespace wbcompare
