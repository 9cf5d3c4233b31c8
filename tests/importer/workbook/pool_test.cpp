// The pool itself, which the library leaves to the heap under a sanitizer.
#include "importer/workbook/pool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <random>
#include <thread>
#include <utility>
#include <vector>

namespace {

struct Piece {
  unsigned char* memory;
  std::size_t size;
  unsigned char mark;
};

Piece Make(std::size_t size, unsigned char mark) {
  auto* memory = static_cast<unsigned char*>(LcAllocate(size));
  const std::size_t alignment = size != 0 && size % 16 == 0 ? 16 : 8;
  EXPECT_EQ(reinterpret_cast<std::uintptr_t>(memory) % alignment, 0U) << size;
  std::memset(memory, mark, size);
  return {memory, size, mark};
}

// False where somebody else has written into it.
bool Drop(const Piece& piece) {
  bool own = true;
  for (std::size_t i = 0; i < piece.size; ++i) own = own && piece.memory[i] == piece.mark;
  LcFree(piece.memory, piece.size);
  return own;
}

TEST(Pool, GivesEachItsOwnMemoryWhoeverGivesItBack) {
  // Each thread makes pieces of all sizes, drops some, and leaves the rest to the next one.
  constexpr std::size_t kThreads = 4;
  std::array<std::vector<Piece>, kThreads> left;
  for (int round = 0; round < 4; ++round) {
    std::vector<std::thread> threads;
    std::array<bool, kThreads> own{};
    for (std::size_t number = 0; number < kThreads; ++number) {
      threads.emplace_back([&, number] {
        std::mt19937 random(static_cast<unsigned>(number) + 1);
        bool good = true;
        std::vector<Piece> pieces;
        for (int i = 0; i < 20'000; ++i) {
          if (pieces.empty() || random() % 3 != 0) {
            pieces.push_back(Make(random() % 300, static_cast<unsigned char>(random())));
          } else {
            std::swap(pieces[random() % pieces.size()], pieces.back());
            good = Drop(pieces.back()) && good;
            pieces.pop_back();
          }
        }
        for (const Piece& piece : left[number]) good = Drop(piece) && good;
        left[number] = std::move(pieces);
        own[number] = good;
      });
    }
    for (std::thread& thread : threads) thread.join();
    for (const bool good : own) EXPECT_TRUE(good);
    std::rotate(left.begin(), left.begin() + 1, left.end());
  }
  for (const auto& pieces : left) {
    for (const Piece& piece : pieces) EXPECT_TRUE(Drop(piece));
  }
}

}  // namespace
