#include "importer/workbook/name.h"

const std::u16string& LcName::Empty() {
  static const std::u16string empty;
  return empty;
}

LcName::LcName(const std::u16string& text) : block_(text.empty() ? nullptr : new Block(text)) {}

LcName::LcName(const LcName& other) noexcept : block_(other.block_) {
  if (block_ != nullptr) block_->users.fetch_add(1, std::memory_order_relaxed);
}

LcName::~LcName() {
  if (block_ != nullptr && block_->users.fetch_sub(1, std::memory_order_acq_rel) == 1) {
    delete block_;
  }
}
