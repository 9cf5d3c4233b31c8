// The foreign-key queries of the four servers, as pure functions of the choices.
#pragma once

#include <string>
#include <vector>

#include "importer/workbook/import.h"

namespace odbcimport::native {

// DB2: schema and table, column count, referenced schema and table, the two lists of columns. For
// Oracle the single text that BuildForeignKeyQueries splits; other servers get no text and false.
bool BuildForeignKeyQuery(const LcImportChoices& choices, std::u16string& sql, int dbms_type);

// Appends the Oracle texts, one for each 200 selected tables and views: owner, table, column,
// position, first of the referencing and then of the referenced columns. For DB2 the text of
// BuildForeignKeyQuery. False, with nothing appended, for other servers.
bool BuildForeignKeyQueries(const LcImportChoices& choices, int dbms_type,
                            std::vector<std::u16string>& texts);

// Red Brick: constraint, table, column, sequence of the referencing (1) and of the referenced (2)
// columns. Always true.
bool BuildForeignKeyQueryRedBrick1(const LcImportChoices& choices, std::u16string& sql);
bool BuildForeignKeyQueryRedBrick2(const LcImportChoices& choices, std::u16string& sql);
// Appends the restriction to the selected tables, by name alone. False, with nothing appended, when
// no table is selected.
bool AddSpecificOnesRedBrickFK(const LcImportChoices& choices, std::u16string& sql);

// SQL Server: referencing and referenced table id, column count, the 16 column ids of either side.
// Always true.
bool BuildForeignKeyQuerySQLServer(const LcImportChoices& choices, std::u16string& sql);

}  // namespace odbcimport::native
