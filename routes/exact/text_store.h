// Texts of a catalog on their way into the workbook: UTF-8 in, UTF-16 out, and what repeats
// ("now()", a type's spelling, a column's name) shares its characters.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "importer/workbook/name.h"
#include "importer/workbook/text.h"
#include "routes/exact/flat_map.h"

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
  [[nodiscard]] bool IsSame(std::u16string_view wide, std::string_view utf8);

  HashedPlaces text_places_;
  std::vector<LcText> texts_;
  HashedPlaces name_places_;
  std::vector<LcName> names_;
  std::u16string wide_;
};

}  // namespace odbcimport::exact
