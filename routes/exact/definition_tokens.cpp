// Taking the text of a CREATE statement apart.
#include "routes/exact/definition_tokens.h"

#include <array>

#include "base/letters.h"

namespace odbcimport::exact {
namespace {

bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

constexpr std::array<bool, 256> WordCharacters() {
  std::array<bool, 256> is{};
  for (unsigned c = 0; c < is.size(); ++c) {
    is[c] = base::IsLetterOrDigit(c) || c == '_' || c == '$' || c >= 0x80;
  }
  return is;
}
constexpr std::array<bool, 256> kIsWordCharacter = WordCharacters();

bool IsWordCharacter(char c) { return kIsWordCharacter[static_cast<unsigned char>(c)]; }

}  // namespace

void DefinitionTokens::SkipBlanks() {
  while (end_ < text_.size()) {
    const char c = text_[end_];
    if (IsBlank(c)) {
      ++end_;
      continue;
    }
    if (c != '-' && c != '/') return;
    const std::string_view rest = text_.substr(end_);
    if (rest.starts_with("--")) {
      const std::size_t line = rest.find('\n');
      end_ = line == std::string_view::npos ? text_.size() : end_ + line + 1;
    } else if (rest.starts_with("/*")) {
      const std::size_t close = rest.find("*/", 2);
      end_ = close == std::string_view::npos ? text_.size() : end_ + close + 2;
    } else {
      return;
    }
  }
}

// Up to the closing quote, of which two stand for one. A quote that is not closed ends with the
// text.
void DefinitionTokens::ScanQuoted(char quote) {
  kind_ = Kind::kQuoted;
  ++end_;
  while (end_ < text_.size()) {
    const char c = text_[end_++];
    if (backslash_escapes_ && c == '\\' && quote == '\'' && end_ < text_.size()) {
      ++end_;
      continue;
    }
    if (c != quote) continue;
    if (quote == ']' || end_ == text_.size() || text_[end_] != quote) return;
    ++end_;
  }
}

void DefinitionTokens::Next() {
  last_end_ = end_;
  SkipBlanks();
  begin_ = end_;
  if (end_ == text_.size()) {
    kind_ = Kind::kEnd;
    return;
  }
  const char c = text_[end_];
  if (IsWordCharacter(c)) {
    kind_ = Kind::kWord;
    while (end_ < text_.size() && IsWordCharacter(text_[end_])) ++end_;
    // A literal of bytes is one token with the letter in front.
    if (end_ - begin_ == 1 && base::UpperAscii(c) == 'X' && end_ < text_.size() &&
        text_[end_] == '\'') {
      ScanQuoted('\'');
    }
  } else if (c == '"' || c == '`' || c == '\'') {
    ScanQuoted(c);
  } else if (c == '[') {
    ScanQuoted(']');
  } else {
    kind_ = Kind::kOther;
    ++end_;
  }
}

bool DefinitionTokens::IsSpelled(std::string_view upper) const {
  for (std::size_t i = 0; i < upper.size(); ++i) {
    if (base::UpperAscii(text_[begin_ + i]) != upper[i]) return false;
  }
  return true;
}

bool DefinitionTokens::Take(char c) {
  if (!Is(c)) return false;
  Next();
  return true;
}

std::string DefinitionTokens::TakeName() {
  std::string name;
  const std::string_view written = Written();
  if (kind_ == Kind::kWord) {
    name = written;
  } else if (kind_ == Kind::kQuoted) {
    const char close = written.front() == '[' ? ']' : written.front();
    const bool closed = written.size() > 1 && written.back() == close;
    const std::string_view inside = written.substr(1, written.size() - (closed ? 2 : 1));
    for (std::size_t i = 0; i < inside.size(); ++i) {
      name += inside[i];
      if (inside[i] == close && i + 1 < inside.size()) ++i;  // two stand for one
    }
  } else {
    return name;
  }
  Next();
  return name;
}

std::string_view DefinitionTokens::TakeParentheses() {
  if (!Take('(')) return {};
  const std::size_t begin = begin_;
  for (int depth = 1; !AtEnd(); Next()) {
    if (Is('(')) ++depth;
    if (Is(')') && --depth == 0) break;
  }
  // Comments at the end go with the blanks.
  const std::string_view inside =
      last_end_ > begin ? text_.substr(begin, last_end_ - begin) : std::string_view();
  Next();
  return inside;
}

}  // namespace odbcimport::exact
