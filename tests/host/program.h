// Runs the program as a process, as a user would.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/temporary.h"

namespace wbtest {

struct ProgramResult {
  int exit_code = -1;  // 128 + n when signal n ended it
  std::string out;
  std::string err;
};

struct ProgramCall {
  std::vector<std::string> arguments = {};
  std::vector<std::pair<std::string, std::string>> environment = {};  // beside the test's own
  std::string input = {};  // standard input; on a terminal typed as soon as `wait_for` has come
  // Standard input, output and error are one terminal; `err` stays empty.
  bool on_terminal = false;
  // Called once, with the process id, as soon as `wait_for` has come.
  std::string wait_for = {};
  std::function<void(int pid)> then = {};
};

// Runs `wbimport` with a configuration folder of its own and waits for its end.
ProgramResult RunProgram(const ProgramCall& call);
inline ProgramResult RunProgram(std::vector<std::string> arguments) {
  return RunProgram(ProgramCall{.arguments = std::move(arguments)});
}

std::string ProgramPath();

// The connection string of a practice server with further keywords.
std::string SimulatorString(const std::string& keywords);

// A SQLite file with what the statements make.
void MakeSqliteFile(const std::string& file, const std::string& sql);

std::string ReadFile(const std::string& file);

}  // namespace wbtest
