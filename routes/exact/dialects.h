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
std::span<const BuiltInDialect> BuiltInDialects();

// The built-in dialects that may fit a product (SQL_DBMS_NAME, UTF-8): those made for it, then
// those for any product. Each is taken apart once in a process. Any thread may ask.
std::vector<std::shared_ptr<const Dialect>> FindBuiltInDialects(std::string_view product);

}  // namespace odbcimport::exact
