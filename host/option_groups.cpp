// See option_groups.h.
#include "host/option_groups.h"

#include <fmt/format.h>

#include <algorithm>

#include "compare/writer.h"
#include "export/writer.h"
#include "host/answer_format.h"
#include "host/choices.h"
#include "host/nearest.h"
#include "host/samples.h"
#include "importer/workbook/enums.h"
#include "lint/writer.h"

namespace wbhost {
namespace {

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

template <class Entries>
std::string Names(const Entries& entries) {
  return fmt::format("{}", fmt::join(NamesOf(entries), ", "));
}

// What --format says of itself, for a table of formats.
template <class Formats>
std::string FormatHelp(const Formats& all, const char* people, const char* programs) {
  return fmt::format(
      "{}; the default goes by the output file, else {} on a terminal and {} elsewhere", Names(all),
      people, programs);
}

void AddFile(CLI::App& app, OutputOptions& options) {
  app.add_option("-o,--output", options.file, "Write to this file, whole or not at all")
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast)
      ->type_name("FILE")
      ->group("Output");
}

}  // namespace

CLI::Option* AddText(CLI::App& app, const std::string& name, std::optional<std::string>& target,
                     const std::string& help, const char* type) {
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

CLI::Validator OneOf(const std::vector<std::string>& names) {
  return {[names](const std::string& value) {
            if (std::find(names.begin(), names.end(), value) != names.end()) return std::string();
            return fmt::format("there is no '{}'{}", value, DidYouMean(value, names));
          },
          fmt::format("{{{}}}", fmt::join(names, ","))};
}

void AddConnection(CLI::App& app, ConnectionOptions& options, const char* group) {
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

void AddChoices(CLI::App& app, ChoiceOptions& options, Exclude exclude) {
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
  if (exclude == Exclude::kWith) {
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

void AddOutput(CLI::App& app, OutputOptions& options) {
  const char* group = "Output";
  AddText(app, "-f,--format", options.format,
          FormatHelp(wbexport::AllFormats(), wbexport::DefaultFormat(true).name,
                     wbexport::DefaultFormat(false).name),
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

void AddAnswerOutput(CLI::App& app, OutputOptions& options) {
  const std::vector<std::string>& names = AnswerFormatNames();
  AddText(app, "-f,--format", options.format,
          fmt::format("{} (the default) or {}", names.front(), names.back()), "NAME")
      ->check(OneOf(names))
      ->group("Output");
  AddFile(app, options);
}

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
          FormatHelp(wbcompare::AllFormats(), wbcompare::DefaultFormat(true).name,
                     wbcompare::DefaultFormat(false).name),
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
          FormatHelp(wblint::AllFormats(), wblint::DefaultFormat(true).name,
                     wblint::DefaultFormat(false).name),
          "NAME")
      ->check(OneOf(NamesOf(wblint::AllFormats())))
      ->group("Output");
  AddFile(app, options.output);
}

}  // namespace wbhost
