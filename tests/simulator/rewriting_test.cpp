// What the driver makes of a server's SQL, and that SQLite runs it.
#include <gtest/gtest.h>

#include "tests/support/statement.h"

namespace {

using wbtest::Connection;
using wbtest::Query;
using wbtest::Row;

// What the driver makes of a text.
std::string NativeSql(const Connection& connection, std::string sql) {
  SQLCHAR native[4096] = {};
  SQLINTEGER length = 0;
  SQLNativeSql(connection.hdbc(), reinterpret_cast<SQLCHAR*>(sql.data()), SQL_NTS, native,
               sizeof native, &length);
  return reinterpret_cast<char*>(native);
}

TEST(Rewriting, TurnsEachServersFormsIntoSqlitesForms) {
  struct {
    const char* server;
    const char* sql;
    const char* native;
  } const cases[] = {
      {"informix", "select \"\", \"it's\", \"a\"\"b\" from t", "select '', 'it''s', 'a\"b' from t"},
      {"oracle", "select \"Name\" from t", "select \"Name\" from t"},
      {"informix", "select a::lvarchar, t.b::lvarchar::varchar(255), f(x, (y))::char from t",
       "select CAST(a AS lvarchar), substr(CAST(t.b AS lvarchar), 1, 255), CAST(f(x, (y)) AS char)"
       " from t"},
      {"informix", "FROM stores@serverb:informix.SYSTABLES T, old:informix.syscolumns C",
       "FROM \"stores@serverb\".SYSTABLES T, \"old\".syscolumns C"},
      {"oracle", "FROM ALL_CATALOG@HQ.ACME.COM T, ALL_TAB_COLUMNS C",
       "FROM \"HQ.ACME.COM\".ALL_CATALOG T, ALL_TAB_COLUMNS C"},
      {"db2", "select 'a::b', 'x@y:o.t' from t", "select 'a::b', 'x@y:o.t' from t"},
      {"sqlserver", "C.name = index_col(T.name, I.indid, f(a, b)) AND 1",
       "C.name = (SELECT sim_k.column_name FROM sim_index_keys sim_k WHERE sim_k.table_name=T.name"
       " AND sim_k.indid= I.indid AND sim_k.keyno= f(a, b)) AND 1"},
      {"informix", "select 1 from a t1, OUTER b t2 where (t1.x=t2.y) and (t1.z='') order by 1",
       "select 1 from a t1 LEFT JOIN b t2  ON  (t1.x=t2.y)  WHERE  (t1.z='')  order by 1"},
      {"informix", "select 1 from a t1, OUTER b t2", "select 1 from a t1 LEFT JOIN b t2 ON 1 "},
      {"informix", "select 'unclosed", "select 'unclosed"},
      {"informix", "select ((1", "select ((1"},
  };
  for (const auto& c : cases) {
    const auto connection = Connection::OpenSimulator(c.server);
    std::string native = NativeSql(*connection, c.sql);
    const std::size_t from = native.find("FROM a");  // the keyword is written anew
    if (from != std::string::npos) native.replace(from, 4, "from");
    EXPECT_EQ(native, c.native) << c.server;
  }
}

// Rows of `t(a, b)` with a and b from 0 to 9.
constexpr const char* kNumbers =
    "Sql={CREATE TABLE t(a VARCHAR(9), b VARCHAR(9)); WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL "
    "SELECT i + 1 FROM n WHERE i < 99) INSERT INTO t SELECT i / 10, i % 10 FROM n}";

TEST(Rewriting, KeepsTheMeaningOfLongChains) {
  const auto connection = Connection::OpenSimulator("generic", kNumbers);
  const auto chain = [](int terms, const char* pattern) {
    std::string sql;
    for (int i = 0; i < terms; ++i) {
      std::string term = pattern;
      for (std::size_t at; (at = term.find('#')) != std::string::npos;)
        term.replace(at, 1, std::to_string(i));
      sql += (i == 0 ? "" : " OR ") + term;
    }
    return "select count(*) from t T where (" + sql + ")";
  };
  struct {
    int terms;
    const char* pattern;
    const char* count;
  } const cases[] = {
      {3, "T.a='#'", "30"},
      {10000, "T.a='#'", "100"},
      {5000, "((T.a='#') AND T.b = '#')", "10"},
      {5000, "(T.a='#' AND T.b='1') OR T.b='#'", "100"},
      {2000, "T.a='#' AND T.b>'5'", "40"},
      {2000, "(T.a IN ('#') AND (T.b='2' OR T.b='3'))", "20"},
      {40, "T.a=(SELECT '#' WHERE 1=1 OR 2=2)", "100"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(Query(*connection, chain(c.terms, c.pattern)), (std::vector<Row>{{c.count}}))
        << c.pattern;
}

TEST(Rewriting, TellsAFailureByItsSqlstate) {
  const auto connection = Connection::OpenSimulator("oracle");
  EXPECT_EQ(Query(*connection, "select 1 from nowhere"), (std::vector<Row>{{"S0002"}}));
  EXPECT_EQ(Query(*connection, "select 1 from t@nolink"), (std::vector<Row>{{"S0002"}}));
  EXPECT_EQ(Query(*connection, "select \"x\""), (std::vector<Row>{{"S0022"}}));
  EXPECT_EQ(Query(*connection, "select 'x from"), (std::vector<Row>{{"37000"}}));
  const auto current = Connection::OpenSimulator("oracle-19");
  EXPECT_EQ(Query(*current, "select k.query from all_mviews k"),
            (std::vector<Row>{{"SELECT a FROM bin"}}));
  EXPECT_EQ(Query(*current, "select lower(k.query) from all_mviews k"),
            (std::vector<Row>{{"S0022"}}));
  const auto informix = Connection::OpenSimulator("informix-14");
  EXPECT_EQ(Query(*informix, "select null, 1 from informix.systables"),
            (std::vector<Row>{{"S0022"}}));
}

}  // namespace
