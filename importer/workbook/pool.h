// Memory for the many small objects of a workbook: columns, types, keys, their details and texts.
//
// They are all of a few sizes and live as long as the workbook, while an import makes and drops far
// more beside them. Apart from the heap, an object takes its size and nothing more, what is dropped
// leaves no holes between what stays, and the memory of a workbook goes back when it goes.
#pragma once

#include <cstddef>

#include "importer/workbook/export.h"

// Memory for an object of that size in bytes; the heap's, where it is larger than what the pool
// keeps. Aligned to 8 bytes, and to 16 where the size is a multiple of 16, as it is of every type
// that asks for 16; a type that asks for more does not belong here. Throws std::bad_alloc. Any
// thread may allocate, and free what another has allocated.
[[nodiscard]] LC_WORKBOOK_EXPORT void* LcAllocate(std::size_t size);
// Gives it back; `size` is what was asked for. Null is let pass.
LC_WORKBOOK_EXPORT void LcFree(void* memory, std::size_t size) noexcept;

// For the standard containers of such objects.
template <class T>
struct LcPoolAllocator {
  using value_type = T;
  LcPoolAllocator() = default;
  template <class Other>
  // NOLINTNEXTLINE(google-explicit-constructor)
  LcPoolAllocator(const LcPoolAllocator<Other>& /*other*/) {}
  T* allocate(std::size_t count) { return static_cast<T*>(LcAllocate(count * sizeof(T))); }
  void deallocate(T* memory, std::size_t count) { LcFree(memory, count * sizeof(T)); }
  friend bool operator==(const LcPoolAllocator& /*a*/, const LcPoolAllocator& /*b*/) {
    return true;
  }
};

// The operators of a class that is allocated in the pool; an array of it is not.
#define LC_POOLED                                                                       \
  static void* operator new(std::size_t size) { return LcAllocate(size); }              \
  static void* operator new(std::size_t, void* place) noexcept { return place; }        \
  static void operator delete(void* memory, std::size_t size) { LcFree(memory, size); } \
  static void operator delete(void*, void*) noexcept {}
