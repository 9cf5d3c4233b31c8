// Shows the fetch layer's failures to the user.
#include "odbc/error_report.h"

#include <array>
#include <string>

#include "odbc/driver.h"
#include "odbc/query.h"
#include "platform/platform.h"

namespace odbc {

namespace {

constexpr unsigned kDatabaseErrorText = 30003;
constexpr unsigned kOtherErrorText = 30004;
constexpr int kDatabaseErrorHelp = 0;
constexpr int kOtherErrorHelp = -1;
constexpr SQLSMALLINT kShownCharacters = 511;

// Null before the module was started: the user is then shown the bare facts.
std::u16string TextOrDefault(unsigned id, const char16_t* bare_text) {
  const auto& library = platform::GetServices().messages;
  std::u16string text = library != nullptr ? library->GetText(id) : std::u16string();
  return text.empty() ? bare_text : text;
}

std::u16string ToText(long number) {
  const std::string digits = std::to_string(number);
  return {digits.begin(), digits.end()};
}

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

}  // namespace

std::u16string FormatErrorText(std::u16string_view format, long number, std::u16string_view text1,
                               std::u16string_view text2) {
  const std::u16string digits = ToText(number);
  const std::array<std::u16string_view, 3> arguments = {digits, text1, text2};
  std::u16string out;
  std::size_t next = 0;
  for (std::size_t at = 0; at < format.size();) {
    if (format[at] != u'%') {
      out += format[at++];
      continue;
    }
    std::size_t end = at + 1;
    if (end < format.size() && format[end] == u'%') {
      out += u'%';
      at = end + 1;
      continue;
    }
    std::size_t index = next;
    if (end + 1 < format.size() && IsDigit(format[end]) && format[end + 1] == u'$') {
      index = static_cast<std::size_t>(format[end] - u'1');
      end += 2;
    }
    while (end < format.size() && format[end] == u'l') ++end;
    const bool is_place = end < format.size() && (format[end] == u'd' || format[end] == u's');
    if (!is_place || index >= arguments.size()) {
      out += format[at++];
      continue;
    }
    out += arguments[index];
    next = index + 1;
    at = end + 1;
  }
  return out;
}

namespace {

void Show(const Diagnostic& diagnostic) {
  platform::GetServices().message_box->Show(
      FormatErrorText(TextOrDefault(kDatabaseErrorText, u"%d %s %s"), diagnostic.native_error,
                      diagnostic.state, diagnostic.message),
      kDatabaseErrorHelp);
}

}  // namespace

void PostError(void* henv, void* hdbc, void* hstmt) {
  Diagnostic diagnostic;
  // Shown even when the driver has no diagnostic: the user must learn that something failed.
  static_cast<void>(TakeDiagnostic(henv, hdbc, hstmt, &diagnostic, kShownCharacters));
  Show(diagnostic);
}

void PostFailure(const QueryFailure& failure) {
  Show(failure.diagnostics.empty() ? Diagnostic() : failure.diagnostics.front());
}

void PostOtherError(OtherError /*error*/) {
  platform::GetServices().message_box->Show(
      TextOrDefault(kOtherErrorText, u"The result could not be read."), kOtherErrorHelp);
}

}  // namespace odbc
