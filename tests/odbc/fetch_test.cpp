// The fetch layer on SQLite through the driver manager.
#include "odbc/fetch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlext.h>

#include "base/utf.h"
#include "tests/support/connection.h"

namespace {

using wbtest::Connection;
using wbtest::MessageRecorder;

// 25 numbered rows: three rowsets of ten.
std::unique_ptr<Connection> OpenNumbers() {
  return Connection::OpenSqlite(
      {"create table numbers (n integer, word varchar(255), notes text)",
       "insert into numbers with recursive c(i) as (select 1 union all select i + 1 from c where "
       "i < 25) select i, 'w' || i, 'long' from c"});
}

void RunSql(const Connection& connection, const char16_t* sql, LcODBCRecordList& rows) {
  LcODBCFetch fetch(sql, rows, connection.henv(), connection.hdbc(), dbmsOther);
}

TEST(Fetch, AppendsEveryRowOfEveryRowset) {
  const auto connection = OpenNumbers();
  MessageRecorder messages;
  LcODBCRecordList rows;
  RunSql(*connection, u"select n, word from numbers order by n", rows);
  RunSql(*connection, u"select 'more', null", rows);
  ASSERT_EQ(rows.GetRowCount(), 26);
  EXPECT_EQ(rows.GetColumnCount(), 2);
  EXPECT_EQ(rows.View(11, 1), u"11");
  EXPECT_EQ(rows.View(25, 2), u"w25");
  EXPECT_EQ(rows.View(26, 1), u"more");
  EXPECT_TRUE(messages.shown().empty());
}

TEST(Fetch, CutsAndEmptiesCells) {
  const auto connection = Connection::OpenSqlite(
      {"create table t (a varchar(255), b varchar(9), c varchar(9), d text)",
       "insert into t values (replace(hex(zeroblob(256)), '0', 'x'), null, '', 'long')",
       "insert into t values ('caf\xC3\xA9 \xE2\x82\xAC', 'b', 'c', 'long')"});
  LcODBCRecordList rows;
  RunSql(*connection, u"select a, b, c, d from t", rows);
  ASSERT_EQ(rows.GetRowCount(), 2);
  EXPECT_EQ(rows.View(1, 1), std::u16string(511, u'x'));
  EXPECT_EQ(rows.View(1, 2), u"");
  EXPECT_EQ(rows.View(1, 3), u"");
  EXPECT_EQ(rows.View(1, 4), u"") << "a long column is not bound";
  EXPECT_EQ(rows.View(2, 1), u"caf\u00e9 \u20ac");
  EXPECT_EQ(rows.View(2, 2), u"b");
}

TEST(Fetch, LeavesNoRowsWithoutAResult) {
  const auto connection = OpenNumbers();
  MessageRecorder messages;
  LcODBCRecordList rows;
  RunSql(*connection, u"delete from numbers where n = 1", rows);
  RunSql(*connection, u"select n from numbers where n = 1", rows);
  EXPECT_EQ(rows.GetRowCount(), 0);
  EXPECT_EQ(rows.GetColumnCount(), 0);
  EXPECT_TRUE(messages.shown().empty());
}

TEST(Fetch, ShowsAFailureOnce) {
  const auto connection = OpenNumbers();
  MessageRecorder messages;
  LcODBCRecordList rows;
  RunSql(*connection, u"select x from nowhere", rows);
  EXPECT_EQ(rows.GetRowCount(), 0);
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_THAT(messages.shown()[0].text, testing::HasSubstr("no such table: nowhere"));
  EXPECT_EQ(messages.shown()[0].help_context, 0);
}

TEST(Fetch, DescribesColumnsAndExecutesOnce) {
  const auto connection = OpenNumbers();
  MessageRecorder messages;
  LcODBCFetch fetch(connection->henv(), connection->hdbc(), dbmsOther,
                    u"select n, notes, word as exactly_twenty_nine_character from numbers", 10,
                    SQL_CONCUR_READ_ONLY, SQL_CURSOR_FORWARD_ONLY);
  ASSERT_EQ(fetch.DescribeResults(), 1);
  const LcODBCRecordList& columns = fetch.GetColumns();
  ASSERT_EQ(columns.GetRowCount(), 3);
  EXPECT_EQ(columns.GetColumn(2)->GetName(), u"exactly_twenty_nine_character");
  EXPECT_EQ(columns.GetColumn(0)->IsLong(), 0);
  EXPECT_EQ(columns.GetColumn(1)->IsLong(), 1);
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_EQ(fetch.DescribeResults(), 0) << "described twice";
  EXPECT_EQ(fetch.ExecuteCommand(nullptr), 0) << "executed twice";
  ASSERT_EQ(messages.shown().size(), 2u);
  EXPECT_EQ(messages.shown()[0].help_context, -1);
}

// The uneven rule for the number of fetch calls: {rows wanted, fetch calls}.
TEST(Fetch, AllowsFetchCallsByAnUnevenRule) {
  constexpr std::pair<unsigned long, int> kCases[] = {{1, 1},  {10, 1}, {11, 1},
                                                      {20, 3}, {25, 2}, {0, 4}};
  const auto connection = OpenNumbers();
  for (const auto& [wanted, calls] : kCases) {
    LcODBCFetch fetch(connection->henv(), connection->hdbc(), dbmsOther, u"select n from numbers",
                      10, SQL_CONCUR_READ_ONLY, SQL_CURSOR_FORWARD_ONLY);
    wbtest::CallRecorder recorder;
    LcODBCRecordList rows;
    fetch.FetchData(rows, wanted);
    EXPECT_EQ(recorder.Count("SQLExtendedFetch"), calls) << wanted << " rows";
  }
}

}  // namespace
