#include "routes/exact/dialect_check.h"

#include <optional>
#include <utility>

#include "base/utf.h"
#include "routes/exact/sql_text.h"

namespace odbcimport::exact {
namespace {

class Trial {
 public:
  Trial(void* henv, void* hdbc, const Server& server)
      : query_(henv, hdbc, [] { return false; }), server_(server) {
    query_.UseNarrowCells(server.narrow_cells);
    values_.version = server.version;
    values_.has_schema = server.dialect->each_schema;
    values_.schema = server.schema;
  }

  SectionCheck Try(const Section& section) {
    SectionCheck check;
    check.section = &section;
    if (!section.bounds.Fit(server_.version)) return check;
    MarkValues values = values_;
    if (!section.each.empty()) {
      if (!example_) return check;
      values.has_table = true;
      values.table_schema = example_->schema;
      values.table_name = example_->name;
    }
    check.ran = true;
    const FilledStatement whole = Fill(section, values);
    check.problem = Run(section, whole, check.rows);
    Narrow(section, values);
    const FilledStatement narrowed = Fill(section, values);
    if (!check.problem.empty() || narrowed.text == whole.text) return check;
    long rows = 0;
    const std::string problem = Run(section, narrowed, rows);
    if (!problem.empty()) check.problem = "narrowed to one table: " + problem;
    return check;
  }

 private:
  struct Example {
    std::string schema;
    std::string name;
    std::string id;
  };

  FilledStatement Fill(const Section& section, const MarkValues& values) const {
    return section.statement.Fill(values, server_.dialect->quotes, server_.dialect->list_limit);
  }

  void Narrow(const Section& section, MarkValues& values) const {
    if (section.kind == Kind::kColumnTypes || section.kind == Kind::kTypes) {
      values.by_types = type_id_.has_value();
      if (type_id_) values.type_ids = {*type_id_};
      values.type_modifiers = {"-1"};
    }
    if (!example_) return;
    values.owners = {example_->schema};
    values.table_owners = {example_->schema};
    values.table_names = {example_->name};
    values.by_ids = !example_->id.empty();
    values.table_ids = {example_->id};
  }

  // The first problem there is.
  std::string Run(const Section& section, const FilledStatement& statement, long& rows) {
    const std::string why = WhyNotReading(statement.text, server_.dialect->first_words);
    if (!why.empty()) return why;
    Row row(section);
    odbc::QueryState state = query_.Execute(statement.text, statement.parameters,
                                            section.heading.size(), section.heading_text);
    while (state == odbc::QueryState::kRow) {
      state = query_.Fetch();
      if (state != odbc::QueryState::kRow) break;
      ++rows;
      if (!row.Take(query_)) {
        query_.Close();
        return "row " + std::to_string(rows) + ": a packed cell has other parts than its heading";
      }
      Remember(section, row);
    }
    return state == odbc::QueryState::kFailed ? base::ToUtf8(query_.Failure().Text())
                                              : std::string();
  }

  void Remember(const Section& section, const Row& row) {
    if (section.kind == Kind::kTables && !example_) {
      const std::string_view schema = row.Text(Field::kSchema);
      example_ = {schema.data() != nullptr ? std::string(schema) : values_.schema,
                  std::string(row.Text(Field::kTable)), std::string(row.Text(Field::kTableId))};
    }
    if (row.Has(Field::kTypeId) && !type_id_) type_id_ = std::string(row.Text(Field::kTypeId));
  }

  odbc::Query query_;
  const Server& server_;
  MarkValues values_;
  std::optional<Example> example_;
  std::optional<std::string> type_id_;
};

}  // namespace

bool TryDialect(void* henv, void* hdbc, const std::shared_ptr<const Dialect>& dialect,
                std::vector<SectionCheck>& checks, std::string& why) {
  Server server;
  if (!AskServer(henv, hdbc, dialect, server, why)) return false;
  Trial trial(henv, hdbc, server);
  // Tables and columns first: the others are narrowed to one of them.
  std::vector<SectionCheck> first;
  for (const Section& section : dialect->sections) {
    if (section.kind == Kind::kTables || section.kind == Kind::kColumns) {
      first.push_back(trial.Try(section));
    }
  }
  auto next = first.begin();
  for (const Section& section : dialect->sections) {
    const bool tried = section.kind == Kind::kTables || section.kind == Kind::kColumns;
    checks.push_back(tried ? std::move(*next++) : trial.Try(section));
  }
  return true;
}

}  // namespace odbcimport::exact
