// One value of a result, written into a program's buffer in the C type that it asked for.
#pragma once

#include <sql.h>
#include <sqlext.h>
#include <sqlite3.h>

#include <cstddef>
#include <string>

#include "simulator/column_types.h"

namespace catalogsim {

struct Binding {
  SQLSMALLINT c_type = SQL_C_DEFAULT;
  void* buffer = nullptr;  // null: not bound
  SQLLEN bytes = 0;
  SQLLEN* indicator = nullptr;  // may be null
};

enum class CellOutcome { kWhole, kTruncated, kUnusable };  // kUnusable: no such conversion

// The C type that SQL_C_DEFAULT stands for.
[[nodiscard]] SQLSMALLINT DefaultCType(SQLSMALLINT sql_type);
// Bytes of a C type of fixed size; 0 for texts and binaries.
[[nodiscard]] std::size_t SizeOfCType(SQLSMALLINT c_type);

// Writes the value of SQLite column `index` (from 0) of the current row to `buffer`. `skip`
// characters of a text have been given before. NULL leaves the buffer as it was, as some drivers
// do: only the indicator tells.
[[nodiscard]] CellOutcome WriteCell(sqlite3_stmt* row, int index, const Column& column,
                                    SQLSMALLINT c_type, void* buffer, SQLLEN bytes,
                                    SQLLEN* indicator, std::size_t skip = 0);

}  // namespace catalogsim
