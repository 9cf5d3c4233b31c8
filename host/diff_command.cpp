// `wbimport diff`: a workbook file against another one, or against the schema of a connection that
// is imported as the file was.
#include <fmt/format.h>

#include "host/commands.h"
#include "host/comparison.h"
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
    // Only who runs the program can allow that, not a file that may be somebody else's.
    choices.unsafe_names = false;
  }
  choices.reading =
      old_side.info.route == u"exact" ? Choices::Reading::kExact : Choices::Reading::kCompatible;
  return choices;
}

wbcompare::Severity FailsFrom(const DiffOptions& options) {
  const std::string wanted = options.fail_on.value_or("any");
  return wanted == "breaking"  ? wbcompare::Severity::kBreaking
         : wanted == "careful" ? wbcompare::Severity::kCareful
                               : wbcompare::Severity::kHarmless;
}

}  // namespace

void RunDiff(Run& run, Outcome& outcome) {
  const wbcompare::Options options = ComparisonOptions(run.options);
  const ComparisonSheet sheet(run.options.output);
  const Schema before = ReadSchema(run.options.diff.old_file);
  const Schema after = run.options.diff.new_file
                           ? ReadSchema(*run.options.diff.new_file)
                           : ImportSchema(run, ChoicesOf(before), sheet.output(), outcome);
  sheet.Write(before, after, options, FailsFrom(run.options.diff), outcome);
}

}  // namespace wbhost
