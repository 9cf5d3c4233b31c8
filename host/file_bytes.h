// The bytes of an open file as they come, up to a limit.
#pragma once

#include <cstdint>
#include <streambuf>
#include <string>
#include <vector>

namespace wbhost {

// What cannot be read, and a file that has more than `most` bytes, throws an std::runtime_error
// with the reason as a part of a sentence.
class FileBytes : public std::streambuf {
 public:
  // Takes the descriptor; standard input stays open.
  FileBytes(int fd, std::uintmax_t most);
  ~FileBytes() override;
  FileBytes(const FileBytes&) = delete;
  FileBytes& operator=(const FileBytes&) = delete;

  // Whether it threw.
  [[nodiscard]] bool HasFailed() const { return failed_; }

 protected:
  int_type underflow() override;

 private:
  [[noreturn]] void Fail(const std::string& why);

  int fd_;
  std::uintmax_t most_;
  std::vector<char> piece_;
  std::uintmax_t bytes_ = 0;
  bool failed_ = false;
};

}  // namespace wbhost
