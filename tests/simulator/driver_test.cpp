// The driver through the driver manager: types, rowsets, truncation, catalog functions.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/simulator/servers.h"
#include "tests/support/statement.h"
#include "tests/support/temporary.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using wbtest::Columns;
using wbtest::Connection;
using wbtest::Row;
using wbtest::Statement;
using wbtest::Tables;

constexpr const char* kTypes =
    "Sql={CREATE TABLE t(a CHAR(6), b VARCHAR(40), c NCHAR(3), d TEXT, e SMALLINT, f DATE);"
    "INSERT INTO t VALUES('ab', 'long enough', 'x', 'memo', 7, '1999-12-31'),"
    "('abcdef', NULL, char(228, 128218), '', -1, NULL)}";

TEST(Driver, DescribesColumnsAsTheServerDeclaresThem) {
  const std::pair<const char*, std::vector<SQLSMALLINT>> cases[] = {
      {"sybase",
       {SQL_CHAR, SQL_VARCHAR, SQL_WCHAR, SQL_LONGVARCHAR, SQL_SMALLINT, SQL_DATE, SQL_VARCHAR}},
      {"sqlserver",
       {SQL_WCHAR, SQL_WVARCHAR, SQL_WCHAR, SQL_WLONGVARCHAR, SQL_SMALLINT, SQL_DATE,
        SQL_WVARCHAR}},
  };
  for (const auto& [server, types] : cases) {
    const auto connection = Connection::OpenSimulator(server, kTypes);
    Statement statement(*connection);
    statement.Execute("select a, b, c, d, e, f, a || b from t");
    for (std::size_t i = 0; i < types.size(); ++i) {
      SQLSMALLINT type = 0;
      const auto column = static_cast<SQLUSMALLINT>(i + 1);
      SQLDescribeCol(statement.get(), column, nullptr, 0, nullptr, &type, nullptr, nullptr,
                     nullptr);
      EXPECT_EQ(type, types[i]) << server << " column " << column;
    }
  }
}

TEST(Driver, FillsRowsetsAtTheServersDistance) {
  for (const auto& [server, distance] : {std::pair{"informix", 2048}, std::pair{"oracle", 64}}) {
    const auto connection = Connection::OpenSimulator(server, kTypes);
    Statement statement(*connection);
    SQLSetStmtOption(statement.get(), SQL_ROWSET_SIZE, 4);
    ASSERT_EQ(statement.Execute("select a, b, e from t order by e desc"), SQL_SUCCESS);
    std::vector<char> texts(std::size_t{4} * 2048, '#');
    SQLLEN lengths[4] = {99, 99, 99, 99};
    SQLSMALLINT numbers[4] = {};
    SQLBindCol(statement.get(), 1, SQL_C_CHAR, texts.data(), 64, lengths);
    SQLBindCol(statement.get(), 3, SQL_C_SSHORT, numbers, 0, nullptr);
    SQLULEN rows = 0;
    SQLUSMALLINT status[4] = {9, 9, 9, 9};
    ASSERT_EQ(SQLExtendedFetch(statement.get(), SQL_FETCH_NEXT, 1, &rows, status), SQL_SUCCESS);
    EXPECT_EQ(rows, 2U);
    EXPECT_THAT(status,
                ElementsAre(SQL_ROW_SUCCESS, SQL_ROW_SUCCESS, SQL_ROW_NOROW, SQL_ROW_NOROW));
    EXPECT_STREQ(texts.data(), "ab    ") << "blank-padded";
    EXPECT_STREQ(texts.data() + distance, "abcdef");
    EXPECT_THAT(lengths, ElementsAre(6, 6, 99, 99));
    EXPECT_THAT(numbers, ElementsAre(7, -1, 0, 0));
    EXPECT_EQ(SQLExtendedFetch(statement.get(), SQL_FETCH_NEXT, 1, &rows, status), SQL_NO_DATA);
  }
}

