// The three standard descriptors of the process.
#pragma once

namespace wbhost {

// Opens those of 0, 1 and 2 that are closed on /dev/null, before anything else is opened: a
// driver's socket would get the number otherwise, and what is meant for standard output would go to
// a server.
void OpenStandardFiles();

}  // namespace wbhost
