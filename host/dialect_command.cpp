// `wbimport dialects`: the dialects of the exact reading, listed, printed and tried out.
#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "host/answer_format.h"
#include "host/commands.h"
#include "host/dialect_file.h"
#include "host/host_session.h"
#include "importer/dialects.h"

namespace wbhost {
namespace {

using Json = nlohmann::ordered_json;

void Write(const Run& run, const std::string& text) {
  const OutputFile output(run.options.output.file);
  output.Check();
  output.WriteText(text);
}

bool WantsJson(const Run& run) { return AnswerFormatOf(run.options.output) == AnswerFormat::kJson; }

std::string Dump(const Json& json) {
  return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

void ListDialects(Run& run) {
  std::string text;
  Json json = Json::array();
  for (const LcDialect& dialect : OdbcImportDialects()) {
    text += fmt::format("{:<20}{}\n", dialect.name, dialect.product);
    json.push_back({{"name", dialect.name}, {"product", dialect.product}});
  }
  Write(run, WantsJson(run) ? Dump(json) : text);
}

void ShowDialect(Run& run) {
  const std::string& name = run.options.dialect_operand;
  std::string known;
  for (const LcDialect& dialect : OdbcImportDialects()) {
    if (dialect.name == name) return Write(run, dialect.file);
    known += (known.empty() ? "" : ", ") + dialect.name;
  }
  throw Failure(ExitCode::kUsage,
                fmt::format("there is no dialect '{}'; there are {}", name, known));
}

// Everything that is wrong with the file; true: nothing.
bool SayProblems(Run& run, const std::string& file, const std::string& text) {
  const std::vector<LcDialectProblem> problems = OdbcImportCheckDialect(text);
  for (const LcDialectProblem& problem : problems) {
    run.screen.SayError(fmt::format("{}:{}: {}", file, problem.line, problem.text));
  }
  return problems.empty();
}

std::string OutcomeOf(const LcSectionCheck& check) {
  if (!check.problem.empty()) return check.problem;
  return check.ran ? fmt::format("{} row{}", check.rows, check.rows == 1 ? "" : "s") : "not tried";
}

void CheckDialect(Run& run, Outcome& outcome) {
  const std::string& file = run.options.dialect_operand;
  const std::string text = ReadDialectFile(file);
  if (!SayProblems(run, file, text)) return outcome.Add(ExitCode::kUsage);
  if (IsSampleByDefault(run.options.connection)) {
    return Write(run, WantsJson(run)
                          ? Dump(Json::array())
                          : "the file is right; with a connection its statements are run\n");
  }
  const OutputFile output(run.options.output.file);
  Choices choices;
  choices.importer.reading = rdCompatible;
  HostSession session(run, choices, output);
  std::string why;
  const std::vector<LcSectionCheck> checks =
      OdbcImportTryDialect(text, session.connection().henv(), session.connection().hdbc(), why);
  if (checks.empty()) {
    run.screen.SayError(fmt::format("{}: {}", file, why));
    outcome.Add(ExitCode::kErrorsShown);
  }
  std::string lines;
  Json json = Json::array();
  std::size_t bad = 0;
  for (const LcSectionCheck& check : checks) {
    lines += fmt::format("{:>5}  @{:<18} {}\n", check.line, check.kind, OneLine(OutcomeOf(check)));
    json.push_back({{"line", check.line},
                    {"kind", check.kind},
                    {"ran", check.ran},
                    {"rows", check.rows},
                    {"problem", check.problem}});
    bad += check.problem.empty() ? 0 : 1;
  }
  if (bad > 0) {
    outcome.Add(ExitCode::kErrorsShown,
                fmt::format("{} of {} statements failed, or give other columns than they say", bad,
                            checks.size()));
  }
  session.Finish(outcome);
  Write(run, WantsJson(run) ? Dump(json) : lines);
}

}  // namespace

void RunDialects(Run& run, Outcome& outcome) {
  const std::string& action = run.options.dialect_action;
  if (action == "list") return ListDialects(run);
  if (run.options.dialect_operand.empty()) {
    throw Failure(ExitCode::kUsage,
                  action == "show" ? "dialects show takes a NAME" : "dialects check takes a FILE");
  }
  if (action == "show") return ShowDialect(run);
  CheckDialect(run, outcome);
}

}  // namespace wbhost
