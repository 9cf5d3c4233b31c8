// A file that is written by a thread of its own, so that making what it holds and handing it to the
// system go on side by side. A small one costs no thread.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <ostream>
#include <streambuf>
#include <string>
#include <thread>

namespace wbhost {

class FileStream : public std::ostream {
 public:
  // The file is there, and written over from its beginning.
  explicit FileStream(const std::string& path);
  ~FileStream() override;
  FileStream(const FileStream&) = delete;
  FileStream& operator=(const FileStream&) = delete;

  // Writes what is left and waits until all of it is with the system. False, with the reason in
  // errno, where any of it could not be written.
  [[nodiscard]] bool Close();

 private:
  // Two blocks: one fills while the other is written.
  class Blocks : public std::streambuf {
   public:
    explicit Blocks(const std::string& path);
    ~Blocks() override;
    Blocks(const Blocks&) = delete;
    Blocks& operator=(const Blocks&) = delete;
    bool Close();

   protected:
    std::streamsize xsputn(const char* text, std::streamsize size) override;
    int_type overflow(int_type character) override;

   private:
    bool HandOver();
    void WriteBlocks();
    bool WriteAll(const std::string& block);

    int fd_;
    std::string filling_;
    std::size_t written_ = 0;  // bytes of the file that are with the system
    std::thread writer_;       // runs once the first block is full
    std::mutex mutex_;
    std::condition_variable changed_;
    std::string waiting_;  // empty: the writer has taken it
    bool ends_ = false;
    int error_ = 0;  // of the first write that failed
  };

  Blocks blocks_;
};

}  // namespace wbhost
