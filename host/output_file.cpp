// Where a command's answer goes.
#include "host/output_file.h"

#include <fmt/format.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "host/interrupt.h"
#include "host/outcome.h"

namespace wbhost {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(const std::string& name, int error) {
  throw Failure(ExitCode::kOutput,
                fmt::format("cannot write {}: {}", name,
                            error != 0 ? std::strerror(error) : "the device gives no reason"));
}

// Whether the other end of a pipe was closed: `wbimport ... | head`.
bool IsReaderGone(int fd) {
  pollfd end{fd, POLLOUT, 0};
  return poll(&end, 1, 0) == 1 && (end.revents & POLLERR) != 0;
}

// The permissions of a file that is replaced, or those that a new file gets.
mode_t ModeFor(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) == 0) return status.st_mode & 07777;
  const mode_t mask = umask(0);
  umask(mask);
  return 0666 & ~mask;
}

// A temporary file in the folder of the target, removed unless it was moved into place. The handler
// of the last interrupt knows of it.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& target)
      : path_((fs::path(target).parent_path() / ".wbimport-XXXXXX").string()) {
    const int fd = mkstemp(path_.data());
    if (fd < 0) {
      path_.clear();
      return;
    }
    SetFileToRemove(path_);
    fchmod(fd, ModeFor(target));
    close(fd);
  }
  ~TemporaryFile() {
    if (!path_.empty()) unlink(path_.c_str());
    SetFileToRemove("");
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  bool IsThere() const { return !path_.empty(); }
  const std::string& path() const { return path_; }
  bool MoveTo(const std::string& target) {
    if (rename(path_.c_str(), target.c_str()) != 0) return false;
    path_.clear();
    return true;
  }

 private:
  std::string path_;
};

}  // namespace

OutputFile::OutputFile(const std::string& name, bool folder_allowed) : name_(name) {
  if (name.empty() || name == "-") {
    name_ = "standard output";
    return;
  }
  std::error_code error;
  const fs::path absolute = fs::absolute(name, error);
  const fs::path resolved = fs::weakly_canonical(absolute, error);
  path_ = (error ? absolute : resolved).string();
  const fs::file_status status = fs::status(path_, error);
  folder_ = folder_allowed && (fs::is_directory(status) || name.back() == '/');
  special_ = fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status);
}

void OutputFile::Check() const {
  if (IsStandardOutput() || special_ || folder_) return;
  std::error_code error;
  if (fs::is_directory(path_, error)) Fail(name_, EISDIR);
  const fs::path folder = fs::path(path_).parent_path();
  if (!fs::is_directory(folder, error)) Fail(name_, error ? error.value() : ENOENT);
  if (access(folder.c_str(), W_OK | X_OK) != 0) Fail(name_, errno);
}

bool OutputFile::Write(const std::function<bool(std::ostream&)>& write) const {
  errno = 0;
  if (IsStandardOutput()) {
    if (!write(std::cout)) return false;
    if (!std::cout.flush() && !IsReaderGone(STDOUT_FILENO)) Fail(name_, errno);
    return true;
  }
  if (!special_) return WriteWhole(write);
  std::ofstream out(path_, std::ios::binary);
  if (!write(out)) return false;
  if (!out.flush()) Fail(name_, errno);
  return true;
}

void OutputFile::WriteText(const std::string& text) const {
  const bool written = Write([&](std::ostream& out) {
    out << text;
    return true;
  });
  static_cast<void>(written);  // as the text always is
}

bool OutputFile::WriteWhole(const std::function<bool(std::ostream&)>& write) const {
  TemporaryFile file(path_);
  if (!file.IsThere()) Fail(name_, errno);
  std::ofstream out(file.path(), std::ios::binary);
  if (!write(out)) return false;
  out.close();
  if (!out) Fail(name_, errno);
  if (!file.MoveTo(path_)) Fail(name_, errno);
  return true;
}

}  // namespace wbhost
