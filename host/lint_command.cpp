// `wbimport lint`: rules of good schemas, held to a workbook file or to the schema of a connection.
#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>

#include "host/commands.h"
#include "host/nearest.h"
#include "host/schema_source.h"
#include "host/text.h"
#include "lint/writer.h"

namespace wbhost {
namespace {

const wblint::RuleInfo* RuleOf(const std::string& word, const char* option) {
  if (const wblint::RuleInfo* rule = wblint::FindRule(word); rule != nullptr) return rule;
  throw Failure(ExitCode::kUsage, fmt::format("{}: there is no rule '{}'{}", option, word,
                                              DidYouMean(word, NamesOf(wblint::AllRules()))));
}

wblint::Options OptionsOf(const Options& given) {
  const LintOptions& lint = given.lint;
  wblint::Options options;
  const bool all = lint.only == std::vector<std::string>{"all"};
  for (const wblint::RuleInfo& rule : wblint::AllRules()) {
    if (all || (lint.only.empty() && rule.on)) options.rules.push_back(&rule);
  }
  for (const std::string& word : lint.only) {
    if (!all) options.rules.push_back(RuleOf(word, "--rules"));
  }
  for (const std::string& word : lint.more) options.rules.push_back(RuleOf(word, "--rule"));
  for (const std::string& word : lint.without) {
    std::erase(options.rules, RuleOf(word, "--no-rule"));
  }
  if (options.rules.empty()) {
    throw Failure(ExitCode::kUsage, "--rules, --rule and --no-rule leave no rule");
  }
  std::vector<NamePattern> patterns;
  for (const std::string& text : given.choices.exclude) {
    patterns.push_back(NamePattern::OfTable(text, "--exclude"));
  }
  if (patterns.empty()) return options;
  options.leaves_out = [patterns](std::u16string_view owner, std::u16string_view name) {
    return std::any_of(patterns.begin(), patterns.end(), [&](const NamePattern& pattern) {
      return pattern.Matches(owner, name, true);
    });
  };
  return options;
}

wblint::Severity FailsFrom(const LintOptions& options) {
  const std::string wanted = options.fail_on.value_or("any");
  return wanted == "error"     ? wblint::Severity::kError
         : wanted == "warning" ? wblint::Severity::kWarning
                               : wblint::Severity::kNote;
}

}  // namespace

void RunLint(Run& run, Outcome& outcome) {
  const OutputOptions& wanted = run.options.output;
  const wblint::Options options = OptionsOf(run.options);
  const OutputFile output(wanted.file);
  output.Check();
  const bool on_terminal = output.IsStandardOutput() && isatty(STDOUT_FILENO) != 0;
  const wblint::Format& format =
      wanted.format ? *wblint::FindFormat(*wanted.format) : wblint::DefaultFormat(on_terminal);
  const Schema schema = run.options.lint.file ? ReadSchema(*run.options.lint.file)
                                              : ImportSchema(run, Choices(), output, outcome);
  const wblint::Report report = wblint::Lint(*schema.workbook, schema.info, options);
  if (report.HasAtLeast(FailsFrom(run.options.lint))) outcome.Add(ExitCode::kDifferences);
  wblint::WriteOptions look;
  look.colour = output.IsStandardOutput() && WantsColour(STDOUT_FILENO);
  const bool written = output.Write([&](std::ostream& out) {
    format.write({*schema.workbook, schema.info, report, schema.label}, look, out);
    return true;
  });
  if (written && !output.IsStandardOutput()) outcome.SetWritten(wanted.file);
}

}  // namespace wbhost
