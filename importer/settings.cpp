// Reads the host's settings.
#include "importer/settings.h"

#include "platform/platform.h"

namespace odbcimport {

bool ReadSettingDWORD(const char16_t* key, const char16_t* value_name, std::uint32_t& value) {
  const auto stored = platform::GetServices().settings->ReadDWORD(key, value_name);
  if (!stored.has_value()) return false;
  value = *stored;
  return true;
}

}  // namespace odbcimport
