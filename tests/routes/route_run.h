// Imports by one route, on a connection or without one, and keeps what a host hears and gets as
// texts.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/utf.h"
#include "importer/odbc_workbook_import.h"
#include "session/session.h"
#include "tests/support/connection.h"

namespace odbcimport::test {

using base::ToUtf16;
using base::ToUtf8;
using Lines = std::vector<std::string>;
using Route = bool (*)(ImportSession&, unsigned short&);

class RouteRun {
 public:
  // Tables, views and keys are wanted until a test says otherwise.
  RouteRun(Route route, LeDBMSType type, std::unique_ptr<wbtest::Connection> connection = nullptr);

  virtual ~RouteRun() = default;

  virtual bool Run();
  ImportSession Session();
  LcTableInfo* SelectTable(const std::string& owner, const std::string& name);
  LcTableInfo* SelectSynonym(const std::string& owner, const std::string& name,
                             const LcSynonymDetails& details = {});
  // Stops or cancels.
  void End(bool cancel) { (cancel ? base.cancelled : base.running) = cancel; }

  // What the callback heard: "2 1 0", "4 1 12", "6 owner|table|column", "3"; "-" behind an item
  // whose flag is not set.
  Lines events;
  std::function<void(const std::string&)> on_event;

  // "joe.books synonym" in workbook order; "books" where there is no owner.
  Lines Tables() const;
  // "2 owner.name id base-id database@server:owner.table" of the names that were listed, sorted; 2
  // is the type, the rest a synonym's.
  Lines ListedNames() const;
  // Here and below "owner.name", or "name" for the first of that name.
  LcWorkbookTable* Table(const std::string& name) const;
  // "name code width/precision/scale type <extended type> 1-6 ! *", with the type's code behind a
  // colon if it is another, the parts of an interval qualifier, "!" for required and "*" for a
  // generated key.
  Lines Columns(const std::string& table) const;
  // "owner.table key (columns)" and "owner.table(columns) <- owner.table(columns) 1:1" for the
  // forward keys; of all tables without a name.
  Lines Keys(const std::string& table = "") const;

  wbtest::Connection& connection() { return *connection_; }
  wbtest::MessageRecorder messages;
  LcWorkbook workbook;
  LcODBCWorkbookImport base{nullptr, &workbook};
  ServerFacts server;
  LcImpItemInfo current_item;
  unsigned short status = 0;

 private:
  static void Callback(enumImpNotify notify, void* record);

  const Route route_;
  std::unique_ptr<wbtest::Connection> connection_;
  std::shared_ptr<LcODBCDatatypeList> own_types_;
};

std::string ColumnText(const LcWorkbookColumn& column);

// Forward keys have the mirror key that belongs to each, and the other way round: adds a failure
// for every key that is alone, refers to a table that is not there, or has sides that do not match.
void ExpectKeysInPairs(const LcWorkbookTableList& tables);

// Stops, and at every other place cancels, at the notifications of an import: at each of the first
// and last 25, and at every `step`th in between. The import ends with the right status, without
// an end of the import, soon, with no statement open and with a workbook that hangs together.
void ExpectEndsWhereverTheHostStops(const std::function<std::unique_ptr<RouteRun>()>& make,
                                    std::size_t step);

}  // namespace odbcimport::test
