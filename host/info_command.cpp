// `wbimport info` and `wbimport drivers`: what there is to import from.
#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "host/answer_format.h"
#include "host/commands.h"
#include "host/dialect_file.h"
#include "host/host_session.h"
#include "host/text.h"

namespace wbhost {
namespace {

const char* TypeName(LeDBMSType type) {
  switch (type) {
    case dbmsUnknown:
      break;
    case dbmsInformix:
      return "Informix";
    case dbmsMSSQLServer:
      return "Microsoft SQL Server";
    case dbmsSybase:
      return "Sybase SQL Server";
    case dbmsOracle:
      return "Oracle";
    case dbmsDB2:
      return "DB2";
    case dbmsAccess:
      return "Microsoft Access";
    case dbmsOther:
      return "a server with no special handling";
    case dbmsRedBrick:
      return "Red Brick";
  }
  return "unknown";
}

struct Facts {
  LcODBCWorkbookImport::RouteDecision server;
  std::string route;
  std::string version_text;
  std::string driver;
  bool owners = false;
  std::u16string catalog;
  std::vector<Connection::FunctionOffer> functions;
};

std::string OrNone(const std::string& text) { return text.empty() ? "(none given)" : text; }

std::string FactsAsText(const Facts& facts) {
  const LcODBCWorkbookImport::RouteDecision& server = facts.server;
  std::string text;
  const auto line = [&text](const char* name, const std::string& value) {
    text += fmt::format("{:<20}{}\n", name, OneLine(value));
  };
  line("DBMS name", OrNone(ToUtf8(server.dbms_name)));
  line("DBMS version",
       fmt::format("{} (the driver says {})", server.dbms_version, OrNone(facts.version_text)));
  line("DBMS type",
       fmt::format("{} ({})", static_cast<int>(server.dbms_type), TypeName(server.dbms_type)));
  line("driver", facts.driver);
  line("route", fmt::format("{}: {}", facts.route, server.reason));
  if (!server.dialect.empty()) line("dialect", server.dialect);
  line("owners", facts.owners ? "supported" : "not supported");
  if (!facts.catalog.empty()) line("current catalog", ToUtf8(facts.catalog));
  text += "functions of the driver\n";
  for (const Connection::FunctionOffer& function : facts.functions) {
    text += fmt::format("  {:<18}{}\n", function.name, function.offered ? "yes" : "no");
  }
  return text;
}

std::string FactsAsJson(const Facts& facts) {
  nlohmann::ordered_json json;
  json["dbmsName"] = ToUtf8(facts.server.dbms_name);
  json["dbmsVersion"] = facts.server.dbms_version;
  json["dbmsVersionText"] = facts.version_text;
  json["dbmsType"] = static_cast<int>(facts.server.dbms_type);
  json["dbmsTypeName"] = TypeName(facts.server.dbms_type);
  json["driver"] = facts.driver;
  json["route"] = facts.route;
  json["reason"] = facts.server.reason;
  json["dialect"] = facts.server.dialect;
  json["owners"] = facts.owners;
  json["catalog"] = ToUtf8(facts.catalog);
  json["functions"] = nlohmann::ordered_json::object();
  for (const Connection::FunctionOffer& function : facts.functions) {
    json["functions"][function.name] = function.offered;
  }
  return json.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

std::string InstalledAsText(const std::vector<Installed>& drivers,
                            const std::vector<Installed>& sources) {
  std::string text = "Drivers\n";
  for (const Installed& driver : drivers) text += fmt::format("  {}\n", OneLine(driver.name));
  if (drivers.empty()) text += "  none; try: apt-get install libsqliteodbc\n";
  text += "Data sources\n";
  for (const Installed& source : sources) {
    text += fmt::format("  {} ({})\n", OneLine(source.name), OneLine(source.driver));
  }
  if (sources.empty()) text += "  none; odbcinst -j tells where odbc.ini lies\n";
  return text;
}

std::string InstalledAsJson(const std::vector<Installed>& drivers,
                            const std::vector<Installed>& sources) {
  nlohmann::ordered_json json;
  json["drivers"] = nlohmann::ordered_json::array();
  for (const Installed& driver : drivers) json["drivers"].push_back(driver.name);
  json["dataSources"] = nlohmann::ordered_json::array();
  for (const Installed& source : sources) {
    json["dataSources"].push_back({{"name", source.name}, {"driver", source.driver}});
  }
  return json.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

bool WantsJson(const Run& run) { return AnswerFormatOf(run.options.output) == AnswerFormat::kJson; }

}  // namespace

void RunInfo(Run& run, Outcome& outcome) {
  Choices choices = ReadChoices(run.options.choices);
  TakeDialectFile(choices);
  const OutputFile output(run.options.output.file);
  HostSession session(run, choices, output);
  session.NoteChoices(choices);
  const Connection& connection = session.connection();
  Facts facts;
  facts.server = session.runner().DecideRoute(choices.importer);
  facts.route = ToUtf8(LcODBCWorkbookImport::GetRoute(facts.server.route).name);
  facts.version_text = connection.DbmsVersionText();
  facts.driver = connection.DriverText();
  facts.owners = connection.SupportsOwners();
  facts.catalog = connection.CurrentCatalog();
  facts.functions = connection.OfferedFunctions();
  session.Finish(outcome);
  output.WriteText(WantsJson(run) ? FactsAsJson(facts) : FactsAsText(facts));
}

void RunDrivers(Run& run) {
  const OutputFile output(run.options.output.file);
  output.Check();
  const std::vector<Installed> drivers = InstalledDrivers();
  const std::vector<Installed> sources = DataSources();
  output.WriteText(WantsJson(run) ? InstalledAsJson(drivers, sources)
                                  : InstalledAsText(drivers, sources));
}

}  // namespace wbhost
