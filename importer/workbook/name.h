// A name that is never absent, in the room of one pointer: the columns of a schema are called
// alike, table after table, and copies of a name share its characters.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <utility>

#include "importer/workbook/export.h"
#include "importer/workbook/pool.h"

// UTF-16; empty at first. The characters never change once they are there; copies on several
// threads are safe.
class LC_WORKBOOK_EXPORT LcName {
 public:
  LcName() = default;
  explicit LcName(const std::u16string& text);
  LcName(const LcName& other) noexcept;
  LcName(LcName&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}
  LcName& operator=(LcName other) noexcept {
    std::swap(block_, other.block_);
    return *this;
  }
  ~LcName();

  // Valid as long as any copy of the name is.
  [[nodiscard]] const std::u16string& Text() const {
    return block_ != nullptr ? block_->text : Empty();
  }

 private:
  struct Block {
    LC_POOLED
    explicit Block(const std::u16string& characters) : text(characters) {}
    std::atomic<std::uint32_t> users{1};
    const std::u16string text;
  };
  static const std::u16string& Empty();
  Block* block_ = nullptr;
};
