// Makes the schema that the real servers are asked for: tables in which everything occurs that a
// catalog reader can stumble over.
#pragma once

#include <string>
#include <vector>

namespace real {

// How a server wants it.
struct Dialect {
  char quote;                       // around names; doubled inside
  std::vector<std::string> owners;  // the tables are spread over them; {""}: no owners
  std::vector<std::string> types;   // column types beside those that every server has
  bool inline_foreign_keys;         // in CREATE TABLE, for servers that cannot add them later
};

// Statements to run in order. The odd tables are in the first owner, beside `tables` plain ones.
std::vector<std::string> MakeSchema(const Dialect& dialect, int tables = 300);

extern const Dialect kPostgreSQLDialect;
extern const Dialect kMariaDBDialect;
extern const Dialect kSQLiteDialect;

constexpr const char* kNameOf63 = "a23456789b23456789c23456789d23456789e23456789f23456789g23456789";

}  // namespace real
