// Turns what the Informix catalog says of a column's type into the settings of a workbook column.
#pragma once

#include <memory>

#include "importer/workbook/table.h"
#include "routes/informix/complex_types.h"
#include "session/session.h"

namespace odbcimport::informix {

// Gives the column its physical code, data type (none when no list has it), required and serial
// marks, width, precision, scale and, for DATETIME and INTERVAL, its qualifier. `is_ius` and
// `extended_id` (0: none) are those of the database that the column is in.
void ColumnDatatypeSetup(ImportSession& session, ComplexTypes& complex_types,
                         LcWorkbookColumn* column, int physical_code, int coltype, bool is_ius,
                         long extended_id, long collength);

}  // namespace odbcimport::informix
