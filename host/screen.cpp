// Standard error.
#include "host/screen.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <iostream>

namespace wbhost {
namespace {

constexpr int kDefaultWidth = 80;
constexpr const char* kEraseLine = "\r\x1b[K";

}  // namespace

bool WantsColour(int fd) {
  if (isatty(fd) == 0) return false;
  const char* no_colour = std::getenv("NO_COLOR");
  if (no_colour != nullptr && *no_colour != '\0') return false;
  const char* terminal = std::getenv("TERM");
  return terminal == nullptr || std::string_view(terminal) != "dumb";
}

Screen::Screen(const Secrets& secrets)
    : secrets_(secrets),
      terminal_(isatty(STDERR_FILENO) != 0),
      colour_(WantsColour(STDERR_FILENO)) {}

void Screen::WriteLine(std::string_view text, bool error) {
  ClearBar();
  const std::string clean = secrets_.Scrub(text);
  const bool red = error && colour_;
  std::cerr << "wbimport: " << (red ? "\x1b[31m" : "") << clean << (red ? "\x1b[0m" : "") << '\n'
            << std::flush;
}

void Screen::Say(std::string_view text) {
  if (!quiet_) WriteLine(text, false);
}
void Screen::SayError(std::string_view text) { WriteLine(text, true); }

void Screen::ShowBar(std::string_view text) {
  std::cerr << kEraseLine << secrets_.Scrub(text) << std::flush;
  bar_shown_ = true;
}

void Screen::ClearBar() {
  if (!bar_shown_) return;
  std::cerr << kEraseLine << std::flush;
  bar_shown_ = false;
}

int Screen::Width() const {
  winsize size{};
  return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col
                                                                         : kDefaultWidth;
}

}  // namespace wbhost
