// Reads the host's settings.
#include "importer/settings.h"

#include "platform/platform.h"

namespace odbcimport {

std::optional<std::uint32_t> ReadSettingDWORD(const char16_t* key, const char16_t* value_name) {
  return platform::GetServices().settings->ReadDWORD(key, value_name);
}

}  // namespace odbcimport
