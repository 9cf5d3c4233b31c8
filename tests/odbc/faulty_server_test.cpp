// The fetch layer on servers that fail: a query of 25 rows with two columns, on a simulated server
// that is told what goes wrong.
#include <gtest/gtest.h>
#include <sqlext.h>

#include "odbc/fetch.h"
#include "tests/support/connection.h"

namespace {

using wbtest::Connection;
using wbtest::MessageRecorder;

constexpr const char* kNumbers =
    "Sql={create table numbers (n integer, word varchar(20)); insert into numbers with recursive "
    "c(i) as (select 1 union all select i + 1 from c where i < 25) select i, 'w' || i from c};";
constexpr const char16_t* kQuery = u"select n, word from numbers order by n";

std::unique_ptr<Connection> Open(const std::string& fault) {
  return Connection::OpenSimulator("generic", kNumbers + fault);
}

struct Case {
  const char* name;
  const char* fault;
  int rows;
  std::u16string last;        // word of the last row
  std::vector<int> messages;  // help contexts: 0 a database error, -1 any other
};

class FaultyServer : public testing::TestWithParam<Case> {};

TEST_P(FaultyServer, GivesTheRowsBeforeTheFault) {
  const auto connection = Open(GetParam().fault);
  MessageRecorder messages;
  LcODBCRecordList rows;
  LcODBCFetch fetch(kQuery, rows, connection->henv(), connection->hdbc(), dbmsOther);
  EXPECT_EQ(rows.GetRowCount(), GetParam().rows);
  EXPECT_EQ(rows.View(rows.GetRowCount(), 2), GetParam().last);
  std::vector<int> contexts;
  for (const auto& shown : messages.shown()) contexts.push_back(shown.help_context);
  EXPECT_EQ(contexts, GetParam().messages);
}

INSTANTIATE_TEST_SUITE_P(
    Faults, FaultyServer,
    testing::Values(
        Case{"None", "", 25, u"w25", {}}, Case{"RowError", "RowError=13", 12, u"w12", {-1}},
        Case{"RowDeleted", "RowDeleted=25", 24, u"w24", {}},
        Case{"NoTotal", "NoTotal=13:2", 12, u"w12", {-1}},
        // A failing fetch call is neither shown nor an end; what it would have brought may be lost.
        Case{"FetchErrorForEver", "FetchError=1+", 0, u"", {}},
        // The description ends at the truncated name; the columns are read all the same.
        Case{"LongName", "LongName=1", 25, u"w25", {0}},
        Case{"NoExtendedFetch", "Without=SQLExtendedFetch", 25, u"w25", {}},
        Case{"NoStatement", "Fail=SQLAllocHandle:1", 0, u"", {0}},
        Case{"NoExecution", "Fail=SQLExecDirect:1", 0, u"", {0}},
        // The first question counts as no columns and is not shown, the second ends the reading.
        Case{"NoColumnCount", "Fail=SQLNumResultCols:1", 0, u"", {}},
        Case{"NoColumnCountLater", "Fail=SQLNumResultCols:2", 0, u"", {0}},
        Case{"NoDescription", "Fail=SQLDescribeCol:2", 25, u"w25", {0}},
        Case{"NoBinding", "Fail=SQLBindCol:2", 0, u"", {0}},
        // Options are asked for, not needed.
        Case{"NoOptions", "Fail=SQLSetStmtAttr:*", 25, u"w25", {}}),
    [](const testing::TestParamInfo<Case>& test) { return test.param.name; });

TEST(FaultyServer, FetchesRowByRowWithoutExtendedFetch) {
  const auto connection = Open("Without=SQLExtendedFetch");
  LcODBCFetch fetch(connection->henv(), connection->hdbc(), dbmsOther, kQuery, 10,
                    SQL_CONCUR_READ_ONLY, SQL_CURSOR_FORWARD_ONLY);
  EXPECT_EQ(fetch.IsExtendedFetchSupported(), 0);
  EXPECT_EQ(fetch.IsPositionalUpdateThruAPISupported(), 0);
  wbtest::CallRecorder recorder;
  LcODBCRecordList rows;
  EXPECT_EQ(fetch.FetchData(rows, 20), 1) << "20 rows at 10 a call allow 3 calls";
  EXPECT_EQ(recorder.Count("SQLFetch"), 3);
  EXPECT_EQ(rows.GetRowCount(), 3) << "a call brings one row, whatever the rowset size";
}

}  // namespace
