// How a run of the program ends: the exit codes, which of several counts, what is said of it, and
// the failure that ends a command early.
#pragma once

#include <map>
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
  kDifferences = 10  // a comparison found some
};
constexpr int kEndedAtOnce = 130;  // third interrupt: no way back, so no part of an Outcome

// The exit codes and what they mean, a line each, for a user.
[[nodiscard]] std::string ExitCodeHelp();

// Collects what happened in one run.
class Outcome {
 public:
  // `what` says what happened and `where` where to look further, both parts of a sentence in UTF-8.
  // Both stay empty where a line about it stands on the screen already. The first of several for
  // the same code counts.
  void Add(ExitCode code, const std::string& what = {}, const std::string& where = {});
  // The file that holds what was read, as the user wrote it.
  void SetWritten(const std::string& file) { written_ = file; }
  [[nodiscard]] bool Has(ExitCode code) const { return reasons_.count(code) != 0; }
  [[nodiscard]] bool IsOk() const { return reasons_.empty(); }
  // The code to end with: of several the first of 5, 6, 2, 4, 9, 1, 3, 10.
  [[nodiscard]] ExitCode Code() const;
  // The line about that code; empty where there is nothing to say.
  [[nodiscard]] std::string Line() const;

 private:
  struct Reason {
    std::string what;
    std::string where;
  };
  std::map<ExitCode, Reason> reasons_;
  std::string written_;
};

// Ends a command: a message for the user, one line of UTF-8, and the exit code that it means. A
// line break or a terminal's control character in `message`, which may quote a file, becomes a
// blank.
class Failure : public std::runtime_error {
 public:
  Failure(ExitCode code, const std::string& message)
      : std::runtime_error(OneLine(message)), code_(code) {}
  [[nodiscard]] ExitCode code() const { return code_; }

 private:
  ExitCode code_;
};

}  // namespace wbhost
