// Reads the foreign keys that refer to a table from SQLForeignKeys.
#pragma once

#include <string>

#include "routes/generic/bound.h"
#include "routes/generic/catalog_statement.h"
#include "routes/shared/lost_keys.h"
#include "session/session.h"

namespace odbcimport::generic {

class ForeignKeyReader {
 public:
  // `statement` serves for all tables and is the caller's to release.
  ForeignKeyReader(ImportSession& session, CatalogStatement& statement)
      : session_(session),
        statement_(statement),
        dropped_(session, u"foreign keys",
                 u"the key before the last is left out where the last one's table is not read; the "
                 u"exact reading has it"),
        crossing_(session, u"foreign keys",
                  u"a key across owners is left out; the exact reading has it") {}

  // Adds two keys for every pair of columns, one to `table` (the referenced one) and its mirror to
  // the referencing table among `tables`. Every pair makes a relationship of its own, also those of
  // one foreign key with several columns. Required (simulated_route_test): stored models have them.
  // Pairs that name a table or column that is not in the workbook are left out.
  void GetTableForeignKeysODBC(LcWorkbookTable& table, LcWorkbookTableList& tables);

 private:
  struct Row {
    BoundText key_qualifier, key_owner, key_table, key_column;
    BoundText foreign_qualifier, foreign_owner, foreign_table, foreign_column;
    void Bind(odbc::Statement& statement);
    void Empty();
  };
  // A relationship that is completed when the next one begins, or at the end.
  struct Pending {
    LcWorkbookColumn* key_column = nullptr;  // null: there is none
    LcWorkbookColumn* foreign_column = nullptr;
    LcWorkbookTable* referencing = nullptr;
  };

  SQLRETURN OpenForeignKeys(const LcWorkbookTable& table);
  void Complete(const Pending& pending, LcWorkbookTable& table, LcWorkbookTable& referencing);

  ImportSession& session_;
  CatalogStatement& statement_;
  Row row_;
  std::u16string name_;  // kept for its memory
  LostKeys dropped_;
  LostKeys crossing_;
};

}  // namespace odbcimport::generic
