// The columns of two tables: which is which, and in which order they stand.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "compare/context.h"
#include "compare/renames.h"

namespace wbcompare {

// Columns by their positions.
struct ColumnMatch {
  struct Renamed {
    int before = 0;
    int after = 0;
    bool guess = false;
    std::uint16_t evidence = 0;
  };
  std::vector<std::pair<int, int>> pairs;  // in the order of the old table; renamed ones too
  std::vector<int> removed;
  std::vector<int> added;
  std::vector<Renamed> renamed;
};

// Whether all columns have the same names in the same places, so that there is nothing to match.
[[nodiscard]] bool AreInPlace(const Context& context, const LcWorkbookTable& before,
                              const LcWorkbookTable& after);

// `asked` are the columns that the caller said are renamed.
[[nodiscard]] ColumnMatch MatchColumns(const Context& context, const LcWorkbookTable& before,
                                       const LcWorkbookTable& after,
                                       const std::vector<std::pair<int, int>>& asked);

// Tells the changes of the columns. `match` is null where all are in place.
void CompareColumns(Context& context, const LcWorkbookTable& before, const LcWorkbookTable& after,
                    const ColumnMatch* match);

}  // namespace wbcompare
