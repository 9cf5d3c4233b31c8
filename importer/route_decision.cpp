// The route decision: its rules in the order in which they count.
#include "importer/route_decision.h"

#include <cstdint>
#include <optional>

#include "base/utf.h"
#include "importer/settings.h"
#include "odbc/database_utilities.h"
#include "routes/exact/exact_import.h"

namespace odbcimport {
namespace {

using RouteDecision = LcODBCWorkbookImport::RouteDecision;
using RouteKind = LcODBCWorkbookImport::RouteKind;

constexpr const char16_t* kSettingsKey = u"SOFTWARE\\Tandor\\Lumagraph\\4.0";
constexpr int kFirstIUSVersion = 9;

void SettleServer(const RouteQuestion& question, ServerFacts& server) {
  LeDBMSType type = question.choices.dbms_type;
  if (server.dbms_name.empty() || type == dbmsUnknown) {
    SetupDBMSNameODBC(question.hdbc, server);
    SetupDBMSVersionODBC(question.hdbc, server);
    if (!server.dbms_name.empty()) {
      type = odbc::GetDatabaseUtilities().DeterineDBMSTypeByName(server.dbms_name.c_str());
    }
  }
  server.dbms_type = type;
  server.is_ius = type == dbmsInformix && server.dbms_version >= kFirstIUSVersion;
}

// Why a rule applies; nothing when it does not.
using Reason = std::optional<std::string>;

bool IsSet(const char16_t* setting) {
  return ReadSettingDWORD(kSettingsKey, setting).value_or(0) != 0;
}

// A DB2 data source can offer a schema of views in place of its catalog.
Reason HasCLISchema(const RouteQuestion& question, LeDBMSType type) {
  if (type != dbmsDB2 || question.connect_text == nullptr) return {};
  platform::DatabaseUtilities& database = odbc::GetDatabaseUtilities();
  std::u16string driver;
  std::u16string database_name;
  std::u16string user;
  std::u16string data_source;
  std::u16string server;
  std::u16string schema;
  database.RecoverLoginParameters(question.hdbc, question.connect_text->c_str(), driver,
                                  database_name, user, data_source, server);
  // Whatever a host's own utilities return, the name alone decides.
  if (!data_source.empty()) {
    static_cast<void>(database.GetDB2CLISchema(data_source.c_str(), schema));
  }
  if (schema.empty()) return {};
  return "the data source has the CLI catalog schema " + base::ToUtf8(schema);
}

Reason IsGenericSet(const RouteQuestion& /*question*/, LeDBMSType /*type*/) {
  if (!IsSet(u"GenericWorkbookImport")) return {};
  return "the setting GenericWorkbookImport asks for it";
}

Reason IsGenericSetForDB2(const RouteQuestion& /*question*/, LeDBMSType type) {
  if (type != dbmsDB2 || !IsSet(u"GenericDB2WorkbookImport")) return {};
  return "the setting GenericDB2WorkbookImport asks for it";
}

// What a host or a data source asks for; the first that applies. The schema goes before every
// setting.
struct Rule {
  RouteKind route;
  Reason (*applies)(const RouteQuestion& question, LeDBMSType type);
};
constexpr Rule kRules[] = {
    {RouteKind::kODBC, HasCLISchema},
    {RouteKind::kODBC, IsGenericSet},
    {RouteKind::kODBC, IsGenericSetForDB2},
};

// Where nobody asks for a route, the kind of server decides.
struct RouteOfType {
  LeDBMSType type;
  RouteKind route;
  const char* reason;
};
// clang-format off
constexpr RouteOfType kRoutesOfTypes[] = {
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

bool WantsExactReading(const LcImportChoices& choices) {
  return choices.reading == rdExact || IsSet(u"ExactWorkbookImport");
}

// Asks the server whether a dialect fits it.
void PickExactRoute(const RouteQuestion& question, ServerFacts& server, RouteDecision& decision) {
  const std::string dialect = exact::FindDialectFor(question.henv, question.hdbc, question.choices,
                                                    server, decision.why_not_exact);
  if (dialect.empty()) {
    decision.reason += "; the exact reading is not possible: " + decision.why_not_exact;
    return;
  }
  decision.route = RouteKind::kExact;
  decision.reason = "the dialect " + dialect + " fits the server";
  decision.dialect = dialect;
}

// True: nothing goes before it.
bool PickRoute(const RouteQuestion& question, LeDBMSType type, RouteDecision& decision) {
  for (const Rule& rule : kRules) {
    if (const Reason reason = rule.applies(question, type)) {
      decision.route = rule.route;
      decision.reason = *reason;
      return true;
    }
  }
  decision.reason = "the kind of server is not known";
  for (const RouteOfType& row : kRoutesOfTypes) {
    if (row.type != type) continue;
    decision.route = row.route;
    decision.reason = row.reason;
  }
  return false;
}

}  // namespace

RouteDecision DecideRoute(const RouteQuestion& question, ServerFacts& server) {
  SettleServer(question, server);
  RouteDecision decision;
  decision.dbms_name = server.dbms_name;
  decision.dbms_version = server.dbms_version;
  decision.dbms_type = server.dbms_type;
  server.finding = nullptr;
  const bool asked_for = PickRoute(question, server.dbms_type, decision);
  if (!asked_for && WantsExactReading(question.choices)) PickExactRoute(question, server, decision);
  return decision;
}

}  // namespace odbcimport
