#include "host/heap.h"

#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <climits>
#include <cstdint>
#include <cstdlib>

namespace wbhost {
namespace {

constexpr int kMiB = 1 << 20;
// What an exact import of 5,000 tables with 62,000 columns takes fits in.
constexpr int kRoom = 64 * kMiB;
// By how much the heap grows beyond that: what the C library grows it by itself.
constexpr int kStep = 128 * 1024;
constexpr std::uintptr_t kLargePage = 2 * kMiB;

}  // namespace

void MakeRoomInHeap() {
  // What is freed is not given back, and the largest blocks that the library lets lie in the heap
  // do: the room is for what comes next.
  mallopt(M_TRIM_THRESHOLD, INT_MAX);
  mallopt(M_MMAP_THRESHOLD, 32 * kMiB);
  mallopt(M_TOP_PAD, kRoom);
  const auto begin = reinterpret_cast<std::uintptr_t>(sbrk(0));
  void* volatile more_than_is_left = std::malloc(kMiB);
  std::free(more_than_is_left);
  mallopt(M_TOP_PAD, kStep);
  const auto end = reinterpret_cast<std::uintptr_t>(sbrk(0));
  const std::uintptr_t first = (begin + kLargePage - 1) / kLargePage * kLargePage;
  if (first >= end) return;
  static_cast<void>(madvise(reinterpret_cast<void*>(first), end - first, MADV_HUGEPAGE));
}

}  // namespace wbhost
