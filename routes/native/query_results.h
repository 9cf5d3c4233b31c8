// The results of a phase's queries, kept together with the fetch objects that read them.
#pragma once

#include <string>
#include <vector>

#include "odbc/ptr_list.h"
#include "session/session.h"

namespace odbcimport::native {

// Owns the record lists and the fetch objects in its lists, which do not; deletes them at its end.
class QueryResults {
 public:
  QueryResults() = default;
  ~QueryResults() { Clear(); }
  QueryResults(const QueryResults&) = delete;
  QueryResults& operator=(const QueryResults&) = delete;

  // Runs the texts in turn. One that fails, which the fetch layer has shown to the user, adds an
  // empty record list.
  void Run(const ImportSession& session, const std::vector<std::u16string>& texts);
  unsigned long RowCount();
  // Deletes the record lists and the fetch objects with their statements.
  void Clear();
  // In the order of the texts.
  LcODBCRecordListListIter Iterate() { return LcODBCRecordListListIter(&rows_); }

 private:
  LcODBCRecordListList rows_;
  LcODBCFetchList fetches_;
};

}  // namespace odbcimport::native
