// Tells the kind of server from the name that its driver gives.
#pragma once

#include <string>
#include <string_view>

#include "importer/workbook/enums.h"

namespace platform {

// dbmsOther for a server that is known to have an ODBC driver and needs no handling of its own,
// dbmsUnknown for every other name.
[[nodiscard]] LeDBMSType ClassifyDBMSName(std::u16string_view name);

}  // namespace platform
