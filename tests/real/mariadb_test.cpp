// MariaDB through its own driver, against its information_schema. Runs under scripts/with_mariadb,
// which tells the socket.
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

#include "tests/real/facts.h"
#include "tests/real/schema.h"
#include "tests/real/server.h"

namespace real {
namespace {

constexpr const char* kDriver = "MariaDB Unicode";

// A server with databases instead of owners: all tables are in one, and a second one must stay out.
const Dialect kDialect = {
    '`',
    {""},
    {"TINYINT",
     "SMALLINT",
     "MEDIUMINT",
     "INTEGER",
     "BIGINT",
     "INTEGER UNSIGNED",
     "DECIMAL(12,3)",
     "FLOAT",
     "DOUBLE",
     "BIT(8)",
     "BOOLEAN",
     "CHAR(3)",
     "VARCHAR(40)",
     "TEXT",
     "LONGTEXT",
     "BINARY(4)",
     "VARBINARY(40)",
     "BLOB",
     "LONGBLOB",
     "DATE",
     "TIME",
     "DATETIME",
     "TIMESTAMP DEFAULT CURRENT_TIMESTAMP",
     "YEAR",
     "ENUM('a','b')",
     "SET('a','b')",
     "JSON",
     "UUID"},
    false,
};

std::string ConnectionString(const std::string& database, const std::string& user) {
  const char* socket = std::getenv("MARIADB_SOCKET");
  return std::string("Driver=") + kDriver + ";Socket=" + (socket != nullptr ? socket : "") +
         ";Database=" + database + ";Uid=" + user;
}

class MariaDB : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    if (std::getenv("MARIADB_SOCKET") == nullptr || !IsDriverInstalled(kDriver)) return;
    Server(ConnectionString("mysql", "root"))
        .Run({"CREATE DATABASE shop", "CREATE DATABASE other", "CREATE DATABASE blank",
              "CREATE TABLE other.t000(elsewhere INTEGER)", "CREATE TABLE other.u(v INTEGER)"});
    server = std::make_unique<Server>(ConnectionString("shop", "root"));
    server->Run(MakeSchema(kDialect));
    server->Query("CREATE TABLE `" + std::string(kNameOf63) + "x`(id INTEGER)");
  }
  static void TearDownTestSuite() { server.reset(); }
  void SetUp() override {
    if (!IsDriverInstalled(kDriver)) GTEST_SKIP() << "the package odbc-mariadb is not installed";
    if (server == nullptr) GTEST_SKIP() << "no server: run by scripts/with_mariadb";
  }

  static std::unique_ptr<Server> server;
};

std::unique_ptr<Server> MariaDB::server;

Facts AskServer(Server& server) {
  const std::string ours = " WHERE table_schema = 'shop'";
  Facts facts;
  for (const auto& row :
       server.Query("SELECT table_name, table_type FROM information_schema.tables" + ours)) {
    facts.insert(TableFact(row[1] == "VIEW", "", row[0]));
  }
  for (const auto& row : server.Query(
           "SELECT table_name, column_name, is_nullable FROM information_schema.columns" + ours)) {
    facts.insert(ColumnFact("", row[0], row[1], row[2] == "NO"));
  }
  AddKeyFacts(
      server.Query("SELECT '', table_name, column_name FROM information_schema.key_column_usage" +
                   ours + " AND constraint_name = 'PRIMARY' ORDER BY table_name, ordinal_position"),
      facts);
  for (const auto& row :
       server.Query("SELECT table_name, column_name, referenced_table_name, referenced_column_name"
                    " FROM information_schema.key_column_usage" +
                    ours + " AND referenced_table_name IS NOT NULL")) {
    facts.insert(PairFact("", row[0], row[1], "", row[2], row[3]));
  }
  return facts;
}

// The table of a name of 64 characters is read under its first 63, which are another table's.
const std::string kCut = kNameOf63;

const std::vector<Difference> kMeant = {
    {"a table's name is a pattern when its columns are asked for: a_b takes the columns of axb too",
     {"+column a_b.other"}},
    {"63 characters of a name are read; what is asked under the cut name is another table's",
     {"-table " + kCut + "x", "-column " + kCut + "x.id", "+table " + kCut,
      "+column " + kCut + "." + kCut + " required", "+key " + kCut + ": " + kCut}},
    {"the driver numbers a key's columns by their places in the table",
     {"-key reversed: c, a", "+key reversed: a, c"}},
    {"the driver leaves out references to a unique key that is not the primary one",
     {"-pair listing.code -> listed.code"}},
};

TEST_F(MariaDB, GivesWhatItsInformationSchemaHolds) {
  Import import;
  RunImport(server->henv(), server->hdbc(), u"shop", import);
  EXPECT_TRUE(import.result);
  EXPECT_EQ(import.status, 0);
  EXPECT_GE(import.workbook.tables.GetCount(), 330U);
  ExpectDifferences(AskServer(*server), import.facts, kMeant);
}

// Without a catalog the driver gives the tables of all databases, the server's own among them.
TEST_F(MariaDB, ReadsTheWholeServerWithoutACatalog) {
  Import import;
  RunImport(server->henv(), server->hdbc(), u"", import, {}, ibTableNames);
  EXPECT_TRUE(import.result);
  Import shop;
  RunImport(server->henv(), server->hdbc(), u"shop", shop, {}, ibTableNames);
  EXPECT_GT(import.workbook.table_names.GetCount(), shop.workbook.table_names.GetCount() + 2);
}

TEST_F(MariaDB, HasDatabasesWithoutTables) {
  const Server blank(ConnectionString("blank", "root"));
  Import import;
  RunImport(blank.henv(), blank.hdbc(), u"blank", import);
  EXPECT_TRUE(import.result);
  EXPECT_TRUE(import.workbook.tables.IsEmpty());
}

TEST_F(MariaDB, ShowsNothingToAUserWithoutRights) {
  server->Query("CREATE USER guest@localhost");
  const Server guest(ConnectionString("", "guest"));
  Import import;
  RunImport(guest.henv(), guest.hdbc(), u"shop", import);
  EXPECT_TRUE(import.result);
  EXPECT_TRUE(import.workbook.tables.IsEmpty());
}

// The server ends the connection under the import, early, in the columns and in the foreign keys.
TEST_F(MariaDB, GoesAwayInTheMiddle) {
  struct {
    int event;
    bool result;
  } const cases[] = {{1, true}, {200, false}};
  for (const auto& c : cases) {
    Server victim(ConnectionString("shop", "root"));
    const std::string id = victim.Query("SELECT connection_id()").at(0).at(0);
    Import import;
    int last = 0;
    RunImport(victim.henv(), victim.hdbc(), u"shop", import, [&](int event) {
      last = event;
      if (event == c.event) server->Query("KILL " + id);
    });
    EXPECT_EQ(import.result, c.result) << c.event;
    EXPECT_EQ(import.status, 0) << c.event;
    EXPECT_GE(last, c.event);
  }
}

}  // namespace
}  // namespace real
