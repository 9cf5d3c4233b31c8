// A row of a dialect's statement, read by the names of its columns. How the cells are laid out, and
// what is packed into them, is the heading's affair and settled once for a section.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "routes/exact/dialect.h"
#include "routes/exact/kinds.h"

namespace odbc {
class Query;
}

namespace odbcimport::exact {

class Row {
 public:
  explicit Row(const Section& section);
  Row(const Row&) = delete;
  Row& operator=(const Row&) = delete;

  // Takes the row that the query stands on. False where a packed cell has more or fewer parts than
  // the heading says.
  bool Take(const odbc::Query& query);

  // False for a column that the heading does not name, and for NULL.
  [[nodiscard]] bool Has(Field field) const { return Text(field).data() != nullptr; }
  // UTF-8, valid until the next row. Without data where it has none, which an empty text is not.
  [[nodiscard]] std::string_view Text(Field field) const {
    const std::uint8_t slot = slot_of_[static_cast<std::size_t>(field)];
    return slot != kNoSlot ? values_[slot] : std::string_view();
  }
  // `fallback` where there is none, or no number.
  [[nodiscard]] std::int64_t Number(Field field, std::int64_t fallback = 0) const;
  [[nodiscard]] bool Flag(Field field) const { return Text(field) == "1"; }
  [[nodiscard]] bool Names(Field field) const {
    return slot_of_[static_cast<std::size_t>(field)] != kNoSlot;
  }

  // What only this server has: names and values, those without a value left out.
  struct Option {
    std::string_view name;
    std::string_view value;
  };
  // The values as they stand, for who puts rows together (pieces.h).
  [[nodiscard]] std::vector<std::string_view>& values() { return values_; }
  static constexpr std::size_t kNoPlace = static_cast<std::size_t>(-1);
  [[nodiscard]] std::size_t PlaceOf(Field field) const {
    const std::uint8_t slot = slot_of_[static_cast<std::size_t>(field)];
    return slot != kNoSlot ? slot : kNoPlace;
  }

  [[nodiscard]] bool HasOptions() const { return !option_slots_.empty(); }
  template <class Function>
  void ForEachOption(Function function) const {
    for (const std::uint8_t slot : option_slots_) {
      if (!values_[slot].empty()) function(Option{*option_names_[slot], values_[slot]});
    }
  }

 private:
  static constexpr std::uint8_t kNoSlot = 0xFF;
  struct Cell {
    std::uint8_t first_slot;
    std::uint8_t slots;
  };

  std::vector<Cell> cells_;
  std::array<std::uint8_t, kFields> slot_of_{};
  std::vector<std::string_view> values_;
  // A slot's translations; null for the many without any.
  std::vector<const std::vector<std::pair<std::string, std::string>>*> translations_;
  std::vector<const std::string*> option_names_;
  std::vector<std::uint8_t> option_slots_;
  bool translates_ = false;
};

// The numbers in a text, whatever parts them: "1 2", "{1,2}", "[3]".
void ReadNumbers(std::string_view text, std::vector<std::int64_t>& numbers);
// A decimal number with a sign or without; `fallback` for anything else.
[[nodiscard]] std::int64_t ReadNumber(std::string_view text, std::int64_t fallback);
// The texts of a list `{"a",b}` or `["a","b"]`.
[[nodiscard]] std::vector<std::string> ReadTexts(std::string_view text);

}  // namespace odbcimport::exact
