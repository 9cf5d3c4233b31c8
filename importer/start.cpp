// Starts and stops the module: the message library comes first and goes last.
#include "importer/odbc_workbook_import.h"
#include "platform/message_library.h"
#include "platform/module_folder.h"

bool OdbcImportStart(const char* folder, std::string& why) try {
  auto library = platform::LoadResourceDLL(folder != nullptr ? folder : platform::GetModuleFolder(),
                                           platform::kMessageLibraryFile, why);
  if (library == nullptr) return false;
  platform::GetServices().messages = std::move(library);
  return true;
} catch (...) {
  return false;
}

void OdbcImportStop() { platform::GetServices().messages.reset(); }
