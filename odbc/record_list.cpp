// The storage of record lists: a row is one record in a block of memory, and blocks grow up to a
// megabyte, so that a list of any size makes few allocations and a cell costs 6 bytes beyond its
// text. Trailing blanks are counted, not kept: catalogs with names of fixed width (Red Brick's are
// 128 characters) would otherwise be mostly blanks.
#include "odbc/record_list.h"

#include <sqlext.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <vector>

namespace {

constexpr std::size_t kFirstBlockBytes = 4096;
constexpr std::size_t kLargestBlockBytes = std::size_t{1024} * 1024;
constexpr std::size_t kRowsAChunk = 512;  // a power of two

// A row as it lies in a block: the number of cells, the end of each cell's text in characters from
// the beginning of the row's text, the number of each cell's trailing blanks, then the texts
// without them, one after the other.
struct RowView {
  const std::uint32_t* numbers;

  std::uint32_t CellCount() const { return numbers[0]; }
  bool HasCell(int column) const {
    return column >= 1 && static_cast<std::uint32_t>(column) <= CellCount();
  }
  const std::uint16_t* Blanks() const {
    return reinterpret_cast<const std::uint16_t*>(numbers + 1 + CellCount());
  }
  std::u16string_view Cell(std::uint32_t index) const {
    const std::uint32_t begin = index == 0 ? 0 : numbers[index];
    const auto* text = reinterpret_cast<const char16_t*>(Blanks() + CellCount());
    return {text + begin, numbers[index + 1] - begin};
  }
};

// How many of the cell's last characters are blanks that need not be kept.
std::uint16_t CountTrailingBlanks(std::u16string_view cell) {
  constexpr std::uint64_t kFourBlanks = 0x0020002000200020;
  std::size_t kept = cell.size();
  for (; kept >= 4; kept -= 4) {  // four characters at a time
    std::uint64_t four;
    std::memcpy(&four, cell.data() + kept - 4, sizeof four);
    if (four != kFourBlanks) break;
  }
  while (kept > 0 && cell[kept - 1] == u' ') --kept;
  return static_cast<std::uint16_t>(std::min<std::size_t>(cell.size() - kept, 0xFFFF));
}

std::size_t RoundUpToNumber(std::size_t bytes) {
  constexpr std::size_t kNumber = sizeof(std::uint32_t);
  return (bytes + kNumber - 1) / kNumber * kNumber;
}

}  // namespace

LcODBCColumn::LcODBCColumn(const char16_t* name, short sql_type)
    : name_(name), sql_type_(sql_type) {}
LcODBCColumn::~LcODBCColumn() = default;
const char* LcODBCColumn::GetRuntimeClass() const { return "LcODBCColumn"; }

int LcODBCColumn::IsLong() const {
  return sql_type_ == SQL_LONGVARBINARY || sql_type_ == SQL_LONGVARCHAR ? 1 : 0;
}

struct __attribute__((visibility("hidden"))) LcODBCRecordList::Storage {
  std::vector<std::unique_ptr<std::byte[]>> blocks;
  std::byte* free = nullptr;  // in the last block
  std::size_t free_bytes = 0;
  std::size_t next_block_bytes = kFirstBlockBytes;
  std::vector<RowView*> row_chunks;  // in the blocks too, so that a long list is never copied
  std::size_t row_count = 0;
  std::vector<std::unique_ptr<LcODBCColumn>> columns;

  // Null for a number that is out of range; they begin at 1.
  const RowView* Row(int number) const {
    if (number < 1 || static_cast<std::size_t>(number) > row_count) return nullptr;
    const std::size_t index = static_cast<std::size_t>(number) - 1;
    return &row_chunks[index / kRowsAChunk][index % kRowsAChunk];
  }
  void MakeRoomForRow() {
    if (row_count < row_chunks.size() * kRowsAChunk) return;
    constexpr std::size_t kBytes = kRowsAChunk * sizeof(RowView);
    std::size_t room = kBytes + sizeof(RowView);
    void* begin = Take(room);
    row_chunks.push_back(static_cast<RowView*>(std::align(alignof(RowView), kBytes, begin, room)));
  }
  void AppendRow(RowView row) {
    row_chunks.back()[row_count % kRowsAChunk] = row;
    ++row_count;
  }

