// No signal is handed to the thread while this is there, nor, ever, to a thread that it starts
// meanwhile: signals are for the thread that does what the user waits for.
#pragma once

#include <csignal>

namespace wbhost {

class SignalsHeld {
 public:
  SignalsHeld() {
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before_);
  }
  ~SignalsHeld() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
  SignalsHeld(const SignalsHeld&) = delete;
  SignalsHeld& operator=(const SignalsHeld&) = delete;

 private:
  sigset_t before_{};
};

}  // namespace wbhost
