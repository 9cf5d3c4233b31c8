// The command line: every option is declared here, with its help.
#include "host/options.h"

#include <fmt/format.h>

#include <algorithm>
#include <iostream>

#include "compare/writer.h"
#include "export/writer.h"
#include "host/choices.h"
#include "host/config_file.h"
#include "host/declarations.h"
#include "host/lists.h"
#include "host/nearest.h"
#include "host/outcome.h"
#include "host/samples.h"
#include "host/text.h"
#include "importer/workbook/enums.h"
#include "lint/writer.h"

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

// A text option that may be left out; the last one given counts. It takes any text as it stands,
// the empty one and `[a,b]` too, since names in a database look like anything.
CLI::Option* AddText(CLI::App& app, const std::string& name, std::optional<std::string>& target,
                     const std::string& help, const char* type = "TEXT") {
  return app
      .add_option(
          name,
          [&target](const CLI::results_t& values) {
            target = values.back();
            return true;
          },
          help)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast)
      ->type_name(type);
}

// A text option that may be repeated.
CLI::Option* AddTexts(CLI::App& app, const std::string& name, std::vector<std::string>& target,
                      const std::string& help, const char* type) {
  return app
      .add_option(
          name,
          [&target](const CLI::results_t& values) {
            target = values;
            return true;
          },
          help)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
      ->allow_extra_args(false)
      ->type_name(type);
}

// Takes the names of a list alone, and offers the nearest of them otherwise.
CLI::Validator OneOf(const std::vector<std::string>& names) {
  return {[names](const std::string& value) {
            if (std::find(names.begin(), names.end(), value) != names.end()) return std::string();
            return fmt::format("there is no '{}'{}", value, DidYouMean(value, names));
          },
          fmt::format("{{{}}}", fmt::join(names, ","))};
}

// `--name` and `--no-name`; the last one given counts.
void AddSwitch(CLI::App& app, const std::string& name, std::optional<bool>& target,
               const std::string& help, const std::string& help_no) {
  for (const bool value : {true, false}) {
    app.add_flag_callback((value ? "--" : "--no-") + name, [&target, value] { target = value; },
                          value ? help : help_no)
        ->trigger_on_parse()
        ->group("Choices");
  }
}

// Of the commands whose answer is no workbook.
const std::vector<std::string>& AnswerFormats() {
  static const std::vector<std::string> names = {"text", "json"};
  return names;
}

template <class Entries>
std::vector<std::string> NamesOf(const Entries& entries) {
  std::vector<std::string> names;
  for (const auto& entry : entries) names.emplace_back(entry.name);
  return names;
}
template <class Entries>
std::string Names(const Entries& entries) {
  return fmt::format("{}", fmt::join(NamesOf(entries), ", "));
}

void AddConnection(CLI::App& app, ConnectionOptions& options,
                   const char* group = "Connection (the sample database when none is given)") {
  AddText(app, "--connect", options.connect, "ODBC connection string, passed on as it stands")
      ->group(group);
  AddText(app, "--connect-env", options.connect_env,
          "Environment variable with the connection string, for one with a password", "VAR")
      ->group(group);
  app.add_flag("--connect-stdin", options.connect_stdin,
               "Read the connection string from standard input (one line)")
      ->group(group);
  AddText(app, "--dsn", options.dsn, "Data source of odbc.ini", "NAME")->group(group);
  AddText(app, "--user", options.user, "User name for --dsn or --connect", "NAME")->group(group);
  AddText(app, "--password-env", options.password_env, "Environment variable with the password",
          "VAR")
      ->group(group);
  app.add_flag("--password-stdin", options.password_stdin,
               "Read the password from standard input (one line)")
      ->group(group);
  AddText(app, "--sqlite", options.sqlite, "SQLite database file, opened read-only", "FILE")
      ->group(group);
  AddText(app, "--sample", options.sample, "Practice server: " + Names(AllSamples()), "NAME")
      ->group(group);
  const auto add_seconds = [&](const char* name, int& target, const char* help) {
    app.add_option(name, target, help)
        ->check(CLI::Range(0, 86400))
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast)
        ->type_name("SECONDS")
        ->group(group);
  };
  add_seconds("--login-timeout", options.login_timeout,
              "How long connecting may take (15; 0: any time)");
  add_seconds("--timeout", options.timeout,
              "How long one call of the driver may take (300; 0: any time)");
  const auto add_limit = [&](const char* name, std::optional<std::uint64_t>& target,
                             const char* help) {
    app.add_option_function<std::uint64_t>(
           name, [&target](const std::uint64_t& number) { target = number; }, help)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast)
        ->type_name("N")
        ->group(group);
  };
  add_limit("--result-rows", options.result_rows,
            "Most rows of one result (50000000; 0: any number)");
  add_limit("--result-bytes", options.result_bytes,
            "Most bytes of one result (8589934592; 0: any number)");
  AddText(app, "--replay", options.replay, "What --record kept of a driver's answers", "FILE")
      ->group(group);
}