  std::byte* Take(std::size_t bytes) {
    if (bytes > free_bytes) {
      const std::size_t block_bytes = std::max(bytes, next_block_bytes);
      blocks.push_back(std::make_unique_for_overwrite<std::byte[]>(block_bytes));
      next_block_bytes = std::min(next_block_bytes * 2, kLargestBlockBytes);
      free = blocks.back().get();
      free_bytes = block_bytes;
    }
    std::byte* taken = free;
    free += bytes;
    free_bytes -= bytes;
    return taken;
  }
  // The last bytes of what was taken last.
  void GiveBack(std::size_t bytes) {
    free -= bytes;
    free_bytes += bytes;
  }
};

LcODBCRecordList::LcODBCRecordList() : storage_(std::make_unique<Storage>()) {}
LcODBCRecordList::~LcODBCRecordList() = default;
const char* LcODBCRecordList::GetRuntimeClass() const { return "LcODBCRecordList"; }

int LcODBCRecordList::GetRowCount() const {
  return static_cast<int>(storage_->row_count + storage_->columns.size());
}

int LcODBCRecordList::GetColumnCount() const {
  const RowView* first = storage_->Row(1);
  return first == nullptr ? 0 : static_cast<int>(first->CellCount());
}

std::optional<std::u16string> LcODBCRecordList::WholeCell(int row, int column) const {
  const RowView* record = storage_->Row(row);
  if (record == nullptr || !record->HasCell(column)) return std::nullopt;
  const auto index = static_cast<std::uint32_t>(column) - 1;
  return std::u16string(record->Cell(index)).append(record->Blanks()[index], u' ');
}

bool LcODBCRecordList::GetData(int row, int column, std::u16string& out) const {
  std::optional<std::u16string> cell = WholeCell(row, column);
  const bool there = cell.has_value();
  out = std::move(cell).value_or(std::u16string());
  return there;
}

std::u16string_view LcODBCRecordList::View(int row, int column) const {
  const RowView* record = storage_->Row(row);
  if (record == nullptr || !record->HasCell(column)) return {};
  return record->Cell(static_cast<std::uint32_t>(column) - 1);
}

void LcODBCRecordList::AddRow(std::span<const std::u16string_view> cells) {
  storage_->MakeRoomForRow();
  // Room for the blanks too, which are not known yet; what is left over is given back.
  std::size_t characters = 0;
  for (const std::u16string_view cell : cells) characters += cell.size();
  const std::size_t head_bytes =
      sizeof(std::uint32_t) + cells.size() * (sizeof(std::uint32_t) + sizeof(std::uint16_t));
  const std::size_t room = RoundUpToNumber(head_bytes + characters * sizeof(char16_t));
  std::byte* record = storage_->Take(room);
  auto* numbers = reinterpret_cast<std::uint32_t*>(record);
  auto* blanks = reinterpret_cast<std::uint16_t*>(numbers + 1 + cells.size());
  auto* text = reinterpret_cast<char16_t*>(blanks + cells.size());
  *numbers = static_cast<std::uint32_t>(cells.size());
  std::uint32_t end = 0;
  for (const std::u16string_view cell : cells) {
    *blanks = CountTrailingBlanks(cell);
    const std::size_t kept = cell.size() - *blanks++;
    std::copy_n(cell.begin(), kept, text + end);
    end += static_cast<std::uint32_t>(kept);
    *++numbers = end;
  }
  storage_->GiveBack(room - RoundUpToNumber(head_bytes + end * sizeof(char16_t)));
  storage_->AppendRow(RowView{reinterpret_cast<const std::uint32_t*>(record)});
}

void LcODBCRecordList::AppendColumn(std::unique_ptr<LcODBCColumn> column) {
  storage_->columns.push_back(std::move(column));
}

const LcODBCColumn* LcODBCRecordList::GetColumn(int position) const {
  const auto& columns = storage_->columns;
  if (position < 0 || static_cast<std::size_t>(position) >= columns.size()) return nullptr;
  return columns[static_cast<std::size_t>(position)].get();
}
