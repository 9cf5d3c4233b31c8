// Interrupts of a run. The handlers touch nothing but the flags below and async-signal-safe calls.
#include "host/interrupt.h"

#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstring>
#include <string_view>

#include "host/outcome.h"

namespace wbhost {
namespace {

std::atomic<int> interrupts{0};
std::atomic<bool> cancelled{false};
std::atomic<int> interrupts_allowed{2};
int most_interrupts_allowed = 2;  // set before the handlers are installed
std::atomic<int> terminal_to_restore{-1};
termios restored{};
std::array<char, PATH_MAX> file_to_remove{};
std::atomic<bool> has_file_to_remove{false};
bool on_terminal = false;  // set before the handlers are installed
static_assert(std::atomic<int>::is_always_lock_free && std::atomic<bool>::is_always_lock_free);

constexpr std::string_view kEraseLine = "\r\x1b[K";

void Write(std::string_view text) {
  // Nobody is left to tell when this fails.
  [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, text.data(), text.size());
}

// A line on standard error, in place of the bar where there may be one.
void Answer(std::string_view text) {
  if (on_terminal) Write(kEraseLine);
  Write("wbimport: ");
  Write(text);
  Write("\n");
}

void EndAtOnce() {
  if (has_file_to_remove) unlink(file_to_remove.data());
  if (terminal_to_restore >= 0) tcsetattr(terminal_to_restore, TCSANOW, &restored);
  Answer("ended at once");
  _exit(kEndedAtOnce);
}

// The answer comes from here, since the import may not come by for a while.
void OnInterrupt(int) {
  const int saved_errno = errno;
  const int count = ++interrupts;
  if (count > interrupts_allowed) EndAtOnce();
  Answer(count == 1 ? "stopping after the table in hand; again to cancel"
                    : "cancelling; again to end at once");
  errno = saved_errno;
}

void OnTerminate(int) {
  const int saved_errno = errno;
  if (interrupts_allowed == 0) EndAtOnce();
  cancelled = true;
  Answer("cancelling");
  errno = saved_errno;
}

void Install(int signal_number, void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  // A driver's blocking call goes on: the import ends at its next notification.
  action.sa_flags = SA_RESTART;
  sigaction(signal_number, &action, nullptr);
}

}  // namespace

void InstallInterruptHandlers(bool graceful) {
  most_interrupts_allowed = graceful ? 2 : 0;
  LookForInterrupts(false);
  on_terminal = isatty(STDERR_FILENO) != 0;
  Install(SIGINT, OnInterrupt);
  Install(SIGTERM, OnTerminate);
  Install(SIGHUP, OnTerminate);
}

void LookForInterrupts(bool looks) { interrupts_allowed = looks ? most_interrupts_allowed : 0; }

InterruptWish GetInterruptWish() {
  if (cancelled || interrupts >= 2) return InterruptWish::kCancel;
  return interrupts == 1 ? InterruptWish::kStop : InterruptWish::kNone;
}

void SetFileToRemove(const std::string& path) {
  has_file_to_remove = false;
  if (path.empty() || path.size() >= file_to_remove.size()) return;
  std::memcpy(file_to_remove.data(), path.c_str(), path.size() + 1);
  has_file_to_remove = true;
}

void SetTerminalToRestore(int fd, const termios& how) {
  terminal_to_restore = -1;
  restored = how;
  terminal_to_restore = fd;
}

}  // namespace wbhost
