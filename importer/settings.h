// Reads the host's settings.
#pragma once

#include <cstdint>

namespace odbcimport {

// Sets `value` to the 32-bit number that is stored under the key. False, with `value` as it was,
// when key or value are missing or the value is no number. Texts are UTF-16.
bool ReadSettingDWORD(const char16_t* key, const char16_t* value_name, std::uint32_t& value);

}  // namespace odbcimport
