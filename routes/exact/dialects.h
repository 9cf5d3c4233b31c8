// The dialects that are built into the module.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "routes/exact/dialect.h"

namespace odbcimport::exact {

struct BuiltInDialect {
  std::string_view name;
  std::string_view file;  // its text
};
std::span<const BuiltInDialect> BuiltInDialects();

// The built-in dialect for a product (SQL_DBMS_NAME, UTF-8); null where there is none.
std::shared_ptr<const Dialect> FindBuiltInDialect(std::string_view product);

}  // namespace odbcimport::exact
