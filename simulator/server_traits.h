// What is known of a server besides its script, one row each.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "simulator/functions.h"

namespace catalogsim {

// What of its SQL has to be rewritten for SQLite (docs/simulator.md).
enum Dialect : std::uint32_t {
  kNoDialect = 0,
  kDoubleQuotedTexts = 1,  // "x" is a text, not a name
  kColonCasts = 2,         // x::type
  kOuterKeyword = 4,       // FROM a, OUTER b
  kDatabasePrefix = 8,     // database@server:owner.table
  kDatabaseLinks = 16,     // table@link
  kIndexCol = 32,          // index_col(table, index, key)
  kKeywordNames = 64,      // SYSCAT.REFERENCES, a.default
  kNoBareNull = 128,       // NULL is no column of a SELECT
  kLongColumns = 256,      // LONG columns in expressions are refused
};

struct ServerTraits {
  std::string_view name;                 // the connection string's Server=
  const std::string_view* script;        // null: a recording is played
  const std::string_view* scale_script;  // null: no generated tables
  bool library = false;                  // servers/library.sql runs before the script
  bool shop = false;                     // servers/shop.sql runs before the script
  std::string_view dbms_name;
  std::string_view dbms_version;
  std::string_view catalog;     // of every object, empty: none
  std::uint32_t owner_usage;    // SQL_OWNER_USAGE
  std::uint32_t catalog_usage;  // SQL_QUALIFIER_USAGE
  std::uint32_t dialect;        // Dialect bits
  // Bytes between two rows of a text column in a rowset, whatever length was bound; 0: that length.
  std::uint16_t row_distance;
  bool wide;                                    // its character columns are SQL_WCHAR and so on
  std::array<std::string_view, 4> schemas;      // databases to attach, see docs/simulator.md
  std::array<FunctionId, 4> missing_functions;  // that its driver does not have
};

// Null when there is no such server. Upper and lower case do not matter.
[[nodiscard]] const ServerTraits* FindServer(std::string_view name);

}  // namespace catalogsim
