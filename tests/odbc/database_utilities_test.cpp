// Names of servers, log-ins and the CLI schema of DB2.
#include "odbc/database_utilities.h"

#include <gtest/gtest.h>

#include "base/utf.h"
#include "platform/dbms_names.h"
#include "tests/support/temporary.h"

namespace {

using wbtest::ScopedVariable;
using wbtest::TemporaryFolder;

TEST(DBMSNames, TellTheKindOfServer) {
  const struct {
    LeDBMSType type;
    std::vector<const char16_t*> names;
  } cases[] = {
      {dbmsInformix, {u"Informix", u"INFORMIX-OnLine", u"Informix Dynamic Server", u"IDS/UNIX64"}},
      {dbmsMSSQLServer, {u"Microsoft SQL Server", u"MICROSOFT SQL SERVER"}},
      {dbmsSybase, {u"Sybase SQL Server", u"SQL Server", u"Adaptive Server Enterprise", u"SYBASE"}},
      {dbmsOracle, {u"Oracle", u"ORACLE", u"Oracle8"}},
      {dbmsDB2, {u"DB2", u"DB2/NT", u"DB2/LINUXX8664", u"DB2/6000", u"DB2 UDB", u"IBM DB2"}},
      {dbmsAccess, {u"ACCESS", u"Microsoft Access", u"MDBTOOLS", u"MS Jet"}},
      {dbmsRedBrick, {u"Red Brick", u"RedBrick Warehouse", u"Informix Red Brick Decision Server"}},
      {dbmsOther, {u"SQLite", u"PostgreSQL", u"MariaDB", u"MySQL", u"Firebird", u"TimesTen"}},
      {dbmsUnknown, {u"", u"Something else", u"Or", u"DB", u"Texture", u"In formix"}},
  };
  for (const auto& test : cases) {
    for (const char16_t* name : test.names) {
      EXPECT_EQ(platform::ClassifyDBMSName(name), test.type) << base::ToUtf8(name);
    }
  }
}

struct Login {
  std::u16string driver = u"-", database = u"-", user = u"-", data_source = u"-", server = u"-";

  void Recover(platform::DatabaseUtilities& utilities, const char16_t* text) {
    utilities.RecoverLoginParameters(nullptr, text, driver, database, user, data_source, server);
  }
};

struct DatabaseUtilities : testing::Test {
  TemporaryFolder folder;
  std::string ini = folder.Write("odbc.ini", R"(
[sales]
Driver = IBM DB2 ODBC DRIVER
Database = SALES
HostName = db.example.com
CLISCHEMA = MYCAT
[plain]
Driver = IBM DB2 ODBC DRIVER
)");
  ScopedVariable user_ini{"ODBCINI", ini.c_str()};
  std::shared_ptr<platform::DatabaseUtilities> utilities = odbc::MakeDatabaseUtilities();
};

TEST_F(DatabaseUtilities, RecoverALoginFromTheStringAndTheFile) {
  Login login;
  login.Recover(*utilities, u"DSN=sales;UID=joe;PWD={s;ecret};Database=OTHER");
  EXPECT_EQ(login.driver, u"IBM DB2 ODBC DRIVER");
  EXPECT_EQ(login.database, u"OTHER");
  EXPECT_EQ(login.user, u"joe");
  EXPECT_EQ(login.data_source, u"sales");
  EXPECT_EQ(login.server, u"db.example.com");

  Login unknown;
  unknown.Recover(*utilities, u"DSN=nobody");
  EXPECT_EQ(unknown.driver, u"-");
  EXPECT_EQ(unknown.data_source, u"nobody");

  Login without_source;
  without_source.Recover(*utilities, u"Driver=db2;Database=SAMPLE");
  EXPECT_EQ(without_source.data_source, u"SAMPLE");
}

TEST_F(DatabaseUtilities, FindTheCLISchemaOfADataSource) {
  const struct {
    const char16_t* login;
    const char16_t* data_source;
    const char16_t* schema;
  } cases[] = {
      {u"DSN=sales", u"sales", u"MYCAT"},
      {u"DSN=sales;CLISchema=INSTRING", u"sales", u"INSTRING"},
      {u"DSN=plain;CLISchema=INSTRING", u"sales", u"MYCAT"},
      {u"DSN=plain", u"plain", u""},
      {u"DSN=nobody", u"nobody", u""},
      {u"", u"", u""},
  };
  for (const auto& test : cases) {
    Login login;
    login.Recover(*utilities, test.login);
    std::u16string schema = u"before";
    EXPECT_EQ(utilities->GetDB2CLISchema(test.data_source, schema), *test.schema != 0);
    EXPECT_EQ(schema, test.schema) << base::ToUtf8(test.login);
  }
}

}  // namespace