TEST(Driver, CutsTextsAndSaysSo) {
  const auto connection = Connection::OpenSimulator("sqlserver", kTypes);
  Statement statement(*connection);
  statement.Execute("select b, c from t order by e desc");
  SQLWCHAR wide[5] = {1, 1, 1, 1, 1};
  SQLWCHAR pair[3] = {1, 1, 1};
  SQLLEN wide_length = 0;
  SQLLEN pair_length = 0;
  SQLBindCol(statement.get(), 1, SQL_C_WCHAR, wide, sizeof wide, &wide_length);
  SQLBindCol(statement.get(), 2, SQL_C_WCHAR, pair, sizeof pair, &pair_length);
  EXPECT_EQ(SQLFetch(statement.get()), SQL_SUCCESS_WITH_INFO);
  EXPECT_EQ(statement.State(), "01004");
  EXPECT_THAT(wide, ElementsAre('l', 'o', 'n', 'g', 0));
  EXPECT_EQ(wide_length, 22) << "the whole text, in bytes";
  // NULL leaves the buffer alone; a character of two units is not torn apart.
  EXPECT_EQ(SQLFetch(statement.get()), SQL_SUCCESS_WITH_INFO);
  EXPECT_EQ(wide_length, SQL_NULL_DATA);
  EXPECT_EQ(wide[0], 'l');
  EXPECT_EQ(pair[0], 0xE4);
  EXPECT_EQ(pair_length, 6);
}

TEST(Driver, GivesATextInPieces) {
  const auto connection = Connection::OpenSimulator("oracle", kTypes);
  Statement statement(*connection);
  statement.Execute("select b from t where e = 7");
  SQLFetch(statement.get());
  std::string whole;
  char piece[5] = {};
  SQLLEN left = 0;
  while (SQL_SUCCEEDED(SQLGetData(statement.get(), 1, SQL_C_CHAR, piece, sizeof piece, &left)))
    whole += piece;
  EXPECT_EQ(whole, "long enough");
}

TEST(Driver, AnswersCatalogFunctionsWithPatternsAndTypeLists) {
  const auto connection = Connection::OpenSimulator("generic");
  const auto names = [&](const char* owner, const char* table, const char* types) {
    std::vector<std::string> found;
    for (const Row& row : Tables(*connection, nullptr, owner, table, types))
      found.push_back(row[1] + "." + row[2]);
    return found;
  };
  EXPECT_THAT(names("library", "book%", nullptr),
              ElementsAre("library.book", "library.book_author", "library.book_genre"));
  EXPECT_THAT(names(nullptr, "b___", nullptr), ElementsAre("library.book"));
  EXPECT_THAT(names("%", "book\\_%", nullptr),
              ElementsAre("library.book_author", "library.book_genre"));
  EXPECT_THAT(names("LIBRARY", nullptr, nullptr), IsEmpty());
  EXPECT_THAT(names("", nullptr, nullptr), IsEmpty()) << "nothing is without an owner";
  EXPECT_THAT(names(nullptr, nullptr, "'VIEW'"),
              ElementsAre("library.overdue_loan", "library.shelf"));
  EXPECT_THAT(names("accounts", nullptr, "TABLE, SYSTEM TABLE"), ElementsAre("accounts.fine"));
  EXPECT_EQ(names(nullptr, nullptr, ""), names(nullptr, nullptr, nullptr));
  EXPECT_THAT(Tables(*connection, "", "%", "", nullptr), SizeIs(3)) << "owners";

  EXPECT_THAT(Columns(*connection, nullptr, "book_author", nullptr), SizeIs(3));
  const auto price = Columns(*connection, "library", "book", "price");
  ASSERT_THAT(price, SizeIs(1));
  EXPECT_THAT(std::vector(price[0].begin() + 3, price[0].begin() + 11),
              ElementsAre("price", "3", "DECIMAL", "8", "10", "2", "10", "1"));
}

TEST(Driver, HasTheFunctionsThatItsServerHas) {
  struct {
    const char* server;
    const char* keywords;
    SQLUSMALLINT function;
    bool there;
  } const cases[] = {
      {"generic", "", SQL_API_SQLPRIMARYKEYS, true},
      {"access", "", SQL_API_SQLPRIMARYKEYS, false},
      {"access", "", SQL_API_SQLFOREIGNKEYS, false},
      {"redbrick", "", SQL_API_SQLPROCEDURES, false},
      {"generic", "Without=SQLExtendedFetch,sqlprimarykeys", SQL_API_SQLPRIMARYKEYS, false},
      {"generic", "Without=SQLExtendedFetch,sqlprimarykeys", SQL_API_SQLEXTENDEDFETCH, false},
      {"generic", "Without=SQLProcedures", SQL_API_SQLPROCEDURES, false},
      {"generic", "Without=SQLProcedures", SQL_API_SQLTABLES, true},
  };
  for (const auto& c : cases) {
    const auto connection = Connection::OpenSimulator(c.server, c.keywords);
    SQLUSMALLINT there = 9;
    SQLGetFunctions(connection->hdbc(), c.function, &there);
    EXPECT_EQ(there != 0, c.there) << c.server << ' ' << c.keywords << ' ' << c.function;
  }
}

