// Interrupts of a run: the first stops the import, the second cancels it, the third ends the
// program at once. SIGTERM and SIGHUP cancel. Each is answered at once by a line on standard error.
#pragma once

#include <string>

namespace wbhost {

enum class InterruptWish { kNone, kStop, kCancel };

// Installs the handlers. Without `graceful` the first interrupt ends the program at once, for
// commands that import nothing.
void InstallInterruptHandlers(bool graceful);

// What the user wants by now.
[[nodiscard]] InterruptWish GetInterruptWish();

// A file that is removed when the program is ended at once; empty: none. One at a time.
void SetFileToRemove(const std::string& path);

}  // namespace wbhost
