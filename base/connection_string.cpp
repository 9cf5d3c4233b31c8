// ODBC connection strings.
#include "base/connection_string.h"

#include <algorithm>

#include "base/ascii.h"
#include "base/secret_names.h"
#include "base/text.h"

namespace base {
namespace {

// The place of the brace that ends what begins with one at `at`; the text's end when none does.
std::size_t ClosingBrace(std::string_view text, std::size_t at) {
  for (std::size_t i = at + 1; i < text.size(); ++i) {
    if (text[i] != '}') continue;
    if (i + 1 >= text.size() || text[i + 1] != '}') return i;
    ++i;  // a doubled brace stands for one
  }
  return text.size();
}

// Where a value that begins at `at` ends: at the semicolon behind it or at the end of the text.
std::size_t EndOfValue(std::string_view text, std::size_t at) {
  std::size_t i = std::min(text.find_first_not_of(" \t", at), text.size());
  if (i < text.size() && text[i] == '{') i = ClosingBrace(text, i);
  return std::min(text.find(';', i), text.size());
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
    attributes.push_back({TrimSpace(text.substr(at, equals - at)),
                          text.substr(equals + 1, end - equals - 1), equals + 1});
    at = end + 1;
  }
  return attributes;
}

std::string PlainValue(std::string_view value) {
  value = value.substr(std::min(value.find_first_not_of(" \t"), value.size()));
  if (value.empty() || value.front() != '{') return std::string(TrimSpace(value));
  const std::string_view inside = value.substr(1, ClosingBrace(value, 0) - 1);
  std::string plain;
  for (std::size_t i = 0; i < inside.size(); ++i) {
    plain += inside[i];
    if (inside[i] == '}') ++i;
  }
  return plain;
}

std::optional<std::string> FindAttribute(std::string_view text, std::string_view key) {
  for (const Attribute& attribute : ParseConnectionString(text)) {
    if (!attribute.key.empty() && EqualIgnoringCase(attribute.key, key)) {
      return PlainValue(attribute.value);
    }
  }
  return std::nullopt;
}

std::string FormatAttribute(std::string_view key, std::string_view value) {
  std::string text(key);
  text += '=';
  const bool plain =
      value.find_first_of("[]{}(),;?*=!@") == std::string_view::npos && TrimSpace(value) == value;
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
    if (IsSecretKey(attribute.key) || !SecretsWithin(attribute.value).empty()) continue;
    kept += attribute.key;
    kept += '=';
    kept += attribute.value;
    kept += ';';
  }
  return kept;
}

}  // namespace base
