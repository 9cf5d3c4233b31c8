// Files and environment variables that last as long as a test.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

namespace wbtest {

// A folder of its own, removed with everything in it.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "wbtest-XXXXXX").string();
    path_ = mkdtemp(name.data());
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::string& path() const { return path_; }
  // Writes a file, with the folders that it lies in, and returns its path.
  std::string Write(const std::string& name, const std::string& text) const {
    const std::filesystem::path file = std::filesystem::path(path_) / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file) << text;
    return file.string();
  }

 private:
  std::string path_;
};

// Sets a variable, or unsets it (null), and puts the old value back.
class ScopedVariable {
 public:
  ScopedVariable(const char* name, const char* value) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    Set(value);
  }
  ~ScopedVariable() { Set(before_ ? before_->c_str() : nullptr); }
  ScopedVariable(const ScopedVariable&) = delete;
  ScopedVariable& operator=(const ScopedVariable&) = delete;

 private:
  void Set(const char* value) const {
    if (value != nullptr) {
      setenv(name_, value, 1);
    } else {
      unsetenv(name_);
    }
  }

  const char* name_;
  std::optional<std::string> before_;
};

}  // namespace wbtest
