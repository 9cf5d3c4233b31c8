// Sweeps: an import meets a failure at every driver call it makes, loses its connection at every
// call, is stopped and is cancelled at every notification, and reads odd values in every column of
// every catalog table; recordings of real drivers are swept like practice servers. Whatever
// happens, it ends, leaves no statement open, and leaves a workbook that can be written and read.
// The whole of it under WB_LONG=1, a part of the cases otherwise.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <set>
#include <tuple>

#include "importer/workbook/workbook_file.h"
#include "simulator/private_interface.h"
#include "tests/simulator/host.h"
#include "tests/simulator/servers.h"
#include "tests/support/statement.h"

namespace {

using simtest::HostAct;
using simtest::ImportAll;
using simtest::Outcome;
using wbtest::Connection;
using wbtest::Row;

// Server, and whether the generic route is asked for.
class Sweep : public testing::TestWithParam<std::tuple<const char*, bool>> {
 protected:
  unsigned Faults() const { return connection_->GetInfo(catalogsim::kInfoFaults); }
  void SweepCalls(int attribute, unsigned step);
  // A recording holds what was asked when it was made: no system objects, and one database alone of
  // a server that has several.
  Outcome Import(HostAct act = HostAct::kNothing, unsigned at_notification = 0) const {
    const bool one_database = std::string_view(server_).ends_with("mariadb.jsonl");
    return ImportAll(*connection_, !recorded_, act, at_notification, one_database ? u"shop" : u"");
  }
  // What has to hold however an import ended.
  void CheckLeftovers(const Connection& connection, const Outcome& outcome) {
    EXPECT_EQ(connection.GetInfo(catalogsim::kInfoOpenStatements), 0U);
    const std::string file = outcome.File();
    if (!seen_files_.insert(std::hash<std::string>()(file)).second) return;
    if (seen_files_.size() > most_read_) return;  // reading takes longer than importing
    LcWorkbook read;
    LcWorkbookFileInfo info;
    std::string why;
    EXPECT_TRUE(ReadWorkbookFile(file, read, info, why)) << why;
  }
  void Report(const char* what, std::size_t of, std::size_t covered) const {
    EXPECT_GT(covered, 0U);
    std::cout << "sweep " << server_ << (generic_ ? " by the generic route" : "") << ": " << covered
              << " of " << of << ' ' << what << '\n';
  }

  const char* const server_ = std::get<0>(GetParam());
  const bool generic_ = std::get<1>(GetParam());
  const bool recorded_ = std::string_view(server_).starts_with("recording");
  const unsigned step_ = std::getenv("WB_LONG") != nullptr ? 1 : 10;
  const std::unique_ptr<Connection> connection_ = Connection::OpenSimulator(server_);
  const simtest::RouteSetting setting_{generic_};
  const wbtest::MessageRecorder messages_{};

  std::size_t most_read_ = step_ > 1 ? 5 : SIZE_MAX;

