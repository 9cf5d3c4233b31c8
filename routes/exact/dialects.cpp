#include "routes/exact/dialects.h"

#include <algorithm>
#include <array>
#include <utility>

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

std::vector<std::shared_ptr<const Dialect>> FindBuiltInDialects(std::string_view product) {
  std::vector<std::shared_ptr<const Dialect>> found;
  for (const BuiltInDialect& candidate : BuiltInDialects()) {
    auto dialect = std::make_shared<Dialect>();
    // What is built in is right; a test reads every one of them.
    static_cast<void>(ParseDialect(candidate.file, *dialect));
    if (dialect->IsFor(product)) found.push_back(std::move(dialect));
  }
  std::stable_partition(found.begin(), found.end(),
                        [](const auto& dialect) { return !dialect->IsForAnyProduct(); });
  return found;
}

}  // namespace odbcimport::exact
