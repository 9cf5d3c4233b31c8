// Running a dialect's statements.
#include "routes/exact/catalog.h"

#include <utility>

#include "base/utf.h"
#include "odbc/error_report.h"
#include "odbc/server_info.h"
#include "routes/exact/pieces.h"
#include "routes/exact/sql_text.h"

namespace odbcimport::exact {
namespace {

// What `sample` must be, as UTF-8.
constexpr std::string_view kSample = "\xC3\xA4\xE2\x82\xAC";

StatementObserver& Observer() {
  static StatementObserver observer;
  return observer;
}

void Observe(const FilledStatement& statement, std::size_t columns) {
  if (Observer()) Observer()(statement, columns);
}

std::string Utf8(const odbc::QueryFailure& failure) { return base::ToUtf8(failure.Text()); }

// One row of `server` or `probe`; false, with the reason, where the server gives none.
bool ReadServerRow(odbc::Query& query, const Section& section, const Server& server, Row& row,
                   std::string& why) {
  MarkValues values;
  values.version = server.version;
  const FilledStatement statement =
      section.statement.Fill(values, server.dialect->quotes, server.dialect->list_limit);
  why = WhyNotReading(statement.text, server.dialect->first_words);
  if (!why.empty()) return false;
  Observe(statement, section.heading.size());
  odbc::QueryState state = query.Execute(statement.text, statement.parameters,
                                         section.heading.size(), section.heading_text);
  if (state == odbc::QueryState::kRow) state = query.Fetch();
  if (state == odbc::QueryState::kRow && row.Take(query)) return true;
  why = state == odbc::QueryState::kFailed ? Utf8(query.Failure()) : "it gave no row";
  return false;
}

void TakeServerRow(const Row& row, Server& server) {
  if (const std::string_view version = row.Text(Field::kVersion); !version.empty()) {
    server.version = Version(version);
  }
  server.schema = row.Text(Field::kSchema);
  server.catalog = row.Text(Field::kCatalog);
  server.maybe_in_transaction = !row.Has(Field::kInTransaction) || row.Flag(Field::kInTransaction);
  row.ForEachOption([&server](const Row::Option& option) {
    server.options.Set(base::ToUtf16(option.name), base::ToUtf16(option.value));
  });
}

bool AskKind(odbc::Query& query, Kind kind, Server& server, std::string& why) {
  const std::vector<const Section*> sections = server.dialect->Find(kind, server.version);
  if (sections.empty()) return true;
  const Section& section = *sections.front();
  Row row(section);
  // Narrow cells are tried first. Where they are not UTF-8 the driver refuses them, or gives
  // something else for the sample: then all cells are wide.
  query.UseNarrowCells(row.Names(Field::kSample));
  bool read = ReadServerRow(query, section, server, row, why);
  if (query.UsesNarrowCells() && (!read || row.Text(Field::kSample) != kSample)) {
    query.UseNarrowCells(false);
    read = ReadServerRow(query, section, server, row, why);
  }
  if (!read) return false;
  if (kind == Kind::kServer) {
    TakeServerRow(row, server);
    server.narrow_cells = query.UsesNarrowCells();
  }
  return true;
}

// `each` of a section: "table" and "view" are all of that type, anything else is one kind.
bool IsOf(std::string_view each, LeTableKind kind) {
  const bool is_view = kind == tkView || kind == tkMaterializedView;
  if (each == "table") return !is_view;
  if (each == "view") return is_view;
  LeTableKind wanted = tkUnknown;
  return LcFindByName(base::ToUtf16(each), wanted) && wanted == kind;
}

// Keeps a host's transaction whole while the server is asked something that it may refuse.
class Guard {
 public:
  Guard(void* henv, void* hdbc, const Dialect& dialect)
      : query_(henv, hdbc, [] { return false; }), dialect_(dialect) {
    set_ = !odbc::IsAutocommitOn(hdbc) && !dialect.savepoint.empty() && Run(dialect.savepoint);
  }
  ~Guard() {
    if (set_ && Run(dialect_.undo) && !dialect_.release.empty()) Run(dialect_.release);
  }
  Guard(const Guard&) = delete;
  Guard& operator=(const Guard&) = delete;

 private:
  bool Run(const std::string& sql) { return query_.Execute(sql, {}, 0) == odbc::QueryState::kRow; }

