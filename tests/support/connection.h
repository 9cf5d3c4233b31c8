// Connections for tests, and stand-ins for the host's services that remember what they were asked.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/platform.h"
#include "tests/support/temporary.h"

namespace wbtest {

// An open connection with its environment; closed at the end of its life. A test that cannot
// connect fails with the driver manager's reason.
class Connection {
 public:
  explicit Connection(const std::string& connect_string, unsigned long odbc_version = 2);
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
  // The rows of a statement that has to succeed; NULL is "<null>".
  std::vector<std::vector<std::string>> Execute(const std::string& sql) const;
  // A 32-bit answer of SQLGetInfo, such as those of the simulator's private interface.
  unsigned GetInfo(int info) const;
  // Sets a connection attribute to a number.
  void SetAttribute(int attribute, unsigned long value) const;

 private:
  void* henv_ = nullptr;
  void* hdbc_ = nullptr;
  bool connected_ = false;
};

// Collects the message boxes that are shown during its life.
class MessageRecorder {
 public:
  struct Shown {
    std::string text;  // UTF-8
    int help_context;
  };
  const std::vector<Shown>& shown() const { return box_->shown; }

 private:
  struct Box : platform::MessageBox {
    void Show(const std::u16string& text, int help_context) override;
    std::vector<Shown> shown;
  };
  std::shared_ptr<Box> box_ = std::make_shared<Box>();
  ScopedService<platform::MessageBox> scope_{platform::GetServices().message_box, box_};
};

// Collects the names of the driver calls that the module makes during its life.
class CallRecorder {
 public:
  int Count(const std::string& function) const;

 private:
  struct Log : platform::CallLog {
    void OnCall(const platform::DriverCall& call) override;
    std::vector<std::string> calls;
  };
  std::shared_ptr<Log> log_ = std::make_shared<Log>();
  ScopedService<platform::CallLog> scope_{platform::GetServices().call_log, log_};
};

}  // namespace wbtest
