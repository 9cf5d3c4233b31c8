// The practice servers that come with the program.
#include "host/samples.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <filesystem>

#include "embedded_wbhost.h"
#include "host/outcome.h"
#include "platform/module_folder.h"

namespace wbhost {

const std::vector<Sample>& AllSamples() {
  static const std::vector<Sample> samples = {
      {"sqlite", nullptr, "the sample database, read through SQLite's own driver"},
      {"informix", "informix", "Informix Universal Server 9.40"},
      {"informix-7", "informix-7", "Informix Dynamic Server 7.31"},
      {"informix-14", "informix-14", "the catalog of a current Informix, read exactly"},
      {"sqlserver", "sqlserver", "Microsoft SQL Server"},
      {"sqlserver-2019", "sqlserver-2019", "the catalog of a current SQL Server, read exactly"},
      {"sybase", "sybase", "Sybase SQL Server"},
      {"oracle", "oracle", "Oracle 8"},
      {"oracle-19", "oracle-19", "the catalog of a current Oracle, read exactly"},
      {"db2", "db2", "DB2"},
      {"db2-11", "db2-11", "the catalog of a current DB2, read exactly"},
      {"redbrick", "redbrick", "Red Brick"},
      {"access", "access", "Microsoft Access"},
      {"oracle-7", "oracle-7", "Oracle 7"},
      {"generic", "generic", "a server without a name"},
  };
  return samples;
}

const Sample* FindSample(std::string_view name) {
  for (const Sample& sample : AllSamples()) {
    if (name == sample.name) return &sample;
  }
  return nullptr;
}

std::string SimulatorPath() { return platform::GetModuleFolder() + "/libcatalogsim.so"; }

struct SampleDatabase::Handle {
  sqlite3* database = nullptr;
  ~Handle() { sqlite3_close(database); }
};

// A shared cache is one per process and name; SQLite's driver uses the same SQLite library.
const char* SampleDatabase::FileName() { return "file:wbimport-sample?mode=memory&cache=shared"; }

SampleDatabase::SampleDatabase() : handle_(std::make_unique<Handle>()) {
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_URI;
  int result = sqlite3_open_v2(FileName(), &handle_->database, flags, nullptr);
  if (result == SQLITE_OK) {
    const std::string script(kSqlite);
    result = sqlite3_exec(handle_->database, script.c_str(), nullptr, nullptr, nullptr);
  }
  if (result != SQLITE_OK) {
    throw Failure(ExitCode::kConnection, fmt::format("cannot build the sample database: {}",
                                                     sqlite3_errmsg(handle_->database)));
  }
}

SampleDatabase::~SampleDatabase() = default;

}  // namespace wbhost
