// Statements on a connection of a test.
#include "tests/support/statement.h"

namespace wbtest {
namespace {

SQLCHAR* Bytes(const char* text) { return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text)); }
SQLSMALLINT LengthOf(const char* text) { return text != nullptr ? SQL_NTS : 0; }

std::vector<Row> RowsOr(Statement& statement, SQLRETURN result) {
  if (!SQL_SUCCEEDED(result)) return {{statement.State()}};
  return statement.Rows();
}

}  // namespace

Statement::Statement(const Connection& connection) {
  SQLAllocHandle(SQL_HANDLE_STMT, connection.hdbc(), &handle_);
}

// A release that fails leaves the statement, and is tried again.
Statement::~Statement() {
  if (!SQL_SUCCEEDED(SQLFreeHandle(SQL_HANDLE_STMT, handle_)))
    SQLFreeHandle(SQL_HANDLE_STMT, handle_);
}

SQLRETURN Statement::Execute(const std::string& sql) {
  return SQLExecDirect(handle_, Bytes(sql.c_str()), SQL_NTS);
}

std::vector<Row> Statement::Rows() {
  SQLSMALLINT columns = 0;
  SQLNumResultCols(handle_, &columns);
  std::vector<Row> rows;
  while (columns > 0 && SQL_SUCCEEDED(SQLFetch(handle_))) {
    Row& row = rows.emplace_back();
    for (SQLUSMALLINT column = 1; column <= columns; ++column) {
      char cell[4096] = {};
      SQLLEN indicator = 0;
      SQLGetData(handle_, column, SQL_C_CHAR, cell, sizeof cell, &indicator);
      row.emplace_back(indicator == SQL_NULL_DATA ? "<null>" : cell);
    }
  }
  return rows;
}

std::string Statement::State() {
  SQLCHAR state[6] = {};
  SQLGetDiagRec(SQL_HANDLE_STMT, handle_, 1, state, nullptr, nullptr, 0, nullptr);
  return reinterpret_cast<char*>(state);
}

std::vector<Row> Query(const Connection& connection, const std::string& sql) {
  Statement statement(connection);
  return RowsOr(statement, statement.Execute(sql));
}

std::vector<Row> Tables(const Connection& connection, const char* catalog, const char* owner,
                        const char* table, const char* types) {
  Statement statement(connection);
  return RowsOr(statement, SQLTables(statement.get(), Bytes(catalog), LengthOf(catalog),
                                     Bytes(owner), LengthOf(owner), Bytes(table), LengthOf(table),
                                     Bytes(types), LengthOf(types)));
}

std::vector<Row> Columns(const Connection& connection, const char* owner, const char* table,
                         const char* column) {
  Statement statement(connection);
  return RowsOr(statement,
                SQLColumns(statement.get(), nullptr, 0, Bytes(owner), LengthOf(owner), Bytes(table),
                           LengthOf(table), Bytes(column), LengthOf(column)));
}

}  // namespace wbtest
