// One statement of a connection that plays a recording: which question it asked last, and how far
// its answers have been given.
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <string>
#include <unordered_map>

#include "simulator/recording.h"

namespace catalogsim {

class Handle;
class Statement;

// Gives the return code and the diagnostics of a recorded call to the handle.
[[nodiscard]] SQLRETURN GiveOutcome(const Recording& recording, Recording::Line line,
                                    Handle& handle);

// Answers SQLGetInfo and SQLGetConnectAttr: a number or a text, as was recorded. `text_bytes` is
// the room for a text; `bytes`, which may be null, receives its length.
[[nodiscard]] SQLRETURN GiveValue(const Recording& recording, Recording::Line line, Handle& handle,
                                  void* value, SQLINTEGER text_bytes, SQLINTEGER* bytes);

class Replay {
 public:
  Replay(Statement& statement, Recording& recording)
      : statement_(statement), recording_(recording) {}

  // Opens the recorded result of a question. One that the recording does not hold fails.
  SQLRETURN Ask(const std::string& question);
  // The outcome of a call that needs no result; success where it was not recorded.
  SQLRETURN Outcome(const std::string& question);
  SQLRETURN BindCol(SQLUSMALLINT column);
  SQLRETURN NumResultCols(SQLSMALLINT* count);
  SQLRETURN DescribeCol(SQLUSMALLINT column, SQLWCHAR* name, SQLSMALLINT capacity,
                        SQLSMALLINT* length, SQLSMALLINT* type, SQLULEN* size, SQLSMALLINT* digits,
                        SQLSMALLINT* nullable);
  // `row_status` and `rows_fetched` may be null.
  SQLRETURN Fetch(SQLULEN rows, SQLUSMALLINT* row_status, SQLULEN* rows_fetched);
  SQLRETURN GetData(SQLUSMALLINT column, SQLSMALLINT c_type, void* buffer, SQLLEN bytes,
                    SQLLEN* indicator);
  void Close();

 private:
  // The next line of that function behind `line`, up to the next question.
  [[nodiscard]] Recording::Line FindNext(Recording::Line line, FunctionId function) const;
  [[nodiscard]] Recording::Line FindColumn(Recording::Line line, FunctionId function,
                                           SQLUSMALLINT column, FunctionId until) const;
  // The line about a column of the open result; `last` is where the one before was found.
  [[nodiscard]] Recording::Line FindColumnOfResult(Recording::Line& last, FunctionId function,
                                                   SQLUSMALLINT column) const;
  SQLRETURN Missing(FunctionId function);
  SQLRETURN GiveRows(Recording::Line line, SQLULEN rows, SQLUSMALLINT* row_status,
                     SQLULEN* rows_fetched);

  Statement& statement_;
  Recording& recording_;
  std::string question_;  // as asked
  Recording::Line asked_ = Recording::kNone;
  Recording::Line counted_ = Recording::kNone;  // the last answer of SQLNumResultCols
  Recording::Line described_ = Recording::kNone;
  Recording::Line bound_ = Recording::kNone;
  Recording::Line fetched_ = Recording::kNone;                // the last fetch
  std::unordered_map<SQLUSMALLINT, Recording::Line> pieces_;  // the last of each column
  bool ended_ = false;                                        // the last fetch found no more rows
};

}  // namespace catalogsim
