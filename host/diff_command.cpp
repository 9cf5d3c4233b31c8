// `wbimport diff`: a workbook file against another one, or against the schema of a connection that
// is imported as the file was.
#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>

#include "compare/writer.h"
#include "host/commands.h"
#include "host/schema_source.h"
#include "host/text.h"

namespace wbhost {
namespace {

// The choices that made a file; those of one that does not tell are the usual ones, read the way
// that the file was.
Choices ChoicesOf(const Schema& old_side) {
  Choices choices;
  if (!old_side.info.choices.empty()) {
    choices = ParseRequest(old_side.info.choices, old_side.label + ", source.choices");
    choices.request = old_side.label;
  }
  choices.reading =
      old_side.info.route == u"exact" ? Choices::Reading::kExact : Choices::Reading::kCompatible;
  return choices;
}

// `OLD=NEW`, parted at the first sign outside of double quotes.
wbcompare::Options::Rename ParseRename(const std::string& text) {
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '"') quoted = !quoted;
    if (text[i] != '=' || quoted) continue;
    if (i == 0 || i + 1 == text.size()) break;
    return {text.substr(0, i), text.substr(i + 1)};
  }
  throw Failure(ExitCode::kUsage, fmt::format("--rename: '{}' is not OLD=NEW", text));
}

wbcompare::Options OptionsOf(const Options& given) {
  const DiffOptions& diff = given.diff;
  wbcompare::Options options;
  options.guess_renames = !diff.no_guess;
  options.server_names = diff.server_names;
  options.spellings = diff.spellings;
  for (const std::string& rename : diff.renames) options.renames.push_back(ParseRename(rename));
  for (const std::string& word : diff.ignore) {
    if (!wbcompare::IsIgnorable(word)) {
      throw Failure(ExitCode::kUsage, fmt::format("--ignore: there is no kind '{}'; there are {}",
                                                  word, wbcompare::IgnorableWords()));
    }
    options.ignore.push_back(word);
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
  // The part before the dot is the table's name here.
  options.leaves_out_part = [patterns](std::u16string_view table, std::u16string_view name) {
    return std::any_of(patterns.begin(), patterns.end(), [&](const NamePattern& pattern) {
      return pattern.HasOwner() && pattern.Matches(table, name, true);
    });
  };
  return options;
}

wbcompare::Severity FailsFrom(const DiffOptions& options) {
  const std::string wanted = options.fail_on.value_or("any");
  return wanted == "breaking"  ? wbcompare::Severity::kBreaking
         : wanted == "careful" ? wbcompare::Severity::kCareful
                               : wbcompare::Severity::kHarmless;
}

}  // namespace

void RunDiff(Run& run, Outcome& outcome) {
  const OutputOptions& wanted = run.options.output;
  const wbcompare::Options options = OptionsOf(run.options);
  const OutputFile output(wanted.file);
  output.Check();
  const bool on_terminal = output.IsStandardOutput() && isatty(STDOUT_FILENO) != 0;
  const wbcompare::Format* format =
      wbcompare::FindFormat(wanted.format.value_or(on_terminal ? "text" : "json"));
  const Schema before = ReadSchema(run.options.diff.old_file);
  const Schema after = run.options.diff.new_file
                           ? ReadSchema(*run.options.diff.new_file)
                           : ImportSchema(run, ChoicesOf(before), output, outcome);
  const wbcompare::Side old_side{*before.workbook, before.info};
  const wbcompare::Side new_side{*after.workbook, after.info};
  wbcompare::Comparison comparison;
  std::string why;
  if (!wbcompare::Compare(old_side, new_side, options, comparison, why)) {
    throw Failure(ExitCode::kUsage, why);
  }
  if (comparison.HasAtLeast(FailsFrom(run.options.diff))) outcome.Add(ExitCode::kDifferences);
  wbcompare::WriteOptions look;
  look.colour = output.IsStandardOutput() && WantsColour(STDOUT_FILENO);
  const bool written = output.Write([&](std::ostream& out) {
    format->write({old_side, new_side, comparison, before.label, after.label}, look, out);
    return true;
  });
  if (written && !output.IsStandardOutput()) outcome.SetWritten(wanted.file);
}

}  // namespace wbhost
