// Readers of columns, of their types by number, and of defaults that are asked apart.
#pragma once

#include "routes/exact/model.h"

namespace odbcimport::exact {

class ColumnReader : public RowReader {
 public:
  // `reports`: tells the host of each column and table.
  ColumnReader(Model& model, bool reports) : model_(model), reports_(reports) {}
  void Mark() override { mark_ = model_.columns.size(); }
  void Undo() override;
  void Read(const Row& row) override;
  // Reports the tables that were not reported whole yet.
  void Finish();

 private:
  void Report(std::uint32_t table, const LcWorkbookColumn& column);
  void ReadDetails(const Row& row, const TableEntry& entry, LcWorkbookColumn& column);

  Model& model_;
  bool reports_;
  std::size_t mark_ = 0;
  std::uint32_t current_ = kNoTable;  // the table whose rows are coming
  std::vector<bool> reported_;
};

class ColumnTypeReader : public RowReader {
 public:
  explicit ColumnTypeReader(Model& model) : model_(model) {}
  void Read(const Row& row) override { model_.types.Tell(row); }

 private:
  Model& model_;
};

class DefaultReader : public RowReader {
 public:
  explicit DefaultReader(Model& model) : model_(model) {}
  void Read(const Row& row) override;

 private:
  Model& model_;
};

// Gives the columns their types, puts them into their tables in order, and these into the list
// (null: they stay the model's). `whole` false: reading them ended early, and tables of which some
// may be missing are left out.
void FinishColumns(Model& model, bool whole, LcWorkbookTableList* list);

}  // namespace odbcimport::exact
