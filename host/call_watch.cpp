// See call_watch.h.
#include "host/call_watch.h"

#include <fmt/format.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <iostream>
#include <string_view>
#include <system_error>
#include <utility>

#include "host/connection.h"
#include "host/signals_held.h"

namespace wbhost {

using std::chrono::milliseconds;

namespace {

constexpr milliseconds kLookEvery{25};
// After the user has cancelled: until the call is cancelled at the driver, and until it is left.
constexpr milliseconds kUntilCancel{150};
constexpr milliseconds kUntilLeft{500};
// How long a cancelled call may take to come back, and a connection to close.
constexpr milliseconds kToComeBack{300};
constexpr milliseconds kToDisconnect{2000};

}  // namespace

// What the thread has seen so far.
struct CallWatch::Seen {
  std::uint64_t call = 0;
  Clock::time_point since{};   // when the call in hand was seen first
  Clock::time_point wished{};  // when the user's wish to cancel was seen first
  bool wish = false;
  bool cancelled = false;  // at the driver
  ExitCode code = ExitCode::kOk;
  std::string why;
};

CallWatch::CallWatch(Timeouts limits, std::shared_ptr<platform::CallLog> behind, Abandon abandon)
    : limits_(limits), behind_(std::move(behind)), abandon_(std::move(abandon)) {
  const SignalsHeld held;
  thread_ = std::thread(&CallWatch::Watch, this);
}

CallWatch::~CallWatch() {
  {
    const std::lock_guard lock(mutex_);
    ends_ = true;
  }
  ended_.notify_one();
  thread_.join();
}

void CallWatch::OnCallStart(const platform::DriverCall& call) {
  function_.store(call.function, std::memory_order_relaxed);
  statement_.store(call.on_statement ? call.handle : nullptr, std::memory_order_relaxed);
  calls_.fetch_add(1, std::memory_order_relaxed);
  State outside = State::kOutside;
  state_.compare_exchange_strong(outside, State::kInCall, std::memory_order_acq_rel);
}

void CallWatch::OnCall(const platform::DriverCall& call) {
  OnCallEnd(call);
  if (behind_ != nullptr) behind_->OnCall(call);
}

void CallWatch::OnCallEnd(const platform::DriverCall& /*call*/) {
  for (;;) {
    State state = State::kInCall;
    if (state_.compare_exchange_strong(state, State::kOutside, std::memory_order_acq_rel) ||
        state == State::kOutside) {
      return;
    }
    // Taken: the other thread writes what this one has read, and ends the process.
    while (state == State::kTaken) pause();
    // Being cancelled: the statement has to stay until that has ended.
    std::this_thread::sleep_for(milliseconds(1));
  }
}

void CallWatch::SetAbandon(Abandon abandon) {
  const std::lock_guard lock(abandon_mutex_);
  abandon_ = std::move(abandon);
}

bool CallWatch::Take() {
  State state = state_.load(std::memory_order_acquire);
  return (state == State::kInCall || state == State::kCancelling) &&
         state_.compare_exchange_strong(state, State::kTaken, std::memory_order_acq_rel);
}

bool CallWatch::Cancel() {
  State state = State::kInCall;
  if (!state_.compare_exchange_strong(state, State::kCancelling, std::memory_order_acq_rel)) {
    return false;
  }
  const auto end = [this] {
    State cancelling = State::kCancelling;
    state_.compare_exchange_strong(cancelling, State::kInCall, std::memory_order_acq_rel);
  };
  void* const statement = statement_.load(std::memory_order_relaxed);
  if (statement == nullptr) {
    end();
    return true;
  }
  // ODBC allows this call, and this one alone, from another thread while the statement is busy. A
  // driver may ask the server, which may not answer: nobody waits for it.
  try {
    std::thread([statement, end] {
      CancelStatement(statement);
      end();
    }).detach();
  } catch (const std::system_error&) {
    end();
  }
  return true;
}

bool CallWatch::Look(Seen& seen) {
  const Clock::time_point now = Clock::now();
  const std::uint64_t call = calls_.load(std::memory_order_relaxed);
  const State state = state_.load(std::memory_order_acquire);
  const bool in_call = state == State::kInCall || state == State::kCancelling;
  if (call != seen.call || !in_call) {
    seen.call = call;
    seen.since = now;
  }
  if (!seen.wish && GetInterruptWish() == InterruptWish::kCancel) {
    seen.wish = true;
    seen.wished = now;
  }
  const std::string_view function = function_.load(std::memory_order_relaxed);
  const auto in_hand = now - seen.since;
  milliseconds limit = std::chrono::seconds(limits_.call);
  if (function == "SQLDriverConnectW") limit = std::chrono::seconds(limits_.login);
  if (function == "SQLDisconnect") limit = kToDisconnect;
  if (seen.code == ExitCode::kOk && seen.wish && now - seen.wished >= kUntilLeft) {
    seen.code = ExitCode::kCancelled;
    seen.why = "cancelled";
  }
  if (seen.code == ExitCode::kOk && in_call && limit.count() > 0 && in_hand >= limit) {
    seen.code = ExitCode::kConnection;
    seen.why = fmt::format("no answer to {} in {} s", function, limit.count() / 1000);
  }
  const bool cancels =
      (seen.wish && now - seen.wished >= kUntilCancel) || seen.code != ExitCode::kOk;
  if (cancels && in_call && !seen.cancelled) {
    seen.cancelled = Cancel();
    return false;
  }
  return seen.code == ExitCode::kCancelled ||
         (seen.code != ExitCode::kOk && (!in_call || in_hand >= limit + kToComeBack));
}

void CallWatch::Watch() {
  Seen seen;
  std::unique_lock lock(mutex_);
  while (!ended_.wait_for(lock, kLookEvery, [this] { return ends_; })) {
    if (!Look(seen)) continue;
    // The thread that imports is between calls now and then: the next one is waited for.
    for (int tries = 0; tries < 1000; ++tries) {
      if (Take()) End(seen.code, seen.why);
      std::this_thread::yield();
    }
  }
}

void CallWatch::End(ExitCode code, const std::string& why) {
  int exit_code = static_cast<int>(code);
  try {
    const std::lock_guard lock(abandon_mutex_);
    exit_code = abandon_(code, why);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "wbimport: %s\n", error.what());
  }
  std::cout.flush();
  std::cerr.flush();
  _exit(exit_code);
}

}  // namespace wbhost