// Every server's views have to have the columns that the catalog functions read, and the library in
// them.
TEST(Driver, AnswersEveryCatalogFunctionOnEveryServer) {
  for (const char* const server : simtest::kServers) {
    SCOPED_TRACE(server);
    const auto connection = Connection::OpenSimulator(server);
    Statement statement(*connection);
    SQLHSTMT const s = statement.get();
    const auto count = [&](SQLRETURN result) {
      EXPECT_TRUE(SQL_SUCCEEDED(result) || statement.State() == "IM001") << statement.State();
      const std::size_t rows = SQL_SUCCEEDED(result) ? statement.Rows().size() : 0;
      SQLFreeStmt(s, SQL_CLOSE);
      return rows;
    };
    std::size_t key_columns = 0;
    std::size_t foreign_key_columns = 0;
    std::size_t index_columns = 0;
    for (const Row& row : Tables(*connection, nullptr, nullptr, nullptr, "TABLE")) {
      std::string name = row.at(2);
      auto* const table = reinterpret_cast<SQLCHAR*>(name.data());
      EXPECT_THAT(Columns(*connection, nullptr, name.c_str(), nullptr), Not(IsEmpty())) << name;
      key_columns += count(SQLPrimaryKeys(s, nullptr, 0, nullptr, 0, table, SQL_NTS));
      foreign_key_columns += count(SQLForeignKeys(s, nullptr, 0, nullptr, 0, table, SQL_NTS,
                                                  nullptr, 0, nullptr, 0, nullptr, 0));
      index_columns += count(
          SQLStatistics(s, nullptr, 0, nullptr, 0, table, SQL_NTS, SQL_INDEX_UNIQUE, SQL_ENSURE));
    }
    const bool has_keys = server != std::string_view("access");
    EXPECT_EQ(key_columns > 5, has_keys);
    EXPECT_EQ(foreign_key_columns > 5, has_keys);
    EXPECT_GT(index_columns, 5U);
    EXPECT_GT(count(SQLGetTypeInfo(s, SQL_ALL_TYPES)), 5U);
    const std::size_t procedures = count(SQLProcedures(s, nullptr, 0, nullptr, 0, nullptr, 0));
    EXPECT_EQ(procedures > 0, server != std::string_view("redbrick"));
  }
}

// A large catalog is made once and read from files after that; all numbers are part of its name.
// The files lie where nobody else can write, or nowhere; those of the past go.
TEST(Driver, GeneratesTablesOfEveryServerWithAnOwnCatalog) {
  const wbtest::TemporaryFolder folder;
  const wbtest::ScopedVariable cache("XDG_CACHE_HOME", folder.path().c_str());
  const std::filesystem::path caches = folder.path() + "/catalogsim";
  const auto kept = [&] { return std::distance(std::filesystem::directory_iterator(caches), {}); };
  std::filesystem::create_directories(caches);
  std::filesystem::permissions(caches, std::filesystem::perms::all);
  for (const char* const server :
       {"informix", "informix-7", "informix-14", "sqlserver", "sqlserver-2019", "oracle",
        "oracle-7", "oracle-19", "db2", "db2-11", "redbrick"}) {
    SCOPED_TRACE(server);
    const auto names = [&](const char* keywords, const char* view) {
      const auto connection = Connection::OpenSimulator(server, keywords);
      return std::stoi(
          wbtest::Query(*connection, std::string("SELECT count(*) FROM ") + view).at(0).at(0));
    };
    const int columns = names("", "sim_columns");
    const int references = names("", "sim_foreign_keys");
    for (int connection = 0; connection < 2; ++connection) {
      EXPECT_EQ(names("Scale=40;Columns=5;ForeignKeys=2", "sim_columns") - columns, 200);
      EXPECT_EQ(names("Scale=40;Columns=5;ForeignKeys=2", "sim_foreign_keys") - references, 80);
    }
    EXPECT_EQ(names("Scale=40", "sim_columns") - columns, 800);
    EXPECT_EQ(names("Scale=40", "sim_foreign_keys"), references);
    // The first server met a folder that everybody can write, the others one of their own.
    EXPECT_EQ(kept() > 0, (std::filesystem::status(caches).permissions() &
                           std::filesystem::perms::others_write) == std::filesystem::perms::none);
    std::filesystem::permissions(caches, std::filesystem::perms::owner_all);
  }
  for (int tables = 1; tables <= 20; ++tables) {
    Connection::OpenSimulator("oracle", "Scale=" + std::to_string(tables));
  }
  EXPECT_EQ(kept(), 16);
}

}  // namespace
