// `wbimport diff`: a workbook file against another one, or against the schema of a connection that
// is imported as the file was.
#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>

#include "compare/writer.h"
#include "host/commands.h"
#include "host/dialect_file.h"
#include "host/host_session.h"
#include "host/resolve_names.h"
#include "host/text.h"

namespace wbhost {
namespace {

// One side: what is compared, and what people call it.
struct Schema {
  std::unique_ptr<LcWorkbook> workbook = std::make_unique<LcWorkbook>();
  LcWorkbookFileInfo info;
  std::string label;
};

Schema ReadSchema(const std::string& file) {
  Schema schema;
  schema.label = file;
  // A folder opens like a file and throws when it is read.
  std::ifstream in;
  if (access(file.c_str(), R_OK) == 0) in.open(file, std::ios::binary);
  if (!in.is_open()) {
    throw Failure(ExitCode::kUsage, fmt::format("cannot read the workbook file {}", file));
  }
  std::string why;
  if (!ReadWorkbookFile(in, *schema.workbook, schema.info, why)) {
    throw Failure(ExitCode::kUsage, fmt::format("{} is no workbook file: {}", file, why));
  }
  return schema;
}

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

std::string LabelOf(const ConnectionOptions& options, const Connection& connection) {
  if (options.sqlite) return *options.sqlite;
  if (options.dsn) return "data source " + *options.dsn;
  if (options.sample) return "sample " + *options.sample;
  if (options.replay) return *options.replay;
  return connection.connect_text();
}

Schema ImportSchema(Run& run, const Schema& old_side, const OutputFile& output, Outcome& outcome) {
  // What is left out is left out of the comparison: the other side has it too.
  ChoiceOptions options = run.options.choices;
  options.exclude.clear();
  Choices choices = ReadChoices(options, ChoicesOf(old_side));
  TakeDialectFile(choices);
  HostSession session(run, choices, output);
  const std::uint32_t items = choices.ItemMask();
  ResolveNames(choices, items, std::nullopt, session.runner(), run.screen);
  choices.items = items;
  session.NoteChoices(choices);
  ImportResult result = session.runner().Run(choices.importer, items);
  result.info.choices = WriteRequest(choices);
  if (choices.reading == Choices::Reading::kExact && !result.why_not_exact.empty()) {
    run.screen.Say("the exact reading is not possible: " + result.why_not_exact);
  }
  session.runner().Judge(result, outcome);
  session.Finish(outcome);
  Schema schema;
  schema.workbook = std::move(result.workbook);
  schema.info = std::move(result.info);
  schema.label = LabelOf(run.options.connection, session.connection());
  return schema;
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
  const Schema after = run.options.diff.new_file ? ReadSchema(*run.options.diff.new_file)
                                                 : ImportSchema(run, before, output, outcome);
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
