// Runs the program as a process.
#include "tests/host/program.h"

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace wbtest {
namespace {

struct Pipe {
  int ends[2] = {-1, -1};
  Pipe() {
    if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  }
};

[[noreturn]] void Execute(const ProgramCall& call) {
  static const TemporaryFolder no_configuration;
  setenv("XDG_CONFIG_HOME", no_configuration.path().c_str(), 1);
  setenv("XDG_CONFIG_DIRS", no_configuration.path().c_str(), 1);
  setenv("TERM", "xterm", 1);
  for (const auto& [name, value] : call.environment) setenv(name.c_str(), value.c_str(), 1);
  std::vector<std::string> words = {ProgramPath()};
  words.insert(words.end(), call.arguments.begin(), call.arguments.end());
  std::vector<char*> argv;
  argv.reserve(words.size() + 1);
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);
  execv(argv[0], argv.data());
  _exit(127);
}

// Appends what can be read; false at the end of the stream.
bool Drain(int fd, std::string& text) {
  std::array<char, 4096> buffer{};
  const ssize_t count = read(fd, buffer.data(), buffer.size());
  if (count <= 0) return false;  // a terminal whose program has ended gives an error
  text.append(buffer.data(), static_cast<std::size_t>(count));
  return true;
}

void Collect(const ProgramCall& call, int pid, int out_fd, int err_fd, ProgramResult& result) {
  bool acted = !call.then;
  bool out_open = true;
  bool err_open = err_fd >= 0;
  while (out_open || err_open) {
    std::array<pollfd, 2> streams = {
        {{out_open ? out_fd : -1, POLLIN, 0}, {err_open ? err_fd : -1, POLLIN, 0}}};
    poll(streams.data(), streams.size(), -1);
    if (streams[0].revents != 0) out_open = Drain(out_fd, result.out);
    if (streams[1].revents != 0) err_open = Drain(err_fd, result.err);
    if (!acted && (result.err + result.out).find(call.wait_for) != std::string::npos) {
      acted = true;
      call.then(pid);
    }
  }
}

int WaitFor(int pid) {
  int status = 0;
  waitpid(pid, &status, 0);
  return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

ProgramResult RunOnTerminal(const ProgramCall& call) {
  ProgramResult result;
  int terminal = -1;
  const int pid = forkpty(&terminal, nullptr, nullptr, nullptr);
  if (pid == 0) Execute(call);
  ProgramCall typing = call;
  typing.then = [&](int) {
    [[maybe_unused]] const ssize_t written = write(terminal, call.input.data(), call.input.size());
  };
  Collect(typing, pid, terminal, -1, result);
  close(terminal);
  result.exit_code = WaitFor(pid);
  return result;
}

}  // namespace

ProgramResult RunProgram(const ProgramCall& call) {
  if (call.on_terminal) return RunOnTerminal(call);
  std::signal(SIGPIPE, SIG_IGN);
  ProgramResult result;
  const Pipe in;
  const Pipe out;
  const Pipe err;
  const int pid = fork();
  if (pid == 0) {
    std::signal(SIGPIPE, SIG_DFL);
    dup2(in.ends[0], STDIN_FILENO);
    dup2(out.ends[1], STDOUT_FILENO);
    dup2(err.ends[1], STDERR_FILENO);
    Execute(call);
  }
  close(in.ends[0]);
  close(out.ends[1]);
  close(err.ends[1]);
  // A pipe holds more than any input of the tests.
  [[maybe_unused]] const ssize_t written = write(in.ends[1], call.input.data(), call.input.size());
  close(in.ends[1]);
  Collect(call, pid, out.ends[0], err.ends[0], result);
  close(out.ends[0]);
  close(err.ends[0]);
  result.exit_code = WaitFor(pid);
  return result;
}

std::string ProgramPath() { return WB_BUILD_DIR "/host/wbimport"; }

std::string SimulatorString(const std::string& keywords) {
  return "Driver=" WB_BUILD_DIR "/lib/libcatalogsim.so;" + keywords;
}

void MakeSqliteFile(const std::string& file, const std::string& sql) {
  sqlite3* database = nullptr;
  sqlite3_open(file.c_str(), &database);
  char* why = nullptr;
  const bool made = sqlite3_exec(database, sql.c_str(), nullptr, nullptr, &why) == SQLITE_OK;
  sqlite3_close(database);
  if (!made) throw std::runtime_error(why);
}

std::string ReadFile(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace wbtest
