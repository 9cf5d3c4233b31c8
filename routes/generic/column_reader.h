// Reads the columns of tables from SQLColumns and gives each its data type.
//
// Owner and name of a table are passed as they stand, so an underscore in a name is a pattern: the
// columns of a table that it matches as well are added too. Required (sqlite_route_test), as are
// the names that are read in part (bound.h): escaping works in some drivers only.
#pragma once

#include <string_view>

#include "catalogues/type_lists.h"
#include "routes/generic/bound.h"
#include "routes/generic/catalog_statement.h"
#include "session/session.h"

namespace odbcimport::generic {

class ColumnReader {
 public:
  // `statement` serves for all tables and is the caller's to release.
  ColumnReader(ImportSession& session, CatalogStatement& statement)
      : session_(session), statement_(statement) {}

  // Reports every column and adds it to the table. False when the driver failed.
  [[nodiscard]] bool GetTableColumnsODBC(LcWorkbookTable& table);
  // Names and types of the columns of the single table that the host asked for.
  [[nodiscard]] bool GetColumnNamesForTableODBC();

 private:
  struct Row {
    BoundText name;
    BoundLong data_type;
    BoundText type_name;
    BoundLong precision;
    BoundLong length;
    BoundLong scale;
    BoundLong nullable;
    void Bind(odbc::Statement& statement);
    void Empty();
  };

  SQLRETURN OpenColumns(CatalogStatement& statement, const std::u16string& owner,
                        const std::u16string& table);
  void AddColumn(LcWorkbookTable& table);
  // The type from the importer's own list; none when the list has none.
  void MapDataTypes(LcWorkbookColumn& column, long odbc_type);

  ImportSession& session_;
  CatalogStatement& statement_;
  Row row_;
};

// Informix through the generic route: the types that its driver names in its own way. False when
// the column received no type. Required (generic readers_test): a SERIAL type is added to
// `importer_types` for every such column (the list is the importer's own, and its first entry is
// the one that is found), and to `workbook_types` (may be null) once.
[[nodiscard]] bool AccountForIUSVariations(LcWorkbookColumn* column, std::u16string_view type_name,
                                           LcWorkbookDatatypeList* importer_types,
                                           LcWorkbookDatatypeList* workbook_types);

}  // namespace odbcimport::generic
