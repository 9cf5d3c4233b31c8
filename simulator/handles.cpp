// See handles.h.
#include "simulator/handles.h"

#include <algorithm>
#include <cstring>

#include "simulator/helper_functions.h"
#include "simulator/rewriting.h"
#include "simulator/text.h"

namespace catalogsim {

SQLRETURN Handle::Fail(std::string state, std::string message) {
  diagnostics_.push_back({std::move(state), std::move(message)});
  return SQL_ERROR;
}

SQLRETURN Handle::Warn(std::string state, std::string message) {
  diagnostics_.push_back({std::move(state), std::move(message)});
  return SQL_SUCCESS_WITH_INFO;
}

Connection::~Connection() { Close(); }

SQLRETURN Connection::Open(const std::string& connection_string) {
  Settings settings;
  std::string why;
  if (!ParseConnectionString(connection_string, settings, why)) return Fail("HY000", why);
  const ServerTraits* const traits = FindServer(settings.server);
  if (traits == nullptr) return Fail("08001", "there is no server \"" + settings.server + "\"");
  why = gate_.Install(settings.faults);
  if (!why.empty()) return Fail("HY000", why);
  if (const char* const state = gate_.Enter(SQL_API_SQLDRIVERCONNECT))
    return Fail(state, "simulated fault");
  if (traits->script == nullptr) return OpenRecording(*traits, settings.file);
  database_ = OpenServer(*traits, settings, why);
  if (!database_) return Fail("08001", why);
  version_ = settings.version.empty() ? std::string(traits->dbms_version) : settings.version;
  if (!RegisterServerProperty(database_.get(), version_)) return Fail("HY001", "out of memory");
  traits_ = traits;
  gate_.StartCounting();
  return SQL_SUCCESS;
}

// As the recorded connection was opened, with what its driver said.
SQLRETURN Connection::OpenRecording(const ServerTraits& traits, const std::string& file) {
  std::string why;
  std::unique_ptr<Recording> recording = Recording::Load(file, why);
  if (!recording) return Fail("08001", why);
  const Recording::Line line = recording->FindAnswer(Question(SQL_API_SQLDRIVERCONNECT).Text());
  const SQLRETURN result =
      line == Recording::kNone ? SQLRETURN{SQL_SUCCESS} : GiveOutcome(*recording, line, *this);
  if (!SQL_SUCCEEDED(result)) return result;
  recording_ = std::move(recording);
  traits_ = &traits;
  gate_.StartCounting();
  return result;
}

void Connection::Close() {
  for (Statement* const statement : statements_) delete statement;
  statements_.clear();
  database_.reset();
  recording_.reset();
  traits_ = nullptr;
}

bool Connection::HasFunction(FunctionId function) const {
  const auto has = [function](const auto& list) {
    return std::find(list.begin(), list.end(), function) != list.end();
  };
  return FunctionName(function) != "?" && !has(gate_.plan().missing) &&
         !has(traits_->missing_functions) &&
         (recording_ == nullptr || recording_->HasFunction(function));
}

Statement* Connection::AddStatement() { return *statements_.insert(new Statement(*this)).first; }

void Connection::RemoveStatement(Statement* statement) {
  statements_.erase(statement);
  delete statement;
}

Statement::Statement(Connection& connection) : connection_(connection) {
  if (Recording* const recording = connection.recording())
    replay = std::make_unique<Replay>(*this, *recording);
}

void Statement::CloseResult() {
  result.reset();
  if (replay) replay->Close();
}

SQLRETURN Statement::Execute(const std::string& sql) {
  if (replay) {
    return replay->Ask(Question(SQL_API_SQLEXECDIRECT).Add(sql).AddList(ParameterValues()).Text());
  }
  return Run(RewriteForSqlite(sql, connection_.traits().dialect), &ColumnOfQuery);
}

SQLRETURN Statement::ExecuteCatalogQuery(const std::string& sql) {
  return Run(sql, &ColumnOfCatalogFunction);
}

SQLRETURN Statement::Run(const std::string& sql, DescribeColumn describe) {
  CloseResult();
  std::string state;
  std::string why;
  PreparedStatement prepared = Prepare(connection_.database(), sql, state, why);
  if (!prepared) return Fail(state, why);
  const std::vector<std::optional<std::string>> values = ParameterValues();
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (!values[i]) continue;  // NULL is what an unbound one is
    sqlite3_bind_text(prepared.get(), static_cast<int>(i) + 1, values[i]->data(),
                      static_cast<int>(values[i]->size()), SQLITE_TRANSIENT);
  }
  affected_rows = -1;
  if (sqlite3_column_count(prepared.get()) == 0) {
    while (true) {
      const int step = sqlite3_step(prepared.get());
      if (step == SQLITE_ROW) continue;
      if (step != SQLITE_DONE) return Fail("HY000", sqlite3_errmsg(connection_.database()));
      affected_rows = sqlite3_changes(connection_.database());
      return SQL_SUCCESS;
    }
  }
  ++results_;
  result = std::make_unique<Result>();
  result->columns = DescribeColumns(prepared.get(), describe);
  result->rows = std::move(prepared);
  result->number = connection_.gate().NextResult();
  result->taken.resize(result->columns.size());
  return SQL_SUCCESS;
}

// As UTF-8; empty for NULL.
std::vector<std::optional<std::string>> Statement::ParameterValues() const {
  std::vector<std::optional<std::string>> values;
  for (const Binding& parameter : parameters) {
    const SQLLEN length = parameter.indicator != nullptr ? *parameter.indicator : SQL_NTS;
    if (parameter.buffer == nullptr || length == SQL_NULL_DATA) {
      values.emplace_back();
    } else if (parameter.c_type == SQL_C_WCHAR) {
      values.emplace_back(TextArgument(static_cast<const SQLWCHAR*>(parameter.buffer),
                                       length == SQL_NTS ? length : length / 2));
    } else if (parameter.c_type == SQL_C_CHAR) {
      const auto* const text = static_cast<const char*>(parameter.buffer);
      values.emplace_back(length == SQL_NTS ? std::string(text)
                                            : std::string(text, static_cast<std::size_t>(length)));
    } else {
      std::int64_t number = 0;  // the low bytes come first; unsigned ones are not asked for here
      const std::size_t size = SizeOfCType(parameter.c_type);
      std::memcpy(&number, parameter.buffer, size);
      const int unused_bits = static_cast<int>(64 - 8 * size);
      values.emplace_back(std::to_string(size == 0 ? 0 : number << unused_bits >> unused_bits));
    }
  }
  return values;
}

std::vector<Column> Statement::DescribeColumns(sqlite3_stmt* rows, DescribeColumn describe) const {
  std::vector<Column> columns;
  const FaultPlan& plan = connection_.gate().plan();
  const int real = sqlite3_column_count(rows);
  // The n-th result on one statement shows its columns n times, as MDB Tools does.
  const int shown = plan.growing_columns ? real * results_ : real;
  for (int i = 0; i < shown; ++i) {
    Column column = describe(sqlite3_column_name(rows, i % real),
                             sqlite3_column_decltype(rows, i % real), connection_.traits().wide);
    if (std::find(plan.long_names.begin(), plan.long_names.end(), i + 1) != plan.long_names.end())
      column.name = "a_column_name_of_more_than_29_characters";
    columns.push_back(std::move(column));
  }
  return columns;
}

}  // namespace catalogsim
