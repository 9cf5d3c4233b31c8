// What the commands with a connection have in common: the module started, the reports opened, the
// connection made and the services installed, in the order in which failures count.
#pragma once

#include <functional>
#include <utility>

#include "host/call_watch.h"
#include "host/commands.h"
#include "host/connection.h"
#include "host/import_run.h"
#include "host/output_file.h"
#include "host/replay_notes.h"
#include "host/run_recording.h"

namespace wbhost {

// Whether nothing says where to connect to.
[[nodiscard]] bool IsSampleByDefault(const ConnectionOptions& options);

class HostSession {
 public:
  // Throws a Failure: 5 without a module or a connection, else 6 where the output or a report
  // cannot be written.
  // `choices` become those of the recording where one is played and the user chose nothing.
  HostSession(Run& run, Choices& choices, const OutputFile& output);

  [[nodiscard]] ImportRunner& runner() { return runner_; }
  [[nodiscard]] const Connection& connection() const { return connection_; }
  // Whether imports from now on go by the catalog functions on every server.
  void ReadGenerically(bool generic) { services_.ReadGenerically(generic); }
  // Keeps the choices with a recording, once the names in them are the server's.
  void NoteChoices(const Choices& choices) { recording_.NoteChoices(choices); }
  // The choices are those of the recording that is played: their names were resolved when it was
  // made.
  [[nodiscard]] bool RepeatsChoices() const { return repeats_choices_; }
  // Adds what the end of the run shows: a report that could not be written, and what a recording
  // did not hold.
  void Finish(Outcome& outcome);
  // What is done where a call of the driver never comes back: `rest` writes what was read, and adds
  // what there is to say. It runs on another thread, while this one waits for ever.
  void SetRest(std::function<void(Outcome& outcome)> rest) { rest_ = std::move(rest); }
  // Whether an import that ended well is told of in one line at its end. A bar that goes away
  // leaves nothing of an import into a file.
  [[nodiscard]] bool SaysTheEnd(bool to_file) const {
    return progress_ == ProgressMode::kEnd || (to_file && progress_ == ProgressMode::kBar);
  }

 private:
  void CheckReplay(Outcome& outcome);
  [[nodiscard]] int Abandon(ExitCode code, const std::string& why);

  Run& run_;
  const ProgressMode progress_;
  StartedModule module_;
  Reports reports_;
  Target target_;
  RunRecording recording_;
  std::function<void(Outcome&)> rest_;  // null: there is nothing to write
  Outcome* outcome_ = nullptr;          // once the run is over but for the end of the connection
  bool connected_ = false;
  const std::shared_ptr<CallWatch> watch_;
  Connection connection_;
  const std::optional<ReplayNotes> notes_;
  const bool repeats_choices_;
  InstalledServices services_;
  ImportRunner runner_;
};

}  // namespace wbhost
