// Sweeps: an import meets a failure at every driver call it makes, loses its connection at every
// call, is stopped and is cancelled at every notification. Whatever happens, it ends, leaves no
// statement open, and leaves a workbook that can be written. The whole of it under WB_LONG=1, every
// tenth case otherwise.
#include <gtest/gtest.h>
#include <sql.h>

#include <cstdlib>
#include <cstring>
#include <iostream>
#include <set>
#include <sstream>
#include <tuple>

#include "importer/odbc_workbook_import.h"
#include "importer/workbook/workbook_file.h"
#include "simulator/private_interface.h"
#include "tests/simulator/client.h"
#include "tests/simulator/servers.h"

namespace {

using wbtest::Connection;
using wbtest::MessageRecorder;

constexpr std::uint32_t kAllItems = ibTables | ibViews | ibSynonyms | ibProcedures | ibDataTypes |
                                    ibOperators | ibBooleanFunctions | ibFunctions | ibAggregates |
                                    ibTableNames | ibViewNames | ibSynonymNames;

// Settings that ask for the generic route, or for nothing.
class FixedSettings : public platform::SettingsStore {
 public:
  explicit FixedSettings(bool generic) : generic_(generic) {}
  std::optional<std::uint32_t> ReadDWORD(const std::u16string&,
                                         const std::u16string& value) override {
    if (generic_ && value == u"GenericWorkbookImport") return 1;
    return std::nullopt;
  }

 private:
  bool generic_;
};

enum class HostAct { kNothing, kStop, kCancel };

struct Outcome {
  bool result = false;
  unsigned short status = 0;
  unsigned notifications = 0;
  std::string file;  // the workbook's JSON form
};

class Host {
 public:
  explicit Host(bool generic)
      : before_(std::exchange(platform::GetServices().settings,
                              std::make_shared<FixedSettings>(generic))) {}
  ~Host() { platform::GetServices().settings = before_; }
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  // One import of everything. At the n-th notification the host acts.
  Outcome Import(const Connection& connection, HostAct act = HostAct::kNothing,
                 unsigned at_notification = 0) {
    LcWorkbook workbook;
    LcODBCWorkbookImport importer(&OnNotify, &workbook);
    importer.choices.item_mask = kAllItems;
    importer.choices.include_system = true;
    importer.choices.keys = true;
    importer.choices.foreign_keys = true;
    importer.SyncLogin(connection.henv(), connection.hdbc());
    current_ = this;
    importer_ = &importer;
    act_ = act;
    at_notification_ = at_notification;
    notifications_ = 0;
    Outcome outcome;
    outcome.result = importer.ImportItems(outcome.status);
    importer.UnSyncLogin();
    outcome.notifications = notifications_;
    std::ostringstream file;
    LcWorkbookFileInfo info;
    info.result = outcome.result;
    info.status = outcome.status;
    WriteWorkbookFile(workbook, info, file);
    outcome.file = file.str();
    return outcome;
  }

 private:
  static void OnNotify(enumImpNotify, void*) {
    Host& host = *current_;
    if (++host.notifications_ != host.at_notification_) return;
    if (host.act_ == HostAct::kStop) host.importer_->running = false;
    if (host.act_ == HostAct::kCancel) host.importer_->cancelled = true;
  }

  static inline Host* current_ = nullptr;  // the callback carries no context
  std::shared_ptr<platform::SettingsStore> before_;
  LcODBCWorkbookImport* importer_ = nullptr;
  HostAct act_ = HostAct::kNothing;
  unsigned at_notification_ = 0;
  unsigned notifications_ = 0;
};

unsigned Step() {
  const char* const value = std::getenv("WB_LONG");
  return value != nullptr && std::strcmp(value, "1") == 0 ? 1 : 10;
}

void SetNumber(const Connection& connection, int attribute, unsigned value) {
  SQLSetConnectAttr(connection.hdbc(), attribute, reinterpret_cast<SQLPOINTER>(SQLULEN{value}), 0);
}

// Server, and whether the generic route is asked for.
class Sweep : public testing::TestWithParam<std::tuple<const char*, bool>> {
 protected:
  Sweep()
      : connection_(Connection::OpenSimulator(std::get<0>(GetParam()))),
        host_(std::get<1>(GetParam())) {}

