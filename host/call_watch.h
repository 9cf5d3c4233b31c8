// Watches the driver's calls from a thread of its own, so that every wait has an end: a call that
// takes longer than it may, or that goes on after the user has cancelled, is cancelled at the
// driver and then left behind. The thread that is inside of it never comes back; what it had read
// is written by this one, and the process ends.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "host/connection.h"
#include "host/interrupt.h"
#include "host/outcome.h"
#include "platform/platform.h"

namespace wbhost {

class CallWatch : public platform::CallLog {
 public:
  // Called by the watch's thread once nothing else runs: `code` and `why` tell what ended the run.
  // Returns the exit code.
  using Abandon = std::function<int(ExitCode code, const std::string& why)>;

  // `behind`, which may be null, hears of every call too.
  CallWatch(Timeouts limits, std::shared_ptr<platform::CallLog> behind, Abandon abandon);
  ~CallWatch() override;
  CallWatch(const CallWatch&) = delete;
  CallWatch& operator=(const CallWatch&) = delete;

  void OnCallStart(const platform::DriverCall& call) override;
  void OnCall(const platform::DriverCall& call) override;
  void OnCallEnd(const platform::DriverCall& call) override;
  // Replaces what is done with a call that is left behind. Not while one is made.
  void SetAbandon(Abandon abandon);

 private:
  using Clock = std::chrono::steady_clock;
  enum class State : int { kOutside, kInCall, kCancelling, kTaken };
  struct Seen;

  void Watch();
  // Looks once; true when the run is to end.
  [[nodiscard]] bool Look(Seen& seen);
  [[nodiscard]] bool Take();
  // Has the call in hand cancelled at the driver; false where there is none any more.
  [[nodiscard]] bool Cancel();
  [[noreturn]] void End(ExitCode code, const std::string& why);

  const Timeouts limits_;
  const std::shared_ptr<platform::CallLog> behind_;
  std::mutex abandon_mutex_;
  Abandon abandon_;

  std::atomic<State> state_{State::kOutside};
  std::atomic<std::uint64_t> calls_{0};
  std::atomic<const char*> function_{""};
  std::atomic<void*> statement_{nullptr};  // of the call in hand; null: it is on the connection

  std::mutex mutex_;
  std::condition_variable ended_;
  bool ends_ = false;
  std::thread thread_;
};

}  // namespace wbhost
