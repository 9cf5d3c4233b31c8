// See cell.h. Texts go from SQLite's memory straight into the program's buffer.
#include "simulator/cell.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <string_view>
#include <vector>

#include "simulator/text.h"

namespace catalogsim {
namespace {

// The value as UTF-8; numbers are written into `scratch`.
std::string_view TextOf(sqlite3_stmt* row, int index, char (&scratch)[32]) {
  switch (sqlite3_column_type(row, index)) {
    case SQLITE_INTEGER: {
      const auto end =
          std::to_chars(scratch, scratch + sizeof scratch, sqlite3_column_int64(row, index)).ptr;
      return {scratch, static_cast<std::size_t>(end - scratch)};
    }
    case SQLITE_FLOAT: {
      const int length =
          std::snprintf(scratch, sizeof scratch, "%.15g", sqlite3_column_double(row, index));
      return {scratch, static_cast<std::size_t>(length)};
    }
    default: {
      const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(row, index));
      return {text, static_cast<std::size_t>(sqlite3_column_bytes(row, index))};
    }
  }
}

CellOutcome WriteWide(std::string_view text, std::size_t padded_to, void* buffer, SQLLEN bytes,
                      SQLLEN* indicator) {
  auto* const out = static_cast<SQLWCHAR*>(buffer);
  const std::size_t capacity = bytes > 1 ? static_cast<std::size_t>(bytes) / 2 - 1 : 0;
  std::size_t units = WidenInto(text, out, capacity);
  for (; units < padded_to; ++units)
    if (units < capacity) out[units] = ' ';
  if (bytes > 1) out[std::min(units, capacity)] = 0;
  if (indicator != nullptr) *indicator = static_cast<SQLLEN>(units * 2);
  return units > capacity ? CellOutcome::kTruncated : CellOutcome::kWhole;
}

CellOutcome WriteNarrow(std::string_view text, std::size_t padded_to, bool terminated, void* buffer,
                        SQLLEN bytes, SQLLEN* indicator) {
  auto* const out = static_cast<char*>(buffer);
  std::size_t capacity = bytes > 0 ? static_cast<std::size_t>(bytes) : 0;
  if (terminated && capacity > 0) --capacity;
  const std::size_t length = std::max(text.size(), padded_to);
  for (std::size_t i = 0; i < std::min(length, capacity); ++i)
    out[i] = i < text.size() ? text[i] : ' ';
  if (terminated && bytes > 0) out[std::min(length, capacity)] = '\0';
  if (indicator != nullptr) *indicator = static_cast<SQLLEN>(length);
  return length > capacity ? CellOutcome::kTruncated : CellOutcome::kWhole;
}

template <class Number>
CellOutcome WriteNumber(Number number, void* buffer, SQLLEN* indicator) {
  std::memcpy(buffer, &number, sizeof number);
  if (indicator != nullptr) *indicator = sizeof number;
  return CellOutcome::kWhole;
}

// SQLGetData gives a text in pieces; the pieces before are skipped in a copy.
CellOutcome WriteRest(std::string_view text, const Column& column, SQLSMALLINT c_type, void* buffer,
                      SQLLEN bytes, SQLLEN* indicator, std::size_t skip) {
  if (c_type != SQL_C_WCHAR) {
    std::string padded(text);
    padded.resize(std::max(padded.size(), column.padded_to), ' ');
    const std::size_t skipped = std::min(skip, padded.size());
    return WriteNarrow(std::string_view(padded).substr(skipped), 0, c_type == SQL_C_CHAR, buffer,
                       bytes, indicator);
  }
  std::vector<SQLWCHAR> wide(std::max(text.size(), column.padded_to), ' ');
  const std::size_t units = std::max(WidenInto(text, wide.data(), wide.size()), column.padded_to);
  const std::size_t skipped = std::min(skip, units);
  const std::string rest = Narrow(wide.data() + skipped, units - skipped);
  return WriteWide(rest, 0, buffer, bytes, indicator);
}

}  // namespace

