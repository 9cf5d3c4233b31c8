// Database files: SQLite against its pragmas, and Microsoft Access.
#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/real/schema.h"
#include "tests/real/server.h"

namespace real {
namespace {

// A key that names no column refers to the primary key.
constexpr SchemaQueries kQueries = {
    "SELECT '', name, upper(type) FROM sqlite_master WHERE type IN ('table', 'view')",
    "SELECT '', m.name, c.name, CASE c.\"notnull\" WHEN 1 THEN 'NO' END FROM sqlite_master m,"
    " pragma_table_info(m.name) c WHERE m.type IN ('table', 'view')",
    "SELECT '', m.name, c.name FROM sqlite_master m, pragma_table_info(m.name) c"
    " WHERE m.type = 'table' AND c.pk > 0 ORDER BY m.name, c.pk",
    "SELECT '', m.name, k.\"from\", '', k.\"table\", coalesce(k.\"to\", (SELECT name FROM"
    " pragma_table_info(k.\"table\") WHERE pk = k.seq + 1))"
    " FROM sqlite_master m, pragma_foreign_key_list(m.name) k WHERE m.type = 'table'"};

const std::vector<wbtest::Difference> kMeant = {
    {"a table's name is a pattern when its columns are asked for: a_b takes the columns of axb too",
     {"+column a_b.other"}},
    {"the driver gives a key's columns in the order of the table",
     {"-key reversed: c, a", "+key reversed: a, c"}},
    {"the driver names no referenced column where the reference names none",
     {"-pair implied.x -> t000.id"}},
    {"the last relationship goes by the table of the last row, which was left out here",
     {"-pair t001.p -> t000.id", "+pair implied.p -> t000.id"}},
};

TEST(SQLite, GivesWhatItsPragmasHold) {
  if (!IsDriverInstalled("SQLite3")) GTEST_SKIP() << "libsqliteodbc is not installed";
  const wbtest::Connection server("Driver=SQLite3;Database=:memory:");
  for (const std::string& statement : MakeSchema(kSQLiteDialect)) server.Execute(statement);
  server.Execute("CREATE TABLE implied(x INTEGER REFERENCES t000)");
  const Import run(server, u"");
  EXPECT_TRUE(run.result);
  EXPECT_GE(run.workbook.tables.GetCount(), 330U);
  ExpectDifferences(Ask(server, kQueries), wbtest::FactsOf(run.workbook), kMeant);
}

// The file that WBIMPORT_TEST_MDB names, whatever is in it, or what the driver answered about one:
// it reuses no statement, writes short indicators, and says that it has an index catalog which it
// has not.
TEST(Access, IsReadFromAFile) {
  const char* path = std::getenv("WBIMPORT_TEST_MDB");
  if (path != nullptr && !IsDriverInstalled("MDBTools"))
    GTEST_SKIP() << "odbc-mdbtools is not installed";
  const wbtest::Connection server(path != nullptr
                                      ? "Driver=MDBTools;DBQ=" + std::string(path)
                                      : "Driver=" WB_BUILD_DIR
                                        "/lib/libcatalogsim.so;Server=recording;File=" WB_SOURCE_DIR
                                        "/tests/recording/fixtures/access.jsonl");
  const Import run(server, u"");
  EXPECT_TRUE(run.result);
  ASSERT_FALSE(run.workbook.tables.IsEmpty());
  for (const LcWorkbookTable* table : run.workbook.tables) {
    EXPECT_GT(table->GetColumnCount(), 0);
    // No column of another table slipped in: a table's columns have different names.
    for (int i = 0; i < table->GetColumnCount(); ++i) {
      const LcWorkbookColumn* column = table->GetColumn(i);
      EXPECT_EQ(table->FindColumn(column->GetName()), column);
      EXPECT_NE(column->GetDataType(), nullptr);
    }
  }
}

}  // namespace
}  // namespace real
