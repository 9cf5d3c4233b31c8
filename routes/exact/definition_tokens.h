// The words of a CREATE statement, one after the other.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace odbcimport::exact {

// A place in a text and the token that stands there. Comments and blanks are passed over.
class DefinitionTokens {
 public:
  enum class Kind { kEnd, kWord, kQuoted, kOther };

  explicit DefinitionTokens(std::string_view text, bool backslash_escapes = false)
      : text_(text), backslash_escapes_(backslash_escapes) {
    Next();
  }

  [[nodiscard]] Kind kind() const { return kind_; }
  [[nodiscard]] bool AtEnd() const { return kind_ == Kind::kEnd; }
  // The token as it is written.
  [[nodiscard]] std::string_view Written() const { return text_.substr(begin_, end_ - begin_); }
  std::size_t begin() const { return begin_; }
  [[nodiscard]] std::size_t last_end() const { return last_end_; }  // of the token before
  [[nodiscard]] std::string_view Text(std::size_t begin, std::size_t end) const {
    return text_.substr(begin, end - begin);
  }

  void Next();
  [[nodiscard]] bool Is(char c) const { return kind_ == Kind::kOther && text_[begin_] == c; }
  // A word without quotes, whatever its case; `upper` in upper case.
  [[nodiscard]] bool IsWord(std::string_view upper) const {
    return kind_ == Kind::kWord && end_ - begin_ == upper.size() && IsSpelled(upper);
  }
  // Passes the token where it is that one.
  bool Take(char c);
  bool TakeWord(std::string_view upper) {
    if (!IsWord(upper)) return false;
    Next();
    return true;
  }
  // A word or a quoted name, without its quotes; empty, and nothing is passed, for anything else.
  std::string TakeName();
  // Passes what stands between the parenthesis here and the one that closes it; without blanks
  // round it.
  std::string_view TakeParentheses();

 private:
  [[nodiscard]] bool IsSpelled(std::string_view upper) const;
  void SkipBlanks();
  void ScanQuoted(char quote);

  std::string_view text_;
  bool backslash_escapes_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  std::size_t last_end_ = 0;
  Kind kind_ = Kind::kEnd;
};

}  // namespace odbcimport::exact
