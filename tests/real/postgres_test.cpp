// PostgreSQL through its own driver, against its information_schema. Runs under
// scripts/with_postgres, which tells the port.
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

#include "tests/real/facts.h"
#include "tests/real/schema.h"
#include "tests/real/server.h"

namespace real {
namespace {

constexpr const char* kDriver = "PostgreSQL Unicode";

const Dialect kDialect = {
    '"',
    {"alpha", "Beta Owner", "g\u00e4mma"},
    {"SMALLINT",
     "INTEGER",
     "BIGINT",
     "NUMERIC(12,3)",
     "NUMERIC",
     "REAL",
     "DOUBLE PRECISION",
     "BOOLEAN",
     "CHAR(3)",
     "VARCHAR(40)",
     "TEXT",
     "BYTEA",
     "DATE",
     "TIME",
     "TIMESTAMP",
     "TIMESTAMP WITH TIME ZONE",
     "INTERVAL",
     "UUID",
     "JSONB",
     "XML",
     "INET",
     "MONEY",
     "INTEGER[]",
     "BIT(8)"},
    false,
};

std::string ConnectionString(const std::string& database, const std::string& user) {
  const char* port = std::getenv("PGPORT");
  return std::string("Driver=") + kDriver +
         ";Server=127.0.0.1;Port=" + (port != nullptr ? port : "") + ";Database=" + database +
         ";Uid=" + user;
}

class PostgreSQL : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    if (std::getenv("PGPORT") == nullptr || !IsDriverInstalled(kDriver)) return;
    server = std::make_unique<Server>(ConnectionString("postgres", "postgres"));
    for (const std::string& owner : kDialect.owners) {
      server->Query("CREATE SCHEMA " + Quoted(kDialect, owner));
    }
    server->Run(MakeSchema(kDialect));
    server->Query("CREATE TABLE alpha.bare()");
  }
  static void TearDownTestSuite() { server.reset(); }
  void SetUp() override {
    if (!IsDriverInstalled(kDriver)) GTEST_SKIP() << "the package odbc-postgresql is not installed";
    if (server == nullptr) GTEST_SKIP() << "no server: run by scripts/with_postgres";
  }

  static std::unique_ptr<Server> server;
};

std::unique_ptr<Server> PostgreSQL::server;

Facts AskServer(Server& server) {
  const std::string ours = "table_schema NOT IN ('pg_catalog', 'information_schema')";
  Facts facts;
  for (const auto& row : server.Query(
           "SELECT table_schema, table_name, table_type FROM information_schema.tables WHERE " +
           ours)) {
    facts.insert(TableFact(row[2] == "VIEW", row[0], row[1]));
  }
  for (const auto& row : server.Query("SELECT table_schema, table_name, column_name, is_nullable"
                                      " FROM information_schema.columns WHERE " +
                                      ours)) {
    facts.insert(ColumnFact(row[0], row[1], row[2], row[3] == "NO"));
  }
  AddKeyFacts(server.Query("SELECT k.table_schema, k.table_name, k.column_name"
                           " FROM information_schema.table_constraints c"
                           " JOIN information_schema.key_column_usage k"
                           " USING (constraint_schema, constraint_name)"
                           " WHERE c.constraint_type = 'PRIMARY KEY'"
                           " AND k.table_schema <> 'pg_catalog'"
                           " ORDER BY k.table_schema, k.table_name, k.ordinal_position"),
              facts);
  for (const auto& row : server.Query(
           "SELECT f.table_schema, f.table_name, f.column_name,"
           " k.table_schema, k.table_name, k.column_name"
           " FROM information_schema.referential_constraints r"
           " JOIN information_schema.key_column_usage f"
           " ON f.constraint_schema = r.constraint_schema AND f.constraint_name = r.constraint_name"
           " JOIN information_schema.key_column_usage k"
           " ON k.constraint_schema = r.unique_constraint_schema"
           " AND k.constraint_name = r.unique_constraint_name"
           " AND k.ordinal_position = f.position_in_unique_constraint")) {
    facts.insert(PairFact(row[0], row[1], row[2], row[3], row[4], row[5]));
  }
  return facts;
}

const std::vector<Difference> kMeant = {
    {"a table's name is a pattern when its columns are asked for: a_b takes the columns of axb too",
     {"+column alpha.a_b.other"}},
    {"a referencing table is looked for under the owner of the referenced one",
     {"-pair alpha.crossing.target -> Beta Owner.t000.id"}},
    {"the last relationship goes by the table of the last row, which is not found here",
     {"-pair Beta Owner.t001.p -> Beta Owner.t000.id"}},
};

TEST_F(PostgreSQL, GivesWhatItsInformationSchemaHolds) {
  Import import;
  RunImport(server->henv(), server->hdbc(), u"", import);
  EXPECT_TRUE(import.result);
  EXPECT_EQ(import.status, 0);
  EXPECT_GE(import.workbook.tables.GetCount(), 330U);
  ExpectDifferences(AskServer(*server), import.facts, kMeant);
}

TEST_F(PostgreSQL, HasDatabasesWithoutTables) {
  server->Query("CREATE DATABASE blank");
  const Server blank(ConnectionString("blank", "postgres"));
  Import import;
  RunImport(blank.henv(), blank.hdbc(), u"", import);
  EXPECT_TRUE(import.result);
  EXPECT_TRUE(import.workbook.tables.IsEmpty());
}

TEST_F(PostgreSQL, ShowsTheCatalogToAUserWithoutRights) {
  server->Query("CREATE ROLE guest LOGIN");
  const Server guest(ConnectionString("postgres", "guest"));
  Import import;
  RunImport(guest.henv(), guest.hdbc(), u"", import, {}, ibTableNames | ibViewNames);
  EXPECT_TRUE(import.result);
  EXPECT_GE(import.workbook.table_names.GetCount(), 330U);
}

// The server ends the connection under the import, early, in the columns and in the foreign keys.
TEST_F(PostgreSQL, GoesAwayInTheMiddle) {
  struct {
    int event;
    bool result;
  } const cases[] = {{1, true}, {200, false}, {2800, true}};
  for (const auto& c : cases) {
    const auto victim = std::make_unique<Server>(ConnectionString("postgres", "postgres"));
    auto& session = *victim;
    const std::string pid = session.Query("SELECT pg_backend_pid()").at(0).at(0);
    Import import;
    int last = 0;
    RunImport(session.henv(), session.hdbc(), u"", import, [&](int event) {
      last = event;
      if (event == c.event) server->Query("SELECT pg_terminate_backend(" + pid + ")");
    });
    EXPECT_EQ(import.result, c.result) << c.event;
    EXPECT_EQ(import.status, 0) << c.event;
    EXPECT_GE(last, c.event);
  }
}

}  // namespace
}  // namespace real
