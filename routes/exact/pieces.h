// Texts that a server keeps in pieces, a row each: joined before a reader sees the row.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace odbcimport::exact {

class Row;
class RowReader;

// Rows that differ in `part` and the text alone are one. They come one after another, in the order
// of their parts; where a number is skipped, another text of the same object begins, on a line of
// its own. Blanks at a text's end fill the piece and are none of it.
class Pieces {
 public:
  explicit Pieces(Row& row);

  // Whether the heading names `part`.
  [[nodiscard]] bool IsNeeded() const { return part_ != kNone; }
  // Takes the row that stands in the row; a whole one before it goes to the reader.
  void Add(RowReader& reader);
  // The last one goes to the reader.
  void Flush(RowReader& reader);

 private:
  using Value = std::optional<std::string>;
  static constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();

  [[nodiscard]] bool IsSameObject() const;
  void Join();

  Row& row_;
  std::size_t part_ = kNone;
  std::size_t text_ = kNone;
  std::int64_t last_part_ = 0;
  std::vector<Value> held_;  // empty: nothing
};

}  // namespace odbcimport::exact
