// See file_stream.h.
#include "host/file_stream.h"

#include <fcntl.h>
#include <pthread.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>

namespace wbhost {
namespace {

constexpr std::size_t kBlockBytes = std::size_t{1} << 20U;

}  // namespace

FileStream::FileStream(const std::string& path) : std::ostream(nullptr), blocks_(path) {
  rdbuf(&blocks_);
}

FileStream::~FileStream() = default;

bool FileStream::Close() {
  const bool closed = blocks_.Close();
  return closed && good();
}

FileStream::Blocks::Blocks(const std::string& path)
    : fd_(::open(path.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC)) {
  if (fd_ < 0) error_ = errno;
}

FileStream::Blocks::~Blocks() { Close(); }

bool FileStream::Blocks::Close() {
  if (writer_.joinable()) {
    {
      const std::lock_guard lock(mutex_);
      ends_ = true;
    }
    changed_.notify_all();
    writer_.join();
  }
  if (fd_ >= 0) {
    if (error_ == 0) WriteAll(filling_);
    filling_.clear();
    if (::close(fd_) != 0 && error_ == 0) error_ = errno;
    fd_ = -1;
  }
  errno = error_;
  return error_ == 0;
}

std::streamsize FileStream::Blocks::xsputn(const char* text, std::streamsize size) {
  std::streamsize taken = 0;
  while (taken < size) {
    if (filling_.size() >= kBlockBytes && !HandOver()) return taken;
    const auto room = static_cast<std::streamsize>(kBlockBytes - filling_.size());
    const std::streamsize piece = std::min(size - taken, room);
    filling_.append(text + taken, static_cast<std::size_t>(piece));
    taken += piece;
  }
  return taken;
}

FileStream::Blocks::int_type FileStream::Blocks::overflow(int_type character) {
  const char c = traits_type::to_char_type(character);
  return xsputn(&c, 1) == 1 ? character : traits_type::eof();
}

bool FileStream::Blocks::HandOver() {
  if (fd_ < 0) return false;
  if (!writer_.joinable()) {
    // Signals are for the thread that makes what is written.
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    writer_ = std::thread(&Blocks::WriteBlocks, this);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
  }
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return waiting_.empty(); });
  if (error_ != 0) return false;
  waiting_.swap(filling_);
  filling_.clear();
  lock.unlock();
  changed_.notify_all();
  return true;
}

void FileStream::Blocks::WriteBlocks() {
  std::string block;
  for (;;) {
    {
      std::unique_lock lock(mutex_);
      changed_.wait(lock, [this] { return ends_ || !waiting_.empty(); });
      if (waiting_.empty()) return;
      block.swap(waiting_);
      waiting_.clear();
    }
    changed_.notify_all();
    WriteAll(block);
  }
}

bool FileStream::Blocks::WriteAll(const std::string& block) {
  int error = 0;
  for (std::size_t at = 0; at < block.size() && error == 0;) {
    const ssize_t count = ::write(fd_, block.data() + at, block.size() - at);
    if (count >= 0) {
      at += static_cast<std::size_t>(count);
    } else if (errno != EINTR) {
      error = errno;
    }
  }
  // The disk may begin: what waits for the whole file later waits for less.
  if (error == 0) {
    sync_file_range(fd_, static_cast<off64_t>(written_), static_cast<off64_t>(block.size()),
                    SYNC_FILE_RANGE_WRITE);
    written_ += block.size();
    return true;
  }
  const std::lock_guard lock(mutex_);
  if (error_ == 0) error_ = error;
  return false;
}

}  // namespace wbhost
