// A text that may be absent, in the room of one pointer: most facts about a schema are not there,
// and those that are repeat ("now()", a collation), so that copies share their characters.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "importer/workbook/export.h"

// UTF-16. Absent is not empty: a comment that says nothing is a text, one that was never made is
// none. The characters never change once they are there; copies on several threads are safe.
class LC_WORKBOOK_EXPORT LcText {
 public:
  LcText() = default;                // absent
  LcText(std::u16string_view text);  // NOLINT(google-explicit-constructor)
  LcText(const char16_t* text) : LcText(std::u16string_view(text)) {}        // NOLINT
  LcText(const std::u16string& text) : LcText(std::u16string_view(text)) {}  // NOLINT
  LcText(const LcText& other) noexcept;
  LcText(LcText&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}
  LcText& operator=(LcText other) noexcept {
    std::swap(block_, other.block_);
    return *this;
  }
  ~LcText();

  [[nodiscard]] bool IsPresent() const { return block_ != nullptr; }
  explicit operator bool() const { return IsPresent(); }
  // Empty where the text is absent. Valid as long as any copy of the text is.
  [[nodiscard]] std::u16string_view View() const;
  [[nodiscard]] std::u16string Text() const { return std::u16string(View()); }

  // Absent texts are equal to one another and to no other, the empty one included.
  friend bool operator==(const LcText& a, const LcText& b) {
    return a.block_ == b.block_ ||
           (a.block_ != nullptr && b.block_ != nullptr && a.View() == b.View());
  }

 private:
  struct Block;
  Block* block_ = nullptr;
};
