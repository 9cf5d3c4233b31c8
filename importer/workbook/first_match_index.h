// The hash index behind the workbook's look-ups: positions of a list by a key that lives in the
// list's entries. The first entry of a key wins; later ones are not stored. Private to the library.
//
// An index takes in the entries that were appended since the last look-up. An entry that changes
// its key after it was taken in makes the index stale: its owner clears it, and the next look-up
// builds it anew.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

class FirstMatchIndex {
 public:
  static constexpr std::size_t kNotFound = SIZE_MAX;

  void Clear() {
    slots_.clear();
    used_ = 0;
    taken_in_ = 0;
  }
  // Entries below this position are in the index.
  std::size_t TakenIn() const { return taken_in_; }

  // Takes in the entries from TakenIn() up to `count`. `has_key(position)` is false for an entry
  // without the key; `hash(position)` hashes the key; `same(a, b)` compares the keys of two
  // entries.
  template <class HasKey, class Hash, class Same>
  void TakeIn(std::size_t count, HasKey has_key, Hash hash, Same same) {
    for (; taken_in_ < count; ++taken_in_) {
      if (!has_key(taken_in_)) continue;
      if (used_ * 4 >= slots_.size() * 3) Grow();
      const std::uint32_t h = Fold(hash(taken_in_));
      const std::size_t self = taken_in_;
      Slot& slot = Probe(h, [&](std::size_t other) { return same(other, self); });
      if (slot.position_plus_1 != 0) continue;
      slot = {h, static_cast<std::uint32_t>(taken_in_ + 1)};
      ++used_;
    }
  }

  // The position of the first entry whose key has this hash and for which `matches(position)`.
  template <class Matches>
  std::size_t Find(std::size_t hash, Matches matches) const {
    if (slots_.empty()) return kNotFound;
    const Slot& slot = Probe(Fold(hash), matches);
    return slot.position_plus_1 == 0 ? kNotFound : slot.position_plus_1 - 1;
  }

 private:
  struct Slot {
    std::uint32_t hash = 0;
    std::uint32_t position_plus_1 = 0;  // 0: free
  };

  static std::uint32_t Fold(std::size_t hash) {
    const std::uint64_t mixed = std::uint64_t{hash} * 0x9E3779B97F4A7C15U;
    return static_cast<std::uint32_t>(mixed >> 32);
  }

  // The slot of the key, or the free slot where it belongs.
  template <class Matches>
  const Slot& Probe(std::uint32_t hash, Matches matches) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t at = hash & mask;
    while (slots_[at].position_plus_1 != 0 &&
           (slots_[at].hash != hash || !matches(slots_[at].position_plus_1 - std::size_t{1}))) {
      at = (at + 1) & mask;
    }
    return slots_[at];
  }
  template <class Matches>
  Slot& Probe(std::uint32_t hash, Matches matches) {
    return const_cast<Slot&>(static_cast<const FirstMatchIndex*>(this)->Probe(hash, matches));
  }

  void Grow() {
    std::vector<Slot> old(slots_.empty() ? 16 : slots_.size() * 2);
    old.swap(slots_);
    for (const Slot& slot : old) {
      if (slot.position_plus_1 == 0) continue;
      Probe(slot.hash, [](std::size_t) { return false; }) = slot;
    }
  }

  std::vector<Slot> slots_;  // a power of two, at most three quarters full
  std::size_t used_ = 0;
  std::size_t taken_in_ = 0;
};

inline std::size_t HashText(std::u16string_view text) {
  return std::hash<std::u16string_view>()(text);
}
inline std::size_t HashPair(std::size_t first, std::size_t second) { return first * 31 + second; }
