// One run of an import, as a route sees it, in parts. A session lives for one run and owns nothing;
// the importer behind it outlives it.
#pragma once

#include <memory>
#include <utility>

#include "session/connection.h"
#include "session/progress.h"
#include "session/query.h"
#include "session/sink.h"

namespace odbcimport {

class ImportSession {
 public:
  // `base` has what the host chose. `marks`, where it is another object, has the running and the
  // cancelled mark, for a host that may change what it chose while a copy of it is imported.
  ImportSession(LcWorkbookImport& base, LcWorkbook* workbook, ServerFacts& server,
                std::shared_ptr<LcWorkbookDatatypeList> own_types, NotifyCallback callback,
                LcImpItemInfo& table_in_hand, LcWorkbookImport* marks = nullptr)
      : choices(base.choices),
        sink(base, workbook, std::move(own_types)),
        progress(marks != nullptr ? *marks : base, base.targets, callback, table_in_hand),
        connection(base, server) {}
  ImportSession(const ImportSession&) = delete;
  ImportSession& operator=(const ImportSession&) = delete;

  const LcImportChoices& choices;  // settled before a route begins
  Sink sink;
  Progress progress;
  Connection connection;

  [[nodiscard]] ServerFacts& server() { return connection.server(); }
  [[nodiscard]] const ServerFacts& server() const { return connection.server(); }
  bool IsIUS() const { return server().is_ius; }
  [[nodiscard]] bool HasItem(std::uint32_t bits) const { return (choices.item_mask & bits) != 0; }

  [[nodiscard]] QueryResult RunQuery(const std::u16string& sql) const {
    return QueryResult(connection, sql);
  }
};

}  // namespace odbcimport
