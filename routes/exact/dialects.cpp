#include "routes/exact/dialects.h"

#include <array>

#include "embedded_odbcimport_objects.h"

namespace odbcimport::exact {

std::span<const BuiltInDialect> BuiltInDialects() {
  static const std::array kDialects = {
      BuiltInDialect{"mariadb", files::kMariadb},
      BuiltInDialect{"postgresql", files::kPostgresql},
      BuiltInDialect{"sqlite", files::kSqlite},
  };
  return kDialects;
}

std::shared_ptr<const Dialect> FindBuiltInDialect(std::string_view product) {
  for (const BuiltInDialect& candidate : BuiltInDialects()) {
    auto dialect = std::make_shared<Dialect>();
    // What is built in is right; a test reads every one of them.
    static_cast<void>(ParseDialect(candidate.file, *dialect));
    if (dialect->IsFor(product)) return dialect;
  }
  return nullptr;
}

}  // namespace odbcimport::exact
