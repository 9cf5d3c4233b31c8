#include "base/secret_names.h"

#include <string.h>

#include <algorithm>
#include <array>

#include "base/ascii.h"
#include "base/letters.h"

namespace base {
namespace {

// In lower case and without what parts words: `Api_Key`, `API-KEY` and `apikey` are one.
constexpr std::array<std::string_view, 15> kMarks = {
    "pwd",           "passw",      "passphrase", "secret",     "token",
    "bearer",        "apikey",     "accesskey",  "accountkey", "authkey",
    "encryptionkey", "privatekey", "sharedkey",  "credential", "signature"};
// That are secrets by themselves, but parts of harmless words too: SSLBypass, ShippingPort.
constexpr std::array<std::string_view, 3> kNames = {"pass", "pin", "sas"};

bool IsPartOfName(char c) { return IsLetterOrDigit(c) || c == '_' || c == '-'; }

// Behind the text from `at` up to what ends it; what a backslash stands before does not.
std::size_t EndOfValue(std::string_view text, std::size_t at, std::string_view ends) {
  while (at < text.size() && ends.find(text[at]) == std::string_view::npos) {
    at += text[at] == '\\' ? 2 : 1;
  }
  return std::min(at, text.size());
}

// Where the value that begins at `at` ends; one in quotes ends with them.
std::string_view ValueAt(std::string_view text, std::size_t at) {
  at = std::min(text.find_first_not_of(' ', at), text.size());
  if (at < text.size() && (text[at] == '\'' || text[at] == '"')) {
    const std::string_view quote = text.substr(at, 1);
    std::size_t end = EndOfValue(text, at + 1, quote);
    // A doubled quote stands for one.
    while (text.substr(std::min(end + 1, text.size()), 1) == quote) {
      end = EndOfValue(text, end + 2, quote);
    }
    return text.substr(at + 1, end - at - 1);
  }
  return text.substr(at, EndOfValue(text, at, " \t;&,}") - at);
}

template <class Text>
void WipeText(Text& text) {
  text.resize(text.capacity());
  explicit_bzero(text.data(), text.size() * sizeof(typename Text::value_type));
  text.clear();
}

}  // namespace

bool IsSecretKey(std::string_view key) {
  std::string lower;
  for (const char c : LowerAscii(key)) {
    if (c != '_' && c != '-' && c != ' ') lower += c;
  }
  return lower.ends_with("pw") || std::find(kNames.begin(), kNames.end(), lower) != kNames.end() ||
         std::any_of(kMarks.begin(), kMarks.end(),
                     [&](std::string_view mark) { return lower.find(mark) != std::string::npos; });
}

std::vector<std::string_view> SecretsWithin(std::string_view value) {
  std::vector<std::string_view> secrets;
  for (std::size_t equals = value.find('='); equals != std::string_view::npos;
       equals = value.find('=', equals + 1)) {
    std::size_t end = equals;
    while (end > 0 && value[end - 1] == ' ') --end;
    std::size_t begin = end;
    while (begin > 0 && IsPartOfName(value[begin - 1])) --begin;
    if (!IsSecretKey(value.substr(begin, end - begin))) continue;
    if (const std::string_view secret = ValueAt(value, equals + 1); !secret.empty()) {
      secrets.push_back(secret);
    }
  }
  const std::size_t scheme = value.find("://");
  if (scheme == std::string_view::npos) return secrets;
  const std::string_view authority =
      value.substr(scheme + 3, value.find('/', scheme + 3) - scheme - 3);
  const std::size_t at = authority.rfind('@');
  const std::size_t colon = authority.find(':');
  if (at != std::string_view::npos && colon < at && colon + 1 < at) {
    secrets.push_back(authority.substr(colon + 1, at - colon - 1));
  }
  return secrets;
}

void Wipe(std::string& text) { WipeText(text); }
void Wipe(std::u16string& text) { WipeText(text); }

}  // namespace base
