// How a run of the program ends: the exit codes, which of several counts, and the failure that ends
// a command early.
#pragma once

#include <stdexcept>
#include <string>

#include "host/text.h"

namespace wbhost {

enum class ExitCode {
  kOk = 0,
  kImportFalse = 1,  // the import returned false
  kUsage = 2,        // wrong usage, a bad request file, an unreadable workbook file
  kErrorsShown = 3,  // the import returned true, but database errors were shown
  kCancelled = 4,    // second interrupt, or SIGTERM
  kConnection = 5,   // no connection, no driver, the connection lost, the module did not start
  kOutput = 6,       // the output could not be written
  kStopped = 9,      // first interrupt
};
constexpr int kEndedAtOnce = 130;  // third interrupt: no way back, so no part of an Outcome

// Collects what happened in one run.
class Outcome {
 public:
  void Add(ExitCode code);
  bool Has(ExitCode code) const { return (seen_ & Bit(code)) != 0; }
  bool IsOk() const { return seen_ == 0; }
  // The code to end with: of several the first of 5, 6, 2, 4, 9, 1, 3.
  ExitCode Code() const;

 private:
  static unsigned Bit(ExitCode code) { return 1u << static_cast<unsigned>(code); }
  unsigned seen_ = 0;
};

// Ends a command: a message for the user, one line of UTF-8, and the exit code that it means. A
// line break or a terminal's control character in `message`, which may quote a file, becomes a
// blank.
class Failure : public std::runtime_error {
 public:
  Failure(ExitCode code, const std::string& message)
      : std::runtime_error(OneLine(message)), code_(code) {}
  ExitCode code() const { return code_; }

 private:
  ExitCode code_;
};

}  // namespace wbhost
