// Which route reads which server, and that a server's own route and the generic one see the same
// schema.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "platform/utf8.h"
#include "tests/simulator/host.h"
#include "tests/simulator/servers.h"

namespace {

using platform::ToUtf8;
using simtest::ImportAll;
using simtest::RouteSettings;
using simtest::Settings;
using wbtest::Connection;
using RouteKind = LcODBCWorkbookImport::RouteKind;

TEST(RouteDecision, FollowsServerSettingsAndSchema) {
  constexpr auto kODBC = RouteKind::kODBC;
  constexpr auto kInformix = RouteKind::kInformix;
  constexpr auto kNative = RouteKind::kNative;
  struct {
    const char* server;
    LeDBMSType type;
    int version;
    RouteKind route;
    RouteKind with_generic_db2;  // under GenericDB2WorkbookImport
  } const cases[] = {
      {"informix", dbmsInformix, 9, kInformix, kInformix},
      {"informix-7", dbmsInformix, 7, kInformix, kInformix},
      {"sqlserver", dbmsMSSQLServer, 8, kNative, kNative},
      {"sybase", dbmsSybase, 11, kODBC, kODBC},
      {"oracle", dbmsOracle, 8, kNative, kNative},
      {"oracle-7", dbmsOracle, 7, kNative, kNative},
      {"db2", dbmsDB2, 7, kNative, kODBC},
      {"redbrick", dbmsRedBrick, 6, kNative, kNative},
      {"access", dbmsAccess, 4, kODBC, kODBC},
      {"generic", dbmsUnknown, 0, kODBC, kODBC},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.server);
    const auto connection = Connection::OpenSimulator(c.server);
    const auto decide = [&](std::map<std::u16string, std::uint32_t> numbers,
                            const char16_t* connect_text) {
      const Settings settings(std::move(numbers));
      LcODBCWorkbookImport importer(nullptr, nullptr);
      LcWorkbookLogin login;
      if (connect_text != nullptr) {
        login.connect_text = connect_text;
        importer.login = &login;
      }
      importer.SyncLogin(connection->henv(), connection->hdbc());
      const RouteKind route = importer.DecideRoute().route;
      EXPECT_EQ(importer.GetDBMSType(), c.type);
      EXPECT_EQ(importer.GetDBMSVersion(), c.version);
      return route;
    };
    const char16_t* const schema = u"DSN=library;CLISchema=CLI";
    EXPECT_EQ(decide({}, nullptr), c.route);
    EXPECT_EQ(decide({}, u"DSN=library"), c.route);
    EXPECT_EQ(decide(RouteSettings(true), nullptr), kODBC);
    EXPECT_EQ(decide({{u"GenericDB2WorkbookImport", 1}}, nullptr), c.with_generic_db2);
    EXPECT_EQ(decide({{u"GenericDB2WorkbookImport", 0}}, nullptr), c.route);
    EXPECT_EQ(decide({}, schema), c.type == dbmsDB2 ? kODBC : c.route);
    EXPECT_EQ(decide(RouteSettings(false), schema), c.type == dbmsDB2 ? kODBC : c.route);
  }
}

// What both routes can say of a schema, one text each.
struct Schema {
  std::set<std::string> tables;
  std::set<std::string> columns;
  std::set<std::string> key_columns;
  std::set<std::string> references;  // pairs of columns
};

std::string NameOf(const LcWorkbookTable& table) {
  return ToUtf8(table.GetOwner(false)) + "." + ToUtf8(table.GetName());
}

