// The dialects that are built into the module.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "routes/exact/dialect.h"

namespace odbcimport::exact {

struct BuiltInDialect {
  std::string_view name;
  std::string_view file;  // its text
};
[[nodiscard]] std::span<const BuiltInDialect> BuiltInDialects();

// The built-in dialects that may fit a product (SQL_DBMS_NAME, UTF-8): those made for it, then
// those for any product.
[[nodiscard]] std::vector<const BuiltInDialect*> FindBuiltInDialects(std::string_view product);
// What it says. It is taken apart once in a process; any thread may ask.
[[nodiscard]] std::shared_ptr<const Dialect> Parsed(const BuiltInDialect& built_in);

}  // namespace odbcimport::exact
