#include "host/standard_files.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>

namespace wbhost {

void OpenStandardFiles() {
  for (int fd = STDIN_FILENO; fd <= STDERR_FILENO; ++fd) {
    if (fcntl(fd, F_GETFD) != -1) continue;
    // The lowest free descriptor is this one, since those below are open.
    if (open("/dev/null", O_RDWR) != fd) std::_Exit(EXIT_FAILURE);
  }
}

}  // namespace wbhost
