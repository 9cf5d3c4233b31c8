// The texts that failures are shown with.
#include "odbc/error_report.h"

#include <gtest/gtest.h>

namespace {

TEST(FormatErrorText, FillsTheTextsOfAnyTranslation) {
  const struct {
    std::u16string_view format;
    std::u16string_view text;
  } cases[] = {
      {u"Database error %d, SQLSTATE %s: %s", u"Database error -7, SQLSTATE HY000: 100% gone"},
      {u"%ld %ls %ls", u"-7 HY000 100% gone"},
      {u"%3$s (%2$s, %1$d)", u"100% gone (HY000, -7)"},
      {u"50%% %s", u"50% -7"},
      {u"%d %s %s %s %n %", u"-7 HY000 100% gone %s %n %"},
      {u"%0$s %9$s %$s", u"%0$s %9$s %$s"},
      {u"no places", u"no places"},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(odbc::FormatErrorText(test.format, -7, u"HY000", u"100% gone"), test.text);
  }
}

}  // namespace
