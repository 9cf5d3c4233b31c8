// Passwords.
#include "host/secrets.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>

#include "base/connection_string.h"
#include "base/secret_mask.h"
#include "host/outcome.h"

namespace wbhost {
namespace {

// The text behind `--name=`, where it begins with that.
std::string_view WithoutOptionName(std::string_view argument) {
  if (argument.substr(0, 2) != "--") return argument;
  return argument.substr(std::min(argument.find('='), argument.size() - 1) + 1);
}

// Switches echo off on a terminal for its lifetime.
class NoEcho {
 public:
  explicit NoEcho(int fd) : fd_(fd), active_(tcgetattr(fd, &saved_) == 0) {
    if (!active_) return;
    termios quiet = saved_;
    // An interrupt key must not end the program while the echo is off: it arrives as a character.
    quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO | ISIG);
    tcsetattr(fd_, TCSAFLUSH, &quiet);
  }
  ~NoEcho() {
    if (active_) tcsetattr(fd_, TCSAFLUSH, &saved_);
  }
  NoEcho(const NoEcho&) = delete;
  NoEcho& operator=(const NoEcho&) = delete;

 private:
  int fd_;
  termios saved_{};
  bool active_;
};

constexpr char kInterruptKey = 3;

std::string ReadLine(int fd) {
  std::string line;
  char c = 0;
  while (read(fd, &c, 1) == 1 && c != '\n') {
    line += c;
    if (c == kInterruptKey && isatty(fd) != 0) break;
  }
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return line;
}

std::string AskOn(int fd, const std::string& prompt) {
  std::string answer;
  {
    const NoEcho no_echo(fd);
    // A prompt that cannot be shown does not keep the answer from being read.
    [[maybe_unused]] ssize_t written = write(fd, prompt.data(), prompt.size());
    answer = ReadLine(fd);
    written = write(fd, "\n", 1);
  }
  if (!answer.empty() && answer.back() == kInterruptKey) std::exit(kEndedAtOnce);
  return answer;
}

}  // namespace

void Secrets::Add(const std::string& secret) {
  if (secret.find_first_not_of(' ') == std::string::npos) return;
  secrets_.push_back(secret);
  // Messages have blanks in place of line breaks.
  if (OneLine(secret) != secret) secrets_.push_back(OneLine(secret));
}

void Secrets::AddFrom(std::string_view connection_string) {
  const std::string_view text = WithoutOptionName(connection_string);
  for (const base::Attribute& attribute : base::ParseConnectionString(text)) {
    if (!base::IsSecretKey(attribute.key)) continue;
    Add(std::string(attribute.value));  // with its braces
    Add(base::PlainValue(attribute.value));
  }
}

std::string Secrets::Scrub(std::string_view text) const {
  return base::MaskSecrets(text, secrets_);
}

void HideSecretArguments(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    const std::string_view argument = argv[i];
    const std::string_view text = WithoutOptionName(argument);
    const std::size_t before = argument.size() - text.size();
    for (const base::Attribute& attribute : base::ParseConnectionString(text)) {
      if (!base::IsSecretKey(attribute.key)) continue;
      std::fill_n(argv[i] + before + attribute.value_at, attribute.value.size(), '*');
    }
  }
}

std::string PasswordFromEnvironment(const std::string& variable) {
  const char* value = std::getenv(variable.c_str());
  if (value == nullptr) {
    throw Failure(ExitCode::kUsage,
                  fmt::format("--password-env: the environment has no variable {}", variable));
  }
  return value;
}

std::string PasswordFromStandardInput() {
  if (isatty(STDIN_FILENO) != 0) return AskOn(STDIN_FILENO, "Password: ");
  return ReadLine(STDIN_FILENO);
}

std::string PasswordFromTerminal(const std::string& prompt) {
  const int fd = open("/dev/tty", O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (fd < 0) return {};
  std::string answer = AskOn(fd, prompt);
  close(fd);
  return answer;
}

}  // namespace wbhost