// What decides how a server is read.
void AddRouteChoices(CLI::App& app, ChoiceOptions& options) {
  const char* group = "Choices";
  AddText(app, "--request", options.request,
          "Request file (JSON) with choices; - reads it from standard input", "FILE")
      ->group(group);
  app.add_option_function<int>(
         "--dbms-type", [&options](const int& type) { options.dbms_type = type; },
         "Kind of server (0 to 8) where the driver gives no name")
      ->check(CLI::Range(static_cast<int>(dbmsUnknown), static_cast<int>(dbmsRedBrick)))
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast)
      ->type_name("N")
      ->group(group);
  app.add_flag("--unsafe-names", options.unsafe_names,
               "Let names pass into SQL that could leave their quotes there")
      ->group(group);
  app.add_flag("--generic", options.generic, "Use the catalog functions of ODBC on every server")
      ->group(group);
}

// What is read.
void AddChoices(CLI::App& app, ChoiceOptions& options, bool with_exclude = true) {
  const char* group = "Choices";
  AddTexts(app, "--items", options.items, "What to import, parted by commas: " + Names(AllItems()),
           "LIST")
      ->delimiter(',')
      ->group(group);
  AddText(app, "--owner", options.owner, "Read the tables and views of this owner alone", "NAME")
      ->group(group);
  AddText(app, "--catalog", options.catalog,
          "Catalog (database) to read in place of the connection's; list catalogs shows them",
          "NAME")
      ->group(group);
  AddText(app, "--dialect", options.dialect, "Dialect file for the exact reading", "FILE")
      ->group(group);
  AddSwitch(app, "system", options.system, "Read system tables too", "Undo a file's includeSystem");
  AddSwitch(app, "keys", options.keys, "Read primary keys (the default)", "Read no primary keys");
  AddSwitch(app, "foreign-keys", options.foreign_keys, "Read foreign keys (the default)",
            "Read no foreign keys");
  AddTexts(app, "--select-owner", options.select_owner, "Select an owner; may be repeated", "NAME")
      ->group(group);
  AddTexts(app, "--select-table", options.select_table, "Select a table; may be repeated",
           "[OWNER.]NAME")
      ->group(group);
  AddTexts(app, "--select-view", options.select_view, "Select a view; may be repeated",
           "[OWNER.]NAME")
      ->group(group);
  AddTexts(app, "--select-synonym", options.select_synonym, "Select a synonym; may be repeated",
           "[OWNER.]NAME")
      ->group(group);
  if (with_exclude) {
    AddTexts(app, "--exclude", options.exclude,
             "Leave out a table or view of those selected, or of all; may be repeated",
             "[OWNER.]NAME")
        ->group(group);
  }
  AddText(app, "--table", options.table, "The single table whose column names are read",
          "[OWNER.]NAME")
      ->group(group);
}

