// See column_types.h.
#include "simulator/column_types.h"

#include <sqlucode.h>

#include <cstdlib>

#include "simulator/text.h"

namespace catalogsim {
namespace {

struct DeclaredType {
  std::string_view name;
  SQLSMALLINT sql_type;
  SQLULEN size;  // where the declaration gives none
  bool padded;
};

// clang-format off
constexpr DeclaredType kDeclaredTypes[] = {
    {"CHAR",             SQL_CHAR,           1,          true},
    {"CHARACTER",        SQL_CHAR,           1,          true},
    {"NCHAR",            SQL_WCHAR,          1,          true},
    {"VARCHAR",          SQL_VARCHAR,        255,        false},
    {"VARCHAR2",         SQL_VARCHAR,        255,        false},
    {"LVARCHAR",         SQL_VARCHAR,        2048,       false},
    {"NVARCHAR",         SQL_WVARCHAR,       255,        false},
    {"SYSNAME",          SQL_WVARCHAR,       128,        false},
    {"TEXT",             SQL_LONGVARCHAR,    2147483647, false},
    {"CLOB",             SQL_LONGVARCHAR,    2147483647, false},
    {"LONG",             SQL_LONGVARCHAR,    2147483647, false},
    {"LONG VARCHAR",     SQL_LONGVARCHAR,    32700,      false},
    {"NTEXT",            SQL_WLONGVARCHAR,   1073741823, false},
    {"BYTE",             SQL_LONGVARBINARY,  2147483647, false},
    {"BLOB",             SQL_LONGVARBINARY,  2147483647, false},
    {"IMAGE",            SQL_LONGVARBINARY,  2147483647, false},
    {"LONG RAW",         SQL_LONGVARBINARY,  2147483647, false},
    {"VARBINARY",        SQL_VARBINARY,      255,        false},
    {"RAW",              SQL_VARBINARY,      255,        false},
    {"BINARY",           SQL_BINARY,         1,          false},
    {"BIT",              SQL_BIT,            1,          false},
    {"TINYINT",          SQL_TINYINT,        3,          false},
    {"SMALLINT",         SQL_SMALLINT,       5,          false},
    {"INT",              SQL_INTEGER,        10,         false},
    {"INTEGER",          SQL_INTEGER,        10,         false},
    {"SERIAL",           SQL_INTEGER,        10,         false},
    {"INT8",             SQL_BIGINT,         19,         false},
    {"SERIAL8",          SQL_BIGINT,         19,         false},
    {"BIGINT",           SQL_BIGINT,         19,         false},
    {"REAL",             SQL_REAL,           7,          false},
    {"SMALLFLOAT",       SQL_REAL,           7,          false},
    {"FLOAT",            SQL_DOUBLE,         15,         false},
    {"DOUBLE",           SQL_DOUBLE,         15,         false},
    {"DOUBLE PRECISION", SQL_DOUBLE,         15,         false},
    {"DECIMAL",          SQL_DECIMAL,        18,         false},
    {"NUMERIC",          SQL_NUMERIC,        18,         false},
    {"NUMBER",           SQL_DECIMAL,        38,         false},
    {"MONEY",            SQL_DECIMAL,        19,         false},
    {"DATE",             SQL_TYPE_DATE,      10,         false},
    {"TIME",             SQL_TYPE_TIME,      8,          false},
    {"DATETIME",         SQL_TYPE_TIMESTAMP, 23,         false},
    {"TIMESTAMP",        SQL_TYPE_TIMESTAMP, 26,         false},
};
// clang-format on

struct CatalogNumber {
  std::string_view name;
  SQLSMALLINT sql_type;
  SQLULEN size;
};

// The columns of catalog functions that are no texts, under their names in ODBC 2 and 3.
// clang-format off
constexpr CatalogNumber kCatalogNumbers[] = {
    {"DATA_TYPE",          SQL_SMALLINT, 5},
    {"PRECISION",          SQL_INTEGER,  10},
    {"COLUMN_SIZE",        SQL_INTEGER,  10},
    {"LENGTH",             SQL_INTEGER,  10},
    {"BUFFER_LENGTH",      SQL_INTEGER,  10},
    {"SCALE",              SQL_SMALLINT, 5},
    {"DECIMAL_DIGITS",     SQL_SMALLINT, 5},
    {"RADIX",              SQL_SMALLINT, 5},
    {"NUM_PREC_RADIX",     SQL_SMALLINT, 5},
    {"NULLABLE",           SQL_SMALLINT, 5},
    {"SQL_DATA_TYPE",      SQL_SMALLINT, 5},
    {"SQL_DATETIME_SUB",   SQL_SMALLINT, 5},
    {"CHAR_OCTET_LENGTH",  SQL_INTEGER,  10},
    {"ORDINAL_POSITION",   SQL_INTEGER,  10},
    {"SEQ_IN_INDEX",       SQL_SMALLINT, 5},
    {"KEY_SEQ",            SQL_SMALLINT, 5},
    {"UPDATE_RULE",        SQL_SMALLINT, 5},
    {"DELETE_RULE",        SQL_SMALLINT, 5},
    {"DEFERRABILITY",      SQL_SMALLINT, 5},
    {"NON_UNIQUE",         SQL_SMALLINT, 5},
    {"TYPE",               SQL_SMALLINT, 5},
    {"CARDINALITY",        SQL_INTEGER,  10},
    {"PAGES",              SQL_INTEGER,  10},
    {"PROCEDURE_TYPE",     SQL_SMALLINT, 5},
    {"CASE_SENSITIVE",     SQL_SMALLINT, 5},
    {"SEARCHABLE",         SQL_SMALLINT, 5},
    {"UNSIGNED_ATTRIBUTE", SQL_SMALLINT, 5},
    {"MONEY",              SQL_SMALLINT, 5},
    {"FIXED_PREC_SCALE",   SQL_SMALLINT, 5},
    {"AUTO_INCREMENT",     SQL_SMALLINT, 5},
    {"AUTO_UNIQUE_VALUE",  SQL_SMALLINT, 5},
    {"MINIMUM_SCALE",      SQL_SMALLINT, 5},
    {"MAXIMUM_SCALE",      SQL_SMALLINT, 5},
    {"INTERVAL_PRECISION", SQL_SMALLINT, 5},
};
// clang-format on

SQLSMALLINT Widened(SQLSMALLINT sql_type) {
  switch (sql_type) {
    case SQL_CHAR:
      return SQL_WCHAR;
    case SQL_VARCHAR:
      return SQL_WVARCHAR;
    case SQL_LONGVARCHAR:
      return SQL_WLONGVARCHAR;
    default:
      return sql_type;
  }
}

}  // namespace

Column ColumnOfQuery(const char* name, const char* declared_type, bool wide) {
  Column column;
  column.name = name;
  // SQLite names an expression by its text; servers give it a short name of their own.
  if (declared_type == nullptr && column.name.find('(') != std::string::npos) {
    column.name = "(expression)";
  }
  const std::string_view declared(declared_type != nullptr ? declared_type : "");
  const std::size_t bracket = declared.find('(');
  const std::string_view type_name = Trim(declared.substr(0, bracket));
  for (const DeclaredType& type : kDeclaredTypes) {
    if (!EqualIgnoringCase(type.name, type_name)) continue;
    column.sql_type = type.sql_type;
    column.size = type.size;
    if (bracket != std::string_view::npos)
      column.size = std::strtoul(declared.data() + bracket + 1, nullptr, 10);
    const std::size_t comma = declared.find(',');
    if (comma != std::string_view::npos)
      column.digits = static_cast<SQLSMALLINT>(std::atoi(declared.data() + comma + 1));
    if (type.padded) column.padded_to = column.size;
    break;
  }
  if (wide) column.sql_type = Widened(column.sql_type);
  return column;
}

Column ColumnOfCatalogFunction(const char* name, const char*, bool wide) {
  constexpr SQLULEN kNameSize = 128;
  Column column{name, wide ? SQLSMALLINT{SQL_WVARCHAR} : SQLSMALLINT{SQL_VARCHAR}, kNameSize};
  for (const CatalogNumber& number : kCatalogNumbers)
    if (number.name == column.name) column.sql_type = number.sql_type, column.size = number.size;
  return column;
}

SQLSMALLINT TypeForVersion(SQLSMALLINT sql_type, SQLULEN odbc_version) {
  if (odbc_version >= SQL_OV_ODBC3) return sql_type;
  switch (sql_type) {
    case SQL_TYPE_DATE:
      return SQL_DATE;
    case SQL_TYPE_TIME:
      return SQL_TIME;
    case SQL_TYPE_TIMESTAMP:
      return SQL_TIMESTAMP;
    default:
      return sql_type;
  }
}

}  // namespace catalogsim
