// Versions from texts, and their order.
#include "routes/exact/version.h"

#include <algorithm>

namespace odbcimport::exact {

Version::Version(std::string_view text) {
  constexpr long kLargest = 1'000'000'000;  // PostgreSQL's version as one number has six digits
  bool in_number = false;
  for (const char c : text) {
    if (c >= '0' && c <= '9') {
      if (!in_number) numbers_.push_back(0);
      in_number = true;
      numbers_.back() = std::min(numbers_.back() * 10 + (c - '0'), kLargest);
    } else if (c == '.' && in_number) {
      in_number = false;
    } else {
      break;
    }
  }
}

bool Version::IsBefore(const Version& other) const {
  const std::size_t parts = std::max(numbers_.size(), other.numbers_.size());
  for (std::size_t i = 0; i < parts; ++i) {
    const long own = i < numbers_.size() ? numbers_[i] : 0;
    const long others = i < other.numbers_.size() ? other.numbers_[i] : 0;
    if (own != others) return own < others;
  }
  return false;
}

}  // namespace odbcimport::exact
