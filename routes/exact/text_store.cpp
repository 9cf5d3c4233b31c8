#include "routes/exact/text_store.h"

#include <algorithm>

#include "base/fast_utf.h"

namespace odbcimport::exact {
namespace {

// Longer texts (a comment, a view) are each their own; to remember them would cost more than it
// saves.
constexpr std::size_t kLongestShared = 48;

}  // namespace

const std::u16string& TextStore::Wide(std::string_view utf8) {
  base::AssignUtf16(utf8, wide_);
  return wide_;
}

bool TextStore::IsSame(std::u16string_view wide, std::string_view utf8) {
  constexpr unsigned char kFirstBeyondAscii = 0x80;
  const auto is_same = [](char16_t c, char byte) {
    return c == static_cast<unsigned char>(byte) && c < kFirstBeyondAscii;
  };
  if (std::equal(wide.begin(), wide.end(), utf8.begin(), utf8.end(), is_same)) return true;
  // No text is longer in UTF-16 than in UTF-8, and only an ASCII one is as long.
  return wide.size() < utf8.size() && wide == Wide(utf8);
}

LcText TextStore::Get(std::string_view utf8) {
  if (utf8.data() == nullptr) return {};
  if (utf8.size() > kLongestShared) return LcText(std::u16string_view(Wide(utf8)));
  const std::uint64_t hash = HashedPlaces::HashOf(utf8);
  const std::uint32_t known = text_places_.Find(
      hash, [&](std::uint32_t place) { return IsSame(texts_[place].View(), utf8); });
  if (known != HashedPlaces::kNone) return texts_[known];
  text_places_.Add(hash, static_cast<std::uint32_t>(texts_.size()));
  return texts_.emplace_back(std::u16string_view(Wide(utf8)));
}

LcName TextStore::Name(std::string_view utf8) {
  const std::uint64_t hash = HashedPlaces::HashOf(utf8);
  const std::uint32_t known = name_places_.Find(
      hash, [&](std::uint32_t place) { return IsSame(names_[place].Text(), utf8); });
  if (known != HashedPlaces::kNone) return names_[known];
  name_places_.Add(hash, static_cast<std::uint32_t>(names_.size()));
  return names_.emplace_back(Wide(utf8));
}

}  // namespace odbcimport::exact
