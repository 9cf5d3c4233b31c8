#include "compare/lines.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>

#include "base/utf.h"
#include "compare/objects.h"
#include "compare/text.h"

namespace wbcompare {

namespace {

struct Reason {
  std::uint16_t evidence;
  const char* text;
};
constexpr std::array kReasons = {
    Reason{evAsked, "asked for"},
    Reason{evCase, "only upper and lower case differ"},
    Reason{evDefinition, "everything else is the same"},
    Reason{evText, "the same text"},
    Reason{evType, "the same type"},
    Reason{evPlace, "the same place"},
    Reason{evMoved, "the same name under another owner"},
    Reason{evName, "the names resemble each other"},
    Reason{evComment, "the same comment"},
};

bool IsTable(Object object) {
  return object == Object::kTable || object == Object::kView || object == Object::kSynonym;
}

// An owner that the compatible reading knows by its tables alone is told by one of them.
std::string NameOfOwner(const ObjectRef& ref) {
  const auto* const* table = std::get_if<const LcWorkbookTable*>(&ref);
  return table == nullptr ? NameOf(ref, ShownNames()) : base::ToUtf8((*table)->GetOwner(false));
}

std::string NameFor(const Change& change, const ObjectRef& ref) {
  if (change.object == Object::kOwner) return NameOfOwner(ref);
  return IsTable(change.object) ? std::string() : NameOf(ref, ShownNames());
}

std::optional<std::string> OptionIn(const ObjectRef& ref, const LcText& name) {
  const LcOptions* options = OptionsOf(ref);
  if (options == nullptr) return std::nullopt;
  const LcText value = options->Find(name.View());
  return value.IsPresent() ? std::optional(base::ToUtf8(value.View())) : std::nullopt;
}

void FillNames(const Change& change, Line& line) {
  const bool has_before = change.before.index() != 0;
  const bool has_after = change.after.index() != 0;
  line.name = NameFor(change, has_before ? change.before : change.after);
  if (has_before && has_after) line.new_name = NameFor(change, change.after);
  const LcWorkbookTable* before = change.old_table;
  const LcWorkbookTable* after = change.new_table;
  if (before == nullptr) std::swap(before, after);
  if (before != nullptr) {
    line.owner = base::ToUtf8(before->GetOwner(false));
    line.table = base::ToUtf8(before->GetName());
  } else if (change.object != Object::kOwner) {
    line.owner = OwnerOf(has_before ? change.before : change.after, ShownNames());
  }
  if (before != nullptr && after != nullptr) {
    line.new_owner = base::ToUtf8(after->GetOwner(false));
    // The compatible reading may tell no owners.
    if (line.new_owner.empty()) line.new_owner = line.owner;
    if (line.owner.empty()) line.owner = line.new_owner;
    line.new_table = base::ToUtf8(after->GetName());
  }
}

}  // namespace

std::string Lines::PlaceOf(const LcWorkbookColumn& column, const LcWorkbookTable*& table,
                           Places& places) {
  if (column.GetParentTable() != table) {
    table = column.GetParentTable();
    places.clear();
    for (int i = 0; i < table->GetColumnCount(); ++i) places.emplace(table->GetColumn(i), i);
  }
  const int place = places.at(&column);
  return place == 0 ? "first" : "after " + base::ToUtf8(table->GetColumn(place - 1)->GetName());
}

Line Lines::Describe(const Change& change) {
  Line line;
  FillNames(change, line);
  line.property = NameOf(change.property);
  if (change.action == Action::kAdded) line.to = SummaryOf(change.after);
  if (change.action == Action::kRemoved) line.from = SummaryOf(change.before);
  if (change.action == Action::kRenamed) {
    for (const Reason& reason : kReasons) {
      if ((change.evidence & reason.evidence) != 0) line.because.emplace_back(reason.text);
    }
    if ((change.evidence & evColumns) != 0) {
      line.because.push_back(
          fmt::format("{} of {} columns are the same", change.shared, change.all));
    }
    if ((change.evidence & evTables) != 0) {
      line.because.push_back(
          fmt::format("{} of {} tables have the same names", change.shared, change.all));
    }
  }
  if (change.action != Action::kChanged) return line;
  if (change.property == Property::kOption) {
    line.property += " " + base::ToUtf8(change.option.View());
    line.from = OptionIn(change.before, change.option);
    line.to = OptionIn(change.after, change.option);
  } else if (change.property == Property::kPlace) {
    line.from = PlaceOf(*std::get<const LcWorkbookColumn*>(change.before), old_table_, old_places_);
    line.to = PlaceOf(*std::get<const LcWorkbookColumn*>(change.after), new_table_, new_places_);
  } else {
    line.from = FactOf(change.before, change.property, ShownNames());
    line.to = FactOf(change.after, change.property, ShownNames());
  }
  line.is_text = change.property == Property::kText;
  return line;
}

std::string Plural(std::string word) {
  if (word == "index") return "indexes";
  if (word.back() == 'y' && word != "key" && word.find("key") == std::string::npos) {
    word.pop_back();
    return word + "ies";
  }
  return word + "s";
}

std::string Spoken(std::string word) {
  std::replace(word.begin(), word.end(), '-', ' ');
  return word;
}

std::string Subject(const Change& change, const Line& line) {
  std::string subject = Spoken(NameOf(change.object));
  const bool at_top = change.old_table == nullptr && change.new_table == nullptr;
  if (at_top && !line.owner.empty()) return subject + " " + Shown(line.owner + "." + line.name);
  return line.name.empty() ? subject : subject + " " + Shown(line.name);
}

std::string RenameText(const Change& change, const Line& line) {
  std::string to = line.new_name;
  if (IsTable(change.object)) {
    to = line.new_owner == line.owner ? line.new_table : line.new_owner + "." + line.new_table;
  }
  return fmt::format("{}renamed to {}: {}", change.guess ? "perhaps " : "",
                     to.empty() ? "no name" : Shown(to), Joined(line.because));
}

std::string Predicate(const Change& change, const Line& line) {
  switch (change.action) {
    case Action::kAdded:
      return line.to->empty() ? "added" : "added: " + Shown(*line.to);
    case Action::kRemoved:
      return line.from->empty() ? "removed" : "removed: " + Shown(*line.from);
    case Action::kRenamed:
      return RenameText(change, line);
    case Action::kChanged:
      break;
  }
  if (line.is_text) return Spoken(line.property) + " changed";
  return fmt::format("{} {} -> {}", Shown(Spoken(line.property)),
                     line.from ? Shown(*line.from) : "none", line.to ? Shown(*line.to) : "none");
}

std::string Heading(const Group& group, const Comparison& comparison) {
  if (group.old_table == nullptr && group.new_table == nullptr) {
    return Plural(Spoken(NameOf(comparison.changes[group.first].object)));
  }
  const auto shown = [](const LcWorkbookTable* table) {
    return table == nullptr ? std::string() : Shown(ShownNames().Table(*table));
  };
  std::string before = shown(group.old_table);
  std::string after = shown(group.new_table);
  if (group.old_table != nullptr && group.new_table != nullptr &&
      group.old_table->GetName() == group.new_table->GetName() &&
      (group.old_table->GetOwner(false).empty() || group.new_table->GetOwner(false).empty())) {
    return before.size() > after.size() ? before : after;
  }
  if (before.empty() || before == after) return after;
  return after.empty() ? before : before + " -> " + after;
}

std::string Summary(const Comparison& comparison) {
  if (!comparison.lead.empty()) return fmt::format("{}", fmt::join(comparison.lead, " "));
  if (comparison.changes.empty()) return "No differences";
  const std::size_t breaking = comparison.Count(Severity::kBreaking);
  const std::size_t careful = comparison.Count(Severity::kCareful);
  const std::size_t harmless = comparison.Count(Severity::kHarmless);
  std::string text = fmt::format("{} breaking, {} careful and {} harmless change{}", breaking,
                                 careful, harmless, comparison.changes.size() == 1 ? "" : "s");
  if (comparison.tables == 0) return text;
  return text + fmt::format(" in {} table{}", comparison.tables, comparison.tables == 1 ? "" : "s");
}

std::string UnknownText(const Unknown& unknown) {
  constexpr std::size_t kMostNames = 5;
  std::vector<std::string> names;
  for (const std::string& name : unknown.names) {
    if (names.size() == kMostNames) break;
    names.push_back(Shown(name));
  }
  std::string list = Joined(names);
  if (unknown.count > names.size())
    list += fmt::format(" and {} more", unknown.count - names.size());
  const std::string word = Spoken(NameOf(unknown.object));
  return fmt::format("{} {} not known on the {} side ({}): {}", unknown.count,
                     unknown.count == 1 ? word : Plural(word), unknown.old_side ? "old" : "new",
                     list, Shown(unknown.reason));
}

std::string SourceText(const LcWorkbookFileInfo& info) {
  std::string text =
      info.dbms_name.empty() ? "unknown server" : Shown(base::ToUtf8(info.dbms_name));
  if (info.dbms_version != 0) text += fmt::format(" {}", info.dbms_version);
  const std::string route = base::ToUtf8(info.route);
  if (!route.empty()) text += route == "exact" ? ", exact reading" : ", " + Shown(route) + " route";
  const std::u16string& database = info.title.empty() ? info.database : info.title;
  return database.empty() ? text : Shown(base::ToUtf8(database)) + ", " + text;
}

}  // namespace wbcompare
