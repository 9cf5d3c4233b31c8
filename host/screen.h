// Standard error: messages, notes and the progress bar, which share its lines.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

#include "host/secrets.h"

namespace wbhost {

// Whether colours are wanted on the file: it is a terminal, and neither NO_COLOR nor TERM=dumb
// forbids them.
[[nodiscard]] bool WantsColour(int fd);

class Screen {
 public:
  explicit Screen(const Secrets& secrets);
  ~Screen() { ClearBar(); }
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  // From now on only errors are shown.
  void BeQuiet() { quiet_ = true; }
  // A line of the form `wbimport: text`. Secrets are scrubbed here, for every kind of line.
  void Say(std::string_view text);
  // The same in the colour of errors, where there are colours.
  void SayError(std::string_view text);
  // Draws the bar in place of the last one; it is not a line of its own.
  void ShowBar(std::string_view text);
  void ClearBar();
  [[nodiscard]] bool IsTerminal() const { return terminal_; }
  [[nodiscard]] int Width() const;  // in columns

 private:
  void WriteLine(std::string_view text, bool error);

  const Secrets& secrets_;
  const bool terminal_;
  const bool colour_;
  bool quiet_ = false;
  bool bar_shown_ = false;
};

}  // namespace wbhost
