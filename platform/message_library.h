// The shared message library: a shared library of texts, named msgtext.dll after the family of
// hosts that brought it. A translation is another file of that name.
#pragma once

#include <memory>
#include <string>

#include "platform/platform.h"

namespace platform {

constexpr const char* kMessageLibraryFile = "msgtext.dll";

// Loads the library `file_name` from `folder`. Null on failure; `why` then says which file was
// looked for, where, and what was wrong with it. The library is given back with the last copy.
[[nodiscard]] std::shared_ptr<MessageLibrary> LoadResourceDLL(const std::string& folder,
                                                              const char* file_name,
                                                              std::string& why);

}  // namespace platform
