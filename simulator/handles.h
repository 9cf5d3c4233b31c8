// The driver's environment, connection and statement. A driver manager never passes a handle that
// it did not get, so a handle is the object's address.
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "simulator/cell.h"
#include "simulator/column_types.h"
#include "simulator/database.h"
#include "simulator/faults.h"
#include "simulator/replay.h"
#include "simulator/server_traits.h"
#include "simulator/settings.h"

namespace catalogsim {

struct Diagnostic {
  std::string state;
  std::string message;  // UTF-8, without the driver's prefix
  SQLINTEGER native_error = 0;
  bool verbatim = false;  // the message gets no prefix
};

// What all handles have: the diagnostics of their last call.
class Handle {
 public:
  void ClearDiagnostics() { diagnostics_.clear(); }
  [[nodiscard]] const std::vector<Diagnostic>& diagnostics() const { return diagnostics_; }
  // Each adds a diagnostic and returns the code that goes with it.
  SQLRETURN Fail(std::string state, std::string message);
  SQLRETURN Warn(std::string state, std::string message);
  void Add(Diagnostic diagnostic) { diagnostics_.push_back(std::move(diagnostic)); }

 private:
  std::vector<Diagnostic> diagnostics_;
};

class Environment : public Handle {
 public:
  SQLULEN odbc_version = SQL_OV_ODBC2;
};

class Statement;

class Connection : public Handle {
 public:
  explicit Connection(const Environment& environment) : environment_(environment) {}
  ~Connection();

  SQLRETURN Open(const std::string& connection_string);
  void Close();

  [[nodiscard]] SQLULEN odbc_version() const { return environment_.odbc_version; }
  [[nodiscard]] const ServerTraits& traits() const { return *traits_; }  // of an open connection
  [[nodiscard]] const std::string& version() const {
    return version_;
  }  // that the server tells of itself
  [[nodiscard]] bool IsOpen() const { return traits_ != nullptr; }
  [[nodiscard]] sqlite3* database() const { return database_.get(); }
  [[nodiscard]] CallGate& gate() { return gate_; }
  [[nodiscard]] Recording* recording() const {
    return recording_.get();
  }  // null: the server is a script
  [[nodiscard]] bool HasFunction(FunctionId function) const;

  Statement* AddStatement();
  void RemoveStatement(Statement* statement);
  [[nodiscard]] std::size_t open_statements() const { return statements_.size(); }

 private:
  SQLRETURN OpenRecording(const ServerTraits& traits, const std::string& file);

  const Environment& environment_;
  const ServerTraits* traits_ = nullptr;
  std::string version_;
  Database database_;
  std::unique_ptr<Recording> recording_;
  CallGate gate_;
  std::set<Statement*> statements_;  // owned
};

template <class Value>
void Answer(SQLPOINTER target, Value value) {
  if (target != nullptr) *static_cast<Value*>(target) = value;
}

// An open result: a prepared query and what its columns look like from outside.
struct Result {
  PreparedStatement rows;
  std::vector<Column> columns;
  std::uint64_t number = 0;   // among the connection's results, from 1
  std::uint64_t row = 0;      // the current one, from 1
  std::uint64_t fetches = 0;  // fetch calls made
  bool at_end = false;
  std::vector<std::size_t> taken;  // characters that SQLGetData has given of each column
};

// Statement attributes, under the names of the ODBC 3 attributes that set them.
struct StatementOptions {
  SQLULEN query_timeout = 0;
  SQLULEN cursor_type = SQL_CURSOR_FORWARD_ONLY;
  SQLULEN concurrency = SQL_CONCUR_READ_ONLY;
  SQLULEN rowset_size = 1;     // SQL_ROWSET_SIZE: SQLExtendedFetch
  SQLULEN row_array_size = 1;  // SQL_ATTR_ROW_ARRAY_SIZE: SQLFetch and SQLFetchScroll
  SQLULEN row_bind_type = SQL_BIND_BY_COLUMN;
  SQLULEN max_rows = 0;
  SQLUSMALLINT* row_status = nullptr;
  SQLULEN* rows_fetched = nullptr;
};

class Statement : public Handle {
 public:
  explicit Statement(Connection& connection);

  [[nodiscard]] Connection& connection() { return connection_; }
  StatementOptions options;
  std::unique_ptr<Replay> replay;   // null: the server is a script
  std::vector<Binding> bindings;    // by column, from 0
  std::vector<Binding> parameters;  // by number, from 0
  std::unique_ptr<Result> result;   // null: no open result
  std::string prepared_sql;
  SQLLEN affected_rows = -1;

  // Opens the result of a query, or runs a statement that has none. The text is the server's SQL.
  SQLRETURN Execute(const std::string& sql);
  // Opens the result of a catalog function; the text is of CatalogQueries.
  SQLRETURN ExecuteCatalogQuery(const std::string& sql);
  void CloseResult();

 private:
  SQLRETURN Run(const std::string& sql, DescribeColumn describe);
  [[nodiscard]] std::vector<std::optional<std::string>> ParameterValues() const;
  [[nodiscard]] std::vector<Column> DescribeColumns(sqlite3_stmt* rows,
                                                    DescribeColumn describe) const;

  Connection& connection_;
  int results_ = 0;  // opened on this statement
};

}  // namespace catalogsim
