// Reads the primary key of a table from SQLPrimaryKeys or from its unique indexes.
#include "routes/generic/primary_key_reader.h"

#include "routes/generic/connection_facts.h"

namespace odbcimport::generic {

void PrimaryKeyReader::GetTablePrimaryKeysODBC(LcWorkbookTable& table) {
  SQLRETURN result = key_statement_.Open(
      session_.connection.hdbc(),
      [&](odbc::Statement& call) {
        return call.PrimaryKeys(CatalogArgument(session_.choices),
                                KeyOwnerArgument(session_.choices, table), table.GetName().c_str());
      },
      [this](odbc::Statement& bind) {
        key_row_.owner.Bind(bind, 2);
        key_row_.table.Bind(bind, 3);
        key_row_.column.Bind(bind, 4);
        key_row_.sequence.Bind(bind, 5);
      });
  if (!odbc::Succeeded(result)) {
    if (result == SQL_ERROR) TakeColumnDiagnostic();
    key_statement_.EndResult();
    return;
  }
  for (;;) {
    key_row_.column.Empty();
    key_row_.sequence.Empty();
    result = key_statement_.Fetch();
    if (!odbc::Succeeded(result)) break;
    LcWorkbookColumn* column = FindColumn(table, key_row_.column.Read());
    if (column == nullptr) continue;
    column->SetPrimaryKey(true);
    table.GetPrimaryKey().InsertKeyColumn(column,
                                          static_cast<int>(key_row_.sequence.ReadOr(0)) - 1);
  }
  handleErrorMsgsODBC(session_, key_statement_.Get());
  if (result == SQL_ERROR) TakeColumnDiagnostic();
  key_statement_.EndResult();
}

void PrimaryKeyReader::GetIndexesODBC(LcWorkbookTable& table) {
  // Required (simulated_route_test): the owner is not passed. Drivers that have no primary keys
  // have no owners either, and some of them find nothing for an empty one.
  SQLRETURN result = index_statement_.Open(
      session_.connection.hdbc(),
      [&](odbc::Statement& call) {
        return call.Statistics(CatalogArgument(session_.choices), nullptr, table.GetName().c_str(),
                               SQL_INDEX_UNIQUE, SQL_ENSURE);
      },
      [this](odbc::Statement& bind) {
        index_row_.index.Bind(bind, 6);
        index_row_.column.Bind(bind, 9);
      });
  while (odbc::Succeeded(result)) {
    index_row_.column.Empty();
    result = index_statement_.Fetch();
    if (!odbc::Succeeded(result)) break;
    // A row about the table itself has no column.
    const std::u16string_view name = index_row_.column.Read();
    LcWorkbookColumn* column = name.empty() ? nullptr : FindColumn(table, name);
    if (column == nullptr) continue;
    if (!column->IsPrimaryKey()) table.GetPrimaryKey().AddKeyColumn(column);
    column->SetPrimaryKey(true);
  }
  handleErrorMsgsODBC(session_, index_statement_.Get());
  if (result == SQL_ERROR) handleErrorMsgsODBC(session_, index_statement_.Get());
  index_statement_.EndResult();
}

void PrimaryKeyReader::TakeColumnDiagnostic() {
  if (!column_statement_.IsAllocated()) return;
  handleErrorMsgsODBC(session_, column_statement_.Get());
}

LcWorkbookColumn* PrimaryKeyReader::FindColumn(const LcWorkbookTable& table,
                                               std::u16string_view name) {
  column_name_ = name;
  return table.FindColumn(column_name_);
}

}  // namespace odbcimport::generic
