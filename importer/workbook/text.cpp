#include "importer/workbook/text.h"

#include <atomic>
#include <cstdint>
#include <cstring>
#include <new>

// The characters follow the block.
struct LcText::Block {
  std::atomic<std::uint32_t> users{1};
  std::uint32_t size = 0;
  char16_t* characters() { return reinterpret_cast<char16_t*>(this + 1); }
};

LcText::LcText(std::u16string_view text) {
  void* memory = ::operator new(sizeof(Block) + text.size() * sizeof(char16_t));
  block_ = new (memory) Block;
  block_->size = static_cast<std::uint32_t>(text.size());
  if (!text.empty()) std::memcpy(block_->characters(), text.data(), text.size() * sizeof(char16_t));
}

LcText::LcText(const LcText& other) noexcept : block_(other.block_) {
  if (block_ != nullptr) block_->users.fetch_add(1, std::memory_order_relaxed);
}

LcText::~LcText() {
  if (block_ == nullptr || block_->users.fetch_sub(1, std::memory_order_acq_rel) != 1) return;
  block_->~Block();
  ::operator delete(block_);
}

std::u16string_view LcText::View() const {
  return block_ != nullptr ? std::u16string_view(block_->characters(), block_->size)
                           : std::u16string_view();
}
