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
  // handles are borrowed and must outlive the object.
  LcODBCFetch(const char16_t* sql, LcODBCRecordList& rows, void* henv, void* hdbc, int dbms_type);
  // Executes nothing yet. `rowset_size` in rows per fetch call (0 counts as 1); `concurrency` and
  // `cursor_type` are values of SQL_CONCURRENCY and SQL_CURSOR_TYPE.
  LcODBCFetch(void* henv, void* hdbc, int dbms_type, const char16_t* sql, unsigned long rowset_size,
              unsigned long concurrency, unsigned long cursor_type);
  ~LcODBCFetch() override;
  LcODBCFetch(const LcODBCFetch&) = delete;
  LcODBCFetch& operator=(const LcODBCFetch&) = delete;
  const char* GetRuntimeClass() const override;

  // 1 when the text was executed, 0 when that failed or was done before. `has_results` becomes 1
  // when the text returns columns, else 0; it may be null.
  int ExecuteCommand(int* has_results);
  // Reads the descriptions of the result columns, executing the text first where that was not done.
  // 0 when that failed or was done before. The description ends early, which is no failure, at a
  // column that the driver does not describe without remark, such as one whose name is longer than
  // 29 characters.
  int DescribeResults();
  // Appends rows; `max_rows` 0 means all. Executes and describes where that was not done. Non-zero
  // when more rows may follow; 0 at the end or after a failure. The number of fetch calls for a
  // given `max_rows` is uneven, as required (fetch_test): with rowsets of 10, 25 rows allow 2 calls
  // and 20 rows allow 3. Hosts page with these numbers.
  int FetchData(LcODBCRecordList& rows, unsigned long max_rows);
  // The descriptions read so far; they belong to this object.
  [[nodiscard]] const LcODBCRecordList& GetColumns() const;
  // 1 once the text could not be executed, or a result not be read to its end, as far as it was
  // asked for. The user has been shown why, but for a driver that fails a hundred fetches in a row.
  [[nodiscard]] int HasFailed() const;
  [[nodiscard]] int IsExtendedFetchSupported() const;
  [[nodiscard]] int AreMultipleResultSetsSupported() const;
  // 1 when the driver can update the row that a cursor stands on through SQLSetPos.
  [[nodiscard]] int IsPositionalUpdateThruAPISupported() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};
