// The readers of TOML: any bytes as a configuration file are taken or refused with one line that
// names the file, and as a settings file they are values or a reason.
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "host/config_file.h"
#include "host/outcome.h"
#include "platform/defaults.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const int fd = memfd_create("toml", 0);
  const std::string file = "/proc/self/fd/" + std::to_string(fd);
  if (write(fd, data, size) != static_cast<ssize_t>(size)) std::abort();
  try {
    wbhost::Options options;
    wbhost::ApplyConfigFile(file, {"import", "list"}, "import", options);
  } catch (const wbhost::Failure& failure) {
    const std::string_view why = failure.what();
    if (why.find(file) == std::string_view::npos || why.find('\n') != std::string_view::npos ||
        failure.code() != wbhost::ExitCode::kUsage) {
      std::abort();
    }
  }
  std::string why;
  const auto store = platform::MakeTomlSettingsStore(file, &why);
  const auto value =
      store->ReadDWORD(u"SOFTWARE\\Tandor\\Lumagraph\\4.0", u"GenericWorkbookImport");
  if (value && !why.empty()) std::abort();
  close(fd);
  return 0;
}
