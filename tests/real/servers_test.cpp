// PostgreSQL and MariaDB through their own drivers, against their information_schema. Each runs
// under a script, scripts/with_postgres or scripts/with_mariadb, which tells where the server
// listens.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <memory>

#include "tests/host/program.h"
#include "tests/real/schema.h"
#include "tests/real/server.h"

namespace real {
namespace {

using wbtest::Connection;

// The events at which the server ends the connection, and the result of the import.
struct Loss {
  int event;
  bool result;
};

struct Kind {
  const char* name;
  const char* driver;
  const char* package;
  const char* variable;  // in which the script tells the port or socket
  const char* keywords;  // of a connection string, the last one for the variable's value
  const char* user;
  const char* first_database;  // which is there from the beginning
  const char* database;        // of the schema
  bool databases_are_catalogs;
  const Dialect* dialect;
  std::vector<std::string> before_schema;
  std::vector<std::string> after_schema;
  SchemaQueries queries;
  std::vector<wbtest::Difference> meant;
  unsigned tables_elsewhere;  // that an import without a catalog finds beside those of the schema
  bool guests_see_names;
  const char* ask_session;
  const char* end_session;  // with # for the session
  std::vector<Loss> losses;
};

const char* const kPattern =
    "a table's name is a pattern when its columns are asked for: a_b takes the columns of axb too";

const Kind kPostgreSQL = {
    "PostgreSQL",
    "PostgreSQL Unicode",
    "odbc-postgresql",
    "PGPORT",
    "Server=127.0.0.1;Port=",
    "postgres",
    "postgres",
    "postgres",
    false,
    &kPostgreSQLDialect,
    {"CREATE SCHEMA alpha", "CREATE SCHEMA \"Beta Owner\"", "CREATE SCHEMA \"g\u00e4mma\""},
    {"CREATE TABLE alpha.bare()", "CREATE DATABASE blank", "CREATE ROLE guest LOGIN"},
    {"SELECT table_schema, table_name, table_type FROM information_schema.tables"
     " WHERE table_schema NOT IN ('pg_catalog', 'information_schema')",
     "SELECT table_schema, table_name, column_name, is_nullable FROM information_schema.columns"
     " WHERE table_schema NOT IN ('pg_catalog', 'information_schema')",
     "SELECT k.table_schema, k.table_name, k.column_name FROM information_schema.table_constraints "
     "c"
     " JOIN information_schema.key_column_usage k USING (constraint_schema, constraint_name)"
     " WHERE c.constraint_type = 'PRIMARY KEY' AND k.table_schema <> 'pg_catalog'"
     " ORDER BY k.table_schema, k.table_name, k.ordinal_position",
     "SELECT f.table_schema, f.table_name, f.column_name, k.table_schema, k.table_name,"
     " k.column_name FROM information_schema.referential_constraints r"
     " JOIN information_schema.key_column_usage f"
     " ON f.constraint_schema = r.constraint_schema AND f.constraint_name = r.constraint_name"
     " JOIN information_schema.key_column_usage k"
     " ON k.constraint_schema = r.unique_constraint_schema"
     " AND k.constraint_name = r.unique_constraint_name"
     " AND k.ordinal_position = f.position_in_unique_constraint"},
    {{kPattern, {"+column alpha.a_b.other"}},
     {"a referencing table is looked for under the owner of the referenced one",
      {"-pair alpha.crossing.target -> Beta Owner.t000.id"}},
     {"the last relationship goes by the table of the last row, which is not found here",
      {"-pair Beta Owner.t001.p -> Beta Owner.t000.id"}}},
    0,
    true,
    "SELECT pg_backend_pid()",
    "SELECT pg_terminate_backend(#)",
    {{1, true}, {200, false}, {2800, true}},
};

// The table of a name of 64 characters is read under its first 63, which are another table's.
const std::string kCut = kNameOf63;

// A server with databases instead of owners: all tables are in one, and a second one must stay out.
const Kind kMariaDB = {
    "MariaDB",
    "MariaDB Unicode",
    "odbc-mariadb",
    "MARIADB_SOCKET",
    "Socket=",
    "root",
    "mysql",
    "shop",
    true,
    &kMariaDBDialect,
    {"CREATE DATABASE shop", "CREATE DATABASE other", "CREATE TABLE other.t000(elsewhere INTEGER)",
     "CREATE TABLE other.u(v INTEGER)", "USE shop"},
    {"CREATE TABLE `" + kCut + "x`(id INTEGER)", "CREATE DATABASE blank",
     "CREATE USER guest@localhost"},
    {"SELECT '', table_name, table_type FROM information_schema.tables"
     " WHERE table_schema = 'shop'",
     "SELECT '', table_name, column_name, is_nullable FROM information_schema.columns"
     " WHERE table_schema = 'shop'",
     "SELECT '', table_name, column_name FROM information_schema.key_column_usage WHERE"
     " table_schema = 'shop' AND constraint_name = 'PRIMARY' ORDER BY table_name, ordinal_position",
     "SELECT '', table_name, column_name, '', referenced_table_name, referenced_column_name"
     " FROM information_schema.key_column_usage"
     " WHERE table_schema = 'shop' AND referenced_table_name IS NOT NULL"},
    {{kPattern, {"+column a_b.other"}},
     {"63 characters of a name are read; what is asked under the cut name is another table's",
      {"-table " + kCut + "x", "-column " + kCut + "x.id", "+table " + kCut,
       "+column " + kCut + "." + kCut + " required", "+key " + kCut + ": " + kCut}},
     {"the driver numbers a key's columns by their places in the table",
      {"-key reversed: c, a", "+key reversed: a, c"}},
     {"the driver leaves out references to a unique key that is not the primary one",
      {"-pair listing.code -> listed.code"}}},
    3,
    false,
    "SELECT connection_id()",
    "KILL #",
    {{1, true}, {200, false}},
};

class RealServer : public testing::TestWithParam<const Kind*> {
 protected:
  void SetUp() override {
    if (!IsDriverInstalled(kind_.driver)) GTEST_SKIP() << "not installed: " << kind_.package;
    if (std::getenv(kind_.variable) == nullptr) GTEST_SKIP() << "no server: " << kind_.name;
    std::unique_ptr<Connection>& server = servers[kind_.name];
    if (server == nullptr) {
      server = std::make_unique<Connection>(ConnectionString(kind_.first_database, kind_.user));
      for (const auto& statements :
           {kind_.before_schema, MakeSchema(*kind_.dialect), kind_.after_schema}) {
        for (const std::string& statement : statements) server->Execute(statement);
      }
    }
    server_ = server.get();
  }
  static void TearDownTestSuite() { servers.clear(); }

