// A server's catalog, asked in its dialect: which statements run, in which order of attempts,
// inside which transaction, and what becomes of one that fails. Readers get rows; what could not be
// read is kept with the server's own message, shown once, and the import goes on.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "odbc/query.h"
#include "routes/exact/dialect.h"
#include "routes/exact/row.h"
#include "routes/exact/text_store.h"
#include "session/session.h"

namespace odbcimport::exact {

// What a server said when it was asked whether the dialect is for it.
struct Server : RouteFinding {
  std::shared_ptr<const Dialect> dialect;
  Version version;
  std::string schema;   // the current one
  std::string catalog;  // and the current catalog
  LcOptions options;    // of the database
  bool narrow_cells = false;
  bool maybe_in_transaction = true;
};

// Asks the server behind the borrowed handles. False, with one English sentence part in `why`, when
// the dialect is not for it.
[[nodiscard]] bool AskServer(void* henv, void* hdbc, std::shared_ptr<const Dialect> dialect,
                             Server& server, std::string& why);

// Takes the rows of a kind. What a statement gave before it failed is dropped by Undo, back to the
// last Mark.
class RowReader {
 public:
  virtual ~RowReader() = default;
  virtual void Mark() {}
  virtual void Undo() {}
  virtual void Read(const Row& row) = 0;
};

enum class ReadResult {
  kRead,
  kAbsent,   // the dialect has no such kind
  kFailed,   // not read, and said so
  kStopped,  // the host stopped or cancelled the import
};

// Sees every statement that runs, filled in; for measuring what the server and its driver cost
// alone. Null: nobody looks.
using StatementObserver = std::function<void(const FilledStatement&, std::size_t columns)>;
void ObserveStatements(StatementObserver observer);

class Catalog {
 public:
  Catalog(ImportSession& session, const Server& server);
  // Ends the read of one state that was begun.
  ~Catalog();
  Catalog(const Catalog&) = delete;
  Catalog& operator=(const Catalog&) = delete;

  // From here on the server shows one state of its catalog, where it can; a host's own transaction
  // is guarded by a savepoint and left as it was.
  void Begin();
  void End();

  [[nodiscard]] ReadResult Read(Kind kind, RowReader& reader);
  [[nodiscard]] bool Has(Kind kind) const { return !dialect_.Find(kind, server_.version).empty(); }

  // The schema that a row stands in: its own, else the one in hand.
  [[nodiscard]] std::string_view SchemaOf(const Row& row) const;

  // Keeps what was not read. Texts are UTF-8; empty ones are left out.
  void AddNotRead(std::string_view kind, std::string_view owner, std::string_view name,
                  const LcText& reason, bool withheld);

  [[nodiscard]] const Dialect& dialect() const { return dialect_; }
  [[nodiscard]] const Server& server() const { return server_; }
  [[nodiscard]] ImportSession& session() const { return session_; }
  [[nodiscard]] TextStore& texts() { return texts_; }
  [[nodiscard]] bool IsConnectionLost() const { return lost_; }

  MarkValues values;
  // With `each_schema`: the schemas in turn.
  std::vector<std::string> schemas;
  // The tables and views of the import, and sequences, for sections that run once for each.
  struct EachTable {
    std::string schema;
    std::string name;
    LeTableKind kind = tkTable;
  };
  std::vector<EachTable> each_table;
  std::vector<EachTable> each_sequence;

 private:
  [[nodiscard]] ReadResult ReadOnce(Kind kind, const std::vector<const Section*>& sections,
                                    RowReader& reader);
  [[nodiscard]] ReadResult ReadEach(Kind kind, const Section& section, RowReader& reader);
  [[nodiscard]] ReadResult RunSection(const Section& section, RowReader& reader);
  void SetFailure(const std::string& why);
  ReadResult Failed(Kind kind, std::string_view owner, std::string_view name);
  bool RunPlain(const std::string& sql);

  ImportSession& session_;
  Server server_;
  const Dialect& dialect_;
  odbc::Query query_;
  odbc::QueryFailure failure_;
  TextStore texts_;
  bool guards_ = false;  // the host's transaction, by a savepoint
  bool began_ = false;   // a transaction of the module's own
  bool lost_ = false;
};

}  // namespace odbcimport::exact
