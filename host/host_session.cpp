// What the commands with a connection have in common.
#include "host/host_session.h"

#include <fmt/format.h>

#include "host/interrupt.h"

namespace wbhost {
namespace {

// A list of names is quickly read and often goes into a pipe: without a terminal it shows nothing
// unless asked.
ProgressMode ChooseProgress(const Options& options, const Screen& screen) {
  if (options.command != Command::kImport && !options.report.progress && !screen.IsTerminal()) {
    return ProgressMode::kNone;
  }
  return ResolveProgressMode(options.report.progress.value_or("auto"), screen.IsTerminal());
}

}  // namespace

HostSession::HostSession(Run& run, const Choices& choices, const OutputFile& output)
    : run_(run),
      module_(run.options.report.messages),
      reports_(run.options.report, run.secrets),
      target_(ResolveTarget(run.options.connection, run.secrets)),
      recording_(run.options.report, target_, run.secrets),
      connection_(target_, recording_.recorder().get()),
      services_(choices.settings, run.screen, reports_, recording_.recorder()),
      runner_(connection_, services_, ChooseProgress(run.options, run.screen), run.screen,
              reports_) {
  recording_.Begin(connection_);
  output.Check();
  if (!recording_.IsGood()) {
    throw Failure(ExitCode::kOutput, fmt::format("cannot write {}", recording_.name()));
  }
  if (!reports_.Check(run.screen)) {
    throw Failure(ExitCode::kOutput, "nothing was imported");
  }
}

void HostSession::Finish(Outcome& outcome) {
  if (!reports_.Check(run_.screen)) outcome.Add(ExitCode::kOutput);
  if (recording_.Finish()) return;
  run_.screen.SayError(fmt::format("cannot write {}", recording_.name()));
  outcome.Add(ExitCode::kOutput);
}

}  // namespace wbhost
