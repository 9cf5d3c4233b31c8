// The life of an importer: handles, copies, whole runs, and a host that throws.
#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>
#include <utility>

#include "importer/odbc_workbook_import.h"
#include "importer/workbook/workbook.h"
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
  source->choices.item_mask = ibTables;
  source->targets.data_types = nullptr;
  source->choices.selected_tables.Append(std::make_unique<LcTableInfo>())->name = u"b";
  source->DecideRoute();

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

struct CountingCursor : platform::BusyCursor {
  int shown = 0;
  void Show() override { ++shown; }
  void Hide() override { --shown; }
};

// The n-th notification throws; nothing but false comes out, and the wait cursor is gone.
int notifications_left = 0;
void Throw(enumImpNotify, void*) {
  if (--notifications_left == 0) throw std::runtime_error("host");
}

TEST(Importer, LetsNoExceptionOfTheHostOut) {
  const auto cursor = std::make_shared<CountingCursor>();
  const auto before = std::exchange(platform::GetServices().busy_cursor, cursor);
  for (const char* server : {"informix", "oracle", "access"}) {
    for (const int n : {1, 2, 5, 9}) {
      const auto connection = Connection::OpenSimulator(server);
      LcWorkbook workbook;
      LcODBCWorkbookImport importer(&Throw, &workbook);
      importer.SyncLogin(connection->henv(), connection->hdbc());
      importer.choices.item_mask = ibTables | ibDataTypes | ibTableNames;
      notifications_left = n;
      unsigned short status = 0;
      EXPECT_FALSE(importer.ImportItems(status)) << server << n;
      EXPECT_LE(notifications_left, 0) << server << n;
      EXPECT_EQ(cursor->shown, 0) << server << n;
    }
  }
  platform::GetServices().busy_cursor = before;
}

}  // namespace