void AddReading(CLI::App& app, ChoiceOptions& options) {
  const char* group = "Choices";
  AddText(app, "--reading", options.reading,
          "exact, compatible, or auto: exact where a dialect fits the server", "MODE")
      ->check(CLI::IsMember({"exact", "compatible", "auto"}))
      ->group(group);
}

void AddQuiet(CLI::App& app, ReportOptions& options) {
  app.add_flag("-q,--quiet", options.quiet, "Say nothing but errors")->group("Reports");
}

void AddProgress(CLI::App& app, ReportOptions& options) {
  const char* group = "Reports";
  AddText(app, "--progress", options.progress,
          "auto (a bar on a terminal, else a line at the end), bar, plain or none", "MODE")
      ->check(OneOf({"auto", "bar", "plain", "none"}))
      ->group(group);
  AddText(app, "--trace", options.trace, "Write the notification trace", "FILE")->group(group);
}

void AddReports(CLI::App& app, ReportOptions& options) {
  const char* group = "Reports";
  AddText(app, "--errors", options.errors, "Write the texts of the message boxes shown", "FILE")
      ->group(group);
  AddText(app, "--log", options.log, "Write the diagnostics that were consumed unseen", "FILE")
      ->group(group);
  AddText(app, "--record", options.record,
          "Keep what the driver answers, compressed where the name ends in .zst or .gz", "FILE")
      ->group(group);
  AddText(app, "--record-names", options.record_names,
          "plain (the default), or hashed: a recording without names and texts", "HOW")
      ->check(CLI::IsMember({"plain", "hashed"}))
      ->group(group);
  AddText(app, "--messages", options.messages, "Folder of another message library (msgtext.dll)",
          "FOLDER")
      ->group(group);
}

void AddFile(CLI::App& app, OutputOptions& options) {
  app.add_option("-o,--output", options.file, "Write to this file, whole or not at all")
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast)
      ->type_name("FILE")
      ->group("Output");
}

void AddOutput(CLI::App& app, OutputOptions& options) {
  const char* group = "Output";
  AddText(app, "-f,--format", options.format,
          Names(wbexport::AllFormats()) +
              "; the default goes by the output file, else text on a terminal and json elsewhere",
          "NAME")
      ->group(group);
  AddFile(app, options);
  AddText(app, "--around", options.around, "Diagrams: only the neighbourhood of this table",
          "[OWNER.]NAME")
      ->group(group);
  app.add_option("--distance", options.distance, "Diagrams: relationships from --around")
      ->check(CLI::Range(0, 100))
      ->type_name("N")
      ->group(group);
  app.add_option("--dialect-out", options.dialect_out,
                 "sql: for the server of this dialect (postgresql, mariadb, sqlite) instead of the "
                 "one that was read")
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast)
      ->type_name("NAME")
      ->group(group);
  AddText(app, "--title", options.title, "What people call the database; every format shows it",
          "TEXT")
      ->group(group);
  app.add_flag("--compact", options.compact,
               "json: without indentation and members that are zero, empty, false or null")
      ->group(group);
  AddText(app, "--detail", options.detail,
          "Diagrams: full (all columns), keys or names; the default goes by the size", "HOW MUCH")
      ->check(OneOf({"full", "keys", "names"}))
      ->group(group);
  app.add_flag("--whole", options.whole, "Diagrams: draw a large schema whole")->group(group);
  app.add_flag("--all-functions", options.all_functions, "text: list functions with overloads")
      ->group(group);
}

// For the commands whose answer is no workbook.
void AddTextOrJson(CLI::App& app, OutputOptions& options) {
  AddText(app, "-f,--format", options.format, "text (the default) or json", "NAME")
      ->check(OneOf(AnswerFormats()))
      ->group("Output");
  AddFile(app, options);
}

