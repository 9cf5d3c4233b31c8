// Interrupts of a run: the first stops the import, the second cancels it, the third ends the
// program at once. SIGTERM and SIGHUP cancel. Each is answered at once by a line on standard error.
#pragma once

#include <termios.h>

#include <string>

namespace wbhost {

enum class InterruptWish { kNone, kStop, kCancel };

// Installs the handlers. Without `graceful` the first interrupt ends the program at once, for
// commands that import nothing; with it, while there is nothing to lose yet.
void InstallInterruptHandlers(bool graceful);

// Whether the program is where it looks for interrupts itself: from the connection on, but for
// waits of which nothing else would end.
void LookForInterrupts(bool looks);

// What the user wants by now.
[[nodiscard]] InterruptWish GetInterruptWish();

// A file that is removed when the program is ended at once; empty: none. One at a time.
void SetFileToRemove(const std::string& path);

// How a terminal is left when the program is ended at once; a descriptor below zero: as it is.
void SetTerminalToRestore(int fd, const termios& how);

}  // namespace wbhost
