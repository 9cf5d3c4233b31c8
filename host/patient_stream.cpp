// See patient_stream.h.
#include "host/patient_stream.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <climits>
#include <thread>

#include "host/interrupt.h"

namespace wbhost {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t kBlockBytes = std::size_t{64} << 10U;
constexpr std::chrono::milliseconds kLook{50};
constexpr std::chrono::milliseconds kMostStalled{500};

bool IsCancelled() { return GetInterruptWish() == InterruptWish::kCancel; }

bool IsFile(int fd) {
  struct stat status {};
  return fstat(fd, &status) == 0 && S_ISREG(status.st_mode);
}

}  // namespace

PatientStream::Block::Block(int fd)
    : fd_(fd),
      step_(IsFile(fd) ? kBlockBytes : PIPE_BUF),
      bytes_(std::make_unique_for_overwrite<char[]>(kBlockBytes)) {
  setp(bytes_.get(), bytes_.get() + kBlockBytes);
}

PatientStream::Block::int_type PatientStream::Block::overflow(int_type character) {
  if (!Send()) return traits_type::eof();
  if (!traits_type::eq_int_type(character, traits_type::eof())) {
    *pptr() = traits_type::to_char_type(character);
    pbump(1);
  }
  return traits_type::not_eof(character);
}

int PatientStream::Block::sync() { return Send() ? 0 : -1; }

bool PatientStream::Block::Send() {
  for (const char* at = pbase(); at < pptr();) {
    if (!WaitForRoom()) return false;
    const ssize_t written = ::write(fd_, at, std::min<std::size_t>(step_, pptr() - at));
    if (written < 0 && errno != EINTR && errno != EAGAIN) return false;
    if (written > 0) at += written;
  }
  setp(bytes_.get(), bytes_.get() + kBlockBytes);
  return true;
}

bool PatientStream::Block::WaitForRoom() const {
  const auto begin = Clock::now();
  for (;;) {
    pollfd end{fd_, POLLOUT, 0};
    // What is wrong with the descriptor, write() says.
    if (poll(&end, 1, static_cast<int>(kLook.count())) > 0) return true;
    if (IsCancelled() && Clock::now() - begin >= kMostStalled) {
      errno = ECANCELED;
      return false;
    }
  }
}

int OpenPatiently(const std::string& path) {
  struct stat status {};
  const bool is_pipe = stat(path.c_str(), &status) == 0 && S_ISFIFO(status.st_mode);
  for (;;) {
    const int fd = open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY | (is_pipe ? O_NONBLOCK : 0));
    if (fd >= 0 || !is_pipe || errno != ENXIO) return fd;
    if (IsCancelled()) {
      errno = ECANCELED;
      return -1;
    }
    std::this_thread::sleep_for(kLook);
  }
}

}  // namespace wbhost
