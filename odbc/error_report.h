// Shows the fetch layer's failures to the user, with texts of the message library.
#pragma once

#include <string>
#include <string_view>

namespace odbc {

struct QueryFailure;

// What can go wrong besides the driver's own errors. The numbers are not shown.
enum class OtherError {
  kNone = 0,
  kNoMemory = 1,
  kRowError = 2,
  kBadLength = 3,
  kCalledTwice = 4,
};

// Shows the first pending diagnostic of the statement (of the connection when `hstmt` is null) with
// text 30003.
void PostError(void* henv, void* hdbc, void* hstmt);
// Shows the first diagnostic of a failure that was taken already, in the same way.
void PostFailure(const QueryFailure& failure);
// Shows text 30004, which is the same for all.
void PostOtherError(OtherError error);

// Puts an integer and two texts into a text with printf's places for them, in that order, or with
// numbered ones ("%2$s") where a translation needs another order. "%%" is a percent sign; a place
// without an argument stays as it stands, so a wrong translation does no harm.
[[nodiscard]] std::u16string FormatErrorText(std::u16string_view format, long number,
                                             std::u16string_view text1, std::u16string_view text2);

}  // namespace odbc
