// The rows of one result set, and the descriptions of its columns.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "importer/workbook/object.h"
#include "platform/platform.h"

// A result column.
class LC_EXPORT LcODBCColumn : public LcObject {
 public:
  LcODBCColumn(const char16_t* name, short sql_type);
  ~LcODBCColumn() override;
  const char* GetRuntimeClass() const override;
  [[nodiscard]] const std::u16string& GetName() const { return name_; }  // at most 29 characters
  // 1 for SQL_LONGVARBINARY and SQL_LONGVARCHAR, else 0 (also for SQL_WLONGVARCHAR).
  [[nodiscard]] int IsLong() const;

 private:
  std::u16string name_;
  short sql_type_;
};

// Rows of texts, read by row and column numbers that begin at 1. Cells lie in few large blocks. The
// same class holds column descriptions. Not copyable.
class LC_EXPORT LcODBCRecordList : public LcObject {
 public:
  LcODBCRecordList();
  ~LcODBCRecordList() override;
  LcODBCRecordList(const LcODBCRecordList&) = delete;
  LcODBCRecordList& operator=(const LcODBCRecordList&) = delete;
  const char* GetRuntimeClass() const override;

  [[nodiscard]] int GetRowCount() const;     // of rows or column descriptions
  [[nodiscard]] int GetColumnCount() const;  // of the first row; 0 without rows
  // A copy of the cell; none for numbers out of range. A NULL reads as empty.
  [[nodiscard]] std::optional<std::u16string> WholeCell(int row, int column) const;
  // The same for hosts: sets `out`, and gives false with `out` empty where there is no cell.
  [[nodiscard]] bool GetData(int row, int column, std::u16string& out) const;
  // The cell without its trailing blanks and without a copy, empty out of range; valid as long as
  // the list is.
  [[nodiscard]] std::u16string_view View(int row, int column) const;

  // For the fetch layer: appends a row with copies of the cells. Memory that runs out throws
  // std::bad_alloc and leaves the list as it was.
  void AddRow(std::span<const std::u16string_view> cells);

  // For column descriptions.
  void AppendColumn(std::unique_ptr<LcODBCColumn> column);
  [[nodiscard]] const LcODBCColumn* GetColumn(
      int position) const;  // 0-based; null when there is none

 private:
  struct Storage;
  std::unique_ptr<Storage> storage_;
};
