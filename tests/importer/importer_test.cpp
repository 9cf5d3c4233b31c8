// The life of an importer: handles, copies, whole runs, and what a host may do in its callback.
#include <gtest/gtest.h>
#include <pthread.h>

#include <optional>
#include <set>
#include <thread>
#include <utility>

#include "importer/odbc_workbook_import.h"
#include "importer/workbook/workbook.h"
#include "odbc/connection_check.h"
#include "simulator/private_interface.h"
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
    EXPECT_TRUE(importer.ImportItems(status));
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
    EXPECT_TRUE(importer.ImportItems(status)) << c.server;
    std::vector<std::size_t> twice = CountsOf(workbook);
    for (std::size_t& count : twice) count *= 2;
    twice[c.merging_list] -= c.merged;
    EXPECT_TRUE(importer.ImportItems(status)) << c.server;
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

void StartModule() {
  std::string why;
  ASSERT_TRUE(OdbcImportStart(WB_BUILD_DIR "/lib", why)) << why;
}

void DropTargets(LcImportTargets& targets, unsigned from, unsigned to) {
  unsigned at = 0;
  const auto drop = [&](auto*& list) {
    if (at >= from && at < to) list = nullptr;
    ++at;
  };
  drop(targets.owner_names);
  drop(targets.table_names);
  drop(targets.column_names);
  drop(targets.tables);
  drop(targets.data_types);
  drop(targets.operators);
  drop(targets.boolean_functions);
  drop(targets.functions);
  drop(targets.aggregates);
  drop(targets.procedures);
}

struct Hosted {
  LcODBCWorkbookImport& importer;
  LcWorkbook& workbook;
};
void ImportFrom(const Connection& connection, const Hosted& host, unsigned short& status,
                bool& result) {
  host.importer.SyncLogin(connection.henv(), connection.hdbc());
  host.importer.choices.item_mask = 0xffffffff & ~ibOwnerNames;
  host.importer.choices.keys = host.importer.choices.foreign_keys = true;
  host.importer.choices.single_table_name = u"member";
  host.importer.choices.reading = rdExact;  // where there is a dialect
  result = host.importer.ImportItems(status);
}

enum Ending { kAsEver, kFalse, kStopped, kNever };
bool taken_out = false;  // something that the act takes out was there
// What a host does in a callback, and how the import ends then.
const struct Act {
  const char* name;
  void (*run)(const Hosted& host);
  Ending ending;
} kActs[] = {
    {"throws what is no exception of the library",
     [](const Hosted& host) {
       host.importer.running = false;
       throw 7;
     },
     kStopped},
    {"ends its thread", [](const Hosted&) { pthread_exit(nullptr); }, kNever},
    {"empties the workbook",
     [](const Hosted& host) {
       taken_out = !host.workbook.data_types.IsEmpty() || !host.workbook.tables.IsEmpty();
       host.workbook.data_types.EmptyList();
       host.workbook.tables.EmptyList();
     },
     kFalse},
    {"puts others in the place of the tables",
     [](const Hosted& host) {
       const std::size_t count = host.workbook.tables.GetCount();
       taken_out = count > 0;
       host.workbook.tables.EmptyList();
       for (std::size_t i = 0; i < count; ++i)
         host.workbook.tables.Append(std::make_unique<LcWorkbookTable>());
     },
     kFalse},
    {"takes its choices, its lists and its log-in back",
     [](const Hosted& host) {
       host.importer.choices = {};
       DropTargets(host.importer.targets, 0, 10);
       host.importer.UnSyncLogin();
     },
     kAsEver},
    {"imports again",
     [](const Hosted& host) {
       unsigned short status = 5;
       EXPECT_FALSE(host.importer.ImportItems(status));
       EXPECT_EQ(status, 5);
       EXPECT_NE(host.importer.GetRouteTaken(), nullptr);
     },
     kAsEver},
    {"imports with another importer, copies and asks",
     [](const Hosted& host) {
       LcWorkbook workbook;
       LcODBCWorkbookImport other(nullptr, &workbook);
       other.SyncLogin(host.importer.henv, host.importer.hdbc);
       other.choices.item_mask = ibTables;
       unsigned short status = 0;
       EXPECT_TRUE(other.ImportItems(status));
       EXPECT_GT(workbook.tables.GetCount(), 0U);
       EXPECT_EQ(LcODBCWorkbookImport(host.importer).DecideRoute().route,
                 host.importer.GetRouteTaken()->route);
     },
     kAsEver},
    {"stops the module",
     [](const Hosted&) {
       OdbcImportStop();
       EXPECT_NE(platform::GetServices().messages, nullptr);
     },
     kAsEver},
};

