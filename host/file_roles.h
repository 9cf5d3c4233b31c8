// Which files a run reads and which it writes, so that none is both: an output that is the database
// would destroy it.
#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>
#include <vector>

#include "host/options.h"

namespace wbhost {

class FileRoles {
 public:
  // Takes down the files that the options name. Throws a Failure of wrong usage where one that is
  // written is read or written once more, whatever links lead to it. Touches nothing.
  explicit FileRoles(const Options& options);
  // The same with the files that a connection string names, by its values or its data source.
  void AddConnection(const std::string& connection_string);

 private:
  struct File {
    std::string name;                                 // as the user wrote it
    std::string role;                                 // "--trace", "the SQLite file"
    std::optional<std::pair<dev_t, ino_t>> identity;  // of one that is there
    std::string path;                                 // with links resolved
  };
  [[nodiscard]] static File Make(const std::string& name, const std::string& role);
  void Reads(const std::string& name, const std::string& role);
  void ReadsDatabase(const std::string& name);
  void Writes(const std::string& name, const std::string& role);
  void AddStandardFiles(const Options& options);

  std::vector<File> read_;
  std::vector<File> written_;
};

}  // namespace wbhost
