// Cuts a fuzzer's bytes into the values that a target needs. Runs dry gracefully: zeros and empty
// texts follow the last byte.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>

namespace fuzz {

class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  bool IsEmpty() const { return at_ >= size_; }

  template <class T>
  T Take() {
    T value{};
    const std::size_t n = size_ - at_ < sizeof value ? size_ - at_ : sizeof value;
    if (n > 0) std::memcpy(&value, data_ + at_, n);
    at_ += n;
    return value;
  }

  // Up to `most` UTF-16 units, whatever they are.
  std::u16string TakeText(std::size_t most) {
    std::u16string text;
    for (std::size_t n = Take<std::uint16_t>() % (most + 1); n > 0 && !IsEmpty(); --n) {
      text += static_cast<char16_t>(Take<std::uint16_t>());
    }
    return text;
  }

 private:
  const std::uint8_t* data_;
  std::size_t size_;
  std::size_t at_ = 0;
};

}  // namespace fuzz
