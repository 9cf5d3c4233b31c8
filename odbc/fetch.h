// Runs one SQL text on the host's connection and turns its result set into rows of texts. Shows
// ODBC errors to the user itself; a caller sees a short or empty record list.
#pragma once

#include <memory>
#include <string>

#include "importer/workbook/object.h"
#include "odbc/record_list.h"
#include "platform/platform.h"

class LC_EXPORT LcODBCFetch : public LcObject {
 public:
  // Executes the text at once and appends every row to `rows`, which stays the caller's. The
  // handles are borrowed.
  LcODBCFetch(const char16_t* sql, LcODBCRecordList& rows, void* henv, void* hdbc, int dbms_type);
  // Executes nothing yet. `rowset_size` in rows per fetch call.
  LcODBCFetch(void* henv, void* hdbc, int dbms_type, const char16_t* sql, unsigned long rowset_size,
              unsigned long concurrency, unsigned long cursor_type);
  ~LcODBCFetch() override;
  LcODBCFetch(const LcODBCFetch&) = delete;
  LcODBCFetch& operator=(const LcODBCFetch&) = delete;
  const char* GetRuntimeClass() const override;

  // 1 when the text was executed. `has_results` becomes 1 when it returns columns, else 0.
  int ExecuteCommand(int* has_results);
  int DescribeResults();
  // Appends rows; `max_rows` 0 means all. Non-zero when more rows may follow; 0 at the end or after
  // a failure. The number of fetch calls for a given `max_rows` is deliberately uneven: with
  // rowsets of 10, 25 rows allow 2 calls and 20 rows allow 3.
  int FetchData(LcODBCRecordList& rows, unsigned long max_rows);
  const LcODBCRecordList& GetColumns() const;
  int IsExtendedFetchSupported() const;
  int AreMultipleResultSetsSupported() const;
  int IsPositionalUpdateThruAPISupported() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};
