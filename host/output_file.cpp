// Where a command's answer goes.
#include "host/output_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string_view>
#include <vector>

#include "host/file_stream.h"
#include "host/interrupt.h"
#include "host/outcome.h"
#include "host/patient_stream.h"

namespace wbhost {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(const std::string& name, int error) {
  if (error == ECANCELED) {
    throw Failure(ExitCode::kCancelled, fmt::format("cancelled: nobody reads {}", name));
  }
  throw Failure(ExitCode::kOutput,
                fmt::format("cannot write {}: {}", name,
                            error != 0 ? std::strerror(error) : "the device gives no reason"));
}

// Whether the other end of a pipe was closed: `wbimport ... | head`.
bool IsReaderGone(int fd) {
  pollfd end{fd, POLLOUT, 0};
  return poll(&end, 1, 0) == 1 && (end.revents & POLLERR) != 0;
}

// Closes it, unless it is a standard one.
class Descriptor {
 public:
  explicit Descriptor(int fd) : fd_(fd) {}
  ~Descriptor() {
    if (fd_ > STDERR_FILENO) close(fd_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int Get() const { return fd_; }

 private:
  int fd_;
};

constexpr std::string_view kTemporaryName = ".wbimport-XXXXXX";
constexpr int kMostLinks = 40;  // as many as the system follows

mode_t ModeOfNewFiles() {
  const mode_t mask = umask(0);
  umask(mask);
  return 0666 & ~mask;
}

// A file or folder of a temporary name, open and locked: who still has one holds its lock.
class Locked {
 public:
  Locked(const std::string& path, int flags) : fd_(open(path.c_str(), flags | O_CLOEXEC)) {
    if (fd_ >= 0 && flock(fd_, LOCK_EX | LOCK_NB) != 0) Close();
  }
  ~Locked() { Close(); }
  Locked(const Locked&) = delete;
  Locked& operator=(const Locked&) = delete;
  int fd() const { return fd_; }
  bool IsOpen() const { return fd_ >= 0; }

 private:
  void Close() {
    if (fd_ >= 0) close(fd_);
    fd_ = -1;
  }
  int fd_;
};

// Removes what a run that was killed has left in the folder: temporary names of this user whose
// lock nobody holds.
void RemoveLeftOvers(const fs::path& folder) {
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    const std::size_t fixed = kTemporaryName.find('X');
    if (name.size() != kTemporaryName.size() ||
        name.compare(0, fixed, kTemporaryName.substr(0, fixed)) != 0) {
      continue;
    }
    struct stat status {};
    if (lstat(entry->path().c_str(), &status) != 0 || status.st_uid != geteuid()) continue;
    if (!S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode)) continue;
    const Locked unused(entry->path(), O_RDONLY | O_NOFOLLOW);
    std::error_code ignored;
    if (unused.IsOpen()) fs::remove_all(entry->path(), ignored);
  }
}

bool SyncFolder(const fs::path& folder) {
  const int fd = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return false;
  // Some file systems cannot sync a folder, and say so.
  const bool synced = fsync(fd) == 0 || errno == EINVAL || errno == ENOTSUP;
  close(fd);
  return synced;
}

bool SyncFile(const fs::path& file) {
  const int fd = open(file.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return false;
  const bool synced = fsync(fd) == 0 || errno == EINVAL;
  close(fd);
  return synced;
}

// Gives the open file the owner and the mode of the one that it is to replace, or those of a new
// file. False where this user may not give it to that owner.
bool TakeOver(int fd, const std::string& target) {
  struct stat was {};
  struct stat is {};
  if (stat(target.c_str(), &was) != 0) return fchmod(fd, ModeOfNewFiles()) == 0;
  if (fstat(fd, &is) != 0) return false;
  const bool owned = was.st_uid == is.st_uid && was.st_gid == is.st_gid;
  if (!owned && fchown(fd, was.st_uid, was.st_gid) != 0) return false;
  return fchmod(fd, was.st_mode & 07777) == 0;
}

// A temporary file in the folder of the target, removed unless it was moved into place. The handler
// of the last interrupt knows of it.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& target)
      : path_((fs::path(target).parent_path() / kTemporaryName).string()) {
    RemoveLeftOvers(fs::path(target).parent_path());
    const int fd = mkostemp(path_.data(), O_CLOEXEC);
    if (fd < 0) {
      path_.clear();
      return;
    }
    SetFileToRemove(path_);
    lock_.emplace(path_, O_RDWR);
    replaces_ = TakeOver(fd, target);
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
  // What is moved is on the disk, and so is its name.
  bool MoveTo(const std::string& target) {
    if (!SyncFile(path_)) return false;
    if (!replaces_) return CopyTo(target);
    if (rename(path_.c_str(), target.c_str()) != 0) return false;
    path_.clear();
    return SyncFolder(fs::path(target).parent_path());
  }

 private:
  // Into the file that is there, which stays its owner's.
  bool CopyTo(const std::string& target) const {
    std::ifstream in(path_, std::ios::binary);
    std::ofstream out(target, std::ios::binary | std::ios::trunc);
    if (in.peek() != std::ifstream::traits_type::eof()) out << in.rdbuf();
    out.close();
    return in && out && SyncFile(target);
  }

  std::string path_;
  std::optional<Locked> lock_;
  bool replaces_ = true;  // else the target is written over in place
};

}  // namespace

std::string ResolveLinks(const std::string& name) {
  std::error_code error;
  fs::path path = fs::absolute(name, error);
  // What leads nowhere yet is followed by hand.
  for (int links = 0; links < kMostLinks; ++links) {
    const fs::path real = fs::weakly_canonical(path, error);
    if (error) return path.string();
    path = real;
    if (!fs::is_symlink(fs::symlink_status(path, error))) return path.string();
    path = path.parent_path() / fs::read_symlink(path, error);
  }
  return path.string();
}

OutputFile::OutputFile(const std::string& name, bool folder_allowed) : name_(name) {
  if (name.empty() || name == "-") {
    name_ = "standard output";
    return;
  }
  std::error_code error;
  path_ = ResolveLinks(name);
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
  if (!IsStandardOutput() && !special_) return WriteWhole(write);
  const Descriptor fd(IsStandardOutput() ? STDOUT_FILENO : OpenPatiently(path_));
  if (fd.Get() < 0) Fail(name_, errno);
  PatientStream out(fd.Get());
  if (!write(out)) return false;
  if (out.flush() || (IsStandardOutput() && IsReaderGone(STDOUT_FILENO))) return true;
  Fail(name_, errno);
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
  FileStream out(file.path());
  if (!write(out)) return false;
  if (!out.Close()) Fail(name_, errno);
  if (!file.MoveTo(path_)) Fail(name_, errno);
  return true;
}

bool OutputFile::WriteFolder(const std::function<bool(const std::string& folder)>& write) const {
  fs::path target = path_;
  if (!target.has_filename()) target = target.parent_path();  // "pages/"
  std::error_code error;
  fs::create_directories(target.parent_path(), error);
  RemoveLeftOvers(target.parent_path());
  std::string beside = (target.parent_path() / kTemporaryName).string();
  if (mkdtemp(beside.data()) == nullptr) Fail(name_, errno);
  const Locked lock(beside, O_RDONLY | O_DIRECTORY);
  const auto give_up = [&](int reason) {
    fs::remove_all(beside, error);
    if (reason >= 0) Fail(name_, reason);
    return false;
  };
  errno = 0;
  if (!write(beside)) return give_up(-1);
  std::vector<fs::path> pages;
  for (const auto& entry : fs::recursive_directory_iterator(beside, error)) {
    if (entry.is_regular_file()) pages.push_back(entry.path().lexically_relative(beside));
    if (!(entry.is_directory() ? SyncFolder(entry) : SyncFile(entry))) return give_up(errno);
  }
  const mode_t mode = ModeOfNewFiles();
  chmod(beside.c_str(), mode | ((mode >> 2) & 0111));  // who may read may enter
  if (!fs::exists(target, error) && rename(beside.c_str(), target.c_str()) == 0) {
    return SyncFolder(target.parent_path()) || give_up(errno);
  }
  for (const fs::path& page : pages) {
    fs::create_directories((target / page).parent_path(), error);
    if (rename((beside / page).c_str(), (target / page).c_str()) != 0) return give_up(errno);
    SyncFolder((target / page).parent_path());
  }
  fs::remove_all(beside, error);
  return true;
}

}  // namespace wbhost
