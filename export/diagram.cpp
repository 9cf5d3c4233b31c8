#include "export/diagram.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/qualified_name.h"
#include "base/utf.h"

namespace wbexport {

namespace {

// Rows of a picture that is still read at a glance: with more, only keys or only names are drawn.
constexpr std::size_t kMostRows = 220;
// Columns shown of a table, unless the whole is asked for.
constexpr std::size_t kMostColumns = 60;
// Beyond this many relationships there is one line for each pair of tables.
constexpr std::size_t kMostLines = 250;

using TableList = std::vector<const LcWorkbookTable*>;

// Chooses the tables of a diagram, and says what is left out.
struct Selection {
  const Relationships& relationships;
  const Facts& facts;
  const Options& options;
  Diagram& diagram;
  std::vector<std::string>& notes;

  std::size_t Degree(const LcWorkbookTable* table) const {
    return relationships.From(*table).size() + relationships.To(*table).size();
  }

  // Those with the most relationships first.
  void Sort(TableList::iterator begin, TableList::iterator end) const {
    std::stable_sort(begin, end,
                     [&](const auto* a, const auto* b) { return Degree(a) > Degree(b); });
  }

  TableList ChooseAll(const LcWorkbook& workbook) {
    TableList all;
    for (const LcWorkbookTable* table : workbook.tables.Present()) {
      if (!facts.IsFolded(*table)) all.push_back(table);
    }
    if (all.size() <= kLargestDiagram || options.whole) return all;
    Sort(all.begin(), all.end());
    Cut(all, kLargestDiagram, "",
        "--around TABLE --distance N draws the surroundings of one, --whole all.");
    return all;
  }

  // The nearest first, of each ring those that weigh most.
  TableList ChooseAround() {
    TableList all = {diagram.middle};
    std::unordered_set<const LcWorkbookTable*> reached = {diagram.middle};
    TableList rim = all;
    std::size_t nearest = 0;
    for (int step = 0; step < options.distance && !rim.empty(); ++step) {
      rim = NextRim(rim, reached);
      if (step == 0) nearest = rim.size();
      all.insert(all.end(), rim.begin(), rim.end());
    }
    const std::size_t most =
        std::min(kLargestDiagram, nearest > kMostNeighbours ? kMostNeighbours + 1 : all.size());
    if (all.size() > most && !options.whole) {
      Cut(all, most, " around " + DisplayName(*diagram.middle), "--whole draws all.");
    }
    return all;
  }

 private:
  TableList NextRim(const TableList& rim, std::unordered_set<const LcWorkbookTable*>& reached) {
    TableList next;
    const auto reach = [&](const LcWorkbookTable* table) {
      if (!facts.IsFolded(*table) && reached.insert(table).second) next.push_back(table);
    };
    for (const LcWorkbookTable* table : rim) {
      for (const std::size_t at : relationships.From(*table)) reach(relationships.All()[at].to);
      for (const std::size_t at : relationships.To(*table)) reach(relationships.All()[at].from);
    }
    Sort(next.begin(), next.end());
    return next;
  }

