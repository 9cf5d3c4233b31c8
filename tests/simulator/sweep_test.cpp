// Sweeps: an import meets a failure at every driver call it makes, loses its connection at every
// call, is stopped and is cancelled at every notification. Whatever happens, it ends, leaves no
// statement open, and leaves a workbook that can be written. The whole of it under WB_LONG=1, every
// tenth case otherwise.
#include <gtest/gtest.h>
#include <sql.h>

#include <iostream>
#include <set>
#include <tuple>

#include "importer/workbook/workbook_file.h"
#include "simulator/private_interface.h"
#include "tests/simulator/client.h"
#include "tests/simulator/host.h"
#include "tests/simulator/servers.h"

namespace {

using simtest::HostAct;
using simtest::ImportAll;
using simtest::Outcome;
using wbtest::Connection;
using wbtest::MessageRecorder;

unsigned Step() { return simtest::IsLongRun() ? 1 : 10; }

void SetNumber(const Connection& connection, int attribute, unsigned value) {
  SQLSetConnectAttr(connection.hdbc(), attribute, reinterpret_cast<SQLPOINTER>(SQLULEN{value}), 0);
}

// Server, and whether the generic route is asked for.
class Sweep : public testing::TestWithParam<std::tuple<const char*, bool>> {
 protected:
  Sweep()
      : connection_(Connection::OpenSimulator(std::get<0>(GetParam()))),
        settings_(simtest::RouteSettings(std::get<1>(GetParam()))) {}

  unsigned Calls() const { return simtest::Number(*connection_, catalogsim::kInfoCalls); }
  unsigned Faults() const { return simtest::Number(*connection_, catalogsim::kInfoFaults); }
  // What has to hold however an import ended.
  void CheckLeftovers(const Outcome& outcome) {
    EXPECT_EQ(simtest::Number(*connection_, catalogsim::kInfoOpenStatements), 0U);
    const std::string file = outcome.File();
    if (!seen_files_.insert(std::hash<std::string>()(file)).second) return;
    if (Step() > 1 && seen_files_.size() > 5) return;  // reading takes longer than importing
    LcWorkbook read;
    LcWorkbookFileInfo info;
    std::string why;
    EXPECT_TRUE(ReadWorkbookFile(file, read, info, why)) << why;
  }
  void Report(const char* what, unsigned of, unsigned covered) const {
    std::cout << "sweep " << std::get<0>(GetParam())
              << (std::get<1>(GetParam()) ? " by the generic route" : "") << ": " << covered
              << " of " << of << ' ' << what << '\n';
  }

  std::unique_ptr<Connection> connection_;
  simtest::Settings settings_;
  MessageRecorder messages_;

 private:
  std::set<std::size_t> seen_files_;  // most failures end in a few workbooks; each is read once
};

TEST_P(Sweep, EndsWhateverCallFails) {
  const Outcome whole = ImportAll(*connection_);
  CheckLeftovers(whole);
  unsigned covered = 0;
  unsigned call = 1;
  for (;; call += Step()) {
    SCOPED_TRACE("call " + std::to_string(call));
    const unsigned faults = Faults();
    SetNumber(*connection_, catalogsim::kAttrFailCall, call);
    const Outcome outcome = ImportAll(*connection_);
    SetNumber(*connection_, catalogsim::kAttrFailCall, 0);
    if (Faults() == faults) break;  // the import makes no more calls
    EXPECT_EQ(outcome.status, 0);
    CheckLeftovers(outcome);
    ++covered;
    if (HasFailure()) break;
  }
  // A failure leaves nothing behind that the next import would notice.
  EXPECT_EQ(ImportAll(*connection_).File(), whole.File());
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
    const Outcome outcome = ImportAll(*connection_);
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
  const unsigned all = ImportAll(*connection_).notifications;
  unsigned covered = 0;
  for (unsigned notification = 1; notification <= all; notification += Step()) {
    for (const HostAct act : {HostAct::kStop, HostAct::kCancel}) {
      SCOPED_TRACE("notification " + std::to_string(notification));
      const Outcome outcome = ImportAll(*connection_, true, act, notification);
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
