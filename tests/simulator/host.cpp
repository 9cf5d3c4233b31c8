// See host.h.
#include "tests/simulator/host.h"

#include <sstream>

#include "importer/workbook/workbook_file.h"

namespace simtest {
namespace {

struct GenericImport : platform::SettingsStore {
  explicit GenericImport(bool is_wanted) : wanted(is_wanted) {}
  std::optional<std::uint32_t> ReadDWORD(const std::u16string&,
                                         const std::u16string& value) override {
    if (value != u"GenericWorkbookImport") return std::nullopt;
    return wanted;
  }
  bool wanted;
};

// What the callback, which carries no context, works on.
struct RunningImport {
  LcODBCWorkbookImport* importer = nullptr;
  HostAct act = HostAct::kNothing;
  unsigned at_notification = 0;
  unsigned notifications = 0;
};
thread_local RunningImport running;

void OnNotify(enumImpNotify, void*) {
  if (++running.notifications != running.at_notification) return;
  if (running.act == HostAct::kStop) running.importer->running = false;
  if (running.act == HostAct::kCancel) running.importer->cancelled = true;
}

constexpr std::uint32_t kAllItems = ibTables | ibViews | ibSynonyms | ibProcedures | ibDataTypes |
                                    ibOperators | ibBooleanFunctions | ibFunctions | ibAggregates |
                                    ibTableNames | ibViewNames | ibSynonymNames;

}  // namespace

RouteSetting::RouteSetting(bool generic)
    : scope_(platform::GetServices().settings, std::make_shared<GenericImport>(generic)) {}

std::string Outcome::File() const {
  LcWorkbookFileInfo info;
  info.result = result;
  info.status = status;
  std::ostringstream file;
  WriteWorkbookFile(*workbook, info, file);
  return file.str();
}

Outcome ImportAll(const wbtest::Connection& connection, bool system, HostAct act,
                  unsigned at_notification, const std::u16string& catalog, LeReading reading) {
  Outcome outcome;
  outcome.workbook = std::make_unique<LcWorkbook>();
  LcODBCWorkbookImport importer(&OnNotify, outcome.workbook.get());
  importer.choices.item_mask = kAllItems;
  importer.choices.include_system = system;
  importer.choices.catalog = catalog;
  importer.choices.reading = reading;
  importer.choices.keys = true;
  importer.choices.foreign_keys = true;
  importer.SyncLogin(connection.henv(), connection.hdbc());
  running = {&importer, act, at_notification, 0};
  outcome.result = importer.ImportItems(outcome.status);
  importer.UnSyncLogin();
  outcome.notifications = running.notifications;
  return outcome;
}

}  // namespace simtest
