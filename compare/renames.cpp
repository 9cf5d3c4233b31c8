#include "compare/renames.h"

#include <algorithm>
#include <functional>
#include <unordered_map>

#include "base/ascii.h"
#include "base/utf.h"
#include "compare/changes.h"
#include "compare/objects.h"

namespace wbcompare {

namespace {

// What a pair has to reach, and by how much it has to be likelier than the next.
constexpr double kEnough = 0.7;
constexpr double kMargin = 0.05;
constexpr double kResembling = 0.5;
// What more tables have than this tells none of them.
constexpr std::size_t kFewTables = 4;
// Larger tables are compared in their places alone.
constexpr std::size_t kMostPairs = 4096;

struct Candidate {
  std::size_t before = 0;
  std::size_t after = 0;
  double score = 0;
  RenameGuess guess;
};

// The likeliest and the next likeliest score of everything.
struct Best {
  double first = 0;
  double second = 0;
  void Take(double score) {
    second = std::max(second, std::min(first, score));
    first = std::max(first, score);
  }
  bool IsClear(double score) const { return score == first && first >= second + kMargin; }
};

std::vector<RenameGuess> PickClear(const std::vector<Candidate>& candidates) {
  std::unordered_map<std::size_t, Best> of_before;
  std::unordered_map<std::size_t, Best> of_after;
  for (const Candidate& candidate : candidates) {
    of_before[candidate.before].Take(candidate.score);
    of_after[candidate.after].Take(candidate.score);
  }
  std::vector<RenameGuess> picked;
  for (const Candidate& candidate : candidates) {
    if (candidate.score >= kEnough && of_before[candidate.before].IsClear(candidate.score) &&
        of_after[candidate.after].IsClear(candidate.score)) {
      picked.push_back(candidate.guess);
    }
  }
  return picked;
}

// Small letters and digits: order_items is OrderItems.
std::string Bare(const std::string& name) {
  std::string bare;
  for (const char c : base::LowerAscii(name)) {
    if (c != '_' && c != '-' && c != ' ' && c != '$') bare += c;
  }
  return bare;
}

std::size_t HashOf(const std::string& text) { return std::hash<std::string>()(text); }

// What a table can be known by: its name, and each column with its type.
struct Feature {
  std::size_t hash = 0;
  std::uint32_t table = 0;
  friend bool operator<(const Feature& a, const Feature& b) {
    return a.hash != b.hash ? a.hash < b.hash : a.table < b.table;
  }
};

std::string ColumnFeature(const LcWorkbookColumn& column, const Names& names) {
  return names.Name(column.GetName()) + '\n' + TypeTextOf(column);
}

std::vector<Feature> FeaturesOf(const std::vector<const LcWorkbookTable*>& tables,
                                const Names& names) {
  std::vector<Feature> features;
  for (std::size_t t = 0; t < tables.size(); ++t) {
    const auto table = static_cast<std::uint32_t>(t);
    features.push_back({HashOf(Bare(base::ToUtf8(tables[t]->GetName()))), table});
    for (int i = 0; i < tables[t]->GetColumnCount(); ++i) {
      features.push_back({HashOf(ColumnFeature(*tables[t]->GetColumn(i), names)), table});
    }
  }
  std::sort(features.begin(), features.end());
  return features;
}

// Pairs of tables that share a feature that few have.
std::vector<std::pair<std::uint32_t, std::uint32_t>> LikelyPairs(
    const std::vector<Feature>& before, const std::vector<Feature>& after) {
  std::vector<std::pair<std::uint32_t, std::uint32_t>> pairs;
  const auto end_of = [](const std::vector<Feature>& features, std::size_t at) {
    const std::size_t hash = features[at].hash;
    while (at < features.size() && features[at].hash == hash) ++at;
    return at;
  };
  for (std::size_t a = 0, b = 0; a < before.size() && b < after.size();) {
    const std::size_t a_end = end_of(before, a);
    const std::size_t b_end = end_of(after, b);
    if (before[a].hash < after[b].hash) {
      a = a_end;
    } else if (after[b].hash < before[a].hash) {
      b = b_end;
    } else {
      const bool few = a_end - a <= kFewTables && b_end - b <= kFewTables;
      for (std::size_t i = a; few && i < a_end; ++i) {
        for (std::size_t j = b; j < b_end; ++j) pairs.emplace_back(before[i].table, after[j].table);
      }
      a = a_end;
      b = b_end;
    }
  }
  std::sort(pairs.begin(), pairs.end());
  pairs.erase(std::unique(pairs.begin(), pairs.end()), pairs.end());
  return pairs;
}

std::uint32_t SharedColumns(const LcWorkbookTable& a, const Names& a_names,
                            const LcWorkbookTable& b, const Names& b_names) {
  std::unordered_map<std::string, int> columns;
  for (int i = 0; i < a.GetColumnCount(); ++i) ++columns[ColumnFeature(*a.GetColumn(i), a_names)];
  std::uint32_t shared = 0;
  for (int i = 0; i < b.GetColumnCount(); ++i) {
    const auto at = columns.find(ColumnFeature(*b.GetColumn(i), b_names));
    if (at == columns.end() || at->second == 0) continue;
    --at->second;
    ++shared;
  }
  return shared;
}

Candidate Judge(const LcWorkbookTable& a, const Names& a_names, const LcWorkbookTable& b,
                const Names& b_names) {
  Candidate candidate;
  RenameGuess& guess = candidate.guess;
  guess.shared = SharedColumns(a, a_names, b, b_names);
  guess.all = static_cast<std::uint32_t>(std::max(a.GetColumnCount(), b.GetColumnCount()));
  const std::string a_name = base::ToUtf8(a.GetName());
  const std::string b_name = base::ToUtf8(b.GetName());
  const double names = Resemblance(a_name, b_name);
  double score = guess.all == 0 ? 0 : 0.75 * guess.shared / guess.all;
  // One column in common is none: half of all tables have an id.
  if (guess.shared < 2) score *= 0.6;
  if (guess.shared > 0) guess.evidence |= evColumns;
  score += 0.25 * names;
  if (base::LowerAscii(a_name) == base::LowerAscii(b_name)) {
    guess.evidence |= evMoved;
    score += 0.1;
  } else if (names >= kResembling) {
    guess.evidence |= evName;
  }
  const LcTableDetails* a_details = a.GetDetails();
  const LcTableDetails* b_details = b.GetDetails();
  if (a_details != nullptr && b_details != nullptr) {
    if (a_details->view_text.IsPresent() && a_details->view_text == b_details->view_text) {
      guess.evidence |= evText;
      score += 0.3;
    }
    if (a_details->comment.IsPresent() && a_details->comment == b_details->comment) {
      guess.evidence |= evComment;
      score += 0.1;
    }
  }
  candidate.score = score;
  return candidate;
}

Candidate Judge(const LooseColumn& a, const LooseColumn& b) {
  Candidate candidate;
  RenameGuess& guess = candidate.guess;
  const auto fact = [](const LooseColumn& loose, Property property) {
    return FactOf(ObjectRef(loose.column), property, ShownNames());
  };
  const double names =
      Resemblance(base::ToUtf8(a.column->GetName()), base::ToUtf8(b.column->GetName()));
  double score = 0.3 * names;
  if (names >= kResembling) guess.evidence |= evName;
  if (fact(a, Property::kDataType) == fact(b, Property::kDataType)) {
    guess.evidence |= evType;
    score += 0.4;
  }
  if (a.place == b.place) {
    guess.evidence |= evPlace;
    score += 0.3;
  }
  const Fact comment = fact(a, Property::kComment);
  if (comment && comment == fact(b, Property::kComment)) {
    guess.evidence |= evComment;
    score += 0.2;
  }
  if (a.column->IsRequired() == b.column->IsRequired()) score += 0.1;
  candidate.score = score;
  return candidate;
}

}  // namespace

double Resemblance(const std::string& a_name, const std::string& b_name) {
  const std::string a = Bare(a_name);
  const std::string b = Bare(b_name);
  if (a == b) return 1;
  if (a.size() < 2 || b.size() < 2) return 0;
  // The share of the pairs of letters that both have.
  std::vector<std::uint16_t> pairs_a;
  std::vector<std::uint16_t> pairs_b;
  const auto collect = [](const std::string& text, std::vector<std::uint16_t>& pairs) {
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
      pairs.push_back(static_cast<std::uint16_t>(static_cast<unsigned char>(text[i]) * 256 +
                                                 static_cast<unsigned char>(text[i + 1])));
    }
    std::sort(pairs.begin(), pairs.end());
  };
  collect(a, pairs_a);
  collect(b, pairs_b);
  std::vector<std::uint16_t> shared;
  std::set_intersection(pairs_a.begin(), pairs_a.end(), pairs_b.begin(), pairs_b.end(),
                        std::back_inserter(shared));
  return 2.0 * static_cast<double>(shared.size()) /
         static_cast<double>(pairs_a.size() + pairs_b.size());
}

