// Reads the foreign keys that refer to a table from SQLForeignKeys.
#include "routes/generic/foreign_key_reader.h"

#include "importer/workbook/workbook.h"
#include "routes/generic/connection_facts.h"
#include "routes/shared/relationship.h"

namespace odbcimport::generic {
void ForeignKeyReader::Row::Bind(odbc::Statement& statement) {
  SQLUSMALLINT column = 0;
  for (BoundText* text : {&key_qualifier, &key_owner, &key_table, &key_column, &foreign_qualifier,
                          &foreign_owner, &foreign_table, &foreign_column}) {
    text->Bind(statement, ++column);
  }
}

// Only what is read.
void ForeignKeyReader::Row::Empty() {
  key_column.Empty();
  foreign_table.Empty();
  foreign_column.Empty();
}

SQLRETURN ForeignKeyReader::OpenForeignKeys(const LcWorkbookTable& table) {
  return statement_.Open(
      session_.connection.hdbc(),
      [&](odbc::Statement& call) {
        return call.ForeignKeysTo(CatalogArgument(session_.choices),
                                  KeyOwnerArgument(session_.choices, table),
                                  table.GetName().c_str());
      },
      [this](odbc::Statement& bind) { row_.Bind(bind); });
}

void ForeignKeyReader::GetTableForeignKeysODBC(LcWorkbookTable& table,
                                               LcWorkbookTableList& tables) {
  if (!odbc::Succeeded(OpenForeignKeys(table))) {
    handleErrorMsgsODBC(session_, statement_.Get());
    statement_.EndResult();
    return;
  }
  Pending pending;
  LcWorkbookTable* last_looked_up = nullptr;
  for (;;) {
    row_.Empty();
    if (!odbc::Succeeded(statement_.Fetch())) break;
    // Required (simulated_route_test): the referencing table is looked for under the owner of the
    // referenced one. Drivers leave FKTABLE_OWNER empty or fill it with a catalog.
    name_ = row_.foreign_table.Read();
    last_looked_up = tables.FindTable(table.GetOwner(false), name_);
    if (last_looked_up == nullptr) {
      if (!table.GetOwner(false).empty() && tables.FindTableNoOwner(name_) != nullptr) {
        crossing_.Add(table.GetOwner(false), table.GetName());
      }
      continue;
    }
    name_ = row_.key_column.Read();
    LcWorkbookColumn* key_column = table.FindColumn(name_);
    name_ = row_.foreign_column.Read();
    LcWorkbookColumn* foreign_column = last_looked_up->FindColumn(name_);
    if (key_column == nullptr || foreign_column == nullptr) continue;

    if (pending.key_column != nullptr) Complete(pending, table, *pending.referencing);
    pending = {key_column, foreign_column, last_looked_up};
    session_.server().foreign_key_counter =
        static_cast<std::uint16_t>(session_.server().foreign_key_counter + 2);
  }
  statement_.EndResult();
  // Required (simulated_route_test): the last relationship goes by the table of the last row, even
  // where that row was left out. It is dropped when that table is not in the workbook, and its
  // mirror is held by that table otherwise. Hosts drop a mirror whose columns are another table's.
  if (pending.key_column != nullptr && last_looked_up != nullptr) {
    Complete(pending, table, *last_looked_up);
  } else if (pending.key_column != nullptr) {
    dropped_.Add(table.GetOwner(false), table.GetName());
  }
}

void ForeignKeyReader::Complete(const Pending& pending, LcWorkbookTable& table,
                                LcWorkbookTable& referencing) {
  AddRelationship(session_, table, *pending.key_column, referencing, *pending.foreign_column)
      .ApplyOneToOneRule();
}

}  // namespace odbcimport::generic
