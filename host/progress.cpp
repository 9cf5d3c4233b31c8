// Shows how far an import is.
#include "host/progress.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "host/text.h"

namespace wbhost {
namespace {

using namespace std::chrono_literals;

constexpr auto kBarInterval = 100ms;  // between two drawings of the bar
constexpr auto kPlainInterval = 5s;   // between two lines about one loop
constexpr int kBarColumns = 20;
constexpr double kSecondsForRate = 0.5;  // a rate measured over less says nothing

std::string Minutes(double seconds) {
  const long whole = std::lround(seconds);
  return fmt::format("{}:{:02}", whole / 60, whole % 60);
}

}  // namespace

ProgressMode ResolveProgressMode(const std::string& name, bool terminal) {
  if (name == "bar") return ProgressMode::kBar;
  if (name == "plain") return ProgressMode::kPlain;
  if (name == "none") return ProgressMode::kNone;
  const char* kind = std::getenv("TERM");
  const bool can_draw = terminal && kind != nullptr && std::string_view(kind) != "dumb";
  return can_draw ? ProgressMode::kBar : ProgressMode::kPlain;
}

const char* PhaseName(enumImpItemType item_type) {
  switch (item_type) {
    case iiNone:
      break;
    case iiTablesAndViews:
      return "tables and views";
    case iiPrimaryKeys:
      return "primary keys";
    case iiForeignKeys:
      return "foreign keys";
    case iiOwnerNames:
      return "owner names";
    case iiDataTypes:
      return "data types";
    case iiTableNames:
      return "table names";
    case iiSynonymNames:
      return "synonym names";
    case iiColumnNames:
      return "column names";
    case iiOperators:
      return "operators";
    case iiBooleanFunctions:
      return "boolean functions";
    case iiGeneralFunctions:
      return "functions";
    case iiAggregates:
      return "aggregates";
    case iiLocalSynonyms:
      return "local synonyms";
    case iiProcedures:
      return "procedures";
    case iiRemoteSynonyms:
      return "remote synonyms";
  }
  return "import";
}

std::string DescribeProgress(const ProgressState& state) {
  std::string text = state.total > 0 ? fmt::format("{} of {}", state.done, state.total)
                                     : fmt::format("{}", state.done);
  if (state.seconds < kSecondsForRate || state.done == 0) return text;
  const double rate = state.done / state.seconds;
  text += rate < 10 ? fmt::format(", {:.1f}/s", rate) : fmt::format(", {:.0f}/s", rate);
  // A route can report more items than it announced.
  if (state.total > state.done) text += ", " + Minutes((state.total - state.done) / rate) + " left";
  return text;
}

std::string DrawBar(const ProgressState& state, int width) {
  std::string bar;
  if (state.total > 0) {
    const auto filled = static_cast<std::size_t>(
        kBarColumns * static_cast<double>(std::min(state.done, state.total)) / state.total);
    bar = "[" + std::string(filled, '#') + std::string(kBarColumns - filled, '.') + "] ";
  }
  bar += state.phase;
  if (state.total > 0 || state.done > 0) bar += " " + DescribeProgress(state);
  if (!state.item.empty()) bar += "  " + state.item;
  // The last column would wrap on some terminals. Wide characters are not told apart: the bar may
  // then be longer than the terminal, which costs looks only.
  return std::string(base::FirstCodePoints(OneLine(bar), width - 1));
}

Progress::Progress(ProgressMode mode, Screen& screen) : mode_(mode), screen_(screen) {}

void Progress::BeginPhase(const char* phase, std::uint32_t total) {
  state_ = {};
  state_.phase = phase;
  state_.total = total;
  loop_began_ = Clock::now();
}

void Progress::Notify(enumImpNotify notify, enumImpItemType item_type, std::uint32_t count,
                      const std::function<std::string()>& item) {
  if (mode_ == ProgressMode::kNone) return;
  switch (notify) {
    case inPhaseStart:
      BeginPhase(PhaseName(item_type), 0);
      return Show(true, item);
    case inLoopStart:
      BeginPhase(PhaseName(item_type), count);
      return Show(true, item);
    case inTableItem:
    case inProcedureItem:
    case inFunctionItem:
    case inSystemFunctionItem:
      ++state_.done;
      return Show(false, item);
    default:
      return;
  }
}

void Progress::Show(bool at_once, const std::function<std::string()>& item) {
  const Clock::time_point now = Clock::now();
  const Clock::duration interval =
      mode_ == ProgressMode::kBar ? Clock::duration(kBarInterval) : Clock::duration(kPlainInterval);
  if (!at_once && now - shown_at_ < interval) return;
  shown_at_ = now;
  state_.seconds = std::chrono::duration<double>(now - loop_began_).count();
  if (mode_ == ProgressMode::kBar) {
    state_.item = item ? item() : std::string();
    screen_.ShowBar(DrawBar(state_, screen_.Width()));
  } else if (state_.done == 0) {
    screen_.Say(state_.total == 0 ? fmt::format("reading {}", state_.phase)
                                  : fmt::format("reading {}: {}", state_.phase, state_.total));
  } else {
    screen_.Say(fmt::format("reading {}: {}", state_.phase, DescribeProgress(state_)));
  }
}

void Progress::Finish() { screen_.ClearBar(); }

}  // namespace wbhost
