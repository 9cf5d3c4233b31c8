// The command line: every command is declared here, with its help.
#include "host/declarations.h"

#include <fmt/format.h>

#include "host/lists.h"
#include "host/option_groups.h"

namespace wbhost {
namespace {

constexpr const char* kAbout =
    "Imports the schema of a database through ODBC into a workbook, and shows it.";

constexpr const char* kExamples =
    "Examples:\n"
    "  wbimport import                                 the sample database, as an outline\n"
    "  wbimport import --sqlite shop.db --format html -o shop.html\n"
    "  wbimport list tables --dsn stock --user joe --password-env STOCK_PASSWORD\n"
    "  wbimport info --sample oracle\n"
    "Every command has its own help: wbimport COMMAND --help";

constexpr const char* kImportExamples =
    "Examples:\n"
    "  wbimport import --sample informix --format markdown\n"
    "  wbimport import --sqlite shop.db --select-table 'order*' --exclude order_log\n"
    "  wbimport import --dsn stock --user joe --password-stdin --format svg -o stock.svg <secret\n"
    "  wbimport import --connect 'Driver=PostgreSQL Unicode;Server=db;Database=stock;UID=joe' \\\n"
    "      --password-env PGPASSWORD --request choices.json -o stock.json\n"
    "One interrupt stops the import and writes what was read; a second one cancels it.";

constexpr const char* kListExamples =
    "Examples:\n"
    "  wbimport list tables --sqlite shop.db\n"
    "  wbimport list columns --table dbo.loan --sample sqlserver\n"
    "  wbimport list owners --sample oracle --format json";

constexpr const char* kInfoExamples =
    "Examples:\n"
    "  wbimport info --sqlite shop.db\n"
    "  wbimport info --sample db2 --generic";

constexpr const char* kDialectsExamples =
    "Examples:\n"
    "  wbimport dialects show postgresql\n"
    "  wbimport dialects check shelf.sql --dsn shelf";

constexpr const char* kDriversExamples =
    "Examples:\n"
    "  wbimport drivers\n"
    "  wbimport drivers --format json";

constexpr const char* kRenderExamples =
    "Examples:\n"
    "  wbimport render stock.json --format html -o stock.html\n"
    "  wbimport render stock.json --format svg --around joe.orders --distance 2 -o orders.svg";

constexpr const char* kDiffExamples =
    "Examples:\n"
    "  wbimport diff shop.json --sqlite shop.db\n"
    "  wbimport diff released.json next.json --fail-on breaking --ignore comment,place\n"
    "  wbimport diff shop.json --dsn shop --rename client=customer --format markdown -o drift.md\n"
    "The choices and the reading of OLD, which its file keeps, hold for the import unless others "
    "are given.";

constexpr const char* kLintExamples =
    "Examples:\n"
    "  wbimport lint shop.json\n"
    "  wbimport lint --sqlite shop.db --no-rule quoted-name,L013 --exclude 'tmp_*'\n"
    "  wbimport lint --dsn shop --rules all --fail-on warning --format markdown -o lint.md";

constexpr const char* kReadingsExamples =
    "Examples:\n"
    "  wbimport compare-readings --dsn shop\n"
    "  wbimport compare-readings --sqlite shop.db --ignore comment,place --format html -o "
    "two.html\n"
    "  wbimport compare-readings --dsn shop --record two.jsonl.zst\n"
    "Where no dialect fits the server, its own SQL is compared with the catalog functions of ODBC.";

// The command that was given goes into the options.
CLI::App& AddCommand(CLI::App& app, Options& options, const char* name, Command command,
                     const char* help, const char* examples) {
  CLI::App* sub = app.add_subcommand(name, help);
  sub->footer(examples);
  sub->fallthrough();
  sub->callback([&options, command] { options.command = command; });
  return *sub;
}

void DeclareImport(CLI::App& app, Options& options) {
  CLI::App& command =
      AddCommand(app, options, "import", Command::kImport, "Import a schema", kImportExamples);
  AddConnection(command, options.connection);
  AddRouteChoices(command, options.choices);
  AddChoices(command, options.choices);
  AddReading(command, options.choices);
  AddProgress(command, options.report);
  AddReports(command, options.report);
  AddQuiet(command, options.report);
  AddOutput(command, options.output);
  command
      .add_flag("--stamp", options.output.stamp,
                "Write the time of the import (UTC) too, that of SOURCE_DATE_EPOCH where it is set")
      ->group("Output");
}

void DeclareList(CLI::App& app, Options& options) {
  CLI::App& command =
      AddCommand(app, options, "list", Command::kList, "List names only", kListExamples);
  AddConnection(command, options.connection);
  AddRouteChoices(command, options.choices);
  AddChoices(command, options.choices);
  AddReading(command, options.choices);
  AddProgress(command, options.report);
  AddReports(command, options.report);
  AddQuiet(command, options.report);
  command.add_option("KIND", options.list_kind, fmt::format("{}", fmt::join(ListNames(), ", ")))
      ->required()
      ->check(OneOf(ListNames()));
  AddAnswerOutput(command, options.output);
}

void DeclareInfo(CLI::App& app, Options& options) {
  CLI::App& command = AddCommand(app, options, "info", Command::kInfo,
                                 "Tell about the server and its driver", kInfoExamples);
  AddConnection(command, options.connection);
  AddRouteChoices(command, options.choices);
  AddReports(command, options.report);
  AddQuiet(command, options.report);
  AddAnswerOutput(command, options.output);
}

void DeclareDrivers(CLI::App& app, Options& options) {
  CLI::App& command =
      AddCommand(app, options, "drivers", Command::kDrivers,
                 "List the installed ODBC drivers and data sources", kDriversExamples);
  AddAnswerOutput(command, options.output);
}

void DeclareRender(CLI::App& app, Options& options) {
  CLI::App& command = AddCommand(app, options, "render", Command::kRender,
                                 "Write a saved workbook file in another format", kRenderExamples);
  AddQuiet(command, options.report);
  command
      .add_option("FILE", options.render_file,
                  "A workbook file, as --format json writes it; - reads it from standard input")
      ->required();
  AddOutput(command, options.output);
  command.add_flag("--system", options.output.system, "List the server's own procedures too")
      ->group("Output");
}

void DeclareDialects(CLI::App& app, Options& options) {
  CLI::App& command =
      AddCommand(app, options, "dialects", Command::kDialects,
                 "List, show and try out dialects of the exact reading", kDialectsExamples);
  command.add_option("ACTION", options.dialect_action, "list, show or check")
      ->check(CLI::IsMember({"list", "show", "check"}));
  command.add_option("OPERAND", options.dialect_operand, "A name to show, a file to check");
  AddConnection(command, options.connection);
  AddReports(command, options.report);
  AddAnswerOutput(command, options.output);
}

void DeclareDiff(CLI::App& app, Options& options) {
  CLI::App& command = AddCommand(app, options, "diff", Command::kDiff,
                                 "Tell what differs between two schemas", kDiffExamples);
  AddDiff(command, options);
  AddConnection(command, options.connection, "Connection (in place of NEW)");
  AddRouteChoices(command, options.choices);
  AddChoices(command, options.choices, Exclude::kWithout);
  AddReading(command, options.choices);
  AddProgress(command, options.report);
  AddReports(command, options.report);
  AddQuiet(command, options.report);
}

void DeclareCompareReadings(CLI::App& app, Options& options) {
  CLI::App& command =
      AddCommand(app, options, "compare-readings", Command::kCompareReadings,
                 "Read a schema both ways and tell what each lacks", kReadingsExamples);
  AddConnection(command, options.connection);
  AddRouteChoices(command, options.choices);
  AddChoices(command, options.choices, Exclude::kWithout);
  AddIgnore(command, options);
  AddComparisonOutput(command, options.output);
  AddProgress(command, options.report);
  AddReports(command, options.report);
  AddQuiet(command, options.report);
}

void DeclareLint(CLI::App& app, Options& options) {
  CLI::App& command = AddCommand(app, options, "lint", Command::kLint,
                                 "Hold a schema to rules of good schemas", kLintExamples);
  AddLint(command, options);
  AddConnection(command, options.connection, "Connection (in place of FILE)");
  AddRouteChoices(command, options.choices);
  AddChoices(command, options.choices, Exclude::kWithout);
  AddReading(command, options.choices);
  AddProgress(command, options.report);
  AddReports(command, options.report);
  AddQuiet(command, options.report);
}

}  // namespace

void DeclareCommandLine(CLI::App& app, Options& options, std::optional<std::string>& config) {
  app.name("wbimport");
  app.description(kAbout);
  app.set_version_flag("-V,--version", "wbimport " WB_VERSION);
  app.footer(kExamples);
  app.require_subcommand(1);
  AddText(app, "--config", config,
          "Configuration file instead of wbimport/config.toml in the XDG folders", "FILE");
  app.fallthrough();
  // In the order in which a user is shown them.
  DeclareImport(app, options);
  DeclareList(app, options);
  DeclareInfo(app, options);
  DeclareDrivers(app, options);
  DeclareRender(app, options);
  DeclareDialects(app, options);
  DeclareDiff(app, options);
  DeclareCompareReadings(app, options);
  DeclareLint(app, options);
}

}  // namespace wbhost
