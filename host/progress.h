// Shows how far an import is: a bar on a terminal, plain lines elsewhere.
#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "host/screen.h"
#include "importer/workbook/enums.h"

namespace wbhost {

enum class ProgressMode { kBar, kPlain, kNone };
// The mode for a name of --progress; `auto` is a bar where standard error is a terminal that can
// draw one, else plain lines.
ProgressMode ResolveProgressMode(const std::string& name, bool terminal);

// What a phase reads, for a user.
const char* PhaseName(enumImpItemType item_type);

// How far the phase in hand is.
struct ProgressState {
  const char* phase = "";
  std::uint32_t total = 0;  // 0: not known
  std::uint32_t done = 0;
  double seconds = 0;  // since the loop began
  std::string item;    // UTF-8; empty: none yet
};
// `34 of 100, 120/s, 0:03 left`, as far as it is known.
std::string DescribeProgress(const ProgressState& state);
// The bar of at most `width` columns.
std::string DrawBar(const ProgressState& state, int width);

class Progress {
 public:
  Progress(ProgressMode mode, Screen& screen);
  ~Progress() { screen_.ClearBar(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // Called for every notification of the import; `item` is what it names, empty for none.
  void Notify(enumImpNotify notify, enumImpItemType item_type, std::uint32_t count,
              const std::function<std::string()>& item);
  // The import is over: takes the bar away.
  void Finish();

 private:
  using Clock = std::chrono::steady_clock;
  void BeginPhase(const char* phase, std::uint32_t total);
  void Show(bool at_once, const std::function<std::string()>& item);

  const ProgressMode mode_;
  Screen& screen_;
  ProgressState state_;
  Clock::time_point loop_began_;
  Clock::time_point shown_at_;
};

}  // namespace wbhost