  void Cut(TableList& tables, std::size_t most, const std::string& where, const char* how) {
    const std::string left_out = fmt::format("{} of {} tables{}, those with the most relationships",
                                             most, tables.size(), where);
    tables.resize(most);
    diagram.captions.push_back(left_out);
    notes.push_back("The diagram shows " + left_out + "; " + how);
  }
};

void Fill(Diagram& diagram, const TableList& shown, const LcWorkbook& workbook,
          const Relationships& relationships) {
  const std::unordered_set<const LcWorkbookTable*> chosen(shown.begin(), shown.end());
  for (const LcWorkbookTable* table : workbook.tables.Present()) {
    if (chosen.count(table) == 0) continue;
    diagram.numbers.emplace(table, diagram.tables.size());
    diagram.tables.push_back(table);
    const LcTableDetails* details = table->GetDetails();
    if (details == nullptr) continue;
    for (const LcOutsideKey& key : details->outside_keys) {
      diagram.foreign.insert(key.columns.begin(), key.columns.end());
    }
  }
  for (const Relationship& r : relationships.All()) {
    if (chosen.count(r.from) == 0) continue;
    diagram.foreign.insert(r.from_columns.begin(), r.from_columns.end());
    if (chosen.count(r.to) != 0) diagram.relationships.push_back(r);
    if (r.from != r.to) continue;
    diagram.looping_tables.insert(r.from);
    diagram.looping.insert(r.from_columns.begin(), r.from_columns.end());
  }
}

std::size_t RowsAt(Diagram& diagram, Detail detail) {
  diagram.detail = detail;
  std::size_t rows = 0;
  for (const LcWorkbookTable* table : diagram.tables) rows += ShownColumns(*table, diagram).size();
  return rows;
}

}  // namespace

const LcWorkbookTable* FindAround(const LcWorkbook& workbook, const std::string& text,
                                  std::vector<std::string>& notes) {
  const base::QualifiedName wanted = base::ParseQualifiedName(text);
  const LcWorkbookTable* table = workbook.tables.FindTableNoOwner(base::ToUtf16(text));
  if (table == nullptr) table = workbook.tables.FindTable(wanted.owner, wanted.name);
  if (table == nullptr && wanted.owner.empty()) {
    table = workbook.tables.FindTableNoOwner(wanted.name);
  }
  if (table == nullptr) {
    notes.push_back(fmt::format("There is no table \"{}\" to draw the surroundings of.",
                                Display(base::ToUtf16(text))));
  }
  return table;
}

bool HasTableToDrawAround(const LcWorkbook& workbook, const std::string& around) {
  std::vector<std::string> notes;
  return FindAround(workbook, around, notes) != nullptr;
}

bool SelectDiagram(const Document& document, const Options& options, Diagram& diagram,
                   std::vector<std::string>& notes) {
  const Relationships relationships(document.workbook);
  const Facts facts(document);
  diagram.title = SourceText(document.info);
  diagram.all_rows = options.whole;
  for (const LcNotRead& missing : document.workbook.details.not_read) {
    diagram.comments.push_back("Not read: " + Facts::OfNotRead(missing));
  }
  if (document.info.incomplete) diagram.captions.push_back(IncompleteText(document.info));
  Selection selection{relationships, facts, options, diagram, notes};
  TableList shown;
  if (options.around.empty()) {
    shown = selection.ChooseAll(document.workbook);
  } else {
    diagram.middle = FindAround(document.workbook, options.around, notes);
    if (diagram.middle == nullptr) return false;
    shown = selection.ChooseAround();
  }
  Fill(diagram, shown, document.workbook, relationships);
  for (const LcWorkbookTable* table : diagram.tables) {
    const std::size_t parts = facts.PartsOf(*table).size();
    if (parts != 0) diagram.parts.emplace(table, parts);
  }
  diagram.detail = options.detail;
  if (options.detail != Detail::kAuto || RowsAt(diagram, Detail::kFull) <= kMostRows) return true;
  const bool keys = RowsAt(diagram, Detail::kKeys) <= kMostRows;
  if (!keys) diagram.detail = Detail::kNames;
  notes.push_back(
      fmt::format("The diagram shows {} of each table; --detail full draws all columns.",
                  keys ? "the keys" : "the name"));
  return true;
}

void KeepMostConnected(Diagram& diagram, std::size_t most) {
  if (diagram.tables.size() <= most) return;
  std::unordered_map<const LcWorkbookTable*, std::size_t> degrees;
  for (const Relationship& r : diagram.relationships) {
    ++degrees[r.from];
    ++degrees[r.to];
  }
  if (diagram.middle != nullptr) degrees[diagram.middle] = diagram.relationships.size() * 2 + 1;
  TableList kept = diagram.tables;
  std::stable_sort(kept.begin(), kept.end(),
                   [&](const auto* a, const auto* b) { return degrees[a] > degrees[b]; });
  kept.resize(most);
  const std::unordered_set<const LcWorkbookTable*> chosen(kept.begin(), kept.end());
  std::erase_if(diagram.tables, [&](const auto* table) { return chosen.count(table) == 0; });
  std::erase_if(diagram.relationships, [&](const Relationship& r) {
    return chosen.count(r.from) == 0 || chosen.count(r.to) == 0;
  });
  diagram.numbers.clear();
  for (const LcWorkbookTable* table : diagram.tables) {
    diagram.numbers.emplace(table, diagram.numbers.size());
  }
}

std::vector<const LcWorkbookColumn*> ShownColumns(const LcWorkbookTable& table,
                                                  const Diagram& diagram) {
  std::vector<const LcWorkbookColumn*> shown;
  if (diagram.detail == Detail::kNames) return shown;
  for (int i = 0; i < table.GetColumnCount(); ++i) {
    const LcWorkbookColumn* column = table.GetColumn(i);
    const bool wanted =
        diagram.detail == Detail::kFull || column->IsPrimaryKey() || diagram.foreign.count(column);
    if (!wanted) continue;
    shown.push_back(column);
    if (!diagram.all_rows && shown.size() == kMostColumns) break;
  }
  return shown;
}

std::string RestOf(const LcWorkbookTable& table, const Diagram& diagram, std::size_t shown) {
  std::string rest;
  const std::size_t hidden = static_cast<std::size_t>(table.GetColumnCount()) - shown;
  if (hidden != 0 && diagram.detail != Detail::kNames) {
    rest = shown == 0 ? Count(hidden, "column", "columns")
                      : Count(hidden, "more column", "more columns");
  }
  const auto parts = diagram.parts.find(&table);
  if (parts == diagram.parts.end()) return rest;
  return rest + (rest.empty() ? "" : ", ") + Count(parts->second, "partition", "partitions");
}

const char* KeyMark(const LcWorkbookColumn& column, const Diagram& diagram) {
  const bool foreign = diagram.foreign.count(&column) != 0;
  if (column.IsPrimaryKey()) return foreign ? "PK,FK" : "PK";
  return foreign ? "FK" : "";
}

std::vector<DiagramLine> Lines(const Diagram& diagram) {
  std::vector<DiagramLine> lines;
  const bool merged = diagram.detail == Detail::kNames || diagram.relationships.size() > kMostLines;
  std::unordered_map<std::size_t, std::size_t> of_pair;
  for (const Relationship& r : diagram.relationships) {
    if (merged) {
      const std::size_t pair =
          diagram.numbers.at(r.from) * diagram.tables.size() + diagram.numbers.at(r.to);
      const auto [at, is_new] = of_pair.try_emplace(pair, lines.size());
      if (!is_new) {
        ++lines[at->second].count;
        continue;
      }
    }
    lines.push_back({&r});
  }
  return lines;
}

bool IsMap(const Diagram& diagram, const std::vector<DiagramLine>& lines) {
  constexpr std::size_t kMostLayered = 120;
  constexpr std::size_t kMostLinesOfTable = 4;
  if (diagram.detail != Detail::kNames) return false;
  return diagram.is_map || diagram.tables.size() > kMostLayered ||
         lines.size() > diagram.tables.size() * kMostLinesOfTable;
}

std::string DescribeRelationship(const Relationship& r) {
  std::string text =
      fmt::format("{} ({}) -> {} ({})", DisplayName(*r.from), DisplayColumns(r.from_columns),
                  DisplayName(*r.to), DisplayColumns(r.to_columns));
  if (r.details == nullptr) return text;
  text += Facts::OfReference(r.details);
  if (r.details->name.IsPresent()) text += ", named " + Display(r.details->name.View());
  return text;
}

}  // namespace wbexport
