// Names that a script's server does not take, made into ones that it does: too long, spelled with
// what it has no letters for, or the same to it as another's.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "export/sql_target.h"
#include "importer/workbook/workbook.h"

namespace wbexport::sql {

class Names {
 public:
  // The tables' names first, then those of each table's columns; a table that stands in front in
  // the workbook keeps its own. `wanted` gives the name that a table is wanted under.
  Names(const Target& target, const LcWorkbook& workbook,
        const std::function<std::u16string(const LcWorkbookTable&)>& wanted);
  // Nothing is renamed: the script is for the server that the names are of.
  explicit Names(const Target& target) : target_(target) {}

  // Null where the thing keeps the name that is wanted for it.
  [[nodiscard]] const std::u16string* Of(const LcWorkbookTable& table) const {
    return Find(tables_, &table);
  }
  [[nodiscard]] const std::u16string* Of(const LcWorkbookColumn& column) const {
    return Find(columns_, &column);
  }
  // The column's name in the script.
  [[nodiscard]] const std::u16string& In(const LcWorkbookColumn& column) const {
    const std::u16string* name = Of(column);
    return name != nullptr ? *name : column.GetName();
  }

  // The name as the server takes it, with `end` behind it, which is never cut off.
  [[nodiscard]] std::u16string Fit(std::u16string_view name, std::u16string_view end = {}) const;
  // The same that is none of `taken`, to which it is added: names as the server compares them.
  [[nodiscard]] std::u16string FitBeside(std::u16string_view name, std::set<std::u16string>& taken,
                                         Sameness sameness) const;

 private:
  template <typename T>
  using Map = std::unordered_map<const T*, std::u16string>;
  template <typename T>
  [[nodiscard]] static const std::u16string* Find(const Map<T>& map, const T* thing) {
    const auto found = map.find(thing);
    return found == map.end() ? nullptr : &found->second;
  }

  const Target& target_;
  Map<LcWorkbookTable> tables_;
  Map<LcWorkbookColumn> columns_;
};

}  // namespace wbexport::sql
