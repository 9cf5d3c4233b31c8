// Shows how far an import is: a bar on a terminal, plain lines where they are asked for.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "host/screen.h"
#include "importer/workbook/enums.h"
#include "importer/workbook/info.h"

namespace wbhost {

enum class ProgressMode { kBar, kPlain, kEnd, kNone };
// The mode for a name of --progress; `auto` is a bar where standard error is a terminal, lines
// where that cannot draw one, and elsewhere one line at the end, which is the caller's.
[[nodiscard]] ProgressMode ResolveProgressMode(const std::string& name, bool terminal);

// What a phase reads, for a user.
[[nodiscard]] const char* PhaseName(enumImpItemType item_type);

// How far an import is.
struct ProgressState {
  const char* phase = "";
  const char* unit = "";    // what is counted, with a blank before it; empty: not known
  std::uint32_t total = 0;  // 0: not known
  std::uint32_t done = 0;   // never more than a known total
  double rate = 0;          // done in a second; 0: not known
  double left = -1;  // seconds to the end of the import, by the phases so far; < 0: not known
  double share = 0;  // of the import's time that has passed, 0 to 1
  std::string item;  // UTF-8; empty: none yet
};
// `34 of 100 tables, 120/s, 0:03 left`, as far as it is known.
[[nodiscard]] std::string DescribeProgress(const ProgressState& state);
// The bar of at most `width` columns.
[[nodiscard]] std::string DrawBar(const ProgressState& state, int width);

// Tells from the notifications of an import how far it is. Times are seconds since it began.
class ProgressCount {
 public:
  // Which keys the import reads tells which phases follow its tables.
  ProgressCount(bool keys, bool foreign_keys) : keys_(keys), foreign_keys_(foreign_keys) {}
  // `record` is what the callback got.
  void Notify(enumImpNotify notify, const void* record, double now);
  [[nodiscard]] ProgressState State(double now) const;

 private:
  void Begin(enumImpItemType phase, double now);
  void EndLoop(double now);
  void CountItem(const LcImpItemInfo& item);
  [[nodiscard]] std::uint32_t Done() const;
  [[nodiscard]] int PhasesAhead() const;

  const bool keys_;
  const bool foreign_keys_;
  enumImpItemType phase_ = iiNone;
  double phase_began_ = 0;
  double loop_began_ = 0;
  double seconds_of_phases_ = 0;  // the long ones that have ended
  int phases_ = 0;
  std::uint32_t total_ = 0;
  std::uint32_t items_ = 0;  // of this loop
  std::uint32_t ended_ = 0;  // tables that the loop has said it is through with
  std::uint32_t names_ = 0;  // owners with names, one after the other
  bool of_columns_ = false;
  std::u16string owner_;
  std::u16string name_;
};

class Progress {
 public:
  Progress(ProgressMode mode, Screen& screen, bool keys, bool foreign_keys);
  ~Progress() { screen_.ClearBar(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // Called for every notification of the import; `record` is what the callback got.
  void Notify(enumImpNotify notify, const void* record);
  // The import is over: takes the bar away. Returns how many seconds it took.
  double Finish();

 private:
  using Clock = std::chrono::steady_clock;
  [[nodiscard]] double Seconds() const;

  const ProgressMode mode_;
  Screen& screen_;
  const Clock::time_point began_;
  ProgressCount count_;
  double share_ = 0;
  double shown_at_ = -1;
};

}  // namespace wbhost
