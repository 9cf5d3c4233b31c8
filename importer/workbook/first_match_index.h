// The hash indexes behind the workbook's look-ups: the entries of a list by a text or a number that
// lives in them. The first entry of a key wins; later ones are not stored. Private to the library.
//
// An index takes in the entries that were appended since the last look-up. An entry that changes
// its key after it was taken in makes the index stale: its owner clears it, and the next look-up
// builds it anew. In a long list a look-up costs what it has to fetch from memory, so an index
// keeps its keys close together and does not touch the entries to compare.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

// Open addressing with slots of 16 bytes: {key material, entry}. `Slot` has `entry` (null: free)
// and `hash`.
template <class Slot>
class IndexSlots {
 public:
  void Clear() {
    slots_.clear();
    used_ = 0;
  }

  // The slot that holds the key, or the free one where it belongs; null while there are no slots.
  template <class Matches>
  [[nodiscard]] const Slot* Find(std::uint64_t hash, Matches matches) const {
    if (slots_.empty()) return nullptr;
    const std::size_t mask = slots_.size() - 1;
    std::size_t at = (hash * kSpread) >> (64 - std::bit_width(mask));
    while (slots_[at].entry != nullptr && !matches(slots_[at])) at = (at + 1) & mask;
    return &slots_[at];
  }

  // As Find, with room for one more key; a slot that is filled is counted with Filled().
  template <class Matches>
  Slot& FindOrMake(std::uint64_t hash, Matches matches) {
    if (used_ * 5 >= slots_.size() * 4) Grow();
    return const_cast<Slot&>(*Find(hash, matches));
  }
  void Filled() { ++used_; }

 private:
  static constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15U;

  void Grow() {
    std::vector<Slot> old(slots_.empty() ? 16 : slots_.size() * 2);
    old.swap(slots_);
    for (const Slot& slot : old) {
      if (slot.entry == nullptr) continue;
      FindOrMake(slot.hash, [](const Slot&) { return false; }) = slot;
    }
  }

  std::vector<Slot> slots_;  // a power of two, at most four fifths full
  std::size_t used_ = 0;
};

// Entries by number.
template <class T>
class NumberIndex {
 public:
  void Clear() {
    slots_.Clear();
    taken_in_ = 0;
  }

  // Takes in the entries up to position `count`. `entry_at(position)` gives the entry, null for one
  // to leave out; `key_of(entry)` its number.
  template <class EntryAt, class KeyOf>
  void TakeIn(std::size_t count, EntryAt entry_at, KeyOf key_of) {
    for (; taken_in_ < count; ++taken_in_) {
      T* entry = entry_at(taken_in_);
      if (entry == nullptr) continue;
      const std::uint64_t number = Unsigned(key_of(*entry));
      Slot& slot = slots_.FindOrMake(number, Matches(number));
      if (slot.entry != nullptr) continue;
      slot = {number, entry};
      slots_.Filled();
    }
  }

  [[nodiscard]] T* Find(std::int64_t number) const {
    const Slot* slot = slots_.Find(Unsigned(number), Matches(Unsigned(number)));
    return slot == nullptr ? nullptr : slot->entry;
  }

 private:
  struct Slot {
    std::uint64_t hash = 0;  // the number itself
    T* entry = nullptr;
  };
  [[nodiscard]] static std::uint64_t Unsigned(std::int64_t number) {
    return static_cast<std::uint64_t>(number);
  }
  [[nodiscard]] static auto Matches(std::uint64_t number) {
    return [number](const Slot& slot) { return slot.hash == number; };
  }

  IndexSlots<Slot> slots_;
  std::size_t taken_in_ = 0;  // entries below this position are in the index
};

// A key of two texts, such as owner and name.
struct TextKey {
  std::u16string_view first;
  std::u16string_view second;
};

// Entries by text.
template <class T>
class TextIndex {
 public:
  void Clear() {
    slots_.Clear();
    texts_.clear();
    taken_in_ = 0;
  }

  // As in NumberIndex; `key_of(entry)` gives a TextKey.
  template <class EntryAt, class KeyOf>
  void TakeIn(std::size_t count, EntryAt entry_at, KeyOf key_of) {
    for (; taken_in_ < count; ++taken_in_) {
      T* entry = entry_at(taken_in_);
      if (entry == nullptr) continue;
      Encode(key_of(*entry));
      const std::uint32_t hash = Hash(encoded_);
      Slot& slot = slots_.FindOrMake(hash, Matches(hash));
      if (slot.entry != nullptr) continue;
      slot = {hash, static_cast<std::uint32_t>(texts_.size()), entry};
      slots_.Filled();
      texts_ += encoded_;
    }
  }

  [[nodiscard]] T* Find(const TextKey& key) {
    Encode(key);
    const std::uint32_t hash = Hash(encoded_);
    const Slot* slot = slots_.Find(hash, Matches(hash));
    return slot == nullptr ? nullptr : slot->entry;
  }

 private:
  struct Slot {
    std::uint32_t hash = 0;
    std::uint32_t text = 0;  // where the encoded key starts in texts_
    T* entry = nullptr;
  };

  [[nodiscard]] static std::uint32_t Hash(std::string_view encoded) {
    const std::uint64_t hash = std::hash<std::string_view>()(encoded);
    return static_cast<std::uint32_t>(hash ^ (hash >> 32));
  }

  // Puts into encoded_ what no other key is encoded as: the lengths of the texts and whether they
  // are wide, then their code units in one byte each where that is enough, which is nearly always.
  void Encode(const TextKey& key) {
    char16_t bits = 0;
    for (const char16_t c : key.first) bits |= c;
    for (const char16_t c : key.second) bits |= c;
    const bool wide = bits > 0xFF;
    encoded_.clear();
    AppendNumber(key.first.size() * 2 + (wide ? 1 : 0));
    AppendNumber(key.second.size());
    AppendText(key.first, wide);
    AppendText(key.second, wide);
  }
  void AppendNumber(std::size_t number) {
    for (; number >= 0x80; number >>= 7) encoded_ += static_cast<char>(0x80 | (number & 0x7F));
    encoded_ += static_cast<char>(number);
  }
  void AppendText(std::u16string_view text, bool wide) {
    const std::size_t before = encoded_.size();
    encoded_.resize(before + text.size() * (wide ? 2 : 1));
    char* to = encoded_.data() + before;
    if (wide) {
      for (const char16_t c : text) {
        *to++ = static_cast<char>(c & 0xFF);
        *to++ = static_cast<char>(c >> 8);
      }
    } else {
      for (const char16_t c : text) *to++ = static_cast<char>(c);
    }
  }

  // The slot of the key in encoded_. Its lengths come first, so no other key starts like it.
  [[nodiscard]] auto Matches(std::uint32_t hash) const {
    return [this, hash](const Slot& slot) {
      return slot.hash == hash && texts_.compare(slot.text, encoded_.size(), encoded_) == 0;
    };
  }

  IndexSlots<Slot> slots_;
  std::string texts_;         // the encoded keys, one after the other
  std::string encoded_;       // the key in hand
  std::size_t taken_in_ = 0;  // entries below this position are in the index
};
