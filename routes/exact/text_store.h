// Texts of a catalog on their way into the workbook: UTF-8 in, UTF-16 out, and what repeats
// ("now()", a type's spelling, a column's name) shares its characters.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "importer/workbook/name.h"
#include "importer/workbook/text.h"

namespace odbcimport::exact {

class TextStore {
 public:
  // Absent for a view without data.
  [[nodiscard]] LcText Get(std::string_view utf8);
  // The name of a column; empty for a view without data.
  [[nodiscard]] LcName Name(std::string_view utf8);
  // The same characters, valid until the next call.
  [[nodiscard]] const std::u16string& Wide(std::string_view utf8);

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>()(text);
    }
  };
  template <class Shared>
  using ByText = std::unordered_map<std::string, Shared, Hash, std::equal_to<>>;
  ByText<LcText> shared_;
  ByText<LcName> names_;
  std::u16string wide_;
};

}  // namespace odbcimport::exact
