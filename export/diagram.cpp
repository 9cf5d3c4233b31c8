#include "export/diagram.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/qualified_name.h"
#include "base/utf.h"

namespace wbexport {

namespace {

using TableSet = std::unordered_set<const LcWorkbookTable*>;

TableSet Neighbourhood(const Relationships& relationships, const LcWorkbookTable* middle,
                       int distance) {
  TableSet reached = {middle};
  std::vector<const LcWorkbookTable*> rim = {middle};
  for (int step = 0; step < distance && !rim.empty(); ++step) {
    std::vector<const LcWorkbookTable*> next;
    for (const LcWorkbookTable* table : rim) {
      for (const std::size_t at : relationships.From(*table)) {
        const LcWorkbookTable* to = relationships.All()[at].to;
        if (reached.insert(to).second) next.push_back(to);
      }
      for (const std::size_t at : relationships.To(*table)) {
        const LcWorkbookTable* from = relationships.All()[at].from;
        if (reached.insert(from).second) next.push_back(from);
      }
    }
    rim = std::move(next);
  }
  return reached;
}

TableSet MostConnected(const Relationships& relationships,
                       std::vector<const LcWorkbookTable*> tables) {
  const auto degree = [&](const LcWorkbookTable* table) {
    return relationships.From(*table).size() + relationships.To(*table).size();
  };
  std::stable_sort(tables.begin(), tables.end(),
                   [&](const auto* a, const auto* b) { return degree(a) > degree(b); });
  tables.resize(std::min(tables.size(), kLargestDiagram));
  return {tables.begin(), tables.end()};
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

bool SelectDiagram(const Document& document, const Options& options, Diagram& diagram,
                   std::vector<std::string>& notes) {
  const Relationships relationships(document.workbook);
  std::vector<const LcWorkbookTable*> all;
  for (const LcWorkbookTable* table : document.workbook.tables.Present()) all.push_back(table);
  TableSet shown(all.begin(), all.end());
  if (!options.around.empty()) {
    const LcWorkbookTable* middle = FindAround(document.workbook, options.around, notes);
    if (middle == nullptr) return false;
    shown = Neighbourhood(relationships, middle, options.distance);
  }
  if (document.info.incomplete) diagram.captions.push_back(IncompleteText(document.info));
  if (shown.size() > kLargestDiagram && !options.whole) {
    const std::size_t wanted = shown.size();
    std::vector<const LcWorkbookTable*> candidates;
    for (const LcWorkbookTable* table : all) {
      if (shown.count(table) != 0) candidates.push_back(table);
    }
    shown = MostConnected(relationships, std::move(candidates));
    const std::string left_out =
        fmt::format("{} of {} tables, those with the most relationships", shown.size(), wanted);
    diagram.captions.push_back(left_out);
    notes.push_back("The diagram shows " + left_out +
                    "; --around TABLE --distance N draws the surroundings of one, --whole all.");
  }
  for (const LcWorkbookTable* table : all) {
    if (shown.count(table) == 0) continue;
    diagram.numbers.emplace(table, diagram.tables.size());
    diagram.tables.push_back(table);
  }
  for (const Relationship& r : relationships.All()) {
    if (diagram.numbers.count(r.from) != 0 && diagram.numbers.count(r.to) != 0) {
      diagram.relationships.push_back(r);
      diagram.foreign.insert(r.from_columns.begin(), r.from_columns.end());
    }
  }
  return true;
}

const char* KeyMark(const LcWorkbookColumn& column, const Diagram& diagram) {
  const bool foreign = diagram.foreign.count(&column) != 0;
  if (column.IsPrimaryKey()) return foreign ? "PK,FK" : "PK";
  return foreign ? "FK" : "";
}

}  // namespace wbexport
