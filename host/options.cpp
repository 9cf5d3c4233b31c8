// The command line, taken apart and checked.
#include "host/options.h"

#include <fmt/format.h>

#include <algorithm>
#include <iostream>

#include "compare/writer.h"
#include "export/writer.h"
#include "host/answer_format.h"
#include "host/config_file.h"
#include "host/declarations.h"
#include "host/nearest.h"
#include "host/outcome.h"
#include "host/samples.h"
#include "lint/writer.h"

namespace wbhost {
namespace {

// The formats of a command, in the order in which a user is shown them.
std::vector<std::string> FormatNames(Command command) {
  switch (command) {
    case Command::kImport:
    case Command::kRender:
      return NamesOf(wbexport::AllFormats());
    case Command::kDiff:
    case Command::kCompareReadings:
      return NamesOf(wbcompare::AllFormats());
    case Command::kLint:
      return NamesOf(wblint::AllFormats());
    default:
      return AnswerFormatNames();
  }
}

bool HasFormat(Command command, const std::string& name) {
  const std::vector<std::string> names = FormatNames(command);
  return std::find(names.begin(), names.end(), name) != names.end();
}

// The format that the output file's extension says, where the command has it.
std::optional<std::string> FormatOfFile(const Options& options) {
  const wbexport::Format* format = wbexport::FindFormatOfFile(options.output.file);
  if (format == nullptr || !HasFormat(options.command, format->name)) return std::nullopt;
  return format->name;
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
  if (options.output.format && !HasFormat(options.command, *options.output.format)) {
    throw Failure(ExitCode::kUsage,
                  fmt::format("--format: there is no format '{}'{}", *options.output.format,
                              DidYouMean(*options.output.format, FormatNames(options.command))));
  }
}

}  // namespace

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
  // A format for all commands may be one that this command does not have.
  if (!own_format && options.output.format && !HasFormat(options.command, *options.output.format) &&
      wbexport::FindFormat(*options.output.format) != nullptr) {
    options.output.format.reset();
  }
  CheckTogether(options);
  return parsed;
}

}  // namespace wbhost
