// Statements on a connection of a test: rows as texts, diagnostics, catalog functions.
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <string>
#include <vector>

#include "tests/support/connection.h"

namespace wbtest {

using Row = std::vector<std::string>;  // UTF-8; NULL is "<null>"

class Statement {
 public:
  explicit Statement(const Connection& connection);
  ~Statement();
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  SQLHSTMT get() const { return handle_; }
  SQLRETURN Execute(const std::string& sql);
  // All rows of the open result, fetched one by one with SQLGetData.
  std::vector<Row> Rows();
  // SQLSTATE of the first diagnostic, empty without one.
  std::string State();

 private:
  SQLHSTMT handle_ = nullptr;
};

// Rows of one query; a failure is its SQLSTATE as the only cell.
std::vector<Row> Query(const Connection& connection, const std::string& sql);

// An argument of a catalog function; null for a null pointer.
std::vector<Row> Tables(const Connection& connection, const char* catalog, const char* owner,
                        const char* table, const char* types);
std::vector<Row> Columns(const Connection& connection, const char* owner, const char* table,
                         const char* column);

}  // namespace wbtest
