// Passwords: where they come from, and keeping them out of everything that the program shows.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wbhost {

// The secrets of one run. Every text that leaves the program passes through Scrub.
class Secrets {
 public:
  // A text without anything but blanks is left out.
  void Add(const std::string& secret);
  // Adds every secret attribute of a connection string, which may stand behind `--name=`.
  void AddFrom(std::string_view connection_string);
  // The text for people, without any secret: MaskSecrets. A driver's message may quote the whole
  // connection string.
  std::string Scrub(std::string_view text) const;

 private:
  std::vector<std::string> secrets_;
};

// Overwrites the secrets in the arguments of connection strings with asterisks, in the memory that
// the process list shows. Copy the arguments first.
void HideSecretArguments(int argc, char** argv);

// Each returns the password or throws a Failure.
std::string PasswordFromEnvironment(const std::string& variable);
std::string PasswordFromStandardInput();  // one line; asked for without echo on a terminal
// Asks on the terminal without echo. Empty when there is no terminal.
std::string PasswordFromTerminal(const std::string& prompt);

}  // namespace wbhost
