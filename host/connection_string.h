// ODBC connection strings: `KEY=value;KEY={value with ; in it}`. No driver is asked anything here.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wbhost {

struct Attribute {
  std::string_view key;      // without blanks around it
  std::string_view value;    // as it stands, with its braces
  std::size_t value_at = 0;  // where the value begins in the connection string
};
// The attributes in their order. The views point into `text`. A piece without `=` is left out.
std::vector<Attribute> ParseConnectionString(std::string_view text);

// The value of the first attribute with that key (case ignored) without its braces; empty when
// there is none.
std::string FindAttribute(std::string_view text, std::string_view key);

// Whether an attribute of that name holds a password or another secret.
bool IsSecretKey(std::string_view key);

// `key=value;`, the value in braces where it needs them.
std::string FormatAttribute(std::string_view key, std::string_view value);

// The connection string without its secret attributes.
std::string WithoutSecrets(std::string_view text);

}  // namespace wbhost
