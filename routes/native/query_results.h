// The results of a phase's queries, kept together with the fetch objects that read them.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "odbc/fetch.h"
#include "odbc/record_list.h"
#include "session/session.h"

namespace odbcimport::native {

class QueryResults {
 public:
  // Runs the texts in turn. One that fails, which the fetch layer has shown to the user, adds an
  // empty record list.
  void Run(const ImportSession& session, const std::vector<std::u16string>& texts);
  [[nodiscard]] unsigned long RowCount() const;
  // Drops the results with their statements.
  void Clear() { results_.clear(); }
  // In the order of the texts.
  [[nodiscard]] auto begin() const { return results_.begin(); }
  [[nodiscard]] auto end() const { return results_.end(); }

 private:
  struct Result {
    Result(const ImportSession& session, const std::u16string& text);
    LcODBCRecordList rows;
    LcODBCFetch fetch;  // refers to the rows, and holds the statement
  };
  std::deque<Result> results_;  // record lists do not move
};

}  // namespace odbcimport::native
