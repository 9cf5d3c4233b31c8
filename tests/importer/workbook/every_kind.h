// One workbook that holds every kind of object, for the tests of the file form and of the writers;
// it is kept as the golden file of the json format.
#pragma once

#include "importer/workbook/workbook.h"
#include "importer/workbook/workbook_file.h"

// Two owners; tables with one- and two-column keys, a self-reference, a one-to-one reference and a
// reference to a table that comes later; a view, synonyms, a table without columns; names that
// every format has to escape; built-in, distinct, row and collection types; routines.
void ReadEveryKind(LcWorkbook& workbook, LcWorkbookFileInfo& info);

// Adds a table, a column, or both keys of a relationship, for tests that build their own.
LcWorkbookTable* AddTable(LcWorkbook& workbook, const std::u16string& owner,
                          const std::u16string& name, enumTableType type = ttTable);
LcWorkbookColumn* AddColumn(LcWorkbookTable* table, const std::u16string& name,
                            const LcWorkbookDatatype* type = nullptr, bool required = false);
void AddToPrimaryKey(LcWorkbookTable* table, const std::u16string& column);
LcWorkbookForeignKey* AddReference(LcWorkbookTable* from,
                                   const std::vector<std::u16string>& columns, LcWorkbookTable* to,
                                   const std::vector<std::u16string>& referenced);
