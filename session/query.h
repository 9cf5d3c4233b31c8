// A catalog query of the compatible routes.
#pragma once

#include <string>

#include "odbc/fetch.h"
#include "odbc/record_list.h"
#include "session/connection.h"

namespace odbcimport {

// What came of one text that was run through the fetch layer, which shows failures to the user:
// rows, or a failure. The statement is gone when the result is there.
class [[nodiscard]] QueryResult {
 public:
  QueryResult(const Connection& connection, const std::u16string& sql) {
    const LcODBCFetch fetch(sql.c_str(), rows_, connection.henv(), connection.hdbc(),
                            connection.server().dbms_type);
    failed_ = fetch.HasFailed() != 0;
  }

  // Whether the text could not be executed or its result not be read to the end.
  [[nodiscard]] bool Failed() const { return failed_; }
  // The rows; those before the failure, mostly none, where the query failed. Required: a compatible
  // route goes on with them, since the user has seen the failure (native and Informix route_test).
  [[nodiscard]] const LcODBCRecordList& RowsEvenIfFailed() const { return rows_; }

 private:
  LcODBCRecordList rows_;
  bool failed_ = false;
};

}  // namespace odbcimport
