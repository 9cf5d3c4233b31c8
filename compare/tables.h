// The tables of two workbooks: which is which, owners and names that changed among them.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "compare/columns.h"
#include "compare/context.h"

namespace wbcompare {

// A table of both sides or of one; `columns` is null where all columns are in place.
struct TablePair {
  const LcWorkbookTable* before = nullptr;
  const LcWorkbookTable* after = nullptr;
  std::unique_ptr<ColumnMatch> columns;
  Change renamed;  // with the action kRenamed where the pair has two names
};

// Matches the tables and, in each pair, the columns; renames that were asked for and guessed ones
// are entered into the context's names. False, with a sentence in `why`, where a rename that was
// asked for names what is not there.
[[nodiscard]] bool MatchTables(Context& context, std::vector<TablePair>& pairs, std::string& why);

// Views and synonyms are tables of their own kind; a pair that changed its kind is a table.
[[nodiscard]] Object ObjectOf(const LcWorkbookTable* before, const LcWorkbookTable* after);

}  // namespace wbcompare
