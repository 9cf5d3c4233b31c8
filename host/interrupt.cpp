// Interrupts of a run. The handlers touch nothing but the flags below and async-signal-safe calls.
#include "host/interrupt.h"

#include <unistd.h>

#include <array>
#include <atomic>
#include <climits>
#include <csignal>
#include <cstring>

#include "host/outcome.h"

namespace wbhost {
namespace {

std::atomic<int> interrupts{0};
std::atomic<bool> cancelled{false};
std::atomic<int> interrupts_allowed{2};
std::array<char, PATH_MAX> file_to_remove{};
std::atomic<bool> has_file_to_remove{false};
static_assert(std::atomic<int>::is_always_lock_free && std::atomic<bool>::is_always_lock_free);

void EndAtOnce() {
  if (has_file_to_remove) unlink(file_to_remove.data());
  _exit(kEndedAtOnce);
}

void OnInterrupt(int) {
  if (++interrupts > interrupts_allowed) EndAtOnce();
}

void OnTerminate(int) {
  if (interrupts_allowed == 0) EndAtOnce();
  cancelled = true;
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
  interrupts_allowed = graceful ? 2 : 0;
  Install(SIGINT, OnInterrupt);
  Install(SIGTERM, OnTerminate);
  Install(SIGHUP, OnTerminate);
  // A reader that goes away is an error of writing, which is reported as such.
  std::signal(SIGPIPE, SIG_IGN);
}

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

}  // namespace wbhost
