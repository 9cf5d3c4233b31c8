// See lost_keys.h.
#include "routes/shared/lost_keys.h"

#include <vector>

#include "base/text.h"
#include "importer/workbook/workbook.h"

namespace odbcimport {

void LostKeys::Add(std::u16string_view owner, std::u16string_view table) {
  constexpr std::size_t kMostNamed = 100;
  if (session_.sink.workbook() == nullptr) return;
  std::vector<LcNotRead>& not_read = session_.sink.workbook()->details.not_read;
  ++count_;
  std::u16string reason(reason_);
  if (count_ > kMostNamed) {
    reason = base::FormatInteger(static_cast<long>(count_ - kMostNamed)) + u" more: " + reason;
    if (count_ > kMostNamed + 1 && rest_ < not_read.size()) {
      not_read[rest_].reason = LcText(reason);
      return;
    }
    rest_ = not_read.size();
    owner = table = {};
  }
  LcNotRead& entry = not_read.emplace_back();
  entry.kind = LcText(kind_);
  if (!owner.empty()) entry.owner = LcText(owner);
  if (!table.empty()) entry.name = LcText(table);
  entry.reason = LcText(reason);
  entry.withheld = true;
}

}  // namespace odbcimport
