// Reads the primary key of a table from SQLPrimaryKeys, or makes one up from the unique indexes
// that SQLStatistics tells of where the driver has no primary keys.
#pragma once

#include <string>

#include "routes/generic/bound.h"
#include "routes/generic/catalog_statement.h"
#include "session/session.h"

namespace odbcimport::generic {

class PrimaryKeyReader {
 public:
  // The statements serve for all tables and are the caller's to release.
  PrimaryKeyReader(ImportSession& session, CatalogStatement& columns,
                   CatalogStatement& primary_keys, CatalogStatement& indexes)
      : session_(session),
        column_statement_(columns),
        key_statement_(primary_keys),
        index_statement_(indexes) {}

  // Marks the key's columns and puts them into the table's key list in the order of KEY_SEQ.
  void GetTablePrimaryKeysODBC(LcWorkbookTable& table);
  // Makes the columns of all unique indexes together the primary key, in the driver's order.
  // Required (simulated_route_test): without an index's name there is no telling them apart.
  void GetIndexesODBC(LcWorkbookTable& table);

 private:
  struct KeyRow {
    BoundText owner;
    BoundText table;
    BoundText column;
    BoundShort sequence;
  };
  struct IndexRow {
    BoundText index;
    BoundText column;
  };

  // Required (simulated_route_test): a failed primary-key call takes the diagnostic of the column
  // statement; its own goes with the next call on it. A host that logs diagnostics sees them in
  // this order.
  void TakeColumnDiagnostic();
  // Null when the table has no such column.
  [[nodiscard]] LcWorkbookColumn* FindColumn(const LcWorkbookTable& table,
                                             std::u16string_view name);

  ImportSession& session_;
  CatalogStatement& column_statement_;
  CatalogStatement& key_statement_;
  CatalogStatement& index_statement_;
  KeyRow key_row_;
  IndexRow index_row_;
  std::u16string column_name_;  // kept for its memory
};

}  // namespace odbcimport::generic