  odbc::Query query_;
  const Dialect& dialect_;
  bool set_ = false;
};

}  // namespace

void ObserveStatements(StatementObserver observer) { Observer() = std::move(observer); }

bool AskServer(void* henv, void* hdbc, std::shared_ptr<const Dialect> dialect, Server& server,
               std::string& why) {
  server = {};
  server.dialect = std::move(dialect);
  server.version = Version(base::ToUtf8(odbc::GetDBMSVersion(hdbc)));
  const Guard guard(henv, hdbc, *server.dialect);
  odbc::Query query(henv, hdbc, [] { return false; });
  for (const Kind kind : {Kind::kServer, Kind::kProbe}) {
    if (AskKind(query, kind, server, why)) continue;
    why = "its probe says: " + why;
    return false;
  }
  const std::optional<Version>& first = server.dialect->first_version;
  if (!first || !server.version.IsBefore(*first)) return true;
  why = "the server is older than it";
  return false;
}

Catalog::Catalog(ImportSession& session, const Server& server)
    : session_(session),
      server_(server),
      dialect_(*server_.dialect),
      query_(session.connection.henv(), session.connection.hdbc(),
             [&session] { return session.progress.WasImportStoppedOrCancelled(); }) {
  query_.UseNarrowCells(server_.narrow_cells);
  values.version = server_.version;
}

Catalog::~Catalog() { End(); }

void Catalog::Begin() {
  const bool autocommit = odbc::IsAutocommitOn(session_.connection.hdbc());
  if (!dialect_.savepoint.empty() && (!autocommit || server_.maybe_in_transaction)) {
    guards_ = RunPlain(dialect_.savepoint);
  }
  if (!guards_ && autocommit && !dialect_.begin.empty()) began_ = RunPlain(dialect_.begin);
}

void Catalog::End() {
  query_.Close();
  if (began_) RunPlain(dialect_.end);
  if (guards_) {
    // Going back first gives up the locks that the reading took.
    RunPlain(dialect_.undo);
    if (!dialect_.release.empty()) RunPlain(dialect_.release);
  }
  began_ = false;
  guards_ = false;
}

bool Catalog::RunPlain(const std::string& sql) {
  if (lost_) return false;
  odbc::Query query(session_.connection.henv(), session_.connection.hdbc(), [] { return false; });
  Observe({sql, {}, false}, 0);
  return query.Execute(sql, {}, 0) == odbc::QueryState::kRow;
}

std::string_view Catalog::SchemaOf(const Row& row) const {
  const std::string_view schema = row.Text(Field::kSchema);
  return schema.data() != nullptr ? schema : std::string_view(values.schema);
}

void Catalog::AddNotRead(std::string_view kind, std::string_view owner, std::string_view name,
                         const LcText& reason, bool withheld) {
  LcNotRead& entry = session_.sink.workbook()->details.not_read.emplace_back();
  entry.kind = texts_.Get(kind);
  if (!owner.empty()) entry.owner = texts_.Get(owner);
  if (!name.empty()) entry.name = texts_.Get(name);
  entry.reason = reason;
  entry.withheld = withheld;
}

ReadResult Catalog::Read(Kind kind, RowReader& reader) {
  const std::vector<const Section*> sections = dialect_.Find(kind, server_.version);
  if (sections.empty()) return ReadResult::kAbsent;
  if (lost_) return ReadResult::kFailed;
  // Schemas, and what numbers mean, are the server's and not one schema's.
  const bool once = !dialect_.each_schema || kind == Kind::kSchemas || kind == Kind::kNames;
  values.has_schema = !once;
  if (once) return ReadOnce(kind, sections, reader);
  ReadResult result = ReadResult::kRead;
  for (const std::string& schema : schemas) {
    values.schema = schema;
    const ReadResult one = ReadOnce(kind, sections, reader);
    if (one == ReadResult::kStopped) return one;
    if (one == ReadResult::kFailed) result = one;
  }
  return result;
}

ReadResult Catalog::ReadOnce(Kind kind, const std::vector<const Section*>& sections,
                             RowReader& reader) {
  for (const Section* section : sections) {
    if (!section->each.empty()) return ReadEach(kind, *section, reader);
    const ReadResult result = RunSection(*section, reader);
    if (result != ReadResult::kFailed || lost_) return result;
  }
  return Failed(kind, dialect_.each_schema ? std::string_view(values.schema) : "", "");
}

ReadResult Catalog::ReadEach(Kind kind, const Section& section, RowReader& reader) {
  ReadResult result = ReadResult::kRead;
  values.has_table = true;
  const bool sequences = section.each == "sequence";
  for (const EachTable& table : sequences ? each_sequence : each_table) {
    if (!sequences && !IsOf(section.each, table.kind)) continue;
    if (dialect_.each_schema && table.schema != values.schema) continue;
    values.table_schema = table.schema;
    values.table_name = table.name;
    const ReadResult one = RunSection(section, reader);
    if (one == ReadResult::kFailed) result = Failed(kind, table.schema, table.name);
    if (one == ReadResult::kStopped || lost_) {
      result = one;
      break;
    }
  }
  values.has_table = false;
  return result;
}

ReadResult Catalog::RunSection(const Section& section, RowReader& reader) {
  const FilledStatement statement =
      section.statement.Fill(values, dialect_.quotes, dialect_.list_limit);
  // Marks can put together what none of the parts said.
  if (const std::string why = WhyNotReading(statement.text, dialect_.first_words); !why.empty()) {
    SetFailure(why);
    return ReadResult::kFailed;
  }
  Observe(statement, section.heading.size());
  Row row(section);
  Pieces pieces(row);
  reader.Mark();
  odbc::QueryState state = query_.Execute(statement.text, statement.parameters,
                                          section.heading.size(), section.heading_text);
  bool packed_well = true;
  while (state == odbc::QueryState::kRow) {
    state = query_.Fetch();
    if (state != odbc::QueryState::kRow) break;
    packed_well = row.Take(query_);
    if (!packed_well) break;
    if (pieces.IsNeeded()) {
      pieces.Add(reader);
    } else {
      reader.Read(row);
    }
  }
  if (state == odbc::QueryState::kEnd) pieces.Flush(reader);
  if (state == odbc::QueryState::kEnd) return ReadResult::kRead;
  if (state == odbc::QueryState::kStopped) return ReadResult::kStopped;
  failure_ = query_.Failure();
  query_.Close();
  if (!packed_well) SetFailure("a packed cell has other parts than its heading");
  reader.Undo();
  lost_ = failure_.IsConnectionLost();
  if (guards_ || began_) RunPlain(dialect_.undo);
  return ReadResult::kFailed;
}

void Catalog::SetFailure(const std::string& why) {
  odbc::Diagnostic diagnostic;
  diagnostic.message = base::ToUtf16(why);
  failure_ = {};
  failure_.diagnostics = {diagnostic};
}

ReadResult Catalog::Failed(Kind kind, std::string_view owner, std::string_view name) {
  odbc::PostFailure(failure_);
  AddNotRead(NameOf(kind), owner, name, LcText(failure_.Text()), false);
  return ReadResult::kFailed;
}

}  // namespace odbcimport::exact
