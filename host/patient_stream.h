// A pipe, a terminal or a device that somebody else reads, slowly or not at all.
#pragma once

#include <memory>
#include <ostream>
#include <streambuf>
#include <string>

namespace wbhost {

// Waits as long as its reader takes for room; but where the run is cancelled and nothing was taken
// for half a second, it fails. The stream's state tells of failures, errno of the reason: ECANCELED
// for that one.
class PatientStream : public std::ostream {
 public:
  // The descriptor stays the caller's.
  explicit PatientStream(int fd) : std::ostream(nullptr), block_(fd) { rdbuf(&block_); }

 private:
  class Block : public std::streambuf {
   public:
    explicit Block(int fd);

   protected:
    int_type overflow(int_type character) override;
    int sync() override;

   private:
    bool Send();
    [[nodiscard]] bool WaitForRoom() const;

    int fd_;
    std::size_t step_;  // bytes of one write that does not wait once there is room
    std::unique_ptr<char[]> bytes_;
  };

  Block block_;
};

// Opens a device or a pipe for writing; waits for the reader of a pipe until the run is cancelled.
// Below zero, with the reason in errno, where that fails.
[[nodiscard]] int OpenPatiently(const std::string& path);

}  // namespace wbhost
