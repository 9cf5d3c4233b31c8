// Sorting entries that are large: each is moved once, into its place.
#pragma once

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <utility>
#include <vector>

namespace odbcimport::exact {

// Equal entries keep their order.
template <class Entry, class IsBefore>
void SortOnce(std::vector<Entry>& entries, IsBefore is_before) {
  if (std::is_sorted(entries.begin(), entries.end(), is_before)) return;
  std::vector<std::uint32_t> places(entries.size());
  std::iota(places.begin(), places.end(), 0U);
  std::stable_sort(places.begin(), places.end(), [&](std::uint32_t a, std::uint32_t b) {
    return is_before(entries[a], entries[b]);
  });
  std::vector<Entry> sorted;
  sorted.reserve(entries.size());
  for (const std::uint32_t place : places) sorted.push_back(std::move(entries[place]));
  entries = std::move(sorted);
}

}  // namespace odbcimport::exact
