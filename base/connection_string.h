// ODBC connection strings: `KEY=value;KEY={value with ; and }} for a brace};...`. The one reader.
// UTF-8; no driver is asked anything.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace base {

struct Attribute {
  std::string_view key;      // without blanks around it
  std::string_view value;    // as it stands, with its braces and the blanks around it
  std::size_t value_at = 0;  // where the value begins in the connection string
};
// The attributes in their order. The views point into `text`, which may be any text: what is no
// keyword with a value is passed over.
[[nodiscard]] std::vector<Attribute> ParseConnectionString(std::string_view text);

// A value without its braces, or without the blanks around it. What stands behind the closing brace
// is left out; without a closing brace the value goes on to its end.
[[nodiscard]] std::string PlainValue(std::string_view value);

// The plain value of the first attribute with that key, as the driver manager has it; the case of
// the key does not matter. Empty text for an empty value, nothing when there is no such key.
[[nodiscard]] std::optional<std::string> FindAttribute(std::string_view text, std::string_view key);

// `key=value;`, the value in braces where it needs them.
[[nodiscard]] std::string FormatAttribute(std::string_view key, std::string_view value);

// The connection string without the attributes that hold a secret (secret_names.h), by their name
// or within their value.
[[nodiscard]] std::string WithoutSecrets(std::string_view text);

}  // namespace base
