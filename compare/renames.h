// Guesses which of the things that are gone are still there under another name. A pair is guessed
// only where each is the other's likeliest by a margin, so that the guess is the same from either
// side.
#pragma once

#include <cstdint>
#include <vector>

#include "compare/names.h"

namespace wbcompare {

struct RenameGuess {
  std::size_t before = 0;  // positions in the lists
  std::size_t after = 0;
  std::uint16_t evidence = 0;  // bits of Evidence
  std::uint32_t shared = 0;
  std::uint32_t all = 0;
};

// Tables that are alike. The time grows with the number of their columns: only tables that share a
// column (or a name) that few others have are held against each other.
[[nodiscard]] std::vector<RenameGuess> GuessTables(
    const std::vector<const LcWorkbookTable*>& before,
    const std::vector<const LcWorkbookTable*>& after, const Names& old_names,
    const Names& new_names);

// A column without its like. Equal places mean: between the same columns of both tables.
struct LooseColumn {
  const LcWorkbookColumn* column = nullptr;
  std::size_t place = 0;
};
[[nodiscard]] std::vector<RenameGuess> GuessColumns(const std::vector<LooseColumn>& before,
                                                    const std::vector<LooseColumn>& after);

// How much two names resemble one another, from 0 to 1; the same either way round.
[[nodiscard]] double Resemblance(const std::string& a, const std::string& b);

}  // namespace wbcompare
