// Passwords: where they come from, and keeping them out of everything that the program shows.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wbhost {

// The secrets of one run. Every text that leaves the program passes through Scrub.
class Secrets {
 public:
  // Empty texts are left out.
  void Add(const std::string& secret);
  // Adds every secret attribute of a connection string.
  void AddFrom(std::string_view connection_string);
  // The text with `***` in place of every secret and of the value of every attribute that looks
  // like a password, so that a driver's message may quote the whole connection string. A secret of
  // one to three characters is replaced only where it stands alone, since messages would become
  // unreadable otherwise.
  std::string Scrub(std::string_view text) const;

 private:
  std::vector<std::string> secrets_;  // the longest first
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
