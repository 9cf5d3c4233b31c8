// Layers for the tables of a diagram: a table stands behind those that it refers to, and a layer
// that would be taller than the picture is wide is split. Graphviz alone puts the fifty tables that
// refer to one into a single column.
#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <utility>

#include "export/diagram.h"

namespace wbexport {

namespace {

// Points that Graphviz takes for a row of a table, and for the width of a table with its gap.
constexpr double kRowHeight = 19;
constexpr double kTableGap = 22;
constexpr double kTableWidth = 320;

using Links = std::vector<std::vector<std::size_t>>;

// The longest way from a table that refers to nothing. A line that would close a circle is left
// out. Without recursion: a chain may be long.
std::vector<int> LongestWays(const Links& referenced) {
  enum class State : std::uint8_t { kNew, kOpen, kDone };
  struct Step {
    std::size_t table;
    std::size_t next = 0;
  };
  std::vector<State> states(referenced.size(), State::kNew);
  std::vector<int> ways(referenced.size(), 0);
  for (std::size_t start = 0; start < referenced.size(); ++start) {
    if (states[start] != State::kNew) continue;
    std::vector<Step> stack = {{start}};
    states[start] = State::kOpen;
    while (!stack.empty()) {
      Step& top = stack.back();
      if (top.next == referenced[top.table].size()) {
        states[top.table] = State::kDone;
        const int way = ways[top.table];
        stack.pop_back();
        if (!stack.empty()) ways[stack.back().table] = std::max(ways[stack.back().table], way + 1);
        continue;
      }
      const std::size_t next = referenced[top.table][top.next++];
      if (states[next] == State::kDone) {
        ways[top.table] = std::max(ways[top.table], ways[next] + 1);
      } else if (states[next] == State::kNew) {
        states[next] = State::kOpen;
        stack.push_back({next});
      }
    }
  }
  return ways;
}

double HeightOf(const LcWorkbookTable& table, const Diagram& diagram) {
  const std::size_t shown = ShownColumns(table, diagram).size();
  const bool rest = !RestOf(table, diagram, shown).empty();
  return (static_cast<double>(shown) + (rest ? 2 : 1)) * kRowHeight + kTableGap;
}

// Half of the tables that a table alone relates to stand on its other side, where there are many.
void ReverseHalf(const Diagram& diagram, const std::vector<DiagramLine>& lines,
                 const std::vector<std::size_t>& degrees, std::vector<LineCourse>& courses) {
  constexpr std::size_t kMany = 6;
  std::unordered_map<std::size_t, std::vector<std::size_t>> leaves;  // lines, by the table
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::size_t from = diagram.numbers.at(lines[i].first->from);
    const std::size_t to = diagram.numbers.at(lines[i].first->to);
    if (from != to && degrees[from] == 1) leaves[to].push_back(i);
  }
  for (const auto& [table, of_table] : leaves) {
    if (of_table.size() < kMany) continue;
    for (std::size_t n = 0; n < of_table.size() / 2; ++n) courses[of_table[n]].is_reversed = true;
  }
}

// The layer of each table: by the longest way, where that layer is not too tall.
std::vector<int> ChooseLayers(const Diagram& diagram, const std::vector<int>& ways,
                              const std::vector<std::size_t>& degrees) {
  double area = 0;
  std::vector<std::vector<std::size_t>> layers;
  std::vector<double> heights(ways.size(), 0);
  for (std::size_t i = 0; i < ways.size(); ++i) {
    if (degrees[i] == 0) continue;  // packed apart
    heights[i] = HeightOf(*diagram.tables[i], diagram);
    area += heights[i] * kTableWidth;
    const auto way = static_cast<std::size_t>(ways[i]);
    if (layers.size() <= way) layers.resize(way + 1);
    layers[way].push_back(i);
  }
  const double tallest = std::max(std::sqrt(area) * 0.6, 500.0);
  std::vector<int> layer_of(ways.size(), 0);
  int next = 0;
  for (std::vector<std::size_t>& layer : layers) {
    double height = 0;
    for (const std::size_t i : layer) height += heights[i];
    const auto pieces = static_cast<std::size_t>(std::max(1.0, std::round(height / tallest)));
    // Those with few lines stand nearest.
    std::stable_sort(layer.begin(), layer.end(),
                     [&](std::size_t a, std::size_t b) { return degrees[a] < degrees[b]; });
    for (std::size_t n = 0; n < layer.size(); ++n) {
      layer_of[layer[n]] = next + static_cast<int>(n * pieces / layer.size());
    }
    next += static_cast<int>(pieces);
  }
  return layer_of;
}

}  // namespace

std::vector<LineCourse> LineCourses(const Diagram& diagram, const std::vector<DiagramLine>& lines) {
  std::vector<LineCourse> courses(lines.size());
  std::vector<std::size_t> degrees(diagram.tables.size(), 0);
  for (const DiagramLine& line : lines) {
    ++degrees[diagram.numbers.at(line.first->from)];
    ++degrees[diagram.numbers.at(line.first->to)];
  }
  ReverseHalf(diagram, lines, degrees, courses);
  const auto ends = [&](std::size_t i) {
    const std::size_t from = diagram.numbers.at(lines[i].first->from);
    const std::size_t to = diagram.numbers.at(lines[i].first->to);
    return courses[i].is_reversed ? std::pair(to, from) : std::pair(from, to);
  };
  Links referenced(diagram.tables.size());
  for (std::size_t i = 0; i < lines.size(); ++i)
    referenced[ends(i).first].push_back(ends(i).second);
  const std::vector<int> layers = ChooseLayers(diagram, LongestWays(referenced), degrees);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    courses[i].length = std::max(1, layers[ends(i).first] - layers[ends(i).second]);
  }
  return courses;
}

}  // namespace wbexport
