// Reads the host's settings.
#pragma once

#include <cstdint>
#include <optional>

namespace odbcimport {

// The 32-bit number that is stored under the key; none when key or value are missing or the value
// is no number. Texts are UTF-16.
[[nodiscard]] std::optional<std::uint32_t> ReadSettingDWORD(const char16_t* key,
                                                            const char16_t* value_name);

}  // namespace odbcimport
