// Parses ODBC connection strings.
#include "platform/connection_string.h"

#include <algorithm>

#include "platform/dbms_names.h"

namespace platform {

namespace {

std::u16string_view Trim(std::u16string_view text) {
  constexpr std::u16string_view kBlanks = u" \t\r\n";
  const std::size_t begin = std::min(text.find_first_not_of(kBlanks), text.size());
  text.remove_prefix(begin);
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

// Takes a value from the front of the text and the semicolon behind it.
std::u16string TakeValue(std::u16string_view& text) {
  const std::size_t begin = std::min(text.find_first_not_of(u" \t"), text.size());
  std::u16string value;
  if (begin < text.size() && text[begin] == u'{') {
    text.remove_prefix(begin + 1);
    while (!text.empty()) {
      const char16_t c = text.front();
      text.remove_prefix(1);
      if (c == u'}') {
        if (text.empty() || text.front() != u'}') break;
        text.remove_prefix(1);  // a doubled brace is one
      }
      value += c;
    }
    text.remove_prefix(std::min(text.find(u';'), text.size()));
  } else {
    const std::size_t end = std::min(text.find(u';'), text.size());
    value = Trim(text.substr(0, end));
    text.remove_prefix(end);
  }
  if (!text.empty()) text.remove_prefix(1);
  return value;
}

}  // namespace

ConnectionString::ConnectionString(std::u16string_view text) {
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of(u"=;"), text.size());
    const std::u16string_view keyword = Trim(text.substr(0, end));
    const bool has_value = end < text.size() && text[end] == u'=';
    text.remove_prefix(std::min(end + 1, text.size()));
    if (!has_value) continue;
    std::u16string value = TakeValue(text);
    if (!keyword.empty()) entries_.emplace_back(FoldCase(keyword), std::move(value));
  }
}

std::optional<std::u16string> ConnectionString::Find(std::u16string_view keyword) const {
  const std::u16string folded = FoldCase(keyword);
  for (const auto& [name, value] : entries_) {
    if (name == folded) return value;
  }
  return std::nullopt;
}

}  // namespace platform
