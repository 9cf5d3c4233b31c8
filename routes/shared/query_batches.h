// The queries for tables, views and local synonyms with their columns, as lists of texts: Oracle
// gets a long selection in batches, since one statement with all its names would have no bound.
// Running the texts in turn gives what the single text of the same server would.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "importer/workbook/import.h"

namespace odbcimport {

// Empty for a server without own SQL.
[[nodiscard]] std::vector<std::u16string> BuildTableColumnQueries(const LcImportChoices& choices,
                                                                  int server_type, bool is_ius);

// None for a server whose synonyms are not read.
[[nodiscard]] std::optional<std::vector<std::u16string>> BuildLocalSynonymQueries(
    const LcImportChoices& choices, int server_type, bool is_ius);

}  // namespace odbcimport
