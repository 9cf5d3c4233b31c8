// Each fault of a connection string, seen by a client of the driver manager.
#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <sstream>

#include "simulator/private_interface.h"
#include "tests/support/statement.h"
#include "tests/support/temporary.h"

namespace {

using testing::HasSubstr;
using wbtest::Connection;
using wbtest::Query;
using wbtest::Row;
using wbtest::Statement;

std::unique_ptr<Connection> Open(const std::string& keywords) {
  return Connection::OpenSimulator(
      "generic",
      "Sql={CREATE TABLE t(n INTEGER); INSERT INTO t VALUES(1),(2),(3),(4)};" + keywords);
}

// The row states that rowsets of three give, or the SQLSTATE of a fetch that fails.
std::vector<std::string> FetchAll(Statement& statement) {
  std::vector<std::string> seen;
  SQLINTEGER numbers[3] = {};
  SQLLEN lengths[3] = {};
  SQLBindCol(statement.get(), 1, SQL_C_SLONG, numbers, 0, lengths);
  for (int call = 0; call < 5; ++call) {
    SQLULEN rows = 0;
    SQLUSMALLINT status[3] = {};
    const SQLRETURN result = SQLExtendedFetch(statement.get(), SQL_FETCH_NEXT, 1, &rows, status);
    if (result == SQL_NO_DATA) break;
    if (result == SQL_ERROR) seen.push_back(statement.State());
    for (SQLULEN i = 0; SQL_SUCCEEDED(result) && i < rows; ++i) {
      std::string row = std::to_string(numbers[i]);
      if (status[i] == SQL_ROW_ERROR) row = "error";
      if (status[i] == SQL_ROW_DELETED) row = "deleted";
      if (lengths[i] == SQL_NO_TOTAL) row += " of no length";
      seen.push_back(row);
    }
  }
  return seen;
}

TEST(Faults, ReachRowsAndFetches) {
  const std::pair<const char*, std::vector<std::string>> cases[] = {
      {"", {"1", "2", "3", "4"}},
      {"RowError=2", {"1", "error", "3", "4"}},
      {"RowDeleted=1-2", {"deleted", "deleted", "3", "4"}},
      {"RowError=2:2", {"1", "2", "3", "4"}},
      {"NoTotal=4:1", {"1", "2", "3", "4 of no length"}},
      {"FetchError=1", {"S1000", "1", "2", "3", "4"}},
      {"FetchError=2+", {"1", "2", "3", "S1000", "S1000", "S1000", "S1000"}},
      {"Fail=SQLExtendedFetch:2:HYT00", {"1", "2", "3", "S1T00", "4"}},
  };
  for (const auto& [keywords, seen] : cases) {
    const auto connection = Open(keywords);
    Statement statement(*connection);
    SQLSetStmtOption(statement.get(), SQL_ROWSET_SIZE, 3);
    ASSERT_EQ(statement.Execute("select n from t order by n"), SQL_SUCCESS);
    EXPECT_EQ(FetchAll(statement), seen) << keywords;
  }
}

TEST(Faults, ReachTheCallThatTheyNameAndNoOther) {
  const auto connection = Open("Fail=SQLExecDirect:2:42501,SQLTables:2-3");
  EXPECT_EQ(Query(*connection, "select n from t").size(), 4U);
  EXPECT_EQ(Query(*connection, "select n from t"), (std::vector<Row>{{"42501"}}));
  EXPECT_EQ(Query(*connection, "select n from t").size(), 4U);
  const auto tables = [&] { return wbtest::Tables(*connection, nullptr, nullptr, "t", nullptr); };
  EXPECT_EQ(tables().size(), 0U);
  EXPECT_EQ(tables(), (std::vector<Row>{{"S1000"}}));
  EXPECT_EQ(tables(), (std::vector<Row>{{"S1000"}}));
  EXPECT_EQ(tables().size(), 0U);
}

TEST(Faults, CutNamesGrowColumnsAndTakeTime) {
  const auto connection = Open("LongName=1;GrowingColumns=1;Slow=SQLExecDirect:30");
  Statement statement(*connection);
  const auto before = std::chrono::steady_clock::now();
  statement.Execute("select n from t");
  EXPECT_GE(std::chrono::steady_clock::now() - before, std::chrono::milliseconds(30));
  SQLCHAR name[30] = {};
  EXPECT_EQ(SQLDescribeCol(statement.get(), 1, name, sizeof name, nullptr, nullptr, nullptr,
                           nullptr, nullptr),
            SQL_SUCCESS_WITH_INFO);
  EXPECT_EQ(std::string(reinterpret_cast<char*>(name)).size(), 29U);
  SQLFreeStmt(statement.get(), SQL_CLOSE);
  statement.Execute("select n from t");
  SQLSMALLINT columns = 0;
  SQLNumResultCols(statement.get(), &columns);
  EXPECT_EQ(columns, 2);
  EXPECT_EQ(statement.Rows().at(3), (Row{"4", "4"}));
}

TEST(Faults, LoseTheConnectionForGood) {
  const auto connection = Open("");
  connection->SetAttribute(catalogsim::kAttrDropCall, 3);
  const auto is_dead = [&] {
    SQLUINTEGER dead = 9;
    SQLGetConnectAttr(connection->hdbc(), SQL_ATTR_CONNECTION_DEAD, &dead, 0, nullptr);
    return dead == SQL_CD_TRUE;
  };
  EXPECT_FALSE(is_dead());
  {
    Statement statement(*connection);
    while (statement.Execute("select n from t") == SQL_SUCCESS) SQLCloseCursor(statement.get());
    EXPECT_EQ(statement.State(), "08S01");
    EXPECT_EQ(statement.Execute("select n from t"), SQL_ERROR);
    EXPECT_EQ(statement.State(), "08S01");
  }
  EXPECT_TRUE(is_dead());
  EXPECT_EQ(connection->GetInfo(catalogsim::kInfoOpenStatements), 0U);
}

TEST(Faults, FailOneCallOfAllAndCountThem) {
  const auto connection = Open("");
  const unsigned calls = connection->GetInfo(catalogsim::kInfoCalls);
  Query(*connection, "select n from t");
  const unsigned needed = connection->GetInfo(catalogsim::kInfoCalls) - calls;
  EXPECT_GT(needed, 8U);
  for (unsigned call = 1; call <= needed + 1; ++call) {
    connection->SetAttribute(catalogsim::kAttrFailCall, call);
    const unsigned faults = connection->GetInfo(catalogsim::kInfoFaults);
    Query(*connection, "select n from t");
    EXPECT_EQ(connection->GetInfo(catalogsim::kInfoFaults) - faults, call <= needed ? 1U : 0U)
        << call;
    EXPECT_EQ(connection->GetInfo(catalogsim::kInfoOpenStatements), 0U) << call;
  }
  connection->SetAttribute(catalogsim::kAttrFailCall, 0);
}

TEST(Faults, WriteTheCallsToALog) {
  const wbtest::TemporaryFolder folder;
  const std::string file = folder.path() + "/log";
  Query(*Open("Log=" + file + ";Fail=SQLExecDirect:1"), "select n from t");
  std::stringstream log;
  log << std::ifstream(file).rdbuf();
  EXPECT_THAT(log.str(), HasSubstr(" SQLExecDirect 0x"));
  EXPECT_THAT(log.str(), HasSubstr(" SQLDisconnect 0x"));
}

TEST(Faults, AreRefusedWhenTheyMakeNoSense) {
  for (const char* const keywords :
       {"Fail=SQLNothing:1", "Fail=SQLFetch", "Fail=SQLFetch:x", "Fail=SQLFetch:1:HY",
        "Slow=SQLFetch", "RowError=one", "NoTotal=1", "Without=SQLNothing", "GrowingColumns=yes",
        "FailCall=-1", "Log=/nowhere/at/all", "AddScript=/nowhere/at/all", "Sql={nonsense}",
        "Server=nobody"}) {
    EXPECT_NONFATAL_FAILURE(Connection::OpenSimulator("generic", keywords), "[catalogsim]");
  }
}

}  // namespace
