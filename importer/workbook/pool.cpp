#include "importer/workbook/pool.h"

#include <sys/mman.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <mutex>
#include <new>

// A sanitizer watches each object for itself; the pool's own test is compiled without that.
#ifndef LC_NO_POOL
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define LC_NO_POOL 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) || \
    __has_feature(memory_sanitizer)
#define LC_NO_POOL 1
#endif
#endif
#endif
#ifndef LC_NO_POOL
#define LC_NO_POOL 0
#endif

namespace {

constexpr std::size_t kStep = 8;       // between sizes
constexpr std::size_t kLargest = 256;  // larger objects are few
constexpr std::size_t kSlabBytes = std::size_t{64} * 1024;
// The heap keeps a few words before each block: this much less, and slabs stand side by side.
constexpr std::size_t kSlabRequest = kSlabBytes - 64;

struct FreeCell {
  FreeCell* next;
};

// A block of cells of one size, found from any of them by its alignment. Cells that were never used
// lie behind those that were, so that a slab takes memory as it fills.
struct Slab {
  Slab* next = nullptr;  // among the slabs of its size with room
  Slab* previous = nullptr;
  FreeCell* free = nullptr;
  std::uint32_t fresh = sizeof(Slab);  // where the first cell that was never used starts
  std::uint32_t used = 0;              // cells
};
// The cells begin behind it: those of 16 bytes and multiples are aligned to 16.
static_assert(sizeof(Slab) % 16 == 0);

Slab* SlabOf(void* memory) {
  return reinterpret_cast<Slab*>(reinterpret_cast<std::uintptr_t>(memory) & ~(kSlabBytes - 1));
}

// The slabs of one size.
class Cells {
 public:
  void* Allocate(std::size_t size) {
    const std::lock_guard lock(mutex_);
    if (with_room_ == nullptr) Add();
    Slab& slab = *with_room_;
    void* memory = slab.free;
    if (memory != nullptr) {
      slab.free = slab.free->next;
    } else {
      memory = reinterpret_cast<char*>(&slab) + slab.fresh;
      slab.fresh += static_cast<std::uint32_t>(size);
    }
    ++slab.used;
    if (!HasRoom(slab, size)) Unlink(slab);
    return memory;
  }

  void Free(void* memory, std::size_t size) noexcept {
    const std::lock_guard lock(mutex_);
    Slab& slab = *SlabOf(memory);
    if (!HasRoom(slab, size)) Link(slab);
    slab.free = new (memory) FreeCell{slab.free};
    // One empty slab stays for an object that comes and goes.
    if (--slab.used > 0 || (slab.next == nullptr && slab.previous == nullptr)) return;
    Unlink(slab);
    std::free(&slab);
  }

 private:
  static bool HasRoom(const Slab& slab, std::size_t size) {
    return slab.free != nullptr || slab.fresh + size <= kSlabRequest;
  }
  void Add() {
    void* memory = nullptr;
    if (posix_memalign(&memory, kSlabBytes, kSlabRequest) != 0) throw std::bad_alloc();
    // Who fills one slab of a size fills more: the system gives their pages at once for a fraction
    // of what it takes for each. An older one does not know the word, and gives them one by one.
    if (filled_) static_cast<void>(madvise(memory, kSlabBytes, MADV_POPULATE_WRITE));
    filled_ = true;
    Link(*new (memory) Slab);
  }
  void Link(Slab& slab) {
    slab.previous = nullptr;
    slab.next = with_room_;
    if (slab.next != nullptr) slab.next->previous = &slab;
    with_room_ = &slab;
  }
  void Unlink(Slab& slab) {
    (slab.previous != nullptr ? slab.previous->next : with_room_) = slab.next;
    if (slab.next != nullptr) slab.next->previous = slab.previous;
    slab.next = nullptr;
    slab.previous = nullptr;
  }

  std::mutex mutex_;
  Slab* with_room_ = nullptr;
  bool filled_ = false;  // a slab, since the process began
};

constexpr std::size_t RoundUp(std::size_t size) {
  return size <= kStep ? kStep : (size + kStep - 1) / kStep * kStep;
}

// Never destroyed: a workbook may go after everything else has.
Cells& CellsOf(std::size_t rounded) {
  static constinit std::array<Cells, kLargest / kStep> cells;
  return cells[rounded / kStep - 1];
}

}  // namespace

void* LcAllocate(std::size_t size) {
  if (LC_NO_POOL != 0 || size > kLargest) return ::operator new(size);
  const std::size_t rounded = RoundUp(size);
  return CellsOf(rounded).Allocate(rounded);
}

void LcFree(void* memory, std::size_t size) noexcept {
  if (memory == nullptr) return;
  if (LC_NO_POOL != 0 || size > kLargest) {
    ::operator delete(memory);
    return;
  }
  const std::size_t rounded = RoundUp(size);
  CellsOf(rounded).Free(memory, rounded);
}
