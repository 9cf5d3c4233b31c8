// The route decision, in the order in which its reasons count.
#include "importer/route_decision.h"

#include <cstdint>

#include "base/utf.h"
#include "importer/settings.h"
#include "odbc/database_utilities.h"
#include "platform/platform.h"
#include "session/server_facts.h"

namespace odbcimport {

namespace {

using RouteDecision = LcODBCWorkbookImport::RouteDecision;
using RouteKind = LcODBCWorkbookImport::RouteKind;

constexpr const char16_t* kSettingsKey = u"SOFTWARE\\Tandor\\Lumagraph\\4.0";
constexpr int kFirstIUSVersion = 9;

struct RouteOfType {
  LeDBMSType type;
  RouteKind route;
  const char* reason;
};

// clang-format off
constexpr RouteOfType kRoutes[] = {
    {dbmsInformix,    RouteKind::kInformix, "the server is Informix"},
    {dbmsMSSQLServer, RouteKind::kNative,   "the server is Microsoft SQL Server"},
    {dbmsSybase,      RouteKind::kODBC,     "Sybase is read through the ODBC catalog functions"},
    {dbmsOracle,      RouteKind::kNative,   "the server is Oracle"},
    {dbmsDB2,         RouteKind::kNative,   "the server is DB2"},
    {dbmsAccess,      RouteKind::kODBC,     "Access is read through the ODBC catalog functions"},
    {dbmsOther,       RouteKind::kODBC,     "the server needs no handling of its own"},
    {dbmsRedBrick,    RouteKind::kNative,   "the server is Red Brick"},
};
// clang-format on

void SettleServer(ImportSession& session) {
  ServerFacts& server = session.server;
  if (server.dbms_name.empty() || session.choices.dbms_type == dbmsUnknown) {
    SetupDBMSNameODBC(session);
    SetupDBMSVersionODBC(session);
    if (!server.dbms_name.empty()) {
      session.choices.dbms_type =
          odbc::GetDatabaseUtilities().DeterineDBMSTypeByName(server.dbms_name.c_str());
    }
  }
  server.dbms_type = session.choices.dbms_type;
  server.is_ius = server.dbms_type == dbmsInformix && server.dbms_version >= kFirstIUSVersion;
}

// The schema of views that a DB2 data source offers in place of its catalog; empty for none.
std::u16string FindDB2CLISchema(const ImportSession& session, const std::u16string& connect_text) {
  platform::DatabaseUtilities& database = odbc::GetDatabaseUtilities();
  std::u16string driver;
  std::u16string database_name;
  std::u16string user;
  std::u16string data_source;
  std::u16string server;
  std::u16string schema;
  database.RecoverLoginParameters(session.hdbc(), connect_text.c_str(), driver, database_name, user,
                                  data_source, server);
  if (!data_source.empty()) database.GetDB2CLISchema(data_source.c_str(), schema);
  return schema;
}

}  // namespace

RouteDecision DecideRoute(ImportSession& session, const std::u16string* connect_text) {
  SettleServer(session);
  const LeDBMSType type = session.server.dbms_type;

  // The schema goes before every setting.
  if (type == dbmsDB2 && connect_text != nullptr) {
    const std::u16string schema = FindDB2CLISchema(session, *connect_text);
    if (!schema.empty()) {
      return {RouteKind::kODBC,
              "the data source has the CLI catalog schema " + base::ToUtf8(schema)};
    }
  }

  std::uint32_t setting = 0;
  if (ReadSettingDWORD(kSettingsKey, u"GenericWorkbookImport", setting) && setting != 0) {
    return {RouteKind::kODBC, "the setting GenericWorkbookImport asks for it"};
  }
  if (type == dbmsDB2 && ReadSettingDWORD(kSettingsKey, u"GenericDB2WorkbookImport", setting) &&
      setting != 0) {
    return {RouteKind::kODBC, "the setting GenericDB2WorkbookImport asks for it"};
  }

  for (const RouteOfType& row : kRoutes) {
    if (row.type == type) return {row.route, row.reason};
  }
  return {RouteKind::kODBC, "the kind of server is not known"};
}

}  // namespace odbcimport