// What a comparison leaves out.
void AddIgnore(CLI::App& app, Options& options) {
  const char* group = "Comparison";
  AddTexts(app, "--ignore", options.diff.ignore,
           "Kinds of changes to leave out, parted by commas: an object (index), a property "
           "(comment), both (column.default), or an object with what became of it (table.added)",
           "KIND")
      ->delimiter(',')
      ->group(group);
  AddTexts(app, "--exclude", options.choices.exclude,
           "Leave out what has this name, * and ? standing for anything; may be repeated",
           "[OWNER.]NAME|TABLE.NAME")
      ->group(group);
}

void AddComparisonOutput(CLI::App& app, OutputOptions& options) {
  AddText(app, "-f,--format", options.format,
          Names(wbcompare::AllFormats()) +
              "; the default goes by the output file, else text on a terminal and json elsewhere",
          "NAME")
      ->check(OneOf(NamesOf(wbcompare::AllFormats())))
      ->group("Output");
  AddFile(app, options);
}

void AddDiff(CLI::App& app, Options& options) {
  DiffOptions& diff = options.diff;
  app.add_option("OLD", diff.old_file, "A workbook file, as --format json writes it")->required();
  AddText(app, "NEW", diff.new_file, "Another one; without it the schema of the connection",
          "FILE");
  const char* group = "Comparison";
  AddTexts(app, "--rename", diff.renames,
           "An owner, [OWNER.]TABLE or [OWNER.]TABLE.COLUMN and its name now; may be repeated",
           "OLD=NEW")
      ->group(group);
  AddIgnore(app, options);
  AddText(app, "--fail-on", diff.fail_on,
          "breaking, careful or any (the default): from which changes on the exit code is 10",
          "SEVERITY")
      ->check(OneOf({"breaking", "careful", "any"}))
      ->group(group);
  app.add_flag("--no-guess", diff.no_guess, "Guess no renames")->group(group);
  app.add_flag("--server-names", diff.server_names,
               "Count names that the server made, such as SYS_C0012345, too")
      ->group(group);
  app.add_flag("--spellings", diff.spellings,
               "Count what only a server's versions spell differently, too")
      ->group(group);
  AddComparisonOutput(app, options.output);
}

bool Compares(Command command) {
  return command == Command::kDiff || command == Command::kCompareReadings;
}

void AddLint(CLI::App& app, Options& options) {
  LintOptions& lint = options.lint;
  AddText(app, "FILE", lint.file,
          "A workbook file, as --format json writes it; without it the schema of the connection",
          "FILE");
  const char* group = "Rules";
  AddTexts(app, "--rules", lint.only,
           "Only these rules, by id or name, parted by commas; all stands for every rule", "RULE")
      ->delimiter(',')
      ->group(group);
  AddTexts(app, "--rule", lint.more, "These rules too, which are off otherwise", "RULE")
      ->delimiter(',')
      ->group(group);
  AddTexts(app, "--no-rule", lint.without, "Not these rules", "RULE")->delimiter(',')->group(group);
  AddTexts(app, "--exclude", options.choices.exclude,
           "Pass over tables of this name, * and ? standing for anything; may be repeated",
           "[OWNER.]NAME")
      ->group(group);
  AddText(app, "--fail-on", lint.fail_on,
          "error, warning or any (the default): from which findings on the exit code is 10",
          "SEVERITY")
      ->check(OneOf({"error", "warning", "any"}))
      ->group(group);
  AddText(app, "-f,--format", options.output.format,
          Names(wblint::AllFormats()) +
              "; the default goes by the output file, else text on a terminal and json elsewhere",
          "NAME")
      ->check(OneOf(NamesOf(wblint::AllFormats())))
      ->group("Output");
  AddFile(app, options.output);
}

// Whether a command that has formats of its own has this one; nothing for the other commands.
std::optional<bool> HasFormat(Command command, const std::string& name) {
  if (Compares(command)) return wbcompare::FindFormat(name) != nullptr;
  if (command == Command::kLint) return wblint::FindFormat(name) != nullptr;
  return std::nullopt;
}

