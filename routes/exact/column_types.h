// The types of columns: each distinct one is made once, from the server's spelling and sizes, and
// copied for every column that has it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "importer/workbook/datatype.h"
#include "routes/exact/catalog.h"
#include "routes/exact/flat_map.h"
#include "routes/exact/type_kinds.h"

namespace odbcimport::exact {

class ColumnTypes {
 public:
  static constexpr std::uint32_t kNone = NumberMap::kNone;

  struct Entry {
    std::int64_t id = 0;
    std::int64_t modifier = -1;
    std::int64_t dimensions = 0;
    std::uint32_t next = kNone;  // another modifier or number of dimensions of the same type
    std::unique_ptr<LcWorkbookDatatype> type;  // null until it is known
    std::int64_t collation_id = 0;
    LcText collation;
    unsigned long length = 0;
    unsigned long precision = 0;
    std::uint16_t scale = 0;
    bool named = false;  // the user's own
    std::int64_t base_id = 0;
    std::int64_t base_modifier = -1;
  };

  explicit ColumnTypes(Catalog& catalog) : catalog_(catalog) {}

  // The type of a row of `columns`: by number, to be told by `column_types`, or made from the row.
  [[nodiscard]] std::uint32_t Find(const Row& row);
  // Takes a row of `column_types`.
  void Tell(const Row& row);
  // Settles what domains and arrays inherit from what they are made of. After the last row.
  void Settle();

  [[nodiscard]] const Entry& At(std::uint32_t type) const { return entries_[type]; }
  [[nodiscard]] const std::vector<Entry>& All() const { return entries_; }
  // The numbers in use, for the mark `types`.
  void ListNumbers(std::vector<std::string>& ids, std::vector<std::string>& modifiers) const;
  // The type of that number without a modifier; null where it was not told.
  [[nodiscard]] const LcWorkbookDatatype* Find(std::int64_t id) const;

  // A type object from a row with `type`, `base_type` and sizes, for lists of types too.
  [[nodiscard]] std::unique_ptr<LcWorkbookDatatype> Make(std::string_view spelling,
                                                         std::string_view base_type,
                                                         std::string_view schema,
                                                         std::string_view category);

 private:
  std::uint32_t FindByNumber(std::int64_t id, std::int64_t modifier, std::int64_t dimensions);
  [[nodiscard]] std::uint32_t FindByText(const Row& row);
  [[nodiscard]] const TypeKind& KindOf(std::string_view spelling, std::string_view base_type,
                                       std::string_view category, bool& known);
  void Fill(const Row& row, Entry& entry);
  void Inherit(Entry& entry, int depth);
  [[nodiscard]] const Entry* FindTold(std::int64_t id, std::int64_t modifier) const;

  // An entry by what rows without a number say of it: the texts, each closed by a zero.
  struct Spelled {
    std::string texts;
    std::uint32_t entry;
  };

  Catalog& catalog_;
  std::vector<Entry> entries_;
  NumberMap by_id_;  // the first entry of a type
  HashedPlaces by_text_;
  std::vector<Spelled> spelled_;  // what by_text_ leads to
  std::unordered_map<std::string, const TypeKind*> kinds_;
  std::string key_;
  std::uint32_t last_ = kNone;
};

}  // namespace odbcimport::exact
