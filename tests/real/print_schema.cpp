// Prints the tests' schema as SQL for a server's own shell. Usage: print_schema SERVER TABLES
#include <cstdlib>
#include <iostream>
#include <string_view>

#include "tests/real/schema.h"

int main(int argc, char** argv) {
  const std::string_view server = argc == 3 ? argv[1] : "";
  const real::Dialect* dialect = server == "postgresql" ? &real::kPostgreSQLDialect
                                 : server == "mariadb"  ? &real::kMariaDBDialect
                                 : server == "sqlite"   ? &real::kSQLiteDialect
                                                        : nullptr;
  if (dialect == nullptr) {
    std::cerr << "usage: print_schema postgresql|mariadb|sqlite TABLES\n";
    return 2;
  }
  if (server == "postgresql") {
    for (const std::string& owner : dialect->owners) {
      std::cout << "CREATE SCHEMA \"" << owner << "\";\n";
    }
  }
  for (const std::string& statement : real::MakeSchema(*dialect, std::atoi(argv[2]))) {
    std::cout << statement << ";\n";
  }
}
