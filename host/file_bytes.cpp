// See file_bytes.h.
#include "host/file_bytes.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>

namespace wbhost {
namespace {

constexpr std::size_t kPieceBytes = std::size_t{64} * 1024;

}  // namespace

FileBytes::FileBytes(int fd, std::uintmax_t most) : fd_(fd), most_(most), piece_(kPieceBytes) {}

FileBytes::~FileBytes() {
  if (fd_ > STDERR_FILENO) close(fd_);
}

FileBytes::int_type FileBytes::underflow() {
  ssize_t count = 0;
  do {
    count = read(fd_, piece_.data(), piece_.size());
  } while (count < 0 && errno == EINTR);
  if (count < 0) Fail(std::strerror(errno));
  bytes_ += static_cast<std::uintmax_t>(count);
  if (bytes_ > most_) Fail(fmt::format("it has more than {} bytes", most_));
  if (count == 0) return traits_type::eof();
  setg(piece_.data(), piece_.data(), piece_.data() + count);
  return traits_type::to_int_type(*gptr());
}

void FileBytes::Fail(const std::string& why) {
  failed_ = true;
  throw std::runtime_error(why);
}

}  // namespace wbhost
