// What the commands with a connection have in common.
#include "host/host_session.h"

#include <fmt/format.h>

#include "base/secret_names.h"
#include "host/interrupt.h"

namespace wbhost {
namespace {

// A list of names is quickly read and often goes into a pipe: without a terminal it shows nothing
// unless asked.
ProgressMode ChooseProgress(const Options& options, const Screen& screen) {
  if (options.report.quiet) return ProgressMode::kNone;
  if (options.command != Command::kImport && !options.report.progress && !screen.IsTerminal()) {
    return ProgressMode::kNone;
  }
  return ResolveProgressMode(options.report.progress.value_or("auto"), screen.IsTerminal());
}

// A replay repeats the choices of the recorded run, unless the user has own ones.
bool Repeats(const ChoiceOptions& options, const std::optional<ReplayNotes>& notes) {
  return notes && notes->choices && options == ChoiceOptions();
}

Choices& Settle(Choices& choices, const ChoiceOptions& options,
                const std::optional<ReplayNotes>& notes) {
  if (Repeats(options, notes)) {
    choices = *notes->choices;
  } else if (notes && notes->choices) {
    if (!options.reading) {
      choices.reading = notes->choices->reading;
      choices.importer.reading = notes->choices->importer.reading;
    }
    if (!options.dialect) choices.importer.dialect = notes->choices->importer.dialect;
  }
  return choices;
}

Timeouts TimeoutsOf(const ConnectionOptions& options) {
  return {options.login_timeout, options.timeout};
}

Target FindTarget(Run& run) {
  const ConnectionOptions& options = run.options.connection;
  Target target = ResolveTarget(options, run.secrets);
  run.roles.AddConnection(target.connect_string);
  if (options.connect_in_arguments && Secrets().AddFrom(*options.connect)) {
    run.screen.Say(
        "a password in --connect stands in the process list for a moment: --connect-env, "
        "--connect-stdin, --password-env and --password-stdin keep it out");
  }
  // From here on there is who ends a wait: the watch of the calls, and then the import.
  LookForInterrupts(true);
  return target;
}

}  // namespace

bool IsSampleByDefault(const ConnectionOptions& options) {
  return !options.connect && !options.connect_env && !options.connect_stdin && !options.dsn &&
         !options.sqlite && !options.sample && !options.replay;
}

HostSession::HostSession(Run& run, Choices& choices, const OutputFile& output)
    : run_(run),
      progress_(ChooseProgress(run.options, run.screen)),
      module_(run.options.report.messages),
      reports_(run.options.report, run.secrets),
      target_(FindTarget(run)),
      recording_(run.options.report, target_, run.secrets),
      watch_(std::make_shared<CallWatch>(
          TimeoutsOf(run.options.connection), recording_.recorder(),
          [this](ExitCode code, const std::string& why) { return Abandon(code, why); })),
      connection_(target_, TimeoutsOf(run.options.connection), watch_.get()),
      notes_(ReplayNotes::Read(target_.recording)),
      repeats_choices_(Repeats(run.options.choices, notes_)),
      services_(Settle(choices, run.options.choices, notes_).settings, run.screen, reports_,
                recording_, notes_ ? &*notes_ : nullptr, watch_),
      runner_(connection_, services_, progress_, run.screen, reports_, recording_,
              notes_ ? &*notes_ : nullptr) {
  connected_ = true;
  runner_.AllowUnsafeNames(choices.unsafe_names);
  if (target_.recording.empty()) connection_.MakeReadOnly();
  base::Wipe(target_.connect_string);
  platform::ResultLimits& limits = platform::GetServices().result_limits;
  limits.rows = run.options.connection.result_rows.value_or(limits.rows);
  limits.bytes = run.options.connection.result_bytes.value_or(limits.bytes);
  // A file may be a pipe that nobody reads.
  LookForInterrupts(false);
  recording_.Begin(connection_);
  if (!module_.note().empty()) run.screen.Say(module_.note());
  if (IsSampleByDefault(run.options.connection)) {
    run.screen.Say("no connection is given: this is the sample database (--help tells how)");
  }
  output.Check();
  reports_.Open();
  if (!recording_.IsGood()) {
    throw Failure(ExitCode::kOutput, fmt::format("cannot write {}", recording_.name()));
  }
  if (!reports_.Check(run.screen)) {
    throw Failure(ExitCode::kOutput, "nothing was imported");
  }
  LookForInterrupts(true);
}

int HostSession::Abandon(ExitCode code, const std::string& why) {
  // A connection that does not close changes nothing any more.
  Outcome end;
  if (outcome_ == nullptr && !connected_) {
    end.Add(code, code == ExitCode::kConnection
                      ? fmt::format("cannot connect to {}: {}", target_.description, why)
                      : why + ", nothing was read");
  } else if (outcome_ == nullptr) {
    end.Add(code, why + (rest_ ? ": incomplete" : ": nothing is shown"),
            code == ExitCode::kConnection ? "--timeout SECONDS waits longer" : "");
    try {
      if (rest_) rest_(end);
    } catch (const Failure& failure) {
      run_.screen.SayError(failure.what());
      end.Add(failure.code());
    }
  }
  Outcome& outcome = outcome_ != nullptr ? *outcome_ : end;
  if (!outcome.Line().empty()) run_.screen.SayError(outcome.Line());
  return static_cast<int>(outcome.Code());
}

void HostSession::Finish(Outcome& outcome) {
  if (notes_) CheckReplay(outcome);
  if (!reports_.Check(run_.screen)) outcome.Add(ExitCode::kOutput);
  if (!recording_.Finish()) {
    run_.screen.SayError(fmt::format("cannot write {}", recording_.name()));
    outcome.Add(ExitCode::kOutput);
  }
  outcome_ = &outcome;
}

void HostSession::CheckReplay(Outcome& outcome) {
  if (!notes_->whole) {
    run_.screen.SayError(
        fmt::format("{} ends early: the recorded run did not come to its end", target_.recording));
  }
  const auto [count, first] = connection_.QuestionsNotHeld();
  if (count == 0) return;
  run_.screen.SayError(
      fmt::format("{} of the questions were not recorded; the first: {}", count, first));
  outcome.Add(ExitCode::kErrorsShown);
}

}  // namespace wbhost
