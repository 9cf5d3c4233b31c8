// The readers of synonyms with the columns of their base tables.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "odbc/record_list.h"
#include "routes/shared/name_boundary.h"
#include "session/session.h"

namespace odbcimport::native {

// Synonyms of tables in the same database, which a query delivers with their columns.
class LocalSynonymReader {
 public:
  // Reads the selected synonyms once. `tables` stays the caller's.
  LocalSynonymReader(ImportSession& session, LcWorkbookTableList& tables);

  // False when the import was stopped or cancelled: it has to end then.
  [[nodiscard]] bool Read(const LcODBCRecordList& rows);

 private:
  void StartSynonym();

  ImportSession& session_;
  LcWorkbookTableList& tables_;
  // The last selected synonym of each owner and name that lies behind an Oracle database link.
  std::map<std::pair<std::u16string_view, std::u16string_view>, const LcTableInfo*> linked_;
  LcWorkbookTable* synonym_ = nullptr;
  // A first row without owner and name has no synonym to be added to, so it makes one.
  NameBoundary boundary_{NameBoundary::Nameless::kBegins};
};

// Whether the entry of the selection is a synonym of a table in another database.
[[nodiscard]] bool IsRemoteSynonym(const LcTableInfo* entry);

// Makes a table of the selected synonym and gives it a column for each row. False when the import
// was stopped or cancelled. Without rows nothing is made.
[[nodiscard]] bool ReadRemoteSynonym(ImportSession& session, const LcTableInfo& entry,
                                     const LcODBCRecordList& rows, LcWorkbookTableList& tables);

}  // namespace odbcimport::native
