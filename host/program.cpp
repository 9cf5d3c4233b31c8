// The whole program but for main(): from the command line to the exit code.
#include <fmt/format.h>

#include <iostream>

#include "host/commands.h"
#include "host/interrupt.h"

namespace wbhost {
namespace {

void RunCommand(Run& run, Outcome& outcome) {
  const Command command = run.options.command;
  const bool imports = command == Command::kImport || command == Command::kList ||
                       command == Command::kCompareReadings ||
                       (command == Command::kDiff && !run.options.diff.new_file) ||
                       (command == Command::kLint && !run.options.lint.file);
  InstallInterruptHandlers(imports);
  switch (command) {
    case Command::kImport:
      return RunImport(run, outcome);
    case Command::kList:
      return RunList(run, outcome);
    case Command::kInfo:
      return RunInfo(run, outcome);
    case Command::kDialects:
      return RunDialects(run, outcome);
    case Command::kDrivers:
      return RunDrivers(run);
    case Command::kRender:
      return RunRender(run);
    case Command::kDiff:
      return RunDiff(run, outcome);
    case Command::kLint:
      return RunLint(run, outcome);
    case Command::kCompareReadings:
      return RunCompareReadings(run, outcome);
  }
}

}  // namespace

int RunProgram(const std::vector<std::string>& arguments) {
  Secrets secrets;
  // Also those of a connection string that stands where none is expected.
  secrets.AddFromArguments(arguments);
  Screen screen(secrets);
  Outcome outcome;
  try {
    const ParsedCommandLine parsed = ParseCommandLine(arguments);
    if (parsed.exit_code) return *parsed.exit_code;
    if (parsed.options.report.quiet) screen.BeQuiet();
    FileRoles roles(parsed.options);
    Run run{parsed.options, secrets, screen, roles};
    RunCommand(run, outcome);
  } catch (const Failure& failure) {
    screen.SayError(failure.what());
    outcome.Add(failure.code());
  } catch (const std::exception& error) {
    // No way back is known for what gets here; memory that ran out, mostly.
    screen.SayError(fmt::format("ended early: {}", error.what()));
    outcome.Add(ExitCode::kImportFalse);
  }
  if (!outcome.Line().empty()) screen.SayError(outcome.Line());
  return static_cast<int>(outcome.Code());
}

}  // namespace wbhost
