// The command-line host of the import module.
#include <clocale>
#include <csignal>
#include <string>
#include <vector>

#include "host/commands.h"
#include "host/heap.h"
#include "host/secrets.h"
#include "host/standard_files.h"

int main(int argc, char** argv) {
  wbhost::MakeRoomInHeap();
  wbhost::OpenStandardFiles();
  // A reader that goes away is an error of writing, for the help's text too.
  std::signal(SIGPIPE, SIG_IGN);
  // A file that may not become longer is one that cannot be written, which its stream tells.
  std::signal(SIGXFSZ, SIG_IGN);
  // The driver manager converts names for narrow drivers with the locale's code set: without this,
  // names outside of ASCII find nothing.
  std::setlocale(LC_ALL, "C.UTF-8");
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  wbhost::HideSecretArguments(argc, argv);
  return wbhost::RunProgram(arguments);
}
