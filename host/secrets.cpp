// Passwords.
#include "host/secrets.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <iostream>

#include "base/connection_string.h"
#include "host/outcome.h"

namespace wbhost {
namespace {

constexpr std::string_view kHidden = "***";
constexpr std::size_t kShortSecret = 4;  // characters from which a secret is replaced anywhere

bool IsWordCharacter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' ||
         (static_cast<unsigned char>(c) & 0x80) != 0;
}

bool StandsAlone(std::string_view text, std::size_t at, std::size_t length) {
  const bool before = at > 0 && IsWordCharacter(text[at - 1]);
  const bool after = at + length < text.size() && IsWordCharacter(text[at + length]);
  return !before && !after;
}

void ReplaceSecret(std::string& text, const std::string& secret) {
  std::size_t at = 0;
  while ((at = text.find(secret, at)) != std::string::npos) {
    if (secret.size() < kShortSecret && !StandsAlone(text, at, secret.size())) {
      at += secret.size();
      continue;
    }
    text.replace(at, secret.size(), kHidden);
    at += kHidden.size();
  }
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
  if (secret.empty()) return;
  secrets_.push_back(secret);
  std::stable_sort(secrets_.begin(), secrets_.end(),
                   [](const std::string& a, const std::string& b) { return a.size() > b.size(); });
}

void Secrets::AddFrom(std::string_view connection_string) {
  for (const base::Attribute& attribute : base::ParseConnectionString(connection_string)) {
    if (!base::IsSecretKey(attribute.key)) continue;
    Add(std::string(attribute.value));
    Add(base::PlainValue(attribute.value));
  }
}

std::string Secrets::Scrub(std::string_view text) const {
  std::string clean(text);
  for (const std::string& secret : secrets_) ReplaceSecret(clean, secret);
  return base::MaskSecrets(clean);
}

void HideSecretArguments(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    const std::string_view argument = argv[i];
    for (const base::Attribute& attribute : base::ParseConnectionString(argument)) {
      // `--connect=PWD=x` has the option's name before the first key.
      std::string_view key = attribute.key;
      std::size_t at = attribute.value_at;
      std::size_t length = attribute.value.size();
      if (key.substr(0, 2) == "--") {
        const std::size_t equals = attribute.value.find('=');
        if (equals == std::string_view::npos) continue;
        key = attribute.value.substr(0, equals);
        at += equals + 1;
        length -= equals + 1;
      }
      if (base::IsSecretKey(key)) std::fill_n(argv[i] + at, length, '*');
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
