// What the commands with a connection have in common: the module started, the reports opened, the
// connection made and the services installed, in the order in which failures count.
#pragma once

#include "host/commands.h"
#include "host/connection.h"
#include "host/import_run.h"
#include "host/output_file.h"
#include "host/run_recording.h"

namespace wbhost {

class HostSession {
 public:
  // Throws a Failure: 5 without a module or a connection, else 6 where the output or a report
  // cannot be written.
  HostSession(Run& run, const Choices& choices, const OutputFile& output);

  ImportRunner& runner() { return runner_; }
  const Connection& connection() const { return connection_; }
  // Adds what the end of the run shows: a report that could not be written.
  void Finish(Outcome& outcome);

 private:
  Run& run_;
  StartedModule module_;
  Reports reports_;
  const Target target_;
  RunRecording recording_;
  Connection connection_;
  InstalledServices services_;
  ImportRunner runner_;
};

}  // namespace wbhost
