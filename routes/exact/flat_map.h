// From a server's numbers to positions in a list. The numbers of a catalog come by the ten thousand
// and are looked up once for every row, so the map is one block of memory that is probed in order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace odbcimport::exact {

class NumberMap {
 public:
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;

  // The number that was given first stays.
  void Add(std::int64_t number, std::uint32_t position) {
    if ((count_ + 1) * 2 > places_.size()) Grow();
    Place& place = Find(number);
    if (place.position != kNone) return;
    place = {number, position};
    ++count_;
  }
  // kNone for a number that was not added.
  [[nodiscard]] std::uint32_t Get(std::int64_t number) const {
    return places_.empty() ? kNone : const_cast<NumberMap*>(this)->Find(number).position;
  }
  [[nodiscard]] bool IsEmpty() const { return count_ == 0; }
  void Clear() {
    places_.clear();
    count_ = 0;
  }

 private:
  struct Place {
    std::int64_t number = 0;
    std::uint32_t position = kNone;
  };

  [[nodiscard]] Place& Find(std::int64_t number) {
    constexpr std::uint64_t kGoldenRatio = 0x9E3779B97F4A7C15;
    const std::size_t mask = places_.size() - 1;
    auto at = static_cast<std::size_t>((static_cast<std::uint64_t>(number) * kGoldenRatio) >> 32);
    for (at &= mask; places_[at].position != kNone && places_[at].number != number;) {
      at = (at + 1) & mask;
    }
    return places_[at];
  }
  void Grow() {
    constexpr std::size_t kFirst = 64;
    std::vector<Place> old(places_.empty() ? kFirst : places_.size() * 2);
    old.swap(places_);
    for (const Place& place : old) {
      if (place.position != kNone) Find(place.number) = place;
    }
  }

  std::vector<Place> places_;  // a power of two of them
  std::size_t count_ = 0;
};

}  // namespace odbcimport::exact
