// One call of an ODBC driver, as a call log is told of it: what was asked, what came back, and the
// memory that the driver fills. Everything here is borrowed and valid during the report alone, but
// for the buffers of SQLBindCol and SQLBindParameter, which the caller keeps as long as they are
// bound. Types, codes and numbers are ODBC's own.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <variant>

namespace platform {

// A number; a text of UTF-16 that ends with a zero, null where the driver was passed none; a text
// that is as long as the view; a table of numbers.
using DriverValue = std::variant<std::int64_t, const char16_t*, std::u16string_view,
                                 std::span<const std::uint16_t>>;

struct DriverField {
  const char* name;
  DriverValue value;
};

// Memory that the driver was given for a result column or a parameter.
struct DriverBuffer {
  int number;  // of the column or parameter, from 1
  int c_type;
  void* data;               // null: the column is bound no more
  std::int64_t bytes;       // what the driver was told, of one row in a rowset
  std::int64_t* indicator;  // may be null
  std::int64_t row_bytes;   // the memory that there is for one row, at least `bytes`
};

// What a fetch says of the rows in the bound buffers.
struct DriverRows {
  std::uint64_t count;          // as the driver claims, which can be more than the rowset has
  const std::uint16_t* status;  // one for each row of the rowset; null: all are well
};

struct DriverCall {
  const char* function;  // "SQLExecDirectW"
  void* handle;          // that it was made on
  bool on_statement = true;
  short result = 0;  // the return code
  std::span<const DriverField> asked = {};
  std::span<const DriverField> answered = {};
  void* made = nullptr;                  // the statement that SQLAllocStmt made
  const DriverBuffer* buffer = nullptr;  // of SQLBindCol, SQLBindParameter and SQLGetData
  const DriverRows* rows = nullptr;      // of a fetch
  // Where the call was not made: why, in words for a user. Its result is SQL_ERROR then.
  const char* refused = nullptr;
};

}  // namespace platform
