#include "routes/exact/dialects.h"

#include <array>

#include "embedded_odbcimport_objects.h"

namespace odbcimport::exact {

std::span<const BuiltInDialect> BuiltInDialects() {
  static const std::array kDialects = {
      BuiltInDialect{"db2", files::kDb2},
      BuiltInDialect{"information_schema", files::kInformationSchema},
      BuiltInDialect{"informix", files::kInformix},
      BuiltInDialect{"mariadb", files::kMariadb},
      BuiltInDialect{"oracle", files::kOracle},
      BuiltInDialect{"postgresql", files::kPostgresql},
      BuiltInDialect{"sqlite", files::kSqlite},
      BuiltInDialect{"sqlserver", files::kSqlserver},
  };
  return kDialects;
}

std::vector<std::string_view> FindBuiltInDialects(std::string_view product) {
  std::vector<std::string_view> made_for_it;
  std::vector<std::string_view> for_any;
  for (const BuiltInDialect& candidate : BuiltInDialects()) {
    Dialect head;
    ReadDialectHead(candidate.file, head);
    if (!head.IsFor(product)) continue;
    (head.IsForAnyProduct() ? for_any : made_for_it).push_back(candidate.file);
  }
  made_for_it.insert(made_for_it.end(), for_any.begin(), for_any.end());
  return made_for_it;
}

}  // namespace odbcimport::exact
