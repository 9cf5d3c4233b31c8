// A statement for calls of one catalog function, bound once and used for many calls.
#include "routes/generic/catalog_statement.h"

namespace odbcimport::generic {

void CatalogStatement::CountColumns() {
  columns_ = 0;
  if (!odbc::Succeeded(statement_.NumResultCols(&columns_))) columns_ = -1;
}

// A driver that adds the columns of a new result to those of the old one (mdbtools: 18, 36, 54)
// cannot reuse a statement: the bindings would point into the wrong columns.
bool CatalogStatement::HasExpectedColumns() {
  CountColumns();
  return !bound_ || columns_ == bound_columns_;
}

void CatalogStatement::Renew(SQLHDBC hdbc) {
  Release();
  reusable_ = false;
  statement_.Allocate(hdbc);
}

void CatalogStatement::EndResult() {
  statement_.Cancel();
  // PostgreSQL refuses the next call after SQLCancel alone (S1010).
  statement_.Close();
  if (!reusable_) Release();
}

void CatalogStatement::Unbind() {
  if (bound_) statement_.Unbind();
  bound_ = false;
}

void CatalogStatement::Release() {
  if (!statement_.IsAllocated()) return;
  statement_.Cancel();
  statement_.Close();
  Unbind();
  statement_.Drop();
}

}  // namespace odbcimport::generic
