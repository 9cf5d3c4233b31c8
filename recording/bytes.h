// Bytes that are appended to, for what every cell of a schema passes through. Unlike a string it
// clears nothing that is about to be written, moves nothing that is large when it grows, and
// writers may fill room that they asked for.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <string_view>
#include <utility>

namespace recording {

class Bytes {
 public:
  [[nodiscard]] std::size_t size() const { return size_; }
  [[nodiscard]] std::string_view view() const { return {bytes_.get(), size_}; }
  // Bytes from the first on that may be touched.
  [[nodiscard]] std::size_t room() const { return room_; }
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
    void* const grown = std::realloc(bytes_.get(), room);
    if (grown == nullptr) throw std::bad_alloc();
    static_cast<void>(bytes_.release());
    bytes_.reset(static_cast<char*>(grown));
    room_ = room;
  }

  struct Free {
    void operator()(char* bytes) const { std::free(bytes); }
  };
  std::unique_ptr<char, Free> bytes_;
  std::size_t size_ = 0;
  std::size_t room_ = 0;
};

}  // namespace recording