// The format that the output file's extension says, where the command has it.
std::optional<std::string> FormatOfFile(const Options& options) {
  const wbexport::Format* format = wbexport::FindFormatOfFile(options.output.file);
  if (format == nullptr) return std::nullopt;
  const bool of_workbooks =
      options.command == Command::kImport || options.command == Command::kRender;
  const std::string name = format->name;
  if (const std::optional<bool> has = HasFormat(options.command, name)) {
    return *has ? std::optional(name) : std::nullopt;
  }
  const auto& answers = AnswerFormats();
  if (!of_workbooks && std::find(answers.begin(), answers.end(), name) == answers.end()) {
    return std::nullopt;
  }
  return name;
}

std::vector<std::string> OptionNames(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::Option* option : app.get_options()) {
    for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
  }
  return names;
}

// The first argument that nothing is known of, with what may have been meant; nothing where the
// parser's own words are about something else.
std::optional<std::string> ExplainUnknown(const CLI::App& app,
                                          const std::vector<std::string>& arguments) {
  const std::vector<std::string> unknown = app.remaining(true);
  const auto first =
      std::find_first_of(arguments.begin(), arguments.end(), unknown.begin(), unknown.end());
  if (first == arguments.end()) return std::nullopt;
  const CLI::App* given = app.get_subcommands().empty() ? nullptr : app.get_subcommands().front();
  const std::string name = first->substr(0, first->find('='));
  std::vector<std::string> commands;
  std::vector<std::string> with_option;
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
    commands.push_back(command->get_name());
    const std::vector<std::string> own = OptionNames(*command);
    if (std::find(own.begin(), own.end(), name) != own.end()) {
      with_option.push_back(command->get_name());
    }
  }
  if (name.front() != '-') {
    return given != nullptr
               ? fmt::format("'{}' is an argument too many", *first)
               : fmt::format("there is no command '{}'{}", *first, DidYouMean(*first, commands));
  }
  if (!with_option.empty()) {
    return given != nullptr ? fmt::format("{} is no option of {} but of {}", name,
                                          given->get_name(), fmt::join(with_option, ", "))
                            : fmt::format("{} stands behind a command that has it: {}", name,
                                          fmt::join(with_option, ", "));
  }
  const std::vector<std::string> known = OptionNames(given != nullptr ? *given : app);
  return fmt::format("there is no option '{}'{}", name, DidYouMean(name, known));
}

// A comparison is with a file or with a connection that somebody chose; never with the sample.
void CheckDiff(const Options& options, bool connected) {
  ChoiceOptions choices = options.choices;
  choices.exclude.clear();  // of the comparison
  if (!options.diff.new_file && !connected) {
    throw Failure(ExitCode::kUsage, "diff takes a second workbook file or a connection");
  }
  if (options.diff.new_file && connected) {
    throw Failure(ExitCode::kUsage, "diff takes a second workbook file or a connection, not both");
  }
  if (options.diff.new_file && !(choices == ChoiceOptions())) {
    throw Failure(ExitCode::kUsage,
                  "the choices of an import go with a connection, not with a second file; "
                  "--exclude and --ignore leave out");
  }
}

void CheckLint(const Options& options, bool connected) {
  ChoiceOptions choices = options.choices;
  choices.exclude.clear();  // of the findings
  if (options.lint.file && (connected || !(choices == ChoiceOptions()))) {
    throw Failure(ExitCode::kUsage,
                  "lint takes a workbook file or a connection with its choices, not both");
  }
  if (!options.lint.file && !connected) {
    throw Failure(ExitCode::kUsage, "lint takes a workbook file or a connection");
  }
}

