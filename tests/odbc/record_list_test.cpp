// Record lists: which numbers are cells, and what a cell costs.
#include "odbc/record_list.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

namespace {
std::size_t allocations = 0;
}  // namespace

// Counts the allocations of the whole test program.
void* operator new(std::size_t bytes) {
  ++allocations;
  if (void* memory = std::malloc(bytes)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace {

void AddRow(LcODBCRecordList& rows, std::initializer_list<std::u16string_view> cells) {
  rows.AddRow({cells.begin(), cells.end()});
}

TEST(RecordList, GivesCellsByNumbersFromOne) {
  LcODBCRecordList rows;
  std::u16string cell = u"before";
  EXPECT_FALSE(rows.GetData(1, 1, cell));
  EXPECT_EQ(cell, u"");
  AddRow(rows, {u"a", u"", u"a longer cell"});
  AddRow(rows, {u"d", u"e", u"f"});

  const struct {
    int row, column;
    bool found;
    std::u16string_view cell;
  } cases[] = {
      {1, 1, true, u"a"}, {1, 2, true, u""},  {2, 3, true, u"f"}, {3, 1, false, u""},
      {1, 4, false, u""}, {0, 1, false, u""}, {1, 0, false, u""},
  };
  for (const auto& test : cases) {
    cell = u"before";
    EXPECT_EQ(rows.GetData(test.row, test.column, cell), test.found) << test.row << test.column;
    EXPECT_EQ(cell, test.cell);
    EXPECT_EQ(rows.View(test.row, test.column), test.cell);
  }
}

TEST(RecordList, CountsTrailingBlanksAndGivesThemBack) {
  LcODBCRecordList rows;
  const std::u16string many(70000, u' ');  // more than are counted
  const std::u16string_view cells[] = {u"name   ", u"   ", u" x\t ", many, u"after"};
  rows.AddRow({std::begin(cells), std::end(cells)});
  AddRow(rows, {u"next"});
  const std::u16string_view views[] = {u"name", u"", u" x\t",
                                       std::u16string_view(many).substr(65535), u"after"};
  for (int column = 1; column <= 5; ++column) {
    EXPECT_EQ(rows.View(1, column), views[column - 1]);
    std::u16string cell;
    EXPECT_TRUE(rows.GetData(1, column, cell));
    EXPECT_EQ(cell, cells[column - 1]) << column;
  }
  EXPECT_EQ(rows.View(2, 1), u"next");
}

TEST(RecordList, HoldsCellsInFewBlocksAndKeepsViews) {
  constexpr int kRows = 20000;
  LcODBCRecordList rows;
  AddRow(rows, {u"first"});
  const std::u16string_view first = rows.View(1, 1);
  const std::u16string large(600000, u'y');
  AddRow(rows, {large});
  const std::size_t before = allocations;
  for (int row = 0; row < kRows; ++row) AddRow(rows, {u"some name", u"another name", u"", u"12"});
  EXPECT_LT(allocations - before, 40u) << "for " << 4 * kRows << " cells";
  EXPECT_EQ(first, u"first");
  EXPECT_EQ(rows.View(2, 1), large);
  EXPECT_EQ(rows.View(kRows + 2, 4), u"12");
}

}  // namespace
