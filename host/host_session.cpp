// What the commands with a connection have in common.
#include "host/host_session.h"

#include "host/interrupt.h"

namespace wbhost {

HostSession::HostSession(Run& run, const Choices& choices, const OutputFile& output)
    : run_(run),
      module_(run.options.report.messages),
      reports_(run.options.report, run.secrets),
      connection_(ResolveTarget(run.options.connection, run.secrets)),
      services_(choices.settings, run.screen, reports_),
      runner_(connection_, services_,
              ResolveProgressMode(run.options.report.progress.value_or("auto"),
                                  run.screen.IsTerminal()),
              run.screen, reports_) {
  output.Check();
  if (!reports_.Check(run.screen)) {
    throw Failure(ExitCode::kOutput, "nothing was imported");
  }
}

void HostSession::Finish(Outcome& outcome) {
  if (!reports_.Check(run_.screen)) outcome.Add(ExitCode::kOutput);
}

}  // namespace wbhost
