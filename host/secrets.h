// Passwords: where they come from, and keeping them out of everything that the program shows.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wbhost {

// The secrets of one run. Every text that leaves the program passes through Scrub.
class Secrets {
 public:
  Secrets() = default;
  ~Secrets();  // wipes them
  Secrets(const Secrets&) = delete;
  Secrets& operator=(const Secrets&) = delete;
  // Adds what stands behind an option that is named like a secret: nobody has one, but many try.
  void AddFromArguments(const std::vector<std::string>& arguments);
  // A text without anything but blanks is left out. While there is a secret, the process leaves no
  // core dump.
  void Add(const std::string& secret);
  // Adds every secret of a connection string, which may stand behind `--name=`. Whether there was
  // one.
  bool AddFrom(std::string_view connection_string);
  // The text for people, without any secret: MaskSecrets. A driver's message may quote the whole
  // connection string.
  [[nodiscard]] std::string Scrub(std::string_view text) const;

 private:
  std::vector<std::string> secrets_;
};

// Overwrites the secrets in the arguments with asterisks, in the memory that the process list
// shows. Copy the arguments first.
void HideSecretArguments(int argc, char** argv);

// Each returns the password or throws a Failure.
[[nodiscard]] std::string SecretFromEnvironment(const std::string& variable, const char* option);
// One line; asked for without echo on a terminal.
[[nodiscard]] std::string SecretFromStandardInput(const std::string& prompt);
// Asks on the terminal without echo. Empty when there is no terminal.
[[nodiscard]] std::string PasswordFromTerminal(const std::string& prompt);

}  // namespace wbhost
