// Bytes that are appended to, for what every cell of a schema passes through. Unlike a string it
// clears nothing that is about to be written, and writers may fill room that they asked for.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <utility>

namespace recording {

class Bytes {
 public:
  [[nodiscard]] std::size_t size() const { return size_; }
  [[nodiscard]] std::string_view view() const { return {bytes_.get(), size_}; }
  // The memory stays for what comes next.
  void clear() { size_ = 0; }
  void swap(Bytes& other) {
    std::swap(bytes_, other.bytes_);
    std::swap(size_, other.size_);
    std::swap(room_, other.room_);
  }

  // Where at least `most` bytes may be written, until the next call; EndAt takes what was.
  char* Room(std::size_t most) {
    if (room_ - size_ < most) Grow(most);
    return bytes_.get() + size_;
  }
  void EndAt(const char* end) { size_ = static_cast<std::size_t>(end - bytes_.get()); }

  void append(const void* from, std::size_t count) {
    if (count == 0) return;
    std::memcpy(Room(count), from, count);
    size_ += count;
  }
  Bytes& operator+=(std::string_view text) {
    append(text.data(), text.size());
    return *this;
  }
  Bytes& operator+=(char c) {
    *Room(1) = c;
    ++size_;
    return *this;
  }
  template <class Value>
  void Put(Value value) {
    std::memcpy(Room(sizeof value), &value, sizeof value);
    size_ += sizeof value;
  }

 private:
  void Grow(std::size_t most) {
    const std::size_t room = std::max(size_ + most, std::max<std::size_t>(2 * room_, 4096));
    std::unique_ptr<char[]> grown(new char[room]);  // make_unique would clear it
    if (size_ > 0) std::memcpy(grown.get(), bytes_.get(), size_);
    bytes_ = std::move(grown);
    room_ = room;
  }

  std::unique_ptr<char[]> bytes_;
  std::size_t size_ = 0;
  std::size_t room_ = 0;
};

}  // namespace recording
