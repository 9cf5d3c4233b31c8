// See comparison.h.
#include "host/comparison.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>

#include "host/name_pattern.h"
#include "host/screen.h"

namespace wbhost {
namespace {

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

}  // namespace

wbcompare::Options ComparisonOptions(const Options& given) {
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

ComparisonSheet::ComparisonSheet(const OutputOptions& options)
    : output_(options.file),
      format_(options.format ? *wbcompare::FindFormat(*options.format)
                             : wbcompare::DefaultFormat(output_.IsStandardOutput() &&
                                                        isatty(STDOUT_FILENO) != 0)) {
  output_.Check();
}

void ComparisonSheet::Write(const Schema& before, const Schema& after,
                            const wbcompare::Options& options, wbcompare::Severity fails_from,
                            Outcome& outcome) const {
  const wbcompare::Side old_side{*before.workbook, before.info};
  const wbcompare::Side new_side{*after.workbook, after.info};
  wbcompare::Comparison comparison;
  std::string why;
  if (!wbcompare::Compare(old_side, new_side, options, comparison, why)) {
    throw Failure(ExitCode::kUsage, why);
  }
  if (comparison.HasAtLeast(fails_from)) outcome.Add(ExitCode::kDifferences);
  wbcompare::WriteOptions look;
  look.colour = output_.IsStandardOutput() && WantsColour(STDOUT_FILENO);
  const bool written = output_.Write([&](std::ostream& out) {
    format_.write({old_side, new_side, comparison, before.label, after.label}, look, out);
    return true;
  });
  if (written && !output_.IsStandardOutput()) outcome.SetWritten(output_.name());
}

}  // namespace wbhost
