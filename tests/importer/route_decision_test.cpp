// Which route reads which server, on simulated servers and with every setting.
#include <gtest/gtest.h>

#include <map>
#include <utility>

#include "importer/odbc_workbook_import.h"
#include "importer/workbook/workbook.h"
#include "platform/platform.h"
#include "tests/support/connection.h"

namespace {

using wbtest::Connection;
using RouteKind = LcODBCWorkbookImport::RouteKind;
using Settings = std::map<std::u16string, std::uint32_t>;

// Settings of one test, under the key that the module asks for.
class ScopedSettings : public platform::SettingsStore {
 public:
  static std::shared_ptr<platform::SettingsStore> Install(Settings settings) {
    auto store = std::make_shared<ScopedSettings>();
    store->settings_ = std::move(settings);
    return std::exchange(platform::GetServices().settings, store);
  }
  std::optional<std::uint32_t> ReadDWORD(const std::u16string& key,
                                         const std::u16string& value) override {
    const auto found = settings_.find(value);
    if (key != u"SOFTWARE\\Tandor\\Lumagraph\\4.0" || found == settings_.end()) return {};
    return found->second;
  }

 private:
  Settings settings_;
};

struct RouteDecision : testing::Test {
  ~RouteDecision() override { platform::GetServices().settings = before; }
  std::shared_ptr<platform::SettingsStore> before = ScopedSettings::Install({});
  LcWorkbook workbook;
};

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
    bool is_ius;
  } cases[] = {
      {"informix", dbmsInformix, 9, RouteKind::kInformix, true},
      {"informix-7", dbmsInformix, 7, RouteKind::kInformix, false},
      {"sqlserver", dbmsMSSQLServer, 8, RouteKind::kNative, false},
      {"sybase", dbmsSybase, 11, RouteKind::kODBC, false},
      {"oracle", dbmsOracle, 8, RouteKind::kNative, false},
      {"oracle-7", dbmsOracle, 7, RouteKind::kNative, false},
      {"db2", dbmsDB2, 7, RouteKind::kNative, false},
      {"redbrick", dbmsRedBrick, 6, RouteKind::kNative, false},
      {"access", dbmsAccess, 4, RouteKind::kODBC, false},
      {"generic", dbmsUnknown, 0, RouteKind::kODBC, false},
  };
  for (const auto& test : cases) {
    const auto connection = Connection::OpenSimulator(test.server);
    Importer importer(nullptr, &workbook);
    importer.SyncLogin(connection->henv(), connection->hdbc());
    EXPECT_EQ(importer.DecideRoute().route, test.route) << test.server;
    EXPECT_EQ(importer.GetDBMSType(), test.type) << test.server;
    EXPECT_EQ(importer.GetDBMSVersion(), test.version) << test.server;
    EXPECT_EQ(importer.IsIUS(), test.is_ius) << test.server;
  }
}

TEST_F(RouteDecision, TakesThePresetTypeWhereTheDriverGivesNoName) {
  const RouteKind kRoutes[] = {RouteKind::kODBC, RouteKind::kInformix, RouteKind::kNative,
                               RouteKind::kODBC, RouteKind::kNative,   RouteKind::kNative,
                               RouteKind::kODBC, RouteKind::kODBC,     RouteKind::kNative,
                               RouteKind::kODBC};
  const auto connection = Connection::OpenSimulator("generic");
  for (int type = 0; type < 10; ++type) {
    LcODBCWorkbookImport importer(nullptr, &workbook);
    importer.SyncLogin(connection->henv(), connection->hdbc());
    importer.choices.dbms_type = static_cast<LeDBMSType>(type);
    EXPECT_EQ(importer.DecideRoute().route, kRoutes[type]) << type;
    EXPECT_EQ(importer.GetDBMSType(), type);
  }
}

TEST_F(RouteDecision, KeepsWhatIsKnownUntilTheHostResetsTheType) {
  const auto oracle = Connection::OpenSimulator("oracle");
  const auto access = Connection::OpenSimulator("access");
  LcODBCWorkbookImport importer(nullptr, &workbook);
  importer.SyncLogin(oracle->henv(), oracle->hdbc());
  importer.choices.dbms_type = dbmsAccess;
  importer.DecideRoute();
  EXPECT_EQ(importer.GetDBMSType(), dbmsOracle) << "the name of the server replaces a preset type";

  importer.choices.dbms_type = dbmsRedBrick;
  importer.DecideRoute();
  EXPECT_EQ(importer.GetDBMSType(), dbmsRedBrick) << "the name is known: the preset stands";

  importer.SyncLogin(access->henv(), access->hdbc());
  importer.DecideRoute();
  EXPECT_EQ(importer.GetDBMSName(), u"Oracle") << "the facts of the server before are used";
  importer.choices.dbms_type = dbmsUnknown;
  importer.DecideRoute();
  EXPECT_EQ(importer.GetDBMSName(), u"ACCESS");
  EXPECT_EQ(importer.GetDBMSType(), dbmsAccess);
}

TEST_F(RouteDecision, ObeysTheSettingsOfTheHost) {
  const struct {
    const char* server;
    Settings settings;
    RouteKind route;
  } cases[] = {
      {"informix", {{u"GenericWorkbookImport", 1}}, RouteKind::kODBC},
      {"oracle", {{u"GenericWorkbookImport", 0x80000000}}, RouteKind::kODBC},
      {"oracle", {{u"GenericWorkbookImport", 0}}, RouteKind::kNative},
      {"oracle", {{u"GenericDB2WorkbookImport", 1}}, RouteKind::kNative},
      {"db2", {{u"GenericDB2WorkbookImport", 1}}, RouteKind::kODBC},
      {"db2", {{u"GenericWorkbookImport", 0}, {u"GenericDB2WorkbookImport", 1}}, RouteKind::kODBC},
      {"db2", {{u"GenericDB2WorkbookImport", 0}}, RouteKind::kNative},
  };
  for (const auto& test : cases) {
    ScopedSettings::Install(test.settings);
    const auto connection = Connection::OpenSimulator(test.server);
    LcODBCWorkbookImport importer(nullptr, &workbook);
    importer.SyncLogin(connection->henv(), connection->hdbc());
    EXPECT_EQ(importer.DecideRoute().route, test.route) << test.server;
  }
}

TEST_F(RouteDecision, ReadsDB2WithACLISchemaThroughTheGenericRoute) {
  const struct {
    const char* server;
    const char16_t* connect_text;  // null: the host has no record of the log-in
    RouteKind route;
  } cases[] = {
      {"db2", u"DSN=sales;CLISchema=MYCAT", RouteKind::kODBC},
      {"db2", u"Driver=db2;Database=SALES;CLISchema=MYCAT", RouteKind::kODBC},
      {"db2", u"DSN=sales", RouteKind::kNative},
      {"db2", nullptr, RouteKind::kNative},
      {"oracle", u"DSN=sales;CLISchema=MYCAT", RouteKind::kNative},
  };
  for (const auto& test : cases) {
    const auto connection = Connection::OpenSimulator(test.server);
    LcODBCWorkbookImport importer(nullptr, &workbook);
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
