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

// The views that the standard has besides those of the practice server, and their columns.
constexpr const char* kStandardViews = R"(Sql={
CREATE VIEW information_schema.schemata AS SELECT DISTINCT table_schema AS schema_name FROM tables;
ALTER TABLE information_schema.columns ADD COLUMN column_default VARCHAR(80);
ALTER TABLE information_schema.key_column_usage ADD COLUMN constraint_schema NVARCHAR(128);
ALTER TABLE information_schema.key_column_usage ADD COLUMN position_in_unique_constraint INTEGER;
UPDATE information_schema.key_column_usage SET constraint_schema = table_schema,
  position_in_unique_constraint = CASE constraint_type WHEN 'FOREIGN KEY' THEN ordinal_position END;
CREATE VIEW information_schema.table_constraints AS SELECT DISTINCT constraint_schema,
  constraint_name, table_schema, table_name, constraint_type FROM key_column_usage;
ALTER TABLE information_schema.referential_constraints ADD COLUMN constraint_schema NVARCHAR(128);
ALTER TABLE information_schema.referential_constraints
  ADD COLUMN unique_constraint_schema NVARCHAR(128);
ALTER TABLE information_schema.referential_constraints
  ADD COLUMN match_option VARCHAR(7) DEFAULT 'NONE';
ALTER TABLE information_schema.referential_constraints
  ADD COLUMN update_rule VARCHAR(11) DEFAULT 'NO ACTION';
ALTER TABLE information_schema.referential_constraints
  ADD COLUMN delete_rule VARCHAR(11) DEFAULT 'CASCADE';
UPDATE information_schema.referential_constraints AS r SET
  constraint_schema = (SELECT k.table_schema FROM information_schema.key_column_usage k
    WHERE k.constraint_name = r.constraint_name),
  unique_constraint_schema = (SELECT k.table_schema FROM information_schema.key_column_usage k
    WHERE k.constraint_name = r.unique_constraint_name);
CREATE TABLE information_schema.views(table_schema, table_name, view_definition);
CREATE TABLE information_schema.domains(domain_name);
CREATE TABLE information_schema.check_constraints(constraint_schema, constraint_name, check_clause);
CREATE TABLE information_schema.triggers(trigger_name, event_object_schema, event_object_table,
  action_timing, action_statement, event_manipulation);
CREATE TABLE information_schema.parameters(specific_schema, specific_name, ordinal_position,
  parameter_mode, parameter_name, data_type, udt_name);
ALTER TABLE information_schema.routines ADD COLUMN specific_schema NVARCHAR(128);
ALTER TABLE information_schema.routines ADD COLUMN specific_name NVARCHAR(128);
ALTER TABLE information_schema.routines ADD COLUMN data_type NVARCHAR(128);
ALTER TABLE information_schema.routines ADD COLUMN routine_body VARCHAR(8);
ALTER TABLE information_schema.routines ADD COLUMN external_language VARCHAR(8);
ALTER TABLE information_schema.routines ADD COLUMN routine_definition VARCHAR(80);
})";

// Nobody has to ask for it, and the server need not tell its name.
TEST(InformationSchema, IsReadExactlyWhereNothingBetterIsThere) {
  const auto connection = wbtest::Connection::OpenSimulator("generic", kStandardViews);
  const wbtest::MessageRecorder messages;
  const auto read = [&](LeReading reading) {
    return simtest::ImportAll(*connection, false, simtest::HostAct::kNothing, 0, {}, reading);
  };
  const Outcome exact = read(rdExact);
  EXPECT_TRUE(exact.result);
  const Facts compatible = wbtest::FactsOf(*read(rdCompatible).workbook);
  EXPECT_GT(compatible.size(), 100U);
  wbtest::ExpectDifferences(
      compatible, wbtest::FactsOf(*exact.workbook),
      {{kOtherOwner, {"+pair accounts.fine.loan_id -> library.loan.loan_id"}}});
  std::size_t whole = 0;
  for (const LcWorkbookTable* table : exact.workbook->tables) {
    for (const auto& key : table->GetForeignKeys()) {
      EXPECT_EQ(key->GetDetails()->on_delete, u"cascade");
      whole += key->GetKey()->GetCount() > 1 ? 1 : 0;
    }
  }
  EXPECT_GT(whole, 0U);
}

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
