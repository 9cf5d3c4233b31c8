// A connection to a real server, for making a schema and for asking the server itself what it
// holds.
#pragma once

#include <string>
#include <vector>

namespace real {

// Whether the driver manager knows a driver of that name.
bool IsDriverInstalled(const std::string& driver);

// Texts are UTF-8.
class Server {
 public:
  explicit Server(const std::string& connection_string);
  ~Server();
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  bool IsConnected() const { return connected_; }
  void* henv() const { return henv_; }
  void* hdbc() const { return hdbc_; }

  // Fails the test when the server refuses. Rows of texts, NULL as an empty one.
  std::vector<std::vector<std::string>> Query(const std::string& sql);
  void Run(const std::vector<std::string>& statements);

 private:
  void* henv_ = nullptr;
  void* hdbc_ = nullptr;
  bool connected_ = false;
};

}  // namespace real
