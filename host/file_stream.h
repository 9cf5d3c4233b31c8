// A file that is written by a thread of its own, so that making what it holds and handing it to the
// system go on side by side. A small one costs no thread.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <memory>
#include <mutex>
#include <ostream>
#include <streambuf>
#include <string>
#include <thread>

namespace wbhost {

class FileStream : public std::ostream {
 public:
  // The file is there, and written over from its beginning. One that cannot be opened takes
  // nothing, which Close() tells.
  explicit FileStream(const std::string& path);
  ~FileStream() override;
  FileStream(const FileStream&) = delete;
  FileStream& operator=(const FileStream&) = delete;

  // Writes what is left and waits until all of it is with the system. False, with the reason in
  // errno, where any of it could not be written.
  [[nodiscard]] bool Close();

 private:
  // Two blocks: one fills while the other is written, by this thread where no other can be had.
  class Blocks : public std::streambuf {
   public:
    explicit Blocks(const std::string& path);
    ~Blocks() override;
    Blocks(const Blocks&) = delete;
    Blocks& operator=(const Blocks&) = delete;
    bool Close();

   protected:
    int_type overflow(int_type character) override;

   private:
    using Block = std::unique_ptr<char[]>;

    [[nodiscard]] std::size_t Filled() const { return static_cast<std::size_t>(pptr() - pbase()); }
    bool StartWriter();
    // Has the block that fills written, and makes room for another one. False once a write failed.
    bool HandOver();
    void WriteBlocks();
    // 0, or the reason in errno's terms.
    int Write(const char* bytes, std::size_t count);

    int fd_ = -1;
    Block filling_;
    std::size_t written_ = 0;  // bytes of the file that are with the system
    std::thread writer_;       // runs once the first block is full
    std::mutex mutex_;
    std::condition_variable changed_;
    Block waiting_;
    std::size_t waiting_bytes_ = 0;  // 0: all of it is written
    bool ends_ = false;
    int error_ = 0;  // of the first write that failed
  };

  Blocks blocks_;
};

}  // namespace wbhost