void CheckTogether(const Options& options) {
  const ConnectionOptions& connection = options.connection;
  const bool has_string = connection.connect || connection.connect_env || connection.connect_stdin;
  const int ways = (connection.connect ? 1 : 0) + (connection.connect_env ? 1 : 0) +
                   (connection.connect_stdin ? 1 : 0) + (connection.dsn ? 1 : 0) +
                   (connection.sqlite ? 1 : 0) + (connection.sample ? 1 : 0) +
                   (connection.replay ? 1 : 0);
  if (ways > 1) {
    throw Failure(ExitCode::kUsage,
                  "give only one of --connect, --connect-env, --connect-stdin, --dsn, --sqlite, "
                  "--sample and --replay: one connection a run");
  }
  if (options.command == Command::kDiff) CheckDiff(options, ways != 0);
  if (options.command == Command::kLint) CheckLint(options, ways != 0);
  if (options.command == Command::kCompareReadings && ways == 0) {
    throw Failure(ExitCode::kUsage, "compare-readings takes a connection");
  }
  if (options.report.record_names && !options.report.record) {
    throw Failure(ExitCode::kUsage, "--record-names goes with --record");
  }
  if (connection.user && !connection.dsn && !has_string) {
    throw Failure(ExitCode::kUsage, "--user goes with --dsn or --connect");
  }
  if (connection.password_env && connection.password_stdin) {
    throw Failure(ExitCode::kUsage, "give only one of --password-env and --password-stdin");
  }
  if ((connection.password_stdin ? 1 : 0) + (connection.connect_stdin ? 1 : 0) +
          (options.choices.request == "-" ? 1 : 0) >
      1) {
    throw Failure(ExitCode::kUsage,
                  "only one of --password-stdin, --connect-stdin and --request - can read standard "
                  "input");
  }
  if (connection.sample && FindSample(*connection.sample) == nullptr) {
    throw Failure(ExitCode::kUsage,
                  fmt::format("--sample: there is no sample '{}'{}", *connection.sample,
                              DidYouMean(*connection.sample, NamesOf(AllSamples()))));
  }
  if (HasFormat(options.command, "")) return;  // which has formats of its own
  if (options.output.format && wbexport::FindFormat(*options.output.format) == nullptr) {
    throw Failure(ExitCode::kUsage,
                  fmt::format("--format: there is no format '{}'{}", *options.output.format,
                              DidYouMean(*options.output.format, NamesOf(wbexport::AllFormats()))));
  }
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

  const auto add_command = [&](const char* name, Command command, const char* help,
                               const char* examples) {
    CLI::App* sub = app.add_subcommand(name, help);
    sub->footer(examples);
    sub->fallthrough();
    sub->callback([&options, command] { options.command = command; });
    return sub;
  };
  CLI::App* import_command =
      add_command("import", Command::kImport, "Import a schema", kImportExamples);
  CLI::App* list = add_command("list", Command::kList, "List names only", kListExamples);
  CLI::App* info =
      add_command("info", Command::kInfo, "Tell about the server and its driver", kInfoExamples);
  CLI::App* drivers =
      add_command("drivers", Command::kDrivers, "List the installed ODBC drivers and data sources",
                  kDriversExamples);
  CLI::App* render = add_command("render", Command::kRender,
                                 "Write a saved workbook file in another format", kRenderExamples);

  CLI::App* dialects =
      add_command("dialects", Command::kDialects,
                  "List, show and try out dialects of the exact reading", kDialectsExamples);

  CLI::App* diff =
      add_command("diff", Command::kDiff, "Tell what differs between two schemas", kDiffExamples);
  AddDiff(*diff, options);
  AddConnection(*diff, options.connection, "Connection (in place of NEW)");
  AddRouteChoices(*diff, options.choices);
  AddChoices(*diff, options.choices, false);
  AddReading(*diff, options.choices);
  AddProgress(*diff, options.report);
  AddReports(*diff, options.report);
  CLI::App* readings =
      add_command("compare-readings", Command::kCompareReadings,
                  "Read a schema both ways and tell what each lacks", kReadingsExamples);
  AddConnection(*readings, options.connection);
  AddRouteChoices(*readings, options.choices);
  AddChoices(*readings, options.choices, false);
  AddIgnore(*readings, options);
  AddComparisonOutput(*readings, options.output);
  AddProgress(*readings, options.report);
  AddReports(*readings, options.report);

  CLI::App* lint =
      add_command("lint", Command::kLint, "Hold a schema to rules of good schemas", kLintExamples);
  AddLint(*lint, options);
  AddConnection(*lint, options.connection, "Connection (in place of FILE)");
  AddRouteChoices(*lint, options.choices);
  AddChoices(*lint, options.choices, false);
  AddReading(*lint, options.choices);
  AddProgress(*lint, options.report);
  AddReports(*lint, options.report);

  for (CLI::App* command : {import_command, list, info}) {
    AddConnection(*command, options.connection);
    AddRouteChoices(*command, options.choices);
    if (command != info) {
      AddChoices(*command, options.choices);
      AddReading(*command, options.choices);
      AddProgress(*command, options.report);
    }
    AddReports(*command, options.report);
  }
  for (CLI::App* command : {import_command, list, info, render, diff, readings, lint}) {
    AddQuiet(*command, options.report);
  }
  AddOutput(*import_command, options.output);
  import_command
      ->add_flag(
          "--stamp", options.output.stamp,
          "Write the time of the import (UTC) too, that of SOURCE_DATE_EPOCH where it is set")
      ->group("Output");
  list->add_option("KIND", options.list_kind, fmt::format("{}", fmt::join(ListNames(), ", ")))
      ->required()
      ->check(OneOf(ListNames()));
  AddTextOrJson(*list, options.output);
  AddTextOrJson(*info, options.output);
  AddTextOrJson(*drivers, options.output);
  dialects->add_option("ACTION", options.dialect_action, "list, show or check")
      ->check(CLI::IsMember({"list", "show", "check"}));
  dialects->add_option("OPERAND", options.dialect_operand, "A name to show, a file to check");
  AddConnection(*dialects, options.connection);
  AddReports(*dialects, options.report);
  AddTextOrJson(*dialects, options.output);
  render
      ->add_option("FILE", options.render_file,
                   "A workbook file, as --format json writes it; - reads it from standard input")
      ->required();
  AddOutput(*render, options.output);
  render->add_flag("--system", options.output.system, "List the server's own procedures too")
      ->group("Output");
}

