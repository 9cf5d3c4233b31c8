// A statement for calls of one catalog function, bound once and used for many calls.
#pragma once

#include "odbc/driver.h"

namespace odbcimport::generic {

class CatalogStatement {
 public:
  CatalogStatement() = default;
  ~CatalogStatement() { Release(); }
  CatalogStatement(const CatalogStatement&) = delete;
  CatalogStatement& operator=(const CatalogStatement&) = delete;

  [[nodiscard]] bool IsAllocated() const { return statement_.IsAllocated(); }
  [[nodiscard]] SQLHSTMT Get() const { return statement_.Get(); }

  // Runs `call`, which makes one catalog call on the statement it is given, and has `bind` bind the
  // result columns unless they are bound. Returns what the call returned. `call` runs twice when
  // the driver turns out not to reuse statements.
  template <class Call, class Bind>
  SQLRETURN Open(SQLHDBC hdbc, const Call& call, const Bind& bind) {
    if (!statement_.IsAllocated()) statement_.Allocate(hdbc);
    SQLRETURN result = call(statement_);
    if (!odbc::Succeeded(result)) return result;
    if (!HasExpectedColumns()) {
      Renew(hdbc);
      result = call(statement_);
      if (!odbc::Succeeded(result)) return result;
      CountColumns();
    }
    if (!bound_ && columns_ != 0) {
      bind(statement_);
      bound_ = true;
      bound_columns_ = columns_;
    }
    return result;
  }
  // SQL_NO_DATA_FOUND, without asking the driver, for a result without columns: mdbtools crashes
  // on a fetch there.
  SQLRETURN Fetch() { return columns_ == 0 ? SQLRETURN{SQL_NO_DATA_FOUND} : statement_.Fetch(); }
  // Ends a result; statement and bindings stay for the next call.
  void EndResult();
  void Unbind();
  void Release();

 private:
  void CountColumns();
  [[nodiscard]] bool HasExpectedColumns();
  void Renew(SQLHDBC hdbc);

  odbc::Statement statement_;
  SQLSMALLINT columns_ = 0;        // of the result at hand; -1: the driver does not say
  SQLSMALLINT bound_columns_ = 0;  // of the result that was bound
  bool bound_ = false;
  bool reusable_ = true;
};

}  // namespace odbcimport::generic
