// The queries for tables, views and local synonyms with their columns, as lists of texts: Oracle
// gets a long selection in batches, since one statement with all its names would have no bound.
// Running the texts in turn gives what the single text of the same server would.
#pragma once

#include <string>
#include <vector>

#include "importer/workbook/import.h"

namespace odbcimport {

// Appends the texts. False, with nothing appended, for a server without own SQL.
bool BuildTableColumnQueries(const LcImportChoices& choices, int server_type, bool is_ius,
                             std::vector<std::u16string>& texts);

// Appends the texts. False, with nothing appended, for a server whose synonyms are not read.
bool BuildLocalSynonymQueries(const LcImportChoices& choices, int server_type, bool is_ius,
                              std::vector<std::u16string>& texts);

}  // namespace odbcimport