std::vector<RenameGuess> GuessTables(const std::vector<const LcWorkbookTable*>& before,
                                     const std::vector<const LcWorkbookTable*>& after,
                                     const Names& old_names, const Names& new_names) {
  std::vector<Candidate> candidates;
  for (const auto& [a, b] :
       LikelyPairs(FeaturesOf(before, old_names), FeaturesOf(after, new_names))) {
    if (before[a]->GetType() != after[b]->GetType()) continue;
    Candidate candidate = Judge(*before[a], old_names, *after[b], new_names);
    candidate.before = candidate.guess.before = a;
    candidate.after = candidate.guess.after = b;
    candidates.push_back(candidate);
  }
  return PickClear(candidates);
}

std::vector<RenameGuess> GuessColumns(const std::vector<LooseColumn>& before,
                                      const std::vector<LooseColumn>& after) {
  std::vector<Candidate> candidates;
  const auto judge = [&](std::size_t a, std::size_t b) {
    Candidate candidate = Judge(before[a], after[b]);
    candidate.before = candidate.guess.before = a;
    candidate.after = candidate.guess.after = b;
    candidates.push_back(candidate);
  };
  if (before.size() * after.size() <= kMostPairs) {
    for (std::size_t a = 0; a < before.size(); ++a) {
      for (std::size_t b = 0; b < after.size(); ++b) judge(a, b);
    }
    return PickClear(candidates);
  }
  std::unordered_map<std::size_t, std::size_t> by_place;
  for (std::size_t b = 0; b < after.size(); ++b) by_place.emplace(after[b].place, b);
  for (std::size_t a = 0; a < before.size(); ++a) {
    const auto at = by_place.find(before[a].place);
    if (at != by_place.end()) judge(a, at->second);
  }
  return PickClear(candidates);
}

}  // namespace wbcompare
