#include "compare/readings.h"

#include <fmt/format.h>

#include <map>
#include <utility>

#include "base/letters.h"
#include "compare/lines.h"

namespace wbcompare {

namespace {

// Properties whose words for programs say little to people.
std::string Word(Property property) {
  switch (property) {
    case Property::kColumns:
      return "column list";
    case Property::kNullable:
      return "nullability";
    case Property::kOnUpdate:
      return "update action";
    case Property::kOnDelete:
      return "delete action";
    case Property::kMatch:
      return "match rule";
    case Property::kDeferrable:
      return "deferrability";
    case Property::kEnforced:
      return "enforcement";
    case Property::kUnique:
      return "uniqueness";
    case Property::kCycle:
      return "cycling";
    case Property::kOwnedBy:
      return "owner";
    default:
      return Spoken(NameOf(property));
  }
}

std::string Counted(const ReadingCount& kind, std::size_t count) {
  std::string words = Spoken(NameOf(kind.object));
  if (kind.property != Property::kNone) words += " " + Word(kind.property);
  // "type labels" are several already.
  if (count != 1 && !words.ends_with('s')) words = Plural(words);
  return fmt::format("{} {}", count, words);
}

std::string Listed(const std::vector<std::string>& parts) {
  std::string text;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (i > 0) text += i + 1 == parts.size() ? " and " : ", ";
    text += parts[i];
  }
  return text;
}

std::string Capital(std::string text) {
  if (!text.empty()) text[0] = base::UpperAscii(text[0]);
  return text;
}

}  // namespace

std::vector<ReadingCount> CountByKind(const std::vector<Change>& changes) {
  std::map<std::pair<Object, Property>, ReadingCount> kinds;
  Lines lines;
  for (const Change& change : changes) {
    const Property property = change.action == Action::kChanged ? change.property : Property::kNone;
    ReadingCount& kind = kinds[{change.object, property}];
    kind.object = change.object;
    kind.property = property;
    bool old_has = change.action != Action::kAdded;
    bool new_has = change.action != Action::kRemoved;
    if (change.action == Action::kChanged) {
      const Line line = lines.Describe(change);
      old_has = line.from.has_value();
      new_has = line.to.has_value();
    }
    ++(!old_has ? kind.old_lacks : !new_has ? kind.new_lacks : kind.differ);
  }
  std::vector<ReadingCount> counts;
  counts.reserve(kinds.size());
  for (const auto& [key, kind] : kinds) counts.push_back(kind);
  return counts;
}

std::vector<std::string> LeadOf(const std::vector<Change>& changes, const Readings& readings) {
  const auto listed = [counts = CountByKind(changes)](std::size_t ReadingCount::*count) {
    std::vector<std::string> parts;
    for (const ReadingCount& kind : counts) {
      if (kind.*count > 0) parts.push_back(Counted(kind, kind.*count));
    }
    return Listed(parts);
  };
  std::vector<std::string> sentences;
  const auto say = [&sentences](const std::string& beginning, const std::string& list) {
    if (!list.empty()) sentences.push_back(Capital(beginning + " " + list + "."));
  };
  say(readings.old_name + " lacks", listed(&ReadingCount::old_lacks));
  say(readings.new_name + " lacks", listed(&ReadingCount::new_lacks));
  say("they differ in", listed(&ReadingCount::differ));
  if (sentences.empty()) {
    sentences.push_back(
        Capital(readings.old_name + " and " + readings.new_name + " tell the same."));
  }
  return sentences;
}

}  // namespace wbcompare
