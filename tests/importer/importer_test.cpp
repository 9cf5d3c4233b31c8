// The life of an importer: handles, copies, whole runs, and a host that throws.
#include <gtest/gtest.h>

#include <optional>
#include <set>
#include <utility>

#include "importer/odbc_workbook_import.h"
#include "importer/workbook/workbook.h"
#include "odbc/connection_check.h"
#include "tests/support/connection.h"

namespace {

using wbtest::Connection;

TEST(Importer, BorrowsItsHandles) {
  LcWorkbook workbook;
  LcODBCWorkbookImport importer(nullptr, &workbook);
  LcWorkbookDatabase database;
  int environment = 0;
  int connection = 0;
  database.henv = &environment;
  database.hdbc = &connection;
  EXPECT_TRUE(importer.SyncLogin(&database));
  EXPECT_EQ(importer.henv, &environment);
  EXPECT_EQ(importer.hdbc, &connection);
  EXPECT_TRUE(importer.UnSyncLogin());
  EXPECT_EQ(importer.henv, nullptr);
  EXPECT_EQ(importer.hdbc, nullptr);
  EXPECT_TRUE(importer.SyncLogin(&environment, &connection));
  EXPECT_EQ(importer.hdbc, &connection);
}

TEST(Importer, FailsQuietlyWithoutAConnection) {
  LcWorkbook workbook;
  LcODBCWorkbookImport importer(nullptr, &workbook);
  importer.choices.item_mask = ibTables | ibViews | ibOwnerNames;
  unsigned short status = 5;
  EXPECT_FALSE(importer.ImportItems(status));
  EXPECT_EQ(status, 5);
  EXPECT_EQ(workbook.tables.GetCount(), 0u);
}

std::unique_ptr<Connection> OpenTwoTables() {
  return Connection::OpenSqlite({"create table a (id integer primary key, name varchar(20))",
                                 "create table b (id integer, a integer references a(id))"});
}

// The type list that columns get their types from is shared: it outlives the importer that made it.
TEST(Importer, IsCopiedWithChoicesAndFactsAndSharesItsTypes) {
  const auto connection = OpenTwoTables();
  LcWorkbook workbook;
  auto source = std::make_optional<LcODBCWorkbookImport>(nullptr, &workbook);
  source->SyncLogin(connection->henv(), connection->hdbc());
  unsigned short settled = 0;
  source->ImportItems(settled);
  source->choices.item_mask = ibTables;
  source->targets.data_types = nullptr;
  source->choices.selected_tables.Append(std::make_unique<LcTableInfo>())->name = u"b";

  LcODBCWorkbookImport copy(*source);
  LcODBCWorkbookImport assigned(nullptr, nullptr);
  assigned.choices.selected_tables.Append(std::make_unique<LcTableInfo>())->name = u"a";
  assigned = *source;
  const LcODBCWorkbookImport& same = assigned;
  assigned = same;
  source.reset();

  for (LcODBCWorkbookImport* importer : {&copy, &assigned}) {
    EXPECT_EQ(importer->GetDBMSName(), u"SQLite");
    ASSERT_EQ(importer->choices.selected_tables.GetCount(), 1u);
    EXPECT_EQ(importer->choices.selected_tables.GetAt(0)->name, u"b");
    workbook.tables.EmptyList();
    unsigned short status = 0;
    EXPECT_TRUE(importer->ImportItems(status));
    ASSERT_EQ(workbook.tables.GetCount(), 1u);
    EXPECT_EQ(workbook.tables.GetAt(0)->GetName(), u"b");
    EXPECT_NE(workbook.tables.GetAt(0)->GetColumn(0)->GetDataType(), nullptr);
  }
}

// What the check warns of is what happens: dates, times and timestamps arrive as CHAR.
TEST(ConnectionCheck, TellsAHostWhatItsConnectionLacks) {
  const std::string database = "Driver=" WB_BUILD_DIR "/lib/libcatalogsim.so;Server=generic";
  for (const unsigned long version : {2, 3}) {
    const Connection connection(database, version);
    std::string why;
    EXPECT_EQ(OdbcImportCheckConnection(connection.henv(), connection.hdbc(), why), version == 2);
    EXPECT_EQ(why.find("SQL_OV_ODBC2") != std::string::npos, version != 2) << why;
    LcWorkbook workbook;
    LcODBCWorkbookImport importer(nullptr, &workbook);
    importer.SyncLogin(connection.henv(), connection.hdbc());
    importer.choices.item_mask = ibTables;
    unsigned short status = 0;
    importer.ImportItems(status);
    std::set<int> codes;
    for (const LcWorkbookTable* table : workbook.tables) {
      for (int i = 0; i < table->GetColumnCount(); ++i) {
        codes.insert(table->GetColumn(i)->GetDataType()->GetGenericCode());
      }
    }
    EXPECT_EQ(codes.count(dtDate) + codes.count(dtTimestamp), version == 2 ? 2u : 0u);
  }
  Connection lost(database + ";DropConnection=1");
  std::string why;
  EXPECT_FALSE(OdbcImportCheckConnection(lost.henv(), lost.hdbc(), why));
  EXPECT_EQ(why, "the connection is not open");
  EXPECT_FALSE(OdbcImportCheckConnection(lost.henv(), nullptr, why));
}

std::vector<std::size_t> CountsOf(const LcWorkbook& workbook) {
  return {workbook.tables.GetCount(),       workbook.table_names.GetCount(),
          workbook.column_names.GetCount(), workbook.owner_names.GetCount(),
          workbook.data_types.GetCount(),   workbook.functions.GetCount(),
          workbook.aggregates.GetCount(),   workbook.operators.GetCount(),
          workbook.procedures.GetCount()};
}

// No list looks for what it holds already, so a second import stands behind the first, but for the
// owners of the catalog functions and the users' functions of Informix.
TEST(Importer, AppendsAllAgainToTheSameWorkbook) {
  constexpr std::size_t kOwners = 3;
  constexpr std::size_t kFunctions = 5;
  const struct {
    const char* server;
    std::size_t merging_list;
    std::size_t merged;
  } cases[] = {{"informix", kFunctions, 3}, {"oracle", kOwners, 0}, {"generic", kOwners, 3}};
  for (const auto& c : cases) {
    const auto connection = Connection::OpenSimulator(c.server);
    LcWorkbook workbook;
    LcODBCWorkbookImport importer(nullptr, &workbook);
    importer.SyncLogin(connection->henv(), connection->hdbc());
    importer.choices.item_mask = 0xffffffff;
    importer.choices.single_table_name = u"member";
    unsigned short status = 0;
    importer.ImportItems(status);
    std::vector<std::size_t> twice = CountsOf(workbook);
    for (std::size_t& count : twice) count *= 2;
    twice[c.merging_list] -= c.merged;
    importer.ImportItems(status);
    EXPECT_EQ(CountsOf(workbook), twice) << c.server;
    EXPECT_GT(twice[0], 0U);
  }
}

// The last phase that has a result gives that of the import.
TEST(Importer, FailsWithThePhaseThatComesLast) {
  const struct {
    const char* server;
    const char* fault;
    std::uint32_t items;
    bool result;
  } cases[] = {
      {"sqlserver", "", ibBooleanFunctions, false},
      {"sqlserver", "", ibFunctions, false},  // its catalogue alone was added
      {"sqlserver", "", ibFunctions | ibProcedures, true},
      {"db2", "", ibFunctions, true},
      {"redbrick", "", ibProcedures, false},
      {"generic", "Fail=SQLTables:1", ibOwnerNames, false},
      {"generic", "Fail=SQLTables:1", ibTableNames, true},
      {"generic", "Fail=SQLColumns:1", ibColumnNames, false},
  };
  for (const auto& c : cases) {
    const auto connection = Connection::OpenSimulator(c.server, c.fault);
    LcWorkbook workbook;
    LcODBCWorkbookImport importer(nullptr, &workbook);
    importer.SyncLogin(connection->henv(), connection->hdbc());
    importer.choices.item_mask = c.items;
    importer.choices.single_table_name = u"member";
    unsigned short status = 0;
    EXPECT_EQ(importer.ImportItems(status), c.result) << c.server << ' ' << c.items;
  }
}

struct CountingCursor : platform::BusyCursor {
  int shown = 0;
  void Show() override { ++shown; }
  void Hide() override { --shown; }
};

// At the n-th notification the host stops the import and throws something that is no exception of
// the library. What comes out is what comes of a stop, and the wait cursor is gone.
LcODBCWorkbookImport* running_importer = nullptr;
int notifications_left = 0;
void StopAndThrow(enumImpNotify, void*) {
  if (--notifications_left > 0) return;
  running_importer->running = false;
  throw notifications_left;
}

TEST(Importer, EndsByTheRulesWhenTheHostThrows) {
  const auto cursor = std::make_shared<CountingCursor>();
  const auto before = std::exchange(platform::GetServices().busy_cursor, cursor);
  for (const char* server : {"informix", "oracle", "access"}) {
    for (const int n : {1, 2, 5, 9}) {
      const auto connection = Connection::OpenSimulator(server);
      LcWorkbook workbook;
      LcODBCWorkbookImport importer(&StopAndThrow, &workbook);
      running_importer = &importer;
      importer.SyncLogin(connection->henv(), connection->hdbc());
      importer.choices.item_mask = ibTables | ibDataTypes | ibTableNames;
      notifications_left = n;
      unsigned short status = 0;
      EXPECT_FALSE(importer.ImportItems(status)) << server << n;
      EXPECT_EQ(notifications_left, 0) << server << n;
      EXPECT_EQ(status, 9) << server << n;
      EXPECT_EQ(cursor->shown, 0) << server << n;
    }
  }
  platform::GetServices().busy_cursor = before;
}

}  // namespace
