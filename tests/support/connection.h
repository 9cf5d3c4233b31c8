// Connections for tests, and stand-ins for the host's services that remember what they were asked.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/platform.h"

namespace wbtest {

// An open connection with its environment; closed at the end of its life. A test that cannot
// connect fails with the driver manager's reason.
class Connection {
 public:
  explicit Connection(const std::string& connect_string);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  // An SQLite database in memory that holds what the statements make.
  static std::unique_ptr<Connection> OpenSqlite(const std::vector<std::string>& statements);
  // One of the project's own servers, with further keywords such as "Fault=...".
  static std::unique_ptr<Connection> OpenSimulator(const std::string& server,
                                                   const std::string& keywords = "");

  void* henv() const { return henv_; }
  void* hdbc() const { return hdbc_; }
  void Execute(const std::string& sql);
  // A 32-bit answer of SQLGetInfo, such as those of the simulator's private interface.
  unsigned GetInfo(int info) const;
  // Sets a connection attribute to a number.
  void SetAttribute(int attribute, unsigned long value) const;

 private:
  void* henv_ = nullptr;
  void* hdbc_ = nullptr;
};

// Collects the message boxes that are shown during its life.
class MessageRecorder {
 public:
  MessageRecorder();
  ~MessageRecorder();
  MessageRecorder(const MessageRecorder&) = delete;
  MessageRecorder& operator=(const MessageRecorder&) = delete;

  struct Shown {
    std::string text;  // UTF-8
    int help_context;
  };
  const std::vector<Shown>& shown() const { return *shown_; }

 private:
  std::shared_ptr<std::vector<Shown>> shown_;
  std::shared_ptr<platform::MessageBox> before_;
};

// Collects the names of the driver calls that the module makes during its life.
class CallRecorder {
 public:
  CallRecorder();
  ~CallRecorder();
  CallRecorder(const CallRecorder&) = delete;
  CallRecorder& operator=(const CallRecorder&) = delete;

  int Count(const std::string& function) const;

 private:
  std::shared_ptr<std::vector<std::string>> calls_;
  std::shared_ptr<platform::CallLog> before_;
};

}  // namespace wbtest
