// The foreign-key queries of the four servers, as pure functions of the choices.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "importer/workbook/import.h"

namespace odbcimport::native {

// DB2: schema and table, column count, referenced schema and table, the two lists of columns. For
// Oracle the single text that BuildForeignKeyQueries splits; none for other servers.
[[nodiscard]] std::optional<std::u16string> BuildForeignKeyQuery(const LcImportChoices& choices,
                                                                 int dbms_type);

// The Oracle texts, one for each 200 selected tables and views: owner, table, column, position,
// first of the referencing and then of the referenced columns. For DB2 the text of
// BuildForeignKeyQuery. Empty for other servers.
[[nodiscard]] std::vector<std::u16string> BuildForeignKeyQueries(const LcImportChoices& choices,
                                                                 int dbms_type);

// Red Brick: constraint, table, column, sequence of the referencing (1) and of the referenced (2)
// columns.
[[nodiscard]] std::u16string BuildForeignKeyQueryRedBrick1(const LcImportChoices& choices);
[[nodiscard]] std::u16string BuildForeignKeyQueryRedBrick2(const LcImportChoices& choices);
// Appends the restriction to the selected tables, by name alone. Appends nothing when no table is
// selected.
void AddSpecificOnesRedBrickFK(const LcImportChoices& choices, std::u16string& sql);

// SQL Server: referencing and referenced table id, column count, the 16 column ids of either side.
[[nodiscard]] std::u16string BuildForeignKeyQuerySQLServer(const LcImportChoices& choices);

}  // namespace odbcimport::native
