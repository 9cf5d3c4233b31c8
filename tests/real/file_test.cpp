// Database files: SQLite against its pragmas, and Microsoft Access.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstdlib>
#include <filesystem>

#include "tests/real/facts.h"
#include "tests/real/schema.h"
#include "tests/real/server.h"

namespace real {
namespace {

const Dialect kDialect = {
    '"',
    {""},
    {"INTEGER", "SMALLINT",      "BIGINT",  "TINYINT", "NUMERIC(12,3)", "DECIMAL(9,2)", "REAL",
     "FLOAT",   "DOUBLE",        "BOOLEAN", "CHAR(3)", "VARCHAR(40)",   "NVARCHAR(40)", "TEXT",
     "BLOB",    "VARBINARY(40)", "DATE",    "TIME",    "TIMESTAMP",     "DATETIME",     ""},
    true,
};

class SQLite : public testing::Test {
 protected:
  void SetUp() override {
    if (!IsDriverInstalled("SQLite3")) GTEST_SKIP() << "libsqliteodbc is not installed";
    folder_ = std::filesystem::temp_directory_path() / "real-sqlite-XXXXXX";
    ASSERT_NE(mkdtemp(folder_.data()), nullptr);
    ASSERT_EQ(sqlite3_open((folder_ + "/test.db").c_str(), &database_), SQLITE_OK);
  }
  void TearDown() override {
    sqlite3_close(database_);
    if (!folder_.empty()) std::filesystem::remove_all(folder_);
  }
  std::vector<std::vector<std::string>> Query(const std::string& sql) {
    std::vector<std::vector<std::string>> rows;
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database_, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
      ADD_FAILURE() << sql << ": " << sqlite3_errmsg(database_);
    }
    while (sqlite3_step(statement) == SQLITE_ROW) {
      std::vector<std::string>& row = rows.emplace_back();
      for (int i = 0; i < sqlite3_column_count(statement); ++i) {
        const unsigned char* text = sqlite3_column_text(statement, i);
        row.emplace_back(text != nullptr ? reinterpret_cast<const char*>(text) : "");
      }
    }
    sqlite3_finalize(statement);
    return rows;
  }
  Facts AskFile();

  std::string folder_;
  sqlite3* database_ = nullptr;
};

Facts SQLite::AskFile() {
  Facts facts;
  for (const auto& row : Query("SELECT name, type FROM sqlite_master"
                               " WHERE type IN ('table', 'view')")) {
    facts.insert(TableFact(row[1] == "view", "", row[0]));
  }
  for (const auto& row : Query("SELECT m.name, c.name, c.\"notnull\" FROM sqlite_master m,"
                               " pragma_table_info(m.name) c WHERE m.type IN ('table', 'view')")) {
    facts.insert(ColumnFact("", row[0], row[1], row[2] == "1"));
  }
  AddKeyFacts(Query("SELECT '', m.name, c.name FROM sqlite_master m, pragma_table_info(m.name) c"
                    " WHERE m.type = 'table' AND c.pk > 0 ORDER BY m.name, c.pk"),
              facts);
  // A key that names no column refers to the primary key.
  for (const auto& row :
       Query("SELECT m.name, k.\"from\", k.\"table\", coalesce(k.\"to\", (SELECT name FROM"
             " pragma_table_info(k.\"table\") WHERE pk = k.seq + 1))"
             " FROM sqlite_master m, pragma_foreign_key_list(m.name) k WHERE m.type = 'table'")) {
    facts.insert(PairFact("", row[0], row[1], "", row[2], row[3]));
  }
  return facts;
}

const std::vector<Difference> kMeant = {
    {"a table's name is a pattern when its columns are asked for: a_b takes the columns of axb too",
     {"+column a_b.other"}},
    {"the driver gives a key's columns in the order of the table",
     {"-key reversed: c, a", "+key reversed: a, c"}},
    {"the driver names no referenced column where the reference names none",
     {"-pair implied.x -> t000.id"}},
    {"the last relationship goes by the table of the last row, which was left out here",
     {"-pair t001.p -> t000.id", "+pair implied.p -> t000.id"}},
};

TEST_F(SQLite, GivesWhatItsPragmasHold) {
  Query("BEGIN");
  for (const std::string& statement : MakeSchema(kDialect)) Query(statement);
  Query("CREATE TABLE implied(x INTEGER REFERENCES t000)");
  Query("COMMIT");
  const Server server("Driver=SQLite3;Database=" + folder_ + "/test.db");
  Import import;
  RunImport(server.henv(), server.hdbc(), u"", import);
  EXPECT_TRUE(import.result);
  EXPECT_GE(import.workbook.tables.GetCount(), 330U);
  ExpectDifferences(AskFile(), import.facts, kMeant);
}

// The file that WBIMPORT_TEST_MDB names, whatever is in it: its driver reuses no statement, writes
// short indicators, and says that it has an index catalog which it has not.
TEST(Access, IsReadFromAFile) {
  const char* path = std::getenv("WBIMPORT_TEST_MDB");
  if (path == nullptr) GTEST_SKIP() << "WBIMPORT_TEST_MDB names no Access file";
  if (!IsDriverInstalled("MDBTools")) GTEST_SKIP() << "odbc-mdbtools is not installed";
  const Server server("Driver=MDBTools;DBQ=" + std::string(path));
  Import import;
  RunImport(server.henv(), server.hdbc(), u"", import);
  EXPECT_TRUE(import.result);
  ASSERT_FALSE(import.workbook.tables.IsEmpty());
  for (const LcWorkbookTable* table : import.workbook.tables) {
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
