// Counts brackets and dots outside of texts and comments. What is no TOML may be counted wrongly;
// the parser refuses it anyway.
#include "base/toml_nesting.h"

#include <algorithm>

namespace base {
namespace {

constexpr int kMostNested = 32;
constexpr int kMostKeyParts = 32;

// Behind the text that begins at `at`; `"""` and `'''` go over lines.
std::size_t EndOfText(std::string_view text, std::size_t at) {
  const char quote = text[at];
  const std::string_view three = text.substr(at, 3);
  const bool lines = three.size() == 3 && three[1] == quote && three[2] == quote;
  for (std::size_t i = at + (lines ? 3 : 1); i < text.size(); ++i) {
    if (text[i] == '\\' && quote == '"') {
      ++i;
    } else if (lines ? text.substr(i, 3) == three : text[i] == quote) {
      return i + (lines ? 3 : 1);
    } else if (!lines && text[i] == '\n') {
      return i;
    }
  }
  return text.size();
}

}  // namespace

bool IsTomlNestedTooDeep(std::string_view text) {
  int nested = 0;
  int dots = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    switch (text[i]) {
      case '"':
      case '\'':
        i = EndOfText(text, i) - 1;
        break;
      case '#':
        i = std::min(text.find('\n', i), text.size()) - 1;
        break;
      case '.':
        if (++dots >= kMostKeyParts) return true;
        break;
      case '[':
      case '{':
        if (++nested > kMostNested) return true;
        dots = 0;
        break;
      case ']':
      case '}':
        nested = std::max(nested - 1, 0);
        dots = 0;
        break;
      case '=':
      case ',':
      case '\n':
        dots = 0;
        break;
      default:
        break;
    }
  }
  return false;
}

}  // namespace base
