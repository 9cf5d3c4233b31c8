// Restrictions of catalog queries to the owners, tables and views that the user selected. Pure
// functions of the choices; names go in as they stand, without escaping. The queries must call the
// catalog table T (and the SQL Server user table U).
#pragma once

#include <string>

#include "importer/workbook/import.h"

namespace odbcimport {

// True when an owner or a table is selected.
[[nodiscard]] bool AnySpecificTablesOrViews(const LcImportChoices& choices);
// True when an owner or a synonym is selected.
[[nodiscard]] bool AnySpecificSynonyms(const LcImportChoices& choices);

// Appends a restriction to the selected owners and tables. `oracle_view` names the Oracle view that
// the query reads ("ALL_CATALOG", "ALL_TABLES", "ALL_VIEWS"), null for the object catalog;
// `where_open` tells that the text has a WHERE already. Appends nothing when nothing is selected.
void AddSpecificOnes(const LcImportChoices& choices, std::u16string& sql, int dbms_type,
                     const char16_t* oracle_view, bool where_open);

// Appends a restriction to the selected tables and views at the positions `first` to `last`
// (0-based, -1: from the beginning, to the end). Appends nothing when no table is selected.
void AddSpecificTablesAndViews(const LcImportChoices& choices, std::u16string& sql, int dbms_type,
                               const char16_t* oracle_view, int first, int last);

}  // namespace odbcimport
