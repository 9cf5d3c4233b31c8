// `wbimport compare-readings`: the schema of a connection is imported both ways, and what one
// reading has and the other has not is told.
#include <fmt/format.h>

#include "host/commands.h"
#include "host/comparison.h"
#include "host/dialect_file.h"
#include "host/host_session.h"
#include "host/resolve_names.h"

namespace wbhost {
namespace {

// The two ways of one server, the poorer one first.
struct TwoWays {
  struct Way {
    LeReading reading;
    bool generic;
    const char* name;
  };
  Way before;
  Way after;
};

using RouteKind = LcODBCWorkbookImport::RouteKind;

TwoWays WaysOf(const LcImportChoices& wanted, bool generic, HostSession& session) {
  const auto decide = [&](LeReading reading, bool by_catalog_functions) {
    LcImportChoices choices = wanted;
    choices.reading = reading;
    session.ReadGenerically(by_catalog_functions);
    return session.runner().DecideRoute(choices);
  };
  const auto exact = decide(rdExact, false);
  if (exact.route == RouteKind::kExact) {
    return {{rdCompatible, generic, "the compatible reading"},
            {rdExact, false, "the exact reading"}};
  }
  if (!generic && decide(rdCompatible, false).route != RouteKind::kODBC) {
    return {{rdCompatible, true, "the generic reading"},
            {rdCompatible, false, "the reading with SQL of its own"}};
  }
  throw Failure(ExitCode::kUsage,
                fmt::format("{} is read in one way only: {}",
                            exact.dbms_name.empty() ? "this server" : ToUtf8(exact.dbms_name),
                            exact.why_not_exact));
}

class Reader {
 public:
  Reader(Run& run, Choices& choices, HostSession& session, Outcome& outcome)
      : run_(run), choices_(choices), session_(session), outcome_(outcome) {}

  Schema Read(const TwoWays::Way& way) {
    choices_.importer.reading = way.reading;
    session_.ReadGenerically(way.generic);
    const std::uint32_t items = choices_.ItemMask();
    ImportResult result = session_.runner().Run(choices_.importer, items);
    const std::uint32_t shown = result.info.errors_shown;
    result.info.errors_shown -= errors_before_;
    errors_before_ = shown;
    result.info.choices = WriteRequest(choices_);
    RequireRecorded(way);
    session_.runner().Judge(result, outcome_);
    Schema schema;
    schema.workbook = std::move(result.workbook);
    schema.info = std::move(result.info);
    schema.label =
        fmt::format("{} of {}", way.name, LabelOf(run_.options.connection, session_.connection()));
    return schema;
  }

 private:
  void RequireRecorded(const TwoWays::Way& way) const {
    if (!run_.options.connection.replay || session_.connection().QuestionsNotHeld().first == 0)
      return;
    throw Failure(
        ExitCode::kUsage,
        fmt::format("{} does not hold {}: a recording made by compare-readings holds both",
                    *run_.options.connection.replay, way.name));
  }

  Run& run_;
  Choices& choices_;
  HostSession& session_;
  Outcome& outcome_;
  std::uint32_t errors_before_ = 0;
};

}  // namespace

void RunCompareReadings(Run& run, Outcome& outcome) {
  wbcompare::Options options = ComparisonOptions(run.options);
  options.guess_renames = false;  // both sides are of one moment
  const ComparisonSheet sheet(run.options.output);
  // What is left out is left out of the comparison.
  ChoiceOptions given = run.options.choices;
  given.exclude.clear();
  Choices choices = ReadChoices(given);
  TakeDialectFile(choices);
  HostSession session(run, choices, sheet.output());
  const TwoWays ways = WaysOf(choices.importer, run.options.choices.generic, session);
  if (!session.RepeatsChoices()) {
    ResolveNames(choices, choices.ItemMask(), std::nullopt, session.runner(), run.screen);
  }
  session.NoteChoices(choices);
  options.readings = wbcompare::Readings{ways.before.name, ways.after.name};
  Reader reader(run, choices, session, outcome);
  const Schema before = reader.Read(ways.before);
  const Schema after = reader.Read(ways.after);
  session.Finish(outcome);
  sheet.Write(before, after, options, wbcompare::Severity::kHarmless, outcome);
}

}  // namespace wbhost
