// Secrets in texts. Everything is found in the text as it came and replaced at the end, so that no
// replacement is taken for a part of what stands beside it.
#include "base/secret_mask.h"

#include <algorithm>
#include <cctype>

#include "base/secret_names.h"

namespace base {
namespace {

constexpr std::string_view kHidden = "***";
constexpr std::size_t kShortSecret = 4;  // characters from which a secret is replaced anywhere
constexpr std::size_t kNowhere = std::string_view::npos;

bool IsWordCharacter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' ||
         (static_cast<unsigned char>(c) & 0x80) != 0;
}

// The word in front of the blanks before `equals`: inside a longer message only that is the key.
std::string_view KeyBefore(std::string_view text, std::size_t equals) {
  std::size_t end = equals;
  while (end > 0 && text[end - 1] == ' ') --end;
  std::size_t begin = end;
  while (begin > 0 && IsWordCharacter(text[begin - 1])) --begin;
  return text.substr(begin, end - begin);
}

// Behind the brace that closes the one at `at`; the end of the text where none does.
std::size_t EndOfBraces(std::string_view text, std::size_t at) {
  for (std::size_t i = at + 1; i < text.size(); ++i) {
    if (text[i] != '}') continue;
    if (i + 1 == text.size() || text[i + 1] != '}') return i + 1;
    ++i;  // a doubled brace stands for one
  }
  return text.size();
}

class Mask {
 public:
  explicit Mask(std::string_view text) : text_(text), hidden_(text.size(), false) {}

  void HideSecret(std::string_view secret) {
    for (std::size_t at = text_.find(secret); at != kNowhere; at = text_.find(secret, at + 1)) {
      const std::size_t end = at + secret.size();
      if (secret.size() >= kShortSecret || StandsAlone(at, end)) Hide(at, end);
    }
  }

  // Goes by what HideSecret has hidden: a known secret is all of the value where it can be.
  void HideAttributes() {
    std::size_t next = 0;
    for (std::size_t equals = text_.find('='); equals != kNowhere; equals = text_.find('=', next)) {
      next = equals + 1;
      const std::size_t value = text_.find_first_not_of(' ', next);
      if (value == kNowhere) return;
      if (IsSecretKey(KeyBefore(text_, equals))) {
        if (!IsKnown(value)) Hide(value, EndOfUnknown(value));
        next = std::max(next, EndOfHidden(value));
      } else if (text_[value] == '{') {
        next = EndOfBraces(text_, value);
        HideWithin(value, next);
      }
    }
  }

  // The secrets inside of braces whose attribute is named harmlessly.
  void HideWithin(std::size_t begin, std::size_t end) {
    const std::string_view value = text_.substr(begin, end - begin);
    for (const std::string_view secret : SecretsWithin(value)) {
      const auto at = begin + static_cast<std::size_t>(secret.data() - value.data());
      Hide(at, at + secret.size());
    }
  }

  std::string Masked() const {
    std::string masked;
    for (std::size_t i = 0; i < text_.size(); ++i) {
      if (!hidden_[i]) masked += text_[i];
      if (hidden_[i] && (i == 0 || !hidden_[i - 1])) masked += kHidden;
    }
    return masked;
  }

 private:
  void Hide(std::size_t begin, std::size_t end) {
    for (std::size_t i = begin; i < end; ++i) hidden_[i] = true;
  }
  bool StandsAlone(std::size_t begin, std::size_t end) const {
    return (begin == 0 || !IsWordCharacter(text_[begin - 1])) &&
           (end == text_.size() || !IsWordCharacter(text_[end]));
  }
  std::size_t EndOfHidden(std::size_t at) const {
    while (at < text_.size() && hidden_[at]) ++at;
    return at;
  }
  bool IsKnown(std::size_t value) const {
    const std::size_t end = EndOfHidden(value);
    return end != value && (end == text_.size() || !IsWordCharacter(text_[end]));
  }
  std::size_t EndOfUnknown(std::size_t value) const {
    if (text_[value] == '{') return EndOfBraces(text_, value);
    char quote = '\0';  // open where the value begins
    for (std::size_t i = 0; i < value; ++i) {
      if (!IsQuote(i)) continue;
      if (quote == '\0') {
        quote = text_[i];
      } else if (quote == text_[i]) {
        quote = '\0';
      }
    }
    std::size_t end = value;
    while (end < text_.size() && text_[end] != ';' && !(text_[end] == quote && IsQuote(end))) ++end;
    return end;
  }
  // An apostrophe inside of a word is none.
  bool IsQuote(std::size_t at) const {
    if (text_[at] != '\'' && text_[at] != '"') return false;
    return StandsAlone(at, at) || StandsAlone(at + 1, at + 1);
  }

  std::string_view text_;
  std::vector<bool> hidden_;
};

}  // namespace

std::string MaskSecrets(std::string_view text, const std::vector<std::string>& secrets) {
  Mask mask(text);
  for (const std::string& secret : secrets) mask.HideSecret(secret);
  mask.HideAttributes();
  return mask.Masked();
}

}  // namespace base
