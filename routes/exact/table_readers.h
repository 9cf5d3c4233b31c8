// Readers of tables and views: the objects themselves, names for a selection dialog, and what is
// asked apart because it is dear.
#pragma once

#include "routes/exact/model.h"
#include "routes/exact/selection.h"

namespace odbcimport::exact {

class TableReader : public RowReader {
 public:
  enum class Wanted { kByItems, kEveryKind };
  TableReader(Model& model, const Selection& selection, Wanted wanted = Wanted::kByItems)
      : model_(model), selection_(selection), wanted_(wanted) {}
  void Mark() override { mark_ = model_.tables.size(); }
  void Undo() override;
  void Read(const Row& row) override;
  // Takes the texts of CREATE statements apart, once all tables are read and before they move.
  void Finish();
  // The numbers of parents that were not read.
  void ListOutsideParents(std::vector<std::string>& ids) const;
  // Resolves parents, once all tables are read and can be found. `outside`: those that the host did
  // not choose.
  void SettleParents(const Model& outside);

 private:
  struct Parents {
    std::int64_t table_id = 0;
    std::vector<std::int64_t> ids;
  };
  // The text of a table in `definitions_`. What it becomes is many small pieces that go again: the
  // names of all tables are made before, so that they lie side by side and not between those.
  struct Definition {
    std::size_t table = 0;  // in the model
    std::size_t begin = 0;
    std::size_t size = 0;
  };
  [[nodiscard]] bool IsWanted(LeTableKind kind, const TableEntry& entry) const;
  void AddSequence(const Row& row, std::string_view schema);
  void ReadDetails(const Row& row, LeTableKind kind, TableEntry& entry);
  static void ReadSynonym(const Row& row, TextStore& texts, LcWorkbookTable& table);

  Model& model_;
  const Selection& selection_;
  Wanted wanted_;
  std::size_t mark_ = 0;
  std::vector<Parents> parents_;
  std::string definitions_;  // UTF-8
  std::vector<Definition> defined_;
};

// Fills the list of names: tables, views and synonyms, as far as the items ask for them.
class TableNameReader : public RowReader {
 public:
  TableNameReader(Model& model, const Selection& selection, std::uint32_t items)
      : model_(model), selection_(selection), items_(items) {}
  void Mark() override { mark_ = found_.size(); }
  void Undo() override { found_.resize(mark_); }
  void Read(const Row& row) override;
  // Appends what was found, in order.
  void Append(LcTableInfoList& list);

 private:
  Model& model_;
  const Selection& selection_;
  std::uint32_t items_;
  std::vector<std::unique_ptr<LcTableInfo>> found_;
  std::size_t mark_ = 0;
};

class ViewTextReader : public RowReader {
 public:
  explicit ViewTextReader(Model& model) : model_(model) {}
  void Read(const Row& row) override;

 private:
  Model& model_;
};

class TableOptionReader : public RowReader {
 public:
  explicit TableOptionReader(Model& model) : model_(model) {}
  void Read(const Row& row) override;

 private:
  Model& model_;
};

}  // namespace odbcimport::exact
