// Passwords.
#include "host/secrets.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "base/connection_string.h"
#include "base/secret_mask.h"
#include "base/secret_names.h"
#include "host/interrupt.h"
#include "host/limits.h"
#include "host/outcome.h"

namespace wbhost {
namespace {

// The text behind `--name=`, where it begins with that.
std::string_view WithoutOptionName(std::string_view argument) {
  if (argument.substr(0, 2) != "--") return argument;
  return argument.substr(std::min(argument.find('='), argument.size() - 1) + 1);
}

// `--password`, `--password=x`: an option that is named like a secret, but for those that tell
// where one comes from.
bool IsSecretOption(std::string_view argument) {
  if (argument.substr(0, 2) != "--") return false;
  const std::string_view name = argument.substr(2, argument.find('=') - 2);
  const bool has_where = name.ends_with("-env") || name.ends_with("-stdin");
  return !has_where && base::IsSecretKey(name);
}

// The limit alone is not enough where the system pipes core dumps into a program.
void ForbidCoreDumps() {
  const rlimit none{0, 0};
  setrlimit(RLIMIT_CORE, &none);
  prctl(PR_SET_DUMPABLE, 0);
}

// Switches echo off on a terminal for its lifetime.
class NoEcho {
 public:
  explicit NoEcho(int fd) : fd_(fd), active_(tcgetattr(fd, &saved_) == 0) {
    if (!active_) return;
    termios quiet = saved_;
    // An interrupt key must not end the program while the echo is off: it arrives as a character.
    quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO | ISIG);
    SetTerminalToRestore(fd_, saved_);
    tcsetattr(fd_, TCSAFLUSH, &quiet);
  }
  ~NoEcho() {
    if (!active_) return;
    tcsetattr(fd_, TCSAFLUSH, &saved_);
    SetTerminalToRestore(-1, saved_);
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
    if (line.size() >= kMostSecretBytes) {
      throw Failure(ExitCode::kUsage,
                    fmt::format("a secret of more than {} bytes is not taken", kMostSecretBytes));
    }
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

Secrets::~Secrets() {
  for (std::string& secret : secrets_) base::Wipe(secret);
}

void Secrets::Add(const std::string& secret) {
  if (secret.find_first_not_of(' ') == std::string::npos) return;
  if (secrets_.empty()) ForbidCoreDumps();
  secrets_.push_back(secret);
  // Messages have blanks in place of line breaks.
  if (OneLine(secret) != secret) secrets_.push_back(OneLine(secret));
}

bool Secrets::AddFrom(std::string_view connection_string) {
  const std::size_t before = secrets_.size();
  const std::string_view text = WithoutOptionName(connection_string);
  for (const base::Attribute& attribute : base::ParseConnectionString(text)) {
    if (base::IsSecretKey(attribute.key)) {
      Add(std::string(attribute.value));  // with its braces
      Add(base::PlainValue(attribute.value));
    }
    for (const std::string_view secret : base::SecretsWithin(attribute.value)) {
      Add(std::string(secret));
    }
  }
  return secrets_.size() != before;
}

void Secrets::AddFromArguments(const std::vector<std::string>& arguments) {
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    AddFrom(arguments[i]);
    if (!IsSecretOption(arguments[i])) continue;
    const std::size_t equals = arguments[i].find('=');
    if (equals != std::string::npos) Add(arguments[i].substr(equals + 1));
    if (equals == std::string::npos && i + 1 < arguments.size()) Add(arguments[i + 1]);
  }
}

std::string Secrets::Scrub(std::string_view text) const {
  return base::MaskSecrets(text, secrets_);
}

void HideSecretArguments(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    const std::string_view argument = argv[i];
    const std::string_view text = WithoutOptionName(argument);
    char* const begin = argv[i] + (argument.size() - text.size());
    const auto hide = [&](std::string_view secret) {
      std::fill_n(begin + (secret.data() - text.data()), secret.size(), '*');
    };
    for (const base::Attribute& attribute : base::ParseConnectionString(text)) {
      if (base::IsSecretKey(attribute.key)) hide(attribute.value);
      for (const std::string_view secret : base::SecretsWithin(attribute.value)) hide(secret);
    }
    if (!IsSecretOption(argument)) continue;
    if (argument.find('=') != std::string_view::npos) {
      hide(text);
    } else if (i + 1 < argc) {
      std::fill_n(argv[i + 1], std::strlen(argv[i + 1]), '*');
    }
  }
}

std::string SecretFromEnvironment(const std::string& variable, const char* option) {
  const char* value = std::getenv(variable.c_str());
  if (value == nullptr) {
    throw Failure(ExitCode::kUsage,
                  fmt::format("{}: the environment has no variable {}", option, variable));
  }
  return value;
}

std::string SecretFromStandardInput(const std::string& prompt) {
  if (isatty(STDIN_FILENO) != 0) return AskOn(STDIN_FILENO, prompt);
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