 private:
  std::set<std::size_t> seen_files_;  // most failures end in a few workbooks; each is read once
};

void Sweep::SweepCalls(int attribute, unsigned step) {
  unsigned covered = 0;
  unsigned call = 1;
  for (; !HasFailure(); call += step, ++covered) {
    SCOPED_TRACE("call " + std::to_string(call));
    const unsigned faults = Faults();
    connection_->SetAttribute(attribute, call);
    const Outcome outcome = Import();
    connection_->SetAttribute(attribute, 0);
    if (Faults() == faults) break;  // the import makes no more calls
    EXPECT_EQ(outcome.status, 0);
    CheckLeftovers(*connection_, outcome);
  }
  Report("calls", call - 1, covered);
}

TEST_P(Sweep, EndsWhateverCallFails) {
  const Outcome whole = Import();
  CheckLeftovers(*connection_, whole);
  SweepCalls(catalogsim::kAttrFailCall, step_);
  // A failure leaves nothing behind that the next import would notice.
  EXPECT_EQ(Import().File(), whole.File());
}

TEST_P(Sweep, EndsWhereverTheConnectionIsLost) { SweepCalls(catalogsim::kAttrDropCall, 3 * step_); }

TEST_P(Sweep, StopsAndCancelsAtEveryNotification) {
  const unsigned all = Import().notifications;
  unsigned covered = 0;
  for (unsigned at = 1; at <= all && !HasFailure(); at += step_, ++covered) {
    for (const HostAct act : {HostAct::kStop, HostAct::kCancel}) {
      SCOPED_TRACE("notification " + std::to_string(at));
      connection_->SetAttribute(catalogsim::kAttrFailCall, 0);  // a recording begins anew
      const Outcome outcome = Import(act, at);
      EXPECT_EQ(outcome.status, act == HostAct::kStop ? 9 : 4);
      EXPECT_GE(outcome.notifications, at);
      CheckLeftovers(*connection_, outcome);
    }
  }
  Report("notifications stopped and cancelled", all, covered);
}

constexpr const char* kOddValues[] = {
    "NULL",
    "''",
    "-1",
    "1",  // refers to itself, or to the wrong thing
    "99999999999999",
    "printf('%.700c', 'x')",  // longer than a cell of the fetch layer
    "char(228, 128218, 10, 34, 39)",
    "'3 [1], <7>(1, -2, [1], ] -'",
};

constexpr const char* kColumns =
    "SELECT t.schema, t.name, c.name, c.pk AND c.type = 'INTEGER' FROM pragma_table_list t, "
    "pragma_table_info(t.name, t.schema) c WHERE t.type = 'table' AND t.schema <> 'temp'"
    " AND t.name NOT LIKE 'sqlite%' ORDER BY 1, 2, c.cid";

TEST_P(Sweep, ReadsOddValuesInEveryColumn) {
  if (recorded_) return;  // nothing to write into
  const std::vector<Row> columns = wbtest::Query(*connection_, kColumns);
  ASSERT_GT(columns.size(), 10U);
  most_read_ = SIZE_MAX;
  // A step that shares no factor with the values meets them all in turn.
  const std::size_t step = step_ > 1 ? 37 : 1;
  const std::size_t cases = columns.size() * std::size(kOddValues);
  std::size_t covered = 0;
  for (std::size_t i = 0; i < cases && !HasFailure(); i += step, ++covered) {
    const Row& column = columns[i / std::size(kOddValues)];
    const std::string value = kOddValues[i % std::size(kOddValues)];
    // SQLite's own row numbers take numbers only.
    if (column.at(3) == "1" && value.find_first_not_of("-0123456789") != std::string::npos)
      continue;
    const std::string update = "UPDATE OR IGNORE \"" + column.at(0) + "\".\"" + column.at(1) +
                               "\" SET \"" + column.at(2) + "\" = " + value;
    SCOPED_TRACE(update);
    const auto connection = Connection::OpenSimulator(server_, "Sql={" + update + "}");
    const Outcome outcome = ImportAll(*connection);
    EXPECT_EQ(outcome.status, 0);
    CheckLeftovers(*connection, outcome);
  }
  Report("odd values", cases, covered);
}

std::string NameOf(const testing::TestParamInfo<Sweep::ParamType>& info) {
  const auto [server, generic] = info.param;
  const std::string_view file = server;
  if (const std::size_t folder = file.rfind('/'); folder != std::string_view::npos)
    return std::string(file.substr(folder + 1, file.rfind('.') - folder - 1)) + "_recorded";
  return simtest::TestName(server) + (generic ? "_generic" : "");
}

INSTANTIATE_TEST_SUITE_P(OwnRoutes, Sweep,
                         testing::Combine(testing::ValuesIn(simtest::kServers),
                                          testing::Values(false)),
                         NameOf);
// The generic route where another one is at hand: once with all catalog functions and owners.
INSTANTIATE_TEST_SUITE_P(GenericRoute, Sweep,
                         testing::Combine(testing::Values("informix"), testing::Values(true)),
                         NameOf);

// What real drivers answered, quirks included.
#define WB_RECORDED(name) "recording;File=" WB_SOURCE_DIR "/tests/recording/fixtures/" name ".jsonl"
INSTANTIATE_TEST_SUITE_P(
    Recordings, Sweep,
    testing::Combine(testing::Values(WB_RECORDED("sqlite"), WB_RECORDED("postgresql"),
                                     WB_RECORDED("mariadb"), WB_RECORDED("access")),
                     testing::Values(false)),
    NameOf);

}  // namespace
