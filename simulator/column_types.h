// The ODBC types of result columns, from the types that a server's script declares.
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace catalogsim {

// A result column as a program sees it.
struct Column {
  std::string name;
  SQLSMALLINT sql_type = SQL_VARCHAR;  // ODBC 3 code
  SQLULEN size = 255;                  // characters, digits or bytes
  SQLSMALLINT digits = 0;
  SQLSMALLINT nullable = SQL_NULLABLE_UNKNOWN;
  std::size_t padded_to = 0;  // characters that blanks fill up to; 0: none
};

// How a result column is described. `declared_type` is null for an expression. `wide`: the server's
// character columns are UTF-16.
using DescribeColumn = Column (*)(const char* name, const char* declared_type, bool wide);
[[nodiscard]] Column ColumnOfQuery(const char* name, const char* declared_type, bool wide);
// The columns of catalog functions have types by name, and no blanks behind their texts.
[[nodiscard]] Column ColumnOfCatalogFunction(const char* name, const char* declared_type,
                                             bool wide);

// ODBC 2 has other codes for dates and times.
[[nodiscard]] SQLSMALLINT TypeForVersion(SQLSMALLINT sql_type, SQLULEN odbc_version);

}  // namespace catalogsim
