#include "routes/exact/dialects.h"

#include <array>
#include <map>
#include <mutex>
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

// What is built in is right; a test reads every one of them.
std::shared_ptr<const Dialect> Parsed(const BuiltInDialect& built_in) {
  static std::mutex mutex;
  static std::map<std::string_view, std::shared_ptr<const Dialect>> parsed;
  const std::lock_guard lock(mutex);
  std::shared_ptr<const Dialect>& known = parsed[built_in.name];
  if (known == nullptr) {
    auto dialect = std::make_shared<Dialect>();
    static_cast<void>(ParseDialect(built_in.file, *dialect));
    known = std::move(dialect);
  }
  return known;
}

std::vector<const BuiltInDialect*> FindBuiltInDialects(std::string_view product) {
  std::vector<const BuiltInDialect*> made_for_it;
  std::vector<const BuiltInDialect*> for_any;
  for (const BuiltInDialect& candidate : BuiltInDialects()) {
    Dialect head;
    ReadDialectHead(candidate.file, head);
    if (!head.IsFor(product)) continue;
    (head.IsForAnyProduct() ? for_any : made_for_it).push_back(&candidate);
  }
  made_for_it.insert(made_for_it.end(), for_any.begin(), for_any.end());
  return made_for_it;
}

}  // namespace odbcimport::exact
