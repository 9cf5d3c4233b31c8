// Where the values of a row of a rowset lie in a program's memory.
#pragma once

#include "simulator/handles.h"

namespace catalogsim {

class RowPlace {
 public:
  // `row_distance`: bytes between the rows of a text column, 0 for its bound length. `row` is
  // counted from 0.
  RowPlace(const Statement& statement, std::size_t row_distance, SQLULEN row)
      : row_(row), by_row_(statement.options.row_bind_type), distance_(row_distance) {}

  [[nodiscard]] void* Buffer(const Binding& binding) const {
    std::size_t stride = by_row_;
    if (stride == 0) stride = SizeOfCType(binding.c_type);
    if (stride == 0) stride = distance_ != 0 ? distance_ : static_cast<std::size_t>(binding.bytes);
    return Offset(static_cast<char*>(binding.buffer), row_ * stride);
  }
  [[nodiscard]] SQLLEN* Indicator(const Binding& binding) const {
    if (binding.indicator == nullptr) return nullptr;
    return Offset(binding.indicator, row_ * (by_row_ != 0 ? by_row_ : sizeof(SQLLEN)));
  }

 private:
  template <class Value>
  [[nodiscard]] static Value* Offset(Value* base, std::size_t bytes) {
    return reinterpret_cast<Value*>(reinterpret_cast<char*>(base) + bytes);
  }

  std::size_t row_;
  std::size_t by_row_;  // bytes from row to row of row-wise binding; 0: column-wise
  std::size_t distance_;
};

}  // namespace catalogsim
