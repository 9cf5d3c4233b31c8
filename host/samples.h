// The practice servers that come with the program.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace wbhost {

struct Sample {
  const char* name;
  // The server's name in the simulator; null for the sample database, which SQLite itself serves.
  const char* simulated_server;
  const char* description;
};
[[nodiscard]] const std::vector<Sample>& AllSamples();
[[nodiscard]] const Sample* FindSample(std::string_view name);  // null when there is none

// The path of the simulator, a driver that lies beside the import module.
[[nodiscard]] std::string SimulatorPath();

// The sample database, built in memory from its script, for as long as the object lives. A
// connection string reaches it within the same process.
class SampleDatabase {
 public:
  SampleDatabase();  // throws a Failure
  ~SampleDatabase();
  SampleDatabase(const SampleDatabase&) = delete;
  SampleDatabase& operator=(const SampleDatabase&) = delete;
  // The file name under which SQLite opens it.
  [[nodiscard]] static const char* FileName();

 private:
  struct Handle;
  std::unique_ptr<Handle> handle_;
};

}  // namespace wbhost
