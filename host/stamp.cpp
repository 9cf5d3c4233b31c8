#include "host/stamp.h"

#include <fmt/chrono.h>

#include <charconv>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include "host/outcome.h"
#include "host/text.h"

namespace wbhost {

std::u16string TimeStamp() {
  constexpr std::time_t kLatest = 253402300799;  // the end of the year 9999
  std::time_t seconds = std::time(nullptr);
  if (const char* epoch = std::getenv("SOURCE_DATE_EPOCH"); epoch != nullptr && *epoch != '\0') {
    const char* end = epoch + std::strlen(epoch);
    const auto [stopped, error] = std::from_chars(epoch, end, seconds);
    if (error != std::errc() || stopped != end || seconds < 0 || seconds > kLatest) {
      throw Failure(ExitCode::kUsage,
                    fmt::format("SOURCE_DATE_EPOCH: \"{}\" is no time in seconds since 1970",
                                OneLine(epoch)));
    }
  }
  return ToUtf16(fmt::format("{:%Y-%m-%dT%H:%M:%SZ}", fmt::gmtime(seconds)));
}

}  // namespace wbhost
