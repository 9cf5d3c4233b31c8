// From a server's numbers, or from what entries are called, to positions in a list. Both come by
// the ten thousand and are looked up once for every row, so a map is one block of memory that is
// probed in order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
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

// Positions of entries by a hash of what tells them apart. What that is stands in the entries
// alone: who looks compares.
class HashedPlaces {
 public:
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;

  // The hash of several texts is made by passing on that of those before.
  [[nodiscard]] static std::uint64_t HashOf(std::string_view text, std::uint64_t before = 0) {
    constexpr std::uint64_t kGoldenRatio = 0x9E3779B97F4A7C15;
    return (std::hash<std::string_view>()(text) ^ before) * kGoldenRatio;
  }

  void Add(std::uint64_t hash, std::uint32_t position) {
    if ((count_ + 1) * 2 > places_.size()) Rebuild(places_.empty() ? kFirst : places_.size() * 2);
    Put({ShortOf(hash), position});
  }
  // The one of this hash of which `is_it(position)` holds; kNone where there is none.
  template <class IsIt>
  [[nodiscard]] std::uint32_t Find(std::uint64_t hash, IsIt is_it) const {
    if (places_.empty()) return kNone;
    const std::size_t mask = places_.size() - 1;
    const std::uint32_t wanted = ShortOf(hash);
    for (std::size_t at = wanted & mask; places_[at].position != kNone; at = (at + 1) & mask) {
      if (places_[at].hash == wanted && is_it(places_[at].position)) return places_[at].position;
    }
    return kNone;
  }
  // Leaves out the positions from this one on.
  void ForgetFrom(std::uint32_t position) {
    first_forgotten_ = position;
    Rebuild(places_.size());
    first_forgotten_ = kNone;
  }
  void Clear() {
    places_.clear();
    count_ = 0;
  }

 private:
  static constexpr std::size_t kFirst = 64;
  struct Place {
    std::uint32_t hash = 0;
    std::uint32_t position = kNone;
  };

  static std::uint32_t ShortOf(std::uint64_t hash) {
    constexpr int kShift = 32;  // the upper bits of a product are mixed best
    return static_cast<std::uint32_t>(hash >> kShift);
  }
  void Put(Place place) {
    const std::size_t mask = places_.size() - 1;
    std::size_t at = place.hash & mask;
    while (places_[at].position != kNone) at = (at + 1) & mask;
    places_[at] = place;
    ++count_;
  }
  void Rebuild(std::size_t size) {
    std::vector<Place> old(size);
    old.swap(places_);
    count_ = 0;
    for (const Place& place : old) {
      if (place.position < first_forgotten_) Put(place);
    }
  }

  std::vector<Place> places_;  // a power of two of them
  std::size_t count_ = 0;
  std::uint32_t first_forgotten_ = kNone;
};

}  // namespace odbcimport::exact
