// What a schema says, as texts that can be compared: what one reader found against what another one
// did, or the server itself.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "importer/workbook/workbook.h"

namespace wbtest {

using Rows = std::vector<std::vector<std::string>>;

// A schema in rows of texts, as a server's own catalog gives them.
struct SchemaRows {
  Rows tables;   // owner, table, "VIEW" or anything else
  Rows columns;  // owner, table, column, "NO" where it takes no NULL
  Rows keys;     // owner, table, column; the columns of a primary key in order
  Rows pairs;    // owner, table, column that refers, owner, table, column that it refers to
};

// "table o.t", "view o.v", "column o.t.c" with " required", "key o.t: a, b",
// "pair o.t.c -> o.t.c" from the referencing to the referenced column.
using Facts = std::multiset<std::string>;
Facts FactsOf(const SchemaRows& rows);
// Of everything but synonyms.
Facts FactsOf(const LcWorkbook& workbook);

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

}  // namespace wbtest
