// Buffers that result columns of the catalog functions are bound to, and how they are read.
//
// They survive drivers that misreport: a NULL can leave the text of the row before in the buffer
// (PostgreSQL, MariaDB), an indicator can be written with 32 bits into its 64-bit slot (mdbtools),
// a cut can be told by the indicator alone (MariaDB), and a length can be wrong. So a buffer is
// emptied before every row, the indicator is looked at first and for nothing but NULL, and a text
// ends at its terminator, within what was bound.
#pragma once

#include <cstdint>
#include <string_view>

#include "odbc/driver.h"

namespace odbcimport::generic {

// mdbtools sets the lower half of the slot only, and the slot was 0 before.
[[nodiscard]] inline bool IsNull(SQLLEN indicator) {
  return static_cast<std::int32_t>(indicator) == SQL_NULL_DATA;
}

// A text. Required (sqlite_route_test): the buffer is bound with 128 bytes, less than it has. At
// most 63 characters of a name arrive, the driver cuts the rest; stored selections hold the cut
// names.
class BoundText {
 public:
  static constexpr std::size_t kBoundBytes = 128;
  static constexpr std::size_t kMaxCharacters = kBoundBytes / sizeof(char16_t) - 1;

  void Bind(odbc::Statement& statement, SQLUSMALLINT column) {
    statement.BindCol(column, SQL_C_WCHAR, text_, kBoundBytes, &indicator_);
  }
  void Empty() {
    text_[0] = 0;
    indicator_ = 0;
  }
  // Appends characters as far as the buffer has room.
  void Append(std::u16string_view text) {
    std::size_t end = std::u16string_view(text_).size();
    for (std::size_t i = 0; i < text.size() && end + 1 < kCharacters; ++i) text_[end++] = text[i];
    text_[end] = 0;
  }
  [[nodiscard]] bool IsEmpty() const { return text_[0] == 0; }
  // Empty for NULL. Ends with a zero; valid until the next row.
  [[nodiscard]] std::u16string_view Read() {
    if (IsNull(indicator_)) text_[0] = 0;
    text_[kMaxCharacters] = 0;
    return text_;
  }
  // The text as an argument of a catalog function; null when it is empty.
  [[nodiscard]] const char16_t* ArgumentOrNull() const { return IsEmpty() ? nullptr : text_; }

 private:
  static constexpr std::size_t kCharacters = 129;
  char16_t text_[kCharacters] = {};
  SQLLEN indicator_ = 0;
};

// A whole number.
template <class Integer, SQLSMALLINT kCType>
class BoundNumber {
 public:
  void Bind(odbc::Statement& statement, SQLUSMALLINT column) {
    statement.BindCol(column, kCType, &value_, sizeof value_, &indicator_);
  }
  void Empty() {
    value_ = 0;
    indicator_ = 0;
  }
  [[nodiscard]] long ReadOr(long when_null) const {
    return IsNull(indicator_) ? when_null : value_;
  }

 private:
  Integer value_ = 0;
  SQLLEN indicator_ = 0;
};

using BoundLong = BoundNumber<SQLINTEGER, SQL_C_LONG>;
using BoundShort = BoundNumber<SQLSMALLINT, SQL_C_SSHORT>;

}  // namespace odbcimport::generic
