// The renames that a caller asked for, found in both workbooks.
#pragma once

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "compare/context.h"

namespace wbcompare {

struct AskedRenames {
  using Tables = std::vector<std::pair<const LcWorkbookTable*, const LcWorkbookTable*>>;
  Tables owners;  // each by one of its tables
  Tables tables;
  // Of a table of the old workbook: the names of columns, as they stand in the new one.
  std::unordered_map<const LcWorkbookTable*, std::vector<std::pair<std::string, std::string>>>
      columns;

  // Enters owners into the context's names as well. False, with a sentence in `why`, where a rename
  // names nothing that is there, or more than one thing.
  [[nodiscard]] bool Resolve(Context& context, std::string& why);
  // The columns of a pair of tables, by their positions.
  [[nodiscard]] std::vector<std::pair<int, int>> ColumnsIn(const LcWorkbookTable& before,
                                                           const LcWorkbookTable& after) const;

 private:
  [[nodiscard]] bool ResolveOne(Context& context, const Options::Rename& rename, std::string& why);
};

}  // namespace wbcompare
