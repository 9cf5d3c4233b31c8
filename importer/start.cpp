// Starts and stops the module: the message library comes first and goes last, and the services that
// the platform alone cannot give are filled in.
#include "importer/odbc_workbook_import.h"
#include "odbc/database_utilities.h"
#include "platform/defaults.h"
#include "platform/message_library.h"
#include "platform/module_folder.h"

bool OdbcImportStart(const char* folder, std::string& why) try {
  auto library = platform::LoadResourceDLL(folder != nullptr ? folder : platform::GetModuleFolder(),
                                           platform::kMessageLibraryFile, why);
  if (library == nullptr) return false;
  platform::Services& services = platform::GetServices();
  services.messages = std::move(library);
  if (services.database == nullptr) services.database = odbc::MakeDatabaseUtilities();
  why = platform::SettingsProblem();
  return true;
} catch (...) {
  return false;
}

void OdbcImportStop() { platform::GetServices().messages.reset(); }
