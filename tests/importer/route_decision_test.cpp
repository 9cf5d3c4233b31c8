// Which route reads which server, on simulated servers and with every setting.
#include <gtest/gtest.h>

#include <utility>

#include "importer/odbc_workbook_import.h"
#include "platform/platform.h"
#include "tests/support/connection.h"

namespace {

using wbtest::Connection;
using RouteKind = LcODBCWorkbookImport::RouteKind;

// One setting, under the key that the module asks for.
struct Setting : platform::SettingsStore {
  Setting(std::u16string wanted, std::uint32_t number) : name(std::move(wanted)), value(number) {}
  std::optional<std::uint32_t> ReadDWORD(const std::u16string& key,
                                         const std::u16string& wanted) override {
    if (key != u"SOFTWARE\\Tandor\\Lumagraph\\4.0" || wanted != name) return {};
    return value;
  }
  std::u16string name;
  std::uint32_t value;
};

struct RouteDecision : testing::Test {
  ~RouteDecision() override { platform::GetServices().settings = before; }
  std::shared_ptr<platform::SettingsStore> before =
      std::exchange(platform::GetServices().settings, std::make_shared<Setting>(u"Other", 1));
};

// Imports nothing, which decides on a route all the same.
void Settle(LcODBCWorkbookImport& importer) {
  unsigned short status = 0;
  importer.ImportItems(status);
}

struct Importer : LcODBCWorkbookImport {
  using LcODBCWorkbookImport::IsIUS;
  using LcODBCWorkbookImport::LcODBCWorkbookImport;
};

TEST_F(RouteDecision, FollowsTheServersOwnName) {
  const struct {
    const char* server;
    LeDBMSType type;
    int version;
    RouteKind route;
  } cases[] = {
      {"informix", dbmsInformix, 9, RouteKind::kInformix},
      {"informix-7", dbmsInformix, 7, RouteKind::kInformix},
      {"sqlserver", dbmsMSSQLServer, 8, RouteKind::kNative},
      {"sybase", dbmsSybase, 11, RouteKind::kODBC},
      {"oracle", dbmsOracle, 8, RouteKind::kNative},
      {"oracle-7", dbmsOracle, 7, RouteKind::kNative},
      {"db2", dbmsDB2, 7, RouteKind::kNative},
      {"redbrick", dbmsRedBrick, 6, RouteKind::kNative},
      {"access", dbmsAccess, 4, RouteKind::kODBC},
      {"generic", dbmsUnknown, 0, RouteKind::kODBC},
  };
  for (const auto& test : cases) {
    const auto connection = Connection::OpenSimulator(test.server);
    Importer importer(nullptr, nullptr);
    importer.SyncLogin(connection->henv(), connection->hdbc());
    const auto decision = importer.DecideRoute();
    EXPECT_EQ(decision.route, test.route) << test.server;
    EXPECT_EQ(decision.dbms_type, test.type) << test.server;
    EXPECT_EQ(decision.dbms_version, test.version) << test.server;
    EXPECT_EQ(importer.choices.dbms_type, dbmsUnknown) << "asking changes nothing";
    EXPECT_EQ(importer.GetDBMSName(), u"");
    EXPECT_EQ(importer.GetRouteTaken(), nullptr);
    Settle(importer);
    EXPECT_EQ(importer.GetRouteTaken()->route, test.route) << test.server;
    EXPECT_EQ(importer.GetDBMSType(), test.type) << test.server;
    EXPECT_EQ(importer.GetDBMSVersion(), test.version) << test.server;
    EXPECT_EQ(importer.IsIUS(), test.type == dbmsInformix && test.version >= 9) << test.server;
  }
}

TEST_F(RouteDecision, TakesThePresetTypeWhereTheDriverGivesNoName) {
  const RouteKind kRoutes[] = {RouteKind::kODBC, RouteKind::kInformix, RouteKind::kNative,
                               RouteKind::kODBC, RouteKind::kNative,   RouteKind::kNative,
                               RouteKind::kODBC, RouteKind::kODBC,     RouteKind::kNative,
                               RouteKind::kODBC};
  const auto connection = Connection::OpenSimulator("generic");
  for (int type = 0; type < 10; ++type) {
    LcODBCWorkbookImport importer(nullptr, nullptr);
    importer.SyncLogin(connection->henv(), connection->hdbc());
    importer.choices.dbms_type = static_cast<LeDBMSType>(type);
    EXPECT_EQ(importer.DecideRoute().route, kRoutes[type]) << type;
    EXPECT_EQ(importer.DecideRoute().dbms_type, type);
  }
}

TEST_F(RouteDecision, KeepsWhatIsKnownUntilTheHostResetsTheType) {
  const auto oracle = Connection::OpenSimulator("oracle");
  const auto access = Connection::OpenSimulator("access");
  LcODBCWorkbookImport importer(nullptr, nullptr);
  importer.SyncLogin(oracle->henv(), oracle->hdbc());
  importer.choices.dbms_type = dbmsAccess;
  Settle(importer);
  EXPECT_EQ(importer.GetDBMSType(), dbmsOracle) << "the name of the server replaces a preset type";

  importer.choices.dbms_type = dbmsRedBrick;
  Settle(importer);
  EXPECT_EQ(importer.GetDBMSType(), dbmsRedBrick) << "the name is known: the preset stands";

  importer.SyncLogin(access->henv(), access->hdbc());
  Settle(importer);
  EXPECT_EQ(importer.GetDBMSName(), u"Oracle") << "the facts of the server before are used";
  importer.choices.dbms_type = dbmsUnknown;
  Settle(importer);
  EXPECT_EQ(importer.GetDBMSName(), u"ACCESS");
  EXPECT_EQ(importer.GetDBMSType(), dbmsAccess);
}

TEST_F(RouteDecision, ObeysTheSettingsOfTheHostAndTheCLISchemaOfDB2) {
  const struct {
    const char* server;
    const char16_t* setting;
    std::uint32_t value;
    const char16_t* connect_text;  // null: the host has no record of the log-in
    RouteKind route;
  } cases[] = {
      {"informix", u"GenericWorkbookImport", 1, nullptr, RouteKind::kODBC},
      {"oracle", u"GenericWorkbookImport", 0x80000000, nullptr, RouteKind::kODBC},
      {"oracle", u"GenericWorkbookImport", 0, nullptr, RouteKind::kNative},
      {"oracle", u"GenericDB2WorkbookImport", 1, u"DSN=sales;CLISchema=MYCAT", RouteKind::kNative},
      {"db2", u"GenericDB2WorkbookImport", 0, nullptr, RouteKind::kNative},
      {"db2", u"GenericDB2WorkbookImport", 1, u"DSN=sales", RouteKind::kODBC},
      {"db2", u"", 0, u"DSN=sales", RouteKind::kNative},
      {"db2", u"GenericWorkbookImport", 0, u"DSN=sales;CLISchema=MYCAT", RouteKind::kODBC},
      {"db2", u"", 0, u"Driver=db2;Database=SALES;CLISchema=MYCAT", RouteKind::kODBC},
  };
  for (const auto& test : cases) {
    platform::GetServices().settings = std::make_shared<Setting>(test.setting, test.value);
    const auto connection = Connection::OpenSimulator(test.server);
    LcODBCWorkbookImport importer(nullptr, nullptr);
    importer.SyncLogin(connection->henv(), connection->hdbc());
    LcWorkbookLogin login;
    if (test.connect_text != nullptr) {
      login.connect_text = test.connect_text;
      importer.login = &login;
    }
    EXPECT_EQ(importer.DecideRoute().route, test.route) << test.server;
  }
}

}  // namespace