  std::string ConnectionString(const std::string& database, const std::string& user) const {
    return std::string("Driver=") + kind_.driver + ";" + kind_.keywords +
           std::getenv(kind_.variable) + ";Database=" + database + ";Uid=" + user;
  }

  const Kind& kind_ = *GetParam();
  const std::u16string catalog_ = kind_.databases_are_catalogs ? u"shop" : u"";
  Connection* server_ = nullptr;

 private:
  static std::map<std::string, std::unique_ptr<Connection>> servers;
};

std::map<std::string, std::unique_ptr<Connection>> RealServer::servers;

TEST_P(RealServer, GivesWhatItsInformationSchemaHolds) {
  const Import run(*server_, catalog_);
  EXPECT_TRUE(run.result);
  EXPECT_EQ(run.status, 0);
  EXPECT_GE(run.workbook.tables.GetCount(), 330U);
  ExpectDifferences(Ask(*server_, kind_.queries), wbtest::FactsOf(run.workbook), kind_.meant);
}

// Without a catalog the driver gives the tables of all databases, the server's own among them.
TEST_P(RealServer, ReadsTheWholeServerWithoutACatalog) {
  const Import all(*server_, u"", {}, ibTableNames);
  EXPECT_TRUE(all.result);
  const Import ours(*server_, catalog_, {}, ibTableNames);
  EXPECT_GE(all.workbook.table_names.GetCount(),
            ours.workbook.table_names.GetCount() + kind_.tables_elsewhere);
}

TEST_P(RealServer, HasDatabasesWithoutTables) {
  const Connection blank(ConnectionString("blank", kind_.user));
  const Import run(blank, kind_.databases_are_catalogs ? u"blank" : u"");
  EXPECT_TRUE(run.result);
  EXPECT_TRUE(run.workbook.tables.IsEmpty());
}

TEST_P(RealServer, ShowsWhatItLikesToAUserWithoutRights) {
  const Connection guest(
      ConnectionString(kind_.databases_are_catalogs ? "" : kind_.database, "guest"));
  const Import run(guest, catalog_, {}, ibTableNames | ibViewNames);
  EXPECT_TRUE(run.result);
  EXPECT_EQ(run.workbook.table_names.GetCount() >= 300U, kind_.guests_see_names);
  EXPECT_EQ(run.workbook.table_names.IsEmpty(), !kind_.guests_see_names);
}

// The server ends the connection under the import, early, in the columns and in the foreign keys.
TEST_P(RealServer, GoesAwayInTheMiddle) {
  for (const Loss& loss : kind_.losses) {
    const Connection victim(ConnectionString(kind_.database, kind_.user));
    std::string end_session = kind_.end_session;
    end_session.replace(end_session.find('#'), 1, victim.Execute(kind_.ask_session).at(0).at(0));
    int last = 0;
    const Import run(victim, catalog_, [&](int event) {
      last = event;
      if (event == loss.event) server_->Execute(end_session);
    });
    EXPECT_EQ(run.result, loss.result) << loss.event;
    EXPECT_EQ(run.status, 0) << loss.event;
    EXPECT_GE(last, loss.event);
  }
}

// What the program says of a server that shows nothing to a connection without a database, and of
// one that lets nobody in, whose own words it keeps.
TEST_P(RealServer, TellsTheProgramWhyNothingIsRead) {
  const wbtest::ProgramResult wrong = wbtest::RunProgram(
      {"info", "--connect", ConnectionString(kind_.database, "nobody") + ";PWD=tell-no-1"});
  EXPECT_EQ(wrong.exit_code, 5);
  EXPECT_THAT(wrong.err, testing::MatchesRegex("[^\n]*a password in --connect[^\n]*\n"
                                               "[^\n]*PWD=\\*\\*\\*': [^\n]*nobody[^\n]*\n"));
  const wbtest::ProgramResult none =
      wbtest::RunProgram({"list", "tables", "--connect", ConnectionString("", kind_.user)});
  EXPECT_EQ(none.exit_code, kind_.databases_are_catalogs ? 2 : 0);
  EXPECT_EQ(none.err.find("in no database: choose one with --catalog") != std::string::npos,
            kind_.databases_are_catalogs);
  const std::string database = kind_.databases_are_catalogs ? "" : kind_.database;
  const wbtest::ProgramResult chosen =
      wbtest::RunProgram({"list", "tables", "--connect", ConnectionString(database, kind_.user),
                          "--catalog", kind_.database, "--select-table", "t00?"});
  EXPECT_EQ(chosen.exit_code, 0) << chosen.err;
  EXPECT_NE(chosen.out.find("t000\n"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(, RealServer, testing::Values(&kPostgreSQL, &kMariaDB),
                         [](const auto& test) { return test.param->name; });

}  // namespace
}  // namespace real
