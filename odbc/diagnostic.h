// A diagnostic record of the driver manager. Needs no header of ODBC.
#pragma once

#include <cstdint>
#include <string>

namespace odbc {

struct Diagnostic {
  char16_t state[6] = {};
  std::int32_t native_error = 0;
  std::u16string message;
};

}  // namespace odbc
