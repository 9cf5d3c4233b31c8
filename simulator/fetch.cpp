// See fetch.h.
#include "simulator/fetch.h"

#include <algorithm>

#include "simulator/row_place.h"

namespace catalogsim {
namespace {

const RowFault* FindRowFault(const FaultPlan& plan, const Result& result) {
  for (const RowFault& fault : plan.rows)
    if (fault.rows.Has(result.row) && fault.results.Has(result.number)) return &fault;
  return nullptr;
}

SQLUSMALLINT WriteRow(Statement& statement, const RowPlace& place, const RowFault* fault) {
  const Result& result = *statement.result;
  const int real_columns = sqlite3_column_count(result.rows.get());
  SQLUSMALLINT status = SQL_ROW_SUCCESS;
  const std::size_t bound = std::min(statement.bindings.size(), result.columns.size());
  for (std::size_t i = 0; i < bound; ++i) {
    const Binding& binding = statement.bindings[i];
    if (binding.buffer == nullptr) continue;
    SQLLEN* const indicator = place.Indicator(binding);
    const CellOutcome outcome =
        WriteCell(result.rows.get(), static_cast<int>(i) % real_columns, result.columns[i],
                  binding.c_type, place.Buffer(binding), binding.bytes, indicator);
    if (fault != nullptr && fault->kind == RowFault::Kind::kNoTotal && indicator != nullptr &&
        fault->column == static_cast<int>(i) + 1)
      *indicator = SQL_NO_TOTAL;
    if (outcome == CellOutcome::kUnusable) {
      statement.Fail("07006", "the column cannot be had in that type");
      return SQL_ROW_ERROR;
    }
    if (outcome == CellOutcome::kTruncated) status = SQL_ROW_SUCCESS_WITH_INFO;
  }
  if (status == SQL_ROW_SUCCESS_WITH_INFO && statement.diagnostics().empty())
    statement.Warn("01004", "a text was cut");
  return status;
}

}  // namespace

SQLRETURN FetchRowset(Statement& statement, SQLULEN rows, SQLUSMALLINT* row_status,
                      SQLULEN* rows_fetched) {
  if (statement.replay) return statement.replay->Fetch(rows, row_status, rows_fetched);
  if (!statement.result) return statement.Fail("24000", "there is no open result");
  Result& result = *statement.result;
  CallGate& gate = statement.connection().gate();
  const FaultPlan& plan = gate.plan();
  ++result.fetches;
  for (const Range& fetch : plan.fetches) {
    if (!fetch.Has(result.fetches)) continue;
    gate.CountFault();
    return statement.Fail("HY000", "simulated fault of the fetch");
  }
  const std::size_t distance = statement.connection().traits().row_distance;
  SQLULEN fetched = 0;
  SQLULEN errors = 0;
  while (fetched < rows && !result.at_end) {
    if (statement.options.max_rows != 0 && result.row >= statement.options.max_rows) break;
    const int step = sqlite3_step(result.rows.get());
    if (step != SQLITE_ROW) result.at_end = true;
    if (step == SQLITE_DONE) break;
    SQLUSMALLINT status = SQL_ROW_SUCCESS;
    ++result.row;
    const RowFault* const fault = plan.rows.empty() ? nullptr : FindRowFault(plan, result);
    if (fault != nullptr) gate.CountFault();
    if (step != SQLITE_ROW) {
      statement.Fail("HY000", sqlite3_errmsg(statement.connection().database()));
      status = SQL_ROW_ERROR;
    } else if (fault != nullptr && fault->kind == RowFault::Kind::kError) {
      statement.Fail("HY000", "simulated fault of the row");
      status = SQL_ROW_ERROR;
    } else if (fault != nullptr && fault->kind == RowFault::Kind::kDeleted) {
      status = SQL_ROW_DELETED;
    } else {
      status = WriteRow(statement, RowPlace(statement, distance, fetched), fault);
    }
    if (status == SQL_ROW_ERROR) ++errors;
    if (row_status != nullptr) row_status[fetched] = status;
    ++fetched;
  }
  if (row_status != nullptr) std::fill(row_status + fetched, row_status + rows, SQL_ROW_NOROW);
  if (rows_fetched != nullptr) *rows_fetched = fetched;
  std::fill(result.taken.begin(), result.taken.end(), 0);
  if (fetched == 0) return SQL_NO_DATA;
  if (errors > 0 && rows == 1) return SQL_ERROR;
  return statement.diagnostics().empty() ? SQL_SUCCESS : SQL_SUCCESS_WITH_INFO;
}

SQLRETURN GetData(Statement& statement, SQLUSMALLINT column, SQLSMALLINT c_type, void* buffer,
                  SQLLEN bytes, SQLLEN* indicator) {
  if (statement.replay) return statement.replay->GetData(column, c_type, buffer, bytes, indicator);
  if (!statement.result || statement.result->row == 0)
    return statement.Fail("24000", "there is no current row");
  Result& result = *statement.result;
  if (column < 1 || column > result.columns.size())
    return statement.Fail("07009", "there is no such column");
  const int index = (column - 1) % sqlite3_column_count(result.rows.get());
  const Column& described = result.columns[column - 1U];
  std::size_t& taken = result.taken[column - 1U];
  if (taken == SIZE_MAX) return SQL_NO_DATA;
  const CellOutcome outcome =
      WriteCell(result.rows.get(), index, described, c_type, buffer, bytes, indicator, taken);
  switch (outcome) {
    case CellOutcome::kUnusable:
      return statement.Fail("07006", "the column cannot be had in that type");
    case CellOutcome::kWhole:
      taken = SIZE_MAX;
      return SQL_SUCCESS;
    case CellOutcome::kTruncated:
      break;
  }
  const SQLSMALLINT given_type =
      c_type == SQL_C_DEFAULT ? DefaultCType(described.sql_type) : c_type;
  const auto room = static_cast<std::size_t>(std::max<SQLLEN>(bytes, 0));
  taken += given_type == SQL_C_WCHAR  ? (room > 1 ? room / 2 - 1 : 0)
           : given_type == SQL_C_CHAR ? (room > 0 ? room - 1 : 0)
                                      : room;
  return statement.Warn("01004", "a text was cut");
}

}  // namespace catalogsim
