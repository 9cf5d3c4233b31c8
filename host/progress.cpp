// Shows how far an import is.
#include "host/progress.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "host/text.h"

namespace wbhost {
namespace {

constexpr double kBarInterval = 0.1;  // seconds between two drawings of the bar
constexpr double kPlainInterval = 5;  // seconds between two lines about one loop
constexpr int kBarColumns = 20;
constexpr double kSecondsForRate = 0.5;  // a rate measured over less says nothing

// The phases that go through the tables or what they have.
bool IsLong(enumImpItemType phase) {
  return phase == iiTablesAndViews || phase == iiPrimaryKeys || phase == iiForeignKeys;
}

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
  if (!terminal) return ProgressMode::kEnd;
  return kind != nullptr && std::string_view(kind) != "dumb" ? ProgressMode::kBar
                                                             : ProgressMode::kPlain;
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

void ProgressCount::Notify(enumImpNotify notify, const void* record, double now) {
  switch (notify) {
    case inPhaseStart:
      return Begin(static_cast<const LcImpProgStartInfo*>(record)->item_type, now);
    case inLoopStart: {
      const auto* start = static_cast<const LcImpProgStartInfo*>(record);
      if (start->item_type != phase_) Begin(start->item_type, now);
      total_ = static_cast<std::uint32_t>(start->count);
      loop_began_ = now;
      return;
    }
    case inLoopEnd:
      return EndLoop(now);
    case inTableItem:
    case inProcedureItem:
    case inFunctionItem:
    case inSystemFunctionItem:
      return CountItem(*static_cast<const LcImpItemInfo*>(record));
    case inItemDone:
      ++ended_;
      return;
    default:
      return;
  }
}

void ProgressCount::Begin(enumImpItemType phase, double now) {
  if (IsLong(phase_)) {
    seconds_of_phases_ += now - phase_began_;
    ++phases_;
  }
  phase_ = phase;
  phase_began_ = now;
  loop_began_ = now;
  total_ = 0;
  items_ = 0;
  ended_ = 0;
  names_ = 0;
  of_columns_ = false;
  owner_.clear();
  name_.clear();
}

// A route may ask for the next keys without a word: the phase that has begun is told from the one
// that ended. A loop that ended its tables one by one has read their primary keys with them.
void ProgressCount::EndLoop(double now) {
  const bool keys_are_read = phase_ == iiPrimaryKeys || ended_ > 0 || !keys_;
  if (phase_ != iiTablesAndViews && phase_ != iiPrimaryKeys) return Begin(iiNone, now);
  Begin(!keys_are_read ? iiPrimaryKeys : foreign_keys_ ? iiForeignKeys : iiNone, now);
}

void ProgressCount::CountItem(const LcImpItemInfo& item) {
  ++items_;
  of_columns_ = of_columns_ || !item.text3.empty();
  if (names_ > 0 && item.text1 == owner_ && item.text2 == name_) return;
  ++names_;
  owner_ = item.text1;
  name_ = item.text2;
}

// A loop announces tables and then tells of every column and of every table's end; or it announces
// the rows that it has, and tells of each. Which of both it is shows at the second table.
std::uint32_t ProgressCount::Done() const {
  const std::uint32_t done = ended_ > 0 ? ended_ : names_ > 1 ? items_ - 1 : 0;
  return total_ > 0 ? std::min(done, total_) : done;
}

ProgressState ProgressCount::State(double now) const {
  ProgressState state;
  state.phase = PhaseName(phase_);
  state.total = total_;
  state.done = Done();
  state.unit = ended_ > 0 ? " tables" : state.done > 0 && of_columns_ ? " columns" : "";
  state.item = names_ > 0 ? DisplayName(owner_, name_) : std::string();
  const double loop_seconds = now - loop_began_;
  const double phase_seconds = now - phase_began_;
  double phase_left = -1;
  if (state.done > 0 && loop_seconds >= kSecondsForRate) {
    state.rate = state.done / loop_seconds;
    if (total_ > 0) phase_left = (total_ - state.done) / state.rate;
  } else if (phases_ > 0 && IsLong(phase_)) {
    phase_left = std::max(0.0, seconds_of_phases_ / phases_ - phase_seconds);
  }
  if (phase_left < 0) return state;
  // The phases that follow take as long as those so far, this one among them.
  const double mean = (seconds_of_phases_ + phase_seconds + phase_left) / (phases_ + 1);
  state.left = phase_left + mean * PhasesAhead();
  state.share = now > 0 ? now / (now + state.left) : 0;
  // How long a phase takes that has counted nothing is a guess: no more is behind than its part.
  const double part = static_cast<double>(phases_) / (phases_ + 1 + PhasesAhead());
  if (state.rate <= 0) state.share = std::min(state.share, part);
  return state;
}

int ProgressCount::PhasesAhead() const {
  if (phase_ == iiPrimaryKeys) return foreign_keys_ ? 1 : 0;
  if (phase_ != iiTablesAndViews) return 0;
  return (keys_ && ended_ == 0 ? 1 : 0) + (foreign_keys_ ? 1 : 0);
}

std::string DescribeProgress(const ProgressState& state) {
  std::string text = state.total > 0
                         ? fmt::format("{} of {}{}", state.done, state.total, state.unit)
                         : fmt::format("{}{}", state.done, state.unit);
  if (state.rate > 0) {
    text += state.rate < 10 ? fmt::format(", {:.1f}/s", state.rate)
                            : fmt::format(", {:.0f}/s", state.rate);
  }
  if (state.left >= 0) text += ", " + Minutes(state.left) + " left";
  return text;
}

std::string DrawBar(const ProgressState& state, int width) {
  const auto filled = static_cast<std::size_t>(kBarColumns * std::clamp(state.share, 0.0, 1.0));
  std::string bar = "[" + std::string(filled, '#') + std::string(kBarColumns - filled, '.') + "] ";
  bar += state.phase;
  if (state.total > 0 || state.done > 0) bar += " " + DescribeProgress(state);
  if (!state.item.empty()) bar += "  " + state.item;
  // The last column would wrap on some terminals. Wide characters are not told apart: the bar may
  // then be longer than the terminal, which costs looks only.
  return std::string(base::FirstCodePoints(OneLine(bar), width - 1));
}

Progress::Progress(ProgressMode mode, Screen& screen, bool keys, bool foreign_keys)
    : mode_(mode), screen_(screen), began_(Clock::now()), count_(keys, foreign_keys) {}

double Progress::Seconds() const {
  return std::chrono::duration<double>(Clock::now() - began_).count();
}

void Progress::Notify(enumImpNotify notify, const void* record) {
  if (mode_ != ProgressMode::kBar && mode_ != ProgressMode::kPlain) return;
  const double now = Seconds();
  count_.Notify(notify, record, now);
  const bool begins = notify == inPhaseStart || notify == inLoopStart;
  const double interval = mode_ == ProgressMode::kBar ? kBarInterval : kPlainInterval;
  if (!begins && now - shown_at_ < interval) return;
  ProgressState state = count_.State(now);
  if (mode_ == ProgressMode::kBar) {
    // An estimate may grow, the bar does not shrink.
    share_ = std::max(share_, state.share);
    state.share = share_;
    screen_.ShowBar(DrawBar(state, screen_.Width()));
  } else if (state.done > 0) {
    screen_.Say(fmt::format("reading {}: {}", state.phase, DescribeProgress(state)));
  } else if (begins) {
    screen_.Say(state.total == 0 ? fmt::format("reading {}", state.phase)
                                 : fmt::format("reading {}: {}", state.phase, state.total));
  }
  shown_at_ = now;
}

double Progress::Finish() {
  screen_.ClearBar();
  return Seconds();
}

}  // namespace wbhost