Schema Read(const LcWorkbook& workbook, std::string_view without_owners) {
  Schema schema;
  for (LcWorkbookTable* const table : workbook.tables) {
    if (table->GetType() == ttSynonym) continue;  // the generic route knows none
    const std::string owner = ToUtf8(table->GetOwner(false));
    if (!owner.empty() && without_owners.find(owner) != std::string_view::npos) continue;
    const std::string name = NameOf(*table);
    schema.tables.insert((table->GetType() == ttView ? "view " : "table ") + name);
    for (int i = 0; i < table->GetColumnCount(); ++i) {
      const LcWorkbookColumn* const column = table->GetColumn(i);
      schema.columns.insert(name + "." + ToUtf8(column->GetName()) +
                            (column->IsRequired() ? " required" : ""));
    }
    for (const LcWorkbookColumn* const column : table->GetPrimaryKey().GetColumns())
      schema.key_columns.insert(name + "." + ToUtf8(column->GetName()));
    for (const auto& key : table->GetForeignKeys()) {
      if (key->GetRole() != fkForward) continue;
      const auto keys = key->GetKey()->GetColumns();
      const auto foreign = key->GetForeignKey()->GetColumns();
      for (std::size_t i = 0; i < keys.size() && i < foreign.size(); ++i) {
        const LcWorkbookTable& child = *foreign[i]->GetParentTable();
        // The generic route looks for the child under the owner of the parent.
        if (child.GetOwner(false) != table->GetOwner(false)) continue;
        schema.references.insert(NameOf(child) + "." + ToUtf8(foreign[i]->GetName()) + " to " +
                                 name + "." + ToUtf8(keys[i]->GetName()));
      }
    }
  }
  return schema;
}

std::set<std::string> Without(const std::set<std::string>& all, const std::set<std::string>& some) {
  std::set<std::string> rest;
  std::set_difference(all.begin(), all.end(), some.begin(), some.end(),
                      std::inserter(rest, rest.end()));
  return rest;
}

// Where the two deliberately differ.
struct Comparison {
  const char* server;
  const char* system_owners;  // the generic route lists their tables like any other
  bool reads_keys;            // the own route does
  bool reads_references;
  std::set<std::string> only_own_keys;
  std::set<std::string> only_own_references;
  std::set<std::string> only_generic_references;
};

const Comparison kComparisons[] = {
    // The own route takes the columns of a unique constraint for primary key columns.
    {"informix", "", true, true, {"joe.currency.name"}, {}, {}},
    {"informix-7", "", false, false, {}, {}, {}},
    // The generic route drops its last pair where another owner's table has the last reference.
    {"sqlserver", "", true, true, {}, {"dbo.reservation.member_id to dbo.member.member_id"}, {}},
    // The own route reads pairs across the middle of a result that the server has sorted.
    {"oracle", "SYS SYSTEM", true, false, {}, {}, {}},
    {"oracle-7", "SYS SYSTEM", true, false, {}, {}, {}},
    // Another owner's MEMBER refers to this one: the generic route takes it for the table itself.
    {"db2",
     "SYSIBM SYSCAT",
     true,
     true,
     {},
     {},
     {"LIBRARY.MEMBER.MEMBER_ID to LIBRARY.MEMBER.MEMBER_ID"}},
    {"redbrick", "", true, true, {}, {"LIBRARY.STAFF.BRANCH_ID to LIBRARY.BRANCH.BRANCH_ID"}, {}},
};

class BothRoutes : public testing::TestWithParam<Comparison> {};

TEST_P(BothRoutes, SeeOneSchema) {
  const Comparison& comparison = GetParam();
  const auto connection = Connection::OpenSimulator(comparison.server);
  wbtest::MessageRecorder messages;
  const auto read = [&](bool generic) {
    const Settings settings(RouteSettings(generic));
    return Read(*ImportAll(*connection, false).workbook, comparison.system_owners);
  };
  const Schema own = read(false);
  const Schema generic = read(true);
  EXPECT_THAT(messages.shown(), testing::IsEmpty());
  EXPECT_GE(own.tables.size(), 16U);
  EXPECT_EQ(own.tables, generic.tables);
  EXPECT_EQ(own.columns, generic.columns);
  EXPECT_GE(generic.key_columns.size(), 16U);
  EXPECT_GE(generic.references.size(), 16U);
  if (comparison.reads_keys) {
    EXPECT_EQ(Without(own.key_columns, generic.key_columns), comparison.only_own_keys);
    EXPECT_EQ(Without(generic.key_columns, own.key_columns), std::set<std::string>());
  } else {
    EXPECT_THAT(own.key_columns, testing::IsEmpty());
  }
  if (comparison.reads_references) {
    EXPECT_EQ(Without(own.references, generic.references), comparison.only_own_references);
    EXPECT_EQ(Without(generic.references, own.references), comparison.only_generic_references);
  }
}

INSTANTIATE_TEST_SUITE_P(Servers, BothRoutes, testing::ValuesIn(kComparisons),
                         [](const auto& test) {
                           std::string name = test.param.server;
                           std::replace(name.begin(), name.end(), '-', '_');
                           return name;
                         });

}  // namespace
