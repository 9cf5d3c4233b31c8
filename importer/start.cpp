// Starts and stops the module: the message library comes first and goes last, and the services that
// the platform alone cannot give are filled in.
#include <mutex>

#include "importer/module_use.h"
#include "importer/odbc_workbook_import.h"
#include "odbc/database_utilities.h"
#include "platform/defaults.h"
#include "platform/message_library.h"
#include "platform/module_folder.h"

namespace odbcimport {
namespace {

std::mutex lock;
int imports = 0;           // that run
bool stop_wanted = false;  // when the last of them ends

}  // namespace

ModuleUse::ModuleUse(std::atomic<bool>& importing)
    : importing_(importing), first_(!importing.exchange(true)) {
  if (!first_) return;
  const std::lock_guard<std::mutex> guard(lock);
  ++imports;
}

ModuleUse::~ModuleUse() {
  if (!first_) return;
  {
    const std::lock_guard<std::mutex> guard(lock);
    if (--imports == 0 && stop_wanted) {
      platform::GetServices().messages.reset();
      stop_wanted = false;
    }
  }
  importing_ = false;
}

}  // namespace odbcimport

bool OdbcImportStart(const char* folder, std::string& why) try {
  const std::lock_guard<std::mutex> guard(odbcimport::lock);
  platform::Services& services = platform::GetServices();
  if (odbcimport::imports > 0) {
    // What the imports use stays as it is.
    const bool is_started = services.messages != nullptr;
    why = is_started ? "" : "an import is running that began before the module was started";
    if (is_started) odbcimport::stop_wanted = false;
    return is_started;
  }
  auto library = platform::LoadResourceDLL(folder != nullptr ? folder : platform::GetModuleFolder(),
                                           platform::kMessageLibraryFile, why);
  if (library == nullptr) return false;
  services.messages = std::move(library);
  if (services.database == nullptr) services.database = odbc::MakeDatabaseUtilities();
  why = platform::SettingsProblem();
  return true;
} catch (...) {
  return false;
}

void OdbcImportStop() {
  const std::lock_guard<std::mutex> guard(odbcimport::lock);
  if (odbcimport::imports > 0) {
    odbcimport::stop_wanted = true;
  } else {
    platform::GetServices().messages.reset();
  }
}
