// Every call of the ODBC driver manager that the module makes, and the statement handle. All calls
// pass through here, so that one switch shows them all: the call log among the platform's services.
//
// Texts are UTF-16. A null text argument of a catalog function is passed as a null pointer of
// length 0; any other is passed with SQL_NTS. Every output is zeroed before the call, since drivers
// leave outputs unwritten or write half of them.
#pragma once

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "odbc/diagnostic.h"

namespace odbc {

[[nodiscard]] inline bool Succeeded(SQLRETURN result) {
  return result == SQL_SUCCESS || result == SQL_SUCCESS_WITH_INFO;
}

// The text of SQL_DBMS_NAME, SQL_DBMS_VER and the like, at most 127 characters. Empty when the
// driver has no answer.
[[nodiscard]] std::u16string GetInfoText(SQLHDBC hdbc, SQLUSMALLINT info);
// A 32-bit mask. `mask` is 0 when the driver has no answer.
[[nodiscard]] SQLRETURN GetInfoMask(SQLHDBC hdbc, SQLUSMALLINT info, SQLUINTEGER* mask);
// False, too, when the driver does not answer.
[[nodiscard]] bool HasFunction(SQLHDBC hdbc, SQLUSMALLINT function);
// Fills the 100 entries of the ODBC 2 table of functions; all 0 when the driver does not answer.
void GetAllFunctions(SQLHDBC hdbc, SQLUSMALLINT table[100]);

// A numeric option of the connection; `fallback` when the driver does not answer.
[[nodiscard]] SQLULEN GetConnectOption(SQLHDBC hdbc, SQLUSMALLINT option, SQLULEN fallback);

// The version of ODBC that the host asked for (SQL_OV_ODBC2, SQL_OV_ODBC3, ...); 0 when it asked
// for none or the handle is not valid.
[[nodiscard]] SQLINTEGER GetRequestedVersion(SQLHENV henv);
// Whether the handle is that of a connection that was opened and is not known to be lost.
[[nodiscard]] bool IsOpen(SQLHDBC hdbc);

// Takes the pending diagnostic of the statement (or of the connection when `hstmt` is null). False
// when there is none. `max_characters` is the size of the message's
// buffer, the terminator included.
[[nodiscard]] bool TakeDiagnostic(SQLHENV henv, SQLHDBC hdbc, SQLHSTMT hstmt,
                                  Diagnostic* diagnostic, SQLSMALLINT max_characters = 511);

// How much of a result was read, against the services' limits. Rows of a rowset count as their
// first one does.
class ResultSize {
 public:
  void Bind(SQLUSMALLINT column, const SQLLEN* indicator, SQLLEN bytes);
  void Unbind() { cells_.clear(); }
  void Restart() { rows_ = bytes_ = 0; }
  void AddRows(std::uint64_t rows);
  void AddBytes(SQLLEN bytes) { bytes_ += static_cast<std::uint64_t>(bytes); }
  [[nodiscard]] bool IsExceeded() const;

 private:
  struct Cell {
    const SQLLEN* indicator = nullptr;
    SQLLEN bytes = 0;
  };
  std::vector<Cell> cells_;  // by number of the column
  std::uint64_t rows_ = 0;
  std::uint64_t bytes_ = 0;
};

// A statement on a borrowed connection. Move-only; drops itself.
class Statement {
 public:
  Statement() = default;
  ~Statement() { Drop(); }
  Statement(Statement&& other) noexcept;
  Statement& operator=(Statement&& other) noexcept;
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  // Drops a statement that is there already.
  SQLRETURN Allocate(SQLHDBC hdbc);
  [[nodiscard]] bool IsAllocated() const { return handle_ != SQL_NULL_HSTMT; }
  [[nodiscard]] SQLHSTMT Get() const { return handle_; }

  SQLRETURN SetOption(SQLUSMALLINT option, SQLULEN value);
  // `heading`: the names of the result columns that the program expects, for those who listen to
  // the calls; empty where it takes what comes.
  SQLRETURN ExecDirect(const std::u16string& sql, std::u16string_view heading = {});
  SQLRETURN Tables(const char16_t* catalog, const char16_t* owner, const char16_t* table,
                   const char16_t* types);
  SQLRETURN Columns(const char16_t* catalog, const char16_t* owner, const char16_t* table,
                    const char16_t* column);
  SQLRETURN Statistics(const char16_t* catalog, const char16_t* owner, const char16_t* table,
                       SQLUSMALLINT unique, SQLUSMALLINT accuracy);
  SQLRETURN PrimaryKeys(const char16_t* catalog, const char16_t* owner, const char16_t* table);
  // The foreign keys that refer to the table.
  SQLRETURN ForeignKeysTo(const char16_t* catalog, const char16_t* owner, const char16_t* table);
  SQLRETURN Procedures(const char16_t* catalog, const char16_t* owner, const char16_t* procedure);
  SQLRETURN GetTypeInfo(SQLSMALLINT type);

  // `count` is 0 when the driver has no answer.
  SQLRETURN NumResultCols(SQLSMALLINT* count);
  // `name` has room for `name_characters`, the terminator included, and always ends with one.
  SQLRETURN DescribeCol(SQLUSMALLINT column, char16_t* name, SQLSMALLINT name_characters,
                        SQLSMALLINT* sql_type);
  // `bytes` is the size of the buffer (of one row's part of it in a rowset). `row_bytes` is the
  // memory that there is for a row, where that is more; only a call log is told of it.
  SQLRETURN BindCol(SQLUSMALLINT column, SQLSMALLINT c_type, void* buffer, SQLLEN bytes,
                    SQLLEN* indicator, SQLLEN row_bytes = 0);
  SQLRETURN Fetch();
  // An input parameter, by number from 1. `size` is the value's size in characters; the buffers are
  // read when the statement is executed.
  SQLRETURN BindParameter(SQLUSMALLINT number, SQLSMALLINT c_type, SQLSMALLINT sql_type,
                          SQLULEN size, const void* buffer, SQLLEN bytes, SQLLEN* indicator);
  // A cell of the row that was fetched last, or its next piece where it is longer than `bytes`.
  SQLRETURN GetData(SQLUSMALLINT column, SQLSMALLINT c_type, void* buffer, SQLLEN bytes,
                    SQLLEN* indicator);
  // `rows` receives what the driver claims, which can be more than the rowset has.
  SQLRETURN ExtendedFetch(SQLULEN* rows, SQLUSMALLINT* row_status);

  SQLRETURN Cancel();
  SQLRETURN Close();   // SQLFreeStmt(SQL_CLOSE)
  SQLRETURN Unbind();  // SQLFreeStmt(SQL_UNBIND)
  void Drop();         // SQLFreeStmt(SQL_DROP); nothing when there is no statement

 private:
  SQLHSTMT handle_ = SQL_NULL_HSTMT;
  ResultSize size_;
};

}  // namespace odbc
