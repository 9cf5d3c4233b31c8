// Sorting entries that are large: each is moved once, into its place.
#pragma once

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <utility>
#include <vector>

namespace odbcimport::exact {

// Where the ascending runs of the places begin, and the end; empty where there are many.
template <class Entry, class IsBefore>
std::vector<std::size_t> FindRuns(const std::vector<Entry>& entries, IsBefore is_before) {
  constexpr std::size_t kMost = 16;
  std::vector<std::size_t> begins = {0};
  for (std::size_t i = 1; i < entries.size(); ++i) {
    if (!is_before(entries[i], entries[i - 1])) continue;
    if (begins.size() == kMost) return {};
    begins.push_back(i);
  }
  begins.push_back(entries.size());
  return begins;
}

// Equal entries keep their order. A server's statements mostly give a few runs that are in order
// (the primary keys of all tables, then the foreign keys), which are merged.
template <class Entry, class IsBefore>
void SortOnce(std::vector<Entry>& entries, IsBefore is_before) {
  const std::vector<std::size_t> runs = FindRuns(entries, is_before);
  if (runs.size() == 2) return;
  std::vector<std::uint32_t> places(entries.size());
  std::iota(places.begin(), places.end(), 0U);
  const auto is_place_before = [&](std::uint32_t a, std::uint32_t b) {
    return is_before(entries[a], entries[b]);
  };
  if (runs.empty()) {
    std::stable_sort(places.begin(), places.end(), is_place_before);
  }
  const auto at = [&](std::size_t place) {
    return places.begin() + static_cast<std::ptrdiff_t>(place);
  };
  for (std::size_t i = 2; i < runs.size(); ++i) {
    std::inplace_merge(places.begin(), at(runs[i - 1]), at(runs[i]), is_place_before);
  }
  std::vector<Entry> sorted;
  sorted.reserve(entries.size());
  for (const std::uint32_t place : places) sorted.push_back(std::move(entries[place]));
  entries = std::move(sorted);
}

}  // namespace odbcimport::exact