ParsedCommandLine ParseCommandLine(const std::vector<std::string>& arguments) {
  ParsedCommandLine parsed;
  Options& options = parsed.options;
  std::optional<std::string> config;
  CLI::App app;
  DeclareCommandLine(app, options, config);
  try {
    // CLI11 takes the arguments from the back.
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::Success& asked) {  // help or version
    app.exit(asked, std::cout, std::cerr);
    const bool for_help = dynamic_cast<const CLI::CallForHelp*>(&asked) != nullptr;
    if (for_help) std::cout << '\n' << ExitCodeHelp() << '\n';
    parsed.exit_code = static_cast<int>(ExitCode::kOk);
    return parsed;
  } catch (const CLI::ParseError& error) {
    const std::vector<CLI::App*> given = app.get_subcommands();
    throw Failure(ExitCode::kUsage,
                  fmt::format("{} (see wbimport {}--help)",
                              ExplainUnknown(app, arguments).value_or(error.what()),
                              given.empty() ? "" : given.front()->get_name() + " "));
  }
  if (!options.output.format) options.output.format = FormatOfFile(options);
  std::vector<std::string> commands;
  for (const CLI::App* command : app.get_subcommands([](CLI::App*) { return true; })) {
    commands.push_back(command->get_name());
  }
  options.connection.connect_in_arguments = options.connection.connect.has_value();
  const bool own_format = options.output.format.has_value();
  ApplyConfigFile(config, commands, app.get_subcommands().front()->get_name(), options);
  // A format for all commands may be one that a command with formats of its own does not have.
  if (!own_format && options.output.format &&
      HasFormat(options.command, *options.output.format) == std::optional(false)) {
    options.output.format.reset();
  }
  CheckTogether(options);
  return parsed;
}

}  // namespace wbhost
