// The commands of the program. Each throws a Failure where it ends early.
#pragma once

#include "host/file_roles.h"
#include "host/options.h"
#include "host/outcome.h"
#include "host/screen.h"
#include "host/secrets.h"

namespace wbhost {

// What every command is given. `secrets` is filled when passwords are read.
struct Run {
  const Options& options;
  Secrets& secrets;
  Screen& screen;
  FileRoles& roles;  // of the files of the options so far
};

void RunImport(Run& run, Outcome& outcome);
void RunList(Run& run, Outcome& outcome);
void RunInfo(Run& run, Outcome& outcome);
void RunDialects(Run& run, Outcome& outcome);
void RunDrivers(Run& run);
void RunRender(Run& run);
void RunDiff(Run& run, Outcome& outcome);
void RunLint(Run& run, Outcome& outcome);
void RunCompareReadings(Run& run, Outcome& outcome);

// The whole program: takes the command line apart, runs the command, reports a failure. Returns the
// exit code.
int RunProgram(const std::vector<std::string>& arguments);

}  // namespace wbhost