SQLSMALLINT DefaultCType(SQLSMALLINT sql_type) {
  switch (sql_type) {
    case SQL_WCHAR:
    case SQL_WVARCHAR:
    case SQL_WLONGVARCHAR:
      return SQL_C_WCHAR;
    case SQL_BINARY:
    case SQL_VARBINARY:
    case SQL_LONGVARBINARY:
      return SQL_C_BINARY;
    case SQL_TINYINT:
      return SQL_C_STINYINT;
    case SQL_SMALLINT:
      return SQL_C_SSHORT;
    case SQL_INTEGER:
      return SQL_C_SLONG;
    case SQL_BIGINT:
      return SQL_C_SBIGINT;
    case SQL_BIT:
      return SQL_C_BIT;
    case SQL_REAL:
      return SQL_C_FLOAT;
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return SQL_C_DOUBLE;
    default:
      return SQL_C_CHAR;
  }
}

std::size_t SizeOfCType(SQLSMALLINT c_type) {
  switch (c_type) {
    case SQL_C_BIT:
    case SQL_C_TINYINT:
    case SQL_C_STINYINT:
    case SQL_C_UTINYINT:
      return 1;
    case SQL_C_SHORT:
    case SQL_C_SSHORT:
    case SQL_C_USHORT:
      return 2;
    case SQL_C_LONG:
    case SQL_C_SLONG:
    case SQL_C_ULONG:
      return 4;
    case SQL_C_SBIGINT:
    case SQL_C_UBIGINT:
      return 8;
    case SQL_C_FLOAT:
      return sizeof(float);
    case SQL_C_DOUBLE:
      return sizeof(double);
    default:
      return 0;
  }
}

CellOutcome WriteCell(sqlite3_stmt* row, int index, const Column& column, SQLSMALLINT c_type,
                      void* buffer, SQLLEN bytes, SQLLEN* indicator, std::size_t skip) {
  if (sqlite3_column_type(row, index) == SQLITE_NULL) {
    if (indicator != nullptr) *indicator = SQL_NULL_DATA;
    return CellOutcome::kWhole;
  }
  if (c_type == SQL_C_DEFAULT) c_type = DefaultCType(column.sql_type);
  const sqlite3_int64 number = SizeOfCType(c_type) != 0 ? sqlite3_column_int64(row, index) : 0;
  switch (c_type) {
    case SQL_C_CHAR:
    case SQL_C_WCHAR:
    case SQL_C_BINARY: {
      char scratch[32];
      const std::string_view text = TextOf(row, index, scratch);
      if (skip > 0) return WriteRest(text, column, c_type, buffer, bytes, indicator, skip);
      if (c_type == SQL_C_WCHAR) return WriteWide(text, column.padded_to, buffer, bytes, indicator);
      return WriteNarrow(text, column.padded_to, c_type == SQL_C_CHAR, buffer, bytes, indicator);
    }
    case SQL_C_BIT:
    case SQL_C_TINYINT:
    case SQL_C_STINYINT:
    case SQL_C_UTINYINT:
      return WriteNumber(static_cast<std::int8_t>(number), buffer, indicator);
    case SQL_C_SHORT:
    case SQL_C_SSHORT:
    case SQL_C_USHORT:
      return WriteNumber(static_cast<std::int16_t>(number), buffer, indicator);
    case SQL_C_LONG:
    case SQL_C_SLONG:
    case SQL_C_ULONG:
      return WriteNumber(static_cast<std::int32_t>(number), buffer, indicator);
    case SQL_C_SBIGINT:
    case SQL_C_UBIGINT:
      return WriteNumber(static_cast<std::int64_t>(number), buffer, indicator);
    case SQL_C_FLOAT:
      return WriteNumber(static_cast<float>(sqlite3_column_double(row, index)), buffer, indicator);
    case SQL_C_DOUBLE:
      return WriteNumber(sqlite3_column_double(row, index), buffer, indicator);
    default:
      return CellOutcome::kUnusable;
  }
}

}  // namespace catalogsim
