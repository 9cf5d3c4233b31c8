#include "importer/workbook/text.h"

#include <atomic>
#include <cstdint>
#include <cstring>
#include <new>

#include "importer/workbook/pool.h"

// The characters follow the block.
struct LcText::Block {
  static std::size_t BytesFor(std::size_t characters) {
    return sizeof(Block) + characters * sizeof(char16_t);
  }
  std::atomic<std::uint32_t> users{1};
  std::uint32_t size = 0;
  char16_t* characters() { return reinterpret_cast<char16_t*>(this + 1); }
};

LcText::LcText(std::u16string_view text) {
  void* memory = LcAllocate(Block::BytesFor(text.size()));
  block_ = new (memory) Block;
  block_->size = static_cast<std::uint32_t>(text.size());
  if (!text.empty()) std::memcpy(block_->characters(), text.data(), text.size() * sizeof(char16_t));
}

LcText::LcText(const LcText& other) noexcept : block_(other.block_) {
  if (block_ != nullptr) block_->users.fetch_add(1, std::memory_order_relaxed);
}

LcText::~LcText() {
  if (block_ == nullptr || block_->users.fetch_sub(1, std::memory_order_acq_rel) != 1) return;
  const std::size_t bytes = Block::BytesFor(block_->size);
  block_->~Block();
  LcFree(block_, bytes);
}

std::u16string_view LcText::View() const {
  return block_ != nullptr ? std::u16string_view(block_->characters(), block_->size)
                           : std::u16string_view();
}
