// The time that an output is marked with.
#pragma once

#include <string>

namespace wbhost {

// The time now, or that of the environment's SOURCE_DATE_EPOCH (seconds since 1970), in UTC:
// "2024-02-29T12:00:00Z". Throws a Failure where SOURCE_DATE_EPOCH is no time.
[[nodiscard]] std::u16string TimeStamp();

}  // namespace wbhost
