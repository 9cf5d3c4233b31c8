// Moves a result on by a rowset and writes it to the bound buffers.
#pragma once

#include "simulator/handles.h"

namespace catalogsim {

// Reads `rows` rows. `row_status` and `rows_fetched` may be null.
[[nodiscard]] SQLRETURN FetchRowset(Statement& statement, SQLULEN rows, SQLUSMALLINT* row_status,
                                    SQLULEN* rows_fetched);

// One value of the current row, whole or in pieces.
SQLRETURN GetData(Statement& statement, SQLUSMALLINT column, SQLSMALLINT c_type, void* buffer,
                  SQLLEN bytes, SQLLEN* indicator);

}  // namespace catalogsim
