// Reads owners, tables and views from SQLTables: as names for a host's selection dialogs, or as
// tables that the column and key readers fill.
//
// Names that a host selected are passed as they stand, so an underscore or a per cent sign in them
// is a pattern. Required (sqlite_route_test): hosts offer it to their users as a way to select.
#pragma once

#include "routes/generic/bound.h"
#include "routes/generic/catalog_statement.h"
#include "session/session.h"

namespace odbcimport::generic {

class TableReader {
 public:
  explicit TableReader(ImportSession& session) : session_(session) {}

  // False when the driver failed in the end.
  [[nodiscard]] bool GetOwnerNamesODBC();
  // All tables and views, or all tables of every kind of the owner that the import is restricted
  // to. `names_only` tells whether they go to the list of names or to the list of tables. What
  // the driver gave before it failed is kept.
  void GetTablesAndViewsODBC(bool names_only);
  // The tables and views of the selected owners, and the selected ones; one that is both comes
  // twice.
  void GetRequestedTablesAndViewsODBC(bool names_only);
  // ODBC has no catalog function for synonyms; neither reads anything. A request for selected
  // synonyms fails, which ends the route before it reads columns. Required (sqlite_route_test): the
  // user would take the result for complete.
  [[nodiscard]] bool GetSynonymsODBC(bool names_only);
  [[nodiscard]] bool GetRequestedSynonymsODBC(bool names_only);

 private:
  SQLRETURN OpenTables(const char16_t* owner, const char16_t* table, const char16_t* types);
  void ReadRows(bool names_only);
  // False at the end of the rows.
  [[nodiscard]] bool GetTableODBC(bool names_only);
  void GetSystemTablesODBC();

  ImportSession& session_;
  CatalogStatement statement_;
  BoundText owner_;
  BoundText name_;
  BoundText type_;  // the type of the row at hand, and before it the list of types to ask for
};

}  // namespace odbcimport::generic
