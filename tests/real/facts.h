// What a schema says, as texts that can be compared: what the importer found against what the
// server holds.
#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "importer/workbook/enums.h"
#include "importer/workbook/workbook.h"

namespace real {

// "table o.t", "view o.v", "column o.t.c" with " required", "key o.t: a, b",
// "pair o.t.c -> o.t.c" from the referencing to the referenced column.
using Facts = std::multiset<std::string>;

std::string TableFact(bool view, const std::string& owner, const std::string& table);
std::string ColumnFact(const std::string& owner, const std::string& table,
                       const std::string& column, bool required);
std::string PairFact(const std::string& owner, const std::string& table, const std::string& column,
                     const std::string& to_owner, const std::string& to_table,
                     const std::string& to_column);
// Adds the key of each run of rows {owner, table, column} with the same owner and table.
void AddKeyFacts(const std::vector<std::vector<std::string>>& rows, Facts& facts);

// A difference that is meant to be, and why. A fact begins with "+" when the import has it and the
// server has not, and with "-" the other way round.
struct Difference {
  const char* reason;
  std::vector<std::string> facts;
};
// Fails the test for every difference that is not in the list, and for every one in the list that
// is no longer there.
void ExpectDifferences(const Facts& server, const Facts& imported,
                       const std::vector<Difference>& meant);

// One import, as a host does it.
struct Import {
  LcWorkbook workbook;
  Facts facts;
  bool result = false;
  unsigned short status = 0;
};
// `on_event` is called with the number of each notification, from 0.
void RunImport(void* henv, void* hdbc, const std::u16string& catalog, Import& import,
               const std::function<void(int)>& on_event = {},
               std::uint32_t items = ibTables | ibViews);

}  // namespace real
