// Counts the imports that run, which use what the module's stop takes away.
#pragma once

#include <atomic>

namespace odbcimport {

// One import of one importer, for as long as it lives.
class ModuleUse {
 public:
  // `importing` is the importer's own mark, borrowed.
  explicit ModuleUse(std::atomic<bool>& importing);
  ~ModuleUse();
  ModuleUse(const ModuleUse&) = delete;
  ModuleUse& operator=(const ModuleUse&) = delete;

  // False while the importer is in another import.
  [[nodiscard]] bool IsFirst() const { return first_; }

 private:
  std::atomic<bool>& importing_;
  const bool first_;
};

}  // namespace odbcimport
