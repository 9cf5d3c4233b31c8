// Where the module finds the files that come with it.
#pragma once

#include <string>

#include "platform/platform.h"

namespace platform {

// The folder of what the module loads at run time, without a slash at the end: `odbcimport` beside
// the module where there is one (an installation), else the module's own folder (a build tree).
[[nodiscard]] LC_EXPORT std::string GetModuleFolder();

}  // namespace platform