// The callback, a plain function, finds its test here.
struct {
  const Hosted* host = nullptr;
  const Act* act = nullptr;  // null: none
  int left = 0;              // notifications before it
} acting;
void OnNotify(enumImpNotify, void*) {
  if (--acting.left == 0 && acting.act != nullptr) acting.act->run(*acting.host);
}

class HostActs : public testing::TestWithParam<Act> {};

// In every callback of a sample over the whole import: each act works, or is a documented end.
TEST_P(HostActs, WorkOrEndTheImportByTheRules) {
  const Act& act = GetParam();
  const auto cursor = std::make_shared<CountingCursor>();
  const wbtest::ScopedService<platform::BusyCursor> place(platform::GetServices().busy_cursor,
                                                          cursor);
  int ended_early = 0;
  for (const std::string server : {"informix", "oracle", "access", "sqlite"}) {
    const auto connection =
        server == "sqlite" ? OpenTwoTables() : Connection::OpenSimulator(server);
    const auto open_statements = [&] {
      return server == "sqlite" ? 0U : connection->GetInfo(catalogsim::kInfoOpenStatements);
    };
    bool usual = false;
    std::vector<std::size_t> counts;
    int notifications = 0;
    const auto run = [&](const Act* with, int at) {
      StartModule();
      LcWorkbook workbook;
      LcODBCWorkbookImport importer(&OnNotify, &workbook);
      const Hosted host{importer, workbook};
      unsigned short status = 0;
      bool result = false;
      bool ended = false;
      acting = {&host, with, at};
      taken_out = false;
      std::thread([&] {
        ImportFrom(*connection, host, status, result);
        ended = true;
      }).join();
      SCOPED_TRACE(server + ", notification " + std::to_string(at));
      EXPECT_EQ(cursor->shown, 0);
      EXPECT_EQ(open_statements(), 0U);
      if (with == nullptr) {
        usual = result;
        counts = CountsOf(workbook);
        notifications = at - acting.left;
        return;
      }
      EXPECT_EQ(ended, act.ending != kNever);
      EXPECT_EQ(status, act.ending == kStopped ? 9 : 0);
      const bool as_ever = act.ending == kAsEver || (act.ending == kFalse && !taken_out);
      EXPECT_EQ(result, as_ever && usual);
      if (as_ever) {
        EXPECT_EQ(CountsOf(workbook), counts);
      }
      if (taken_out) {
        ++ended_early;
        ASSERT_FALSE(workbook.details.not_read.empty());
        EXPECT_EQ(workbook.details.not_read.back().reason.View(),
                  u"the host took out of the workbook what was in use");
      }
      EXPECT_EQ(platform::GetServices().messages == nullptr, act.name == kActs[7].name);
    };
    run(nullptr, 1 << 20);
    ASSERT_GT(notifications, 20);
    for (int at = 1; at <= notifications; at += 1 + notifications / 5) run(&act, at);
  }
  EXPECT_EQ(ended_early > 4, act.ending == kFalse);
}

INSTANTIATE_TEST_SUITE_P(All, HostActs, testing::ValuesIn(kActs),
                         [](const testing::TestParamInfo<Act>& test) {
                           std::string name = test.param.name;
                           std::erase_if(name, [](char c) { return std::isalpha(c) == 0; });
                           return name;
                         });

// A null target is a list that the host does not want, and costs no other.
TEST(Importer, FillsWhatIsWantedWithoutTheRest) {
  acting = {};
  for (const char* server : {"informix", "oracle", "redbrick", "generic"}) {
    const auto connection = Connection::OpenSimulator(server);
    for (unsigned without = 0; without <= 10; ++without) {
      LcWorkbook workbook;
      LcODBCWorkbookImport importer(nullptr, &workbook);
      DropTargets(importer.targets, without < 10 ? without : 0, without < 10 ? without + 1 : 10);
      unsigned short status = 0;
      bool result = false;
      ImportFrom(*connection, {importer, workbook}, status, result);
      EXPECT_EQ(workbook.tables.IsEmpty(), without == 3 || without == 10) << server << without;
      EXPECT_EQ(workbook.operators.IsEmpty(), without == 5 || without == 10) << server << without;
      EXPECT_EQ(connection->GetInfo(catalogsim::kInfoOpenStatements), 0U);
    }
  }
}

}  // namespace