  unsigned Calls() const { return simtest::Number(*connection_, catalogsim::kInfoCalls); }
  unsigned Faults() const { return simtest::Number(*connection_, catalogsim::kInfoFaults); }
  // What has to hold however an import ended.
  void CheckLeftovers(const Outcome& outcome) {
    EXPECT_EQ(simtest::Number(*connection_, catalogsim::kInfoOpenStatements), 0U);
    if (!seen_files_.insert(std::hash<std::string>()(outcome.file)).second) return;
    if (Step() > 1 && seen_files_.size() > 5) return;  // reading takes longer than importing
    LcWorkbook read;
    LcWorkbookFileInfo info;
    std::string why;
    EXPECT_TRUE(ReadWorkbookFile(outcome.file, read, info, why)) << why;
  }
  void Report(const char* what, unsigned of, unsigned covered) const {
    std::cout << "sweep " << std::get<0>(GetParam())
              << (std::get<1>(GetParam()) ? " by the generic route" : "") << ": " << covered
              << " of " << of << ' ' << what << '\n';
  }

  std::unique_ptr<Connection> connection_;
  Host host_;
  MessageRecorder messages_;

 private:
  std::set<std::size_t> seen_files_;  // most failures end in a few workbooks; each is read once
};

TEST_P(Sweep, EndsWhateverCallFails) {
  const Outcome whole = host_.Import(*connection_);
  CheckLeftovers(whole);
  unsigned covered = 0;
  unsigned call = 1;
  for (;; call += Step()) {
    SCOPED_TRACE("call " + std::to_string(call));
    const unsigned faults = Faults();
    SetNumber(*connection_, catalogsim::kAttrFailCall, call);
    const Outcome outcome = host_.Import(*connection_);
    SetNumber(*connection_, catalogsim::kAttrFailCall, 0);
    if (Faults() == faults) break;  // the import makes no more calls
    EXPECT_EQ(outcome.status, 0);
    CheckLeftovers(outcome);
    ++covered;
    if (HasFailure()) break;
  }
  // A failure leaves nothing behind that the next import would notice.
  EXPECT_EQ(host_.Import(*connection_).file, whole.file);
  Report("calls failed", call - 1, covered);
  EXPECT_GT(covered, 0U);
}

TEST_P(Sweep, EndsWhereverTheConnectionIsLost) {
  unsigned covered = 0;
  unsigned call = 1;
  for (;; call += 3 * Step()) {
    SCOPED_TRACE("call " + std::to_string(call));
    const unsigned faults = Faults();
    SetNumber(*connection_, catalogsim::kAttrDropCall, call);
    const Outcome outcome = host_.Import(*connection_);
    SetNumber(*connection_, catalogsim::kAttrDropCall, 0);
    if (Faults() == faults) break;
    EXPECT_EQ(outcome.status, 0);
    CheckLeftovers(outcome);
    ++covered;
    if (HasFailure()) break;
  }
  Report("calls lost the connection", call - 1, covered);
  EXPECT_GT(covered, 0U);
}

TEST_P(Sweep, StopsAndCancelsAtEveryNotification) {
  const unsigned all = host_.Import(*connection_).notifications;
  unsigned covered = 0;
  for (unsigned notification = 1; notification <= all; notification += Step()) {
    for (const HostAct act : {HostAct::kStop, HostAct::kCancel}) {
      SCOPED_TRACE("notification " + std::to_string(notification));
      const Outcome outcome = host_.Import(*connection_, act, notification);
      EXPECT_EQ(outcome.status, act == HostAct::kStop ? 9 : 4);
      EXPECT_GE(outcome.notifications, notification);
      CheckLeftovers(outcome);
    }
    ++covered;
    if (HasFailure()) break;
  }
  Report("notifications stopped and cancelled", all, covered);
  EXPECT_GT(covered, 0U);
}

std::string NameOf(const testing::TestParamInfo<Sweep::ParamType>& info) {
  std::string name = std::get<0>(info.param);
  if (std::get<1>(info.param)) name += "_generic";
  for (char& c : name)
    if (c == '-') c = '_';
  return name;
}

INSTANTIATE_TEST_SUITE_P(OwnRoutes, Sweep,
                         testing::Combine(testing::ValuesIn(simtest::kServers),
                                          testing::Values(false)),
                         NameOf);
// The generic route where another one is at hand: once with all catalog functions and owners.
INSTANTIATE_TEST_SUITE_P(GenericRoute, Sweep,
                         testing::Combine(testing::Values("informix"), testing::Values(true)),
                         NameOf);

}  // namespace
