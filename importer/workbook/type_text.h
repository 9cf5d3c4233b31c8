// The type of a column as a reader of the schema expects to see it.
#pragma once

#include <string>

#include "importer/workbook/table.h"

// The server's name of a type: that of a named type, where it is one.
[[nodiscard]] LC_WORKBOOK_EXPORT std::u16string LcTypeName(const LcWorkbookDatatype& type);

// "DECIMAL(12,2)", "interval year to month": put together from the column's type and sizes. Empty
// where the type is not known.
[[nodiscard]] LC_WORKBOOK_EXPORT std::u16string LcTypeText(const LcWorkbookColumn& column);
