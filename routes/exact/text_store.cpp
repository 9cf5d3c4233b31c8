#include "routes/exact/text_store.h"

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

LcText TextStore::Get(std::string_view utf8) {
  if (utf8.data() == nullptr) return {};
  if (utf8.size() > kLongestShared) return LcText(std::u16string_view(Wide(utf8)));
  if (const auto found = shared_.find(utf8); found != shared_.end()) return found->second;
  return shared_.emplace(utf8, LcText(std::u16string_view(Wide(utf8)))).first->second;
}

LcName TextStore::Name(std::string_view utf8) {
  if (const auto found = names_.find(utf8); found != names_.end()) return found->second;
  return names_.emplace(utf8, LcName(Wide(utf8))).first->second;
}

}  // namespace odbcimport::exact
