// ODBC connection strings.
#include "host/connection_string.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "host/text.h"

namespace wbhost {
namespace {

std::string_view TrimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

// Where a value that begins at `at` ends: at the semicolon behind it or at the end of the text.
std::size_t EndOfValue(std::string_view text, std::size_t at) {
  std::size_t i = at;
  while (i < text.size() && text[i] == ' ') ++i;
  if (i < text.size() && text[i] == '{') {
    for (++i; i < text.size(); ++i) {
      if (text[i] != '}') continue;
      if (i + 1 < text.size() && text[i + 1] == '}') {
        ++i;  // a doubled brace stands for one
      } else {
        break;
      }
    }
  }
  const std::size_t end = text.find(';', std::min(i, text.size()));
  return end == std::string_view::npos ? text.size() : end;
}

}  // namespace

std::vector<Attribute> ParseConnectionString(std::string_view text) {
  std::vector<Attribute> attributes;
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t equals = text.find_first_of("=;", at);
    if (equals == std::string_view::npos) break;
    if (text[equals] == ';') {
      at = equals + 1;
      continue;
    }
    const std::size_t end = EndOfValue(text, equals + 1);
    attributes.push_back({TrimBlanks(text.substr(at, equals - at)),
                          text.substr(equals + 1, end - equals - 1), equals + 1});
    at = end + 1;
  }
  return attributes;
}

std::string FindAttribute(std::string_view text, std::string_view key) {
  for (const Attribute& attribute : ParseConnectionString(text)) {
    if (!EqualIgnoringCase(attribute.key, key)) continue;
    std::string_view value = TrimBlanks(attribute.value);
    if (value.size() < 2 || value.front() != '{' || value.back() != '}') return std::string(value);
    std::string plain;
    value = value.substr(1, value.size() - 2);
    for (std::size_t i = 0; i < value.size(); ++i) {
      plain += value[i];
      if (value[i] == '}' && i + 1 < value.size() && value[i + 1] == '}') ++i;
    }
    return plain;
  }
  return {};
}

bool IsSecretKey(std::string_view key) {
  constexpr std::array<std::string_view, 5> kMarks = {"pwd", "passw", "secret", "token",
                                                      "passphrase"};
  std::string lower(key);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return std::any_of(kMarks.begin(), kMarks.end(),
                     [&](std::string_view mark) { return lower.find(mark) != std::string::npos; });
}

std::string FormatAttribute(std::string_view key, std::string_view value) {
  std::string text(key);
  text += '=';
  const bool plain =
      value.find_first_of("[]{}(),;?*=!@") == std::string_view::npos && TrimBlanks(value) == value;
  if (plain) {
    text += value;
  } else {
    text += '{';
    for (const char c : value) {
      text += c;
      if (c == '}') text += c;
    }
    text += '}';
  }
  return text + ';';
}

std::string WithoutSecrets(std::string_view text) {
  std::string kept;
  for (const Attribute& attribute : ParseConnectionString(text)) {
    if (IsSecretKey(attribute.key)) continue;
    kept += attribute.key;
    kept += '=';
    kept += attribute.value;
    kept += ';';
  }
  return kept;
}

}  // namespace wbhost
