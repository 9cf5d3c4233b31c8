// A server's own route and the generic one see the same schema.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/simulator/host.h"
#include "tests/simulator/servers.h"
#include "tests/support/facts.h"

namespace {

using simtest::Outcome;
using wbtest::Facts;

// Where the two differ, and the reason of each difference.
struct Comparison {
  const char* server;
  std::vector<std::string> left_out;  // facts that hold one of these texts
  std::vector<wbtest::Difference> meant;
};

constexpr const char* kOtherOwner =
    "the generic route looks for a referencing table under the owner of the referenced one, and "
    "drops the pair before one that it does not find";

// The generic route lists tables of the system like any other where the own one leaves them out.
const Comparison kComparisons[] = {
    {"informix",
     {},
     {{"the own route takes the columns of a unique constraint for primary key columns",
       {"+key joe.currency: code, name", "-key joe.currency: code"}},
      {kOtherOwner, {"+pair sales.price.currency -> joe.currency.code"}}}},
    {"informix-7", {"key ", "pair "}, {}},  // the own route reads none
    {"sqlserver",
     {},
     {{"the columns of a key come in the order of the table",
       {"+key north.notice: notice_id, member_id", "-key north.notice: member_id, notice_id"}},
      {kOtherOwner,
       {"+pair north.notice.member_id -> dbo.member.member_id",
        "+pair dbo.reservation.member_id -> dbo.member.member_id"}}}},
    // The own route reads pairs across the middle of a result that the server has sorted.
    {"oracle", {" SYS.", " SYSTEM.", "pair "}, {}},
    {"oracle-7", {" SYS.", " SYSTEM.", "pair "}, {}},
    {"db2",
     {" SYSIBM.", " SYSCAT."},
     {{"the generic route takes another owner's MEMBER for the one that it refers to",
       {"+pair NORTH.MEMBER.MEMBER_ID -> LIBRARY.MEMBER.MEMBER_ID",
        "-pair LIBRARY.MEMBER.MEMBER_ID -> LIBRARY.MEMBER.MEMBER_ID"}}}},
    {"redbrick",
     {},
     {{kOtherOwner,
       {"+pair NORTH.NORTH_VISIT.BRANCH_ID -> LIBRARY.BRANCH.BRANCH_ID",
        "+pair LIBRARY.STAFF.BRANCH_ID -> LIBRARY.BRANCH.BRANCH_ID"}}}},
};

class BothRoutes : public testing::TestWithParam<Comparison> {};

TEST_P(BothRoutes, SeeOneSchema) {
  const auto& [server, left_out, meant] = GetParam();
  const auto connection = wbtest::Connection::OpenSimulator(server);
  const wbtest::MessageRecorder messages;
  const auto read = [&, &left_out = left_out](bool generic) {
    const simtest::RouteSetting setting(generic);
    Facts facts = wbtest::FactsOf(*simtest::ImportAll(*connection, false).workbook);
    for (const std::string& text : left_out) {
      for (auto fact = facts.begin(); fact != facts.end();) {
        fact = fact->find(text) == std::string::npos ? std::next(fact) : facts.erase(fact);
      }
    }
    return facts;
  };
  const Facts own = read(false);
  EXPECT_GT(own.size(), 100U);
  ExpectDifferences(read(true), own, meant);
  EXPECT_THAT(messages.shown(), testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Servers, BothRoutes, testing::ValuesIn(kComparisons),
                         [](const auto& test) { return simtest::TestName(test.param.server); });

// Enough of each that whatever a reader does with keys is met somewhere.
TEST(PracticeServers, HaveKeysAndReferences) {
  for (const std::string server : simtest::kServers) {
    if (server == "informix-7") continue;  // its own route reads neither
    const auto connection = wbtest::Connection::OpenSimulator(server);
    std::size_t keys = 0;
    std::size_t references = 0;
    const Outcome outcome = simtest::ImportAll(*connection, false);
    for (const std::string& fact : wbtest::FactsOf(*outcome.workbook)) {
      keys += fact.starts_with("key ") ? 1 : 0;
      references += fact.starts_with("pair ") ? 1 : 0;
    }
    EXPECT_GE(keys, 16U) << server;
    // Access's driver has no call for references.
    EXPECT_EQ(references >= 16, server != "access") << server << ": " << references;
  }
}

}  // namespace
