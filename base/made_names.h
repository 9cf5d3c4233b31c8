// Names that a server makes where nobody gave one, and that differ from database to database. All
// texts are UTF-8.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace base {

// The products whose habits are known.
enum class Product : std::uint8_t {
  kOther,
  kPostgreSQL,
  kMySQL,  // and MariaDB
  kSQLite,
  kOracle,
  kSQLServer,
  kSybase,
  kDB2,
  kInformix,
  kFirebird,
};
// By the name that a driver gives, upper and lower case alike; kOther for any other or none.
[[nodiscard]] Product FindProduct(std::string_view dbms_name);

enum class NamedKind : std::uint8_t {
  kPrimaryKey,
  kUniqueKey,
  kForeignKey,
  kIndex,
  kCheck,
  kSequence,
  kOther,
};

// Whether `name` is one that the server made, or none at all. `columns` are those of the object, an
// expression standing as "expr"; of a check, which does not tell, all of the table's.
[[nodiscard]] bool IsMadeName(Product product, NamedKind kind, const std::string& name,
                              const std::string& table, const std::vector<std::string>& columns);

}  // namespace base
