// See file_stream.h.
#include "host/file_stream.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <new>
#include <system_error>

#include "host/signals_held.h"

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
    : filling_(std::make_unique_for_overwrite<char[]>(kBlockBytes)),
      waiting_(std::make_unique_for_overwrite<char[]>(kBlockBytes)) {
  fd_ = ::open(path.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC);
  if (fd_ < 0) {
    error_ = errno;
    return;
  }
  setp(filling_.get(), filling_.get() + kBlockBytes);
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
    if (error_ == 0) error_ = Write(filling_.get(), Filled());
    setp(nullptr, nullptr);
    if (::close(fd_) != 0 && error_ == 0) error_ = errno;
    fd_ = -1;
  }
  errno = error_;
  return error_ == 0;
}

FileStream::Blocks::int_type FileStream::Blocks::overflow(int_type character) {
  if (fd_ < 0 || !HandOver()) return traits_type::eof();
  setp(filling_.get(), filling_.get() + kBlockBytes);
  if (!traits_type::eq_int_type(character, traits_type::eof())) {
    *pptr() = traits_type::to_char_type(character);
    pbump(1);
  }
  return traits_type::not_eof(character);
}

bool FileStream::Blocks::StartWriter() {
  if (writer_.joinable()) return true;
  try {
    const SignalsHeld held;
    writer_ = std::thread(&Blocks::WriteBlocks, this);
    return true;
  } catch (const std::system_error&) {
    return false;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

bool FileStream::Blocks::HandOver() {
  if (!StartWriter()) {
    if (error_ == 0) error_ = Write(filling_.get(), Filled());
    return error_ == 0;
  }
  {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return waiting_bytes_ == 0; });
    if (error_ != 0) return false;
    waiting_.swap(filling_);
    waiting_bytes_ = Filled();
  }
  changed_.notify_all();
  return true;
}

void FileStream::Blocks::WriteBlocks() {
  std::unique_lock lock(mutex_);
  for (;;) {
    changed_.wait(lock, [this] { return ends_ || waiting_bytes_ > 0; });
    if (waiting_bytes_ == 0) return;
    const std::size_t count = waiting_bytes_;
    // The block is this thread's until it says that it is written.
    lock.unlock();
    const int error = Write(waiting_.get(), count);
    lock.lock();
    if (error_ == 0) error_ = error;
    waiting_bytes_ = 0;
    changed_.notify_all();
  }
}

int FileStream::Blocks::Write(const char* bytes, std::size_t count) {
  for (std::size_t at = 0; at < count;) {
    const ssize_t written = ::write(fd_, bytes + at, count - at);
    if (written > 0) {
      at += static_cast<std::size_t>(written);
    } else if (written == 0) {
      return EIO;  // a file system that takes nothing would be asked for ever
    } else if (errno != EINTR) {
      return errno;
    }
  }
  // The disk may begin: what waits for the whole file later waits for less.
  sync_file_range(fd_, static_cast<off64_t>(written_), static_cast<off64_t>(count),
                  SYNC_FILE_RANGE_WRITE);
  written_ += count;
  return 0;
}

}  // namespace wbhost
