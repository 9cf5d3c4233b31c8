// Indexes: every one that the server has, those that keys made among them.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "routes/exact/constraints.h"
#include "routes/exact/model.h"

namespace odbcimport::exact {

class IndexReader : public RowReader {
 public:
  IndexReader(Model& model, Constraints& constraints) : model_(model), constraints_(constraints) {}
  void Mark() override;
  void Undo() override;
  void Read(const Row& row) override;
  // Puts the indexes into their tables.
  void Finish();

 private:
  struct Part {
    std::int64_t order = 0;
    LcIndexPart part;
  };
  struct Index {
    std::uint32_t table = kNoTable;
    std::string name;
    LcIndexDetails details;
    std::vector<Part> parts;
    std::unique_ptr<IndexDefinition> definition;
    bool is_key = false;
  };

  [[nodiscard]] Index& Find(std::uint32_t table, std::string_view name, bool& is_new);
  void ReadFacts(const Row& row, Index& index);
  void ReadKey(const Row& row, Index& index);
  void ReadPart(const Row& row, Index& index);
  void ReadParts(const Row& row, Index& index);
  void Define(Index& index);
  [[nodiscard]] bool IsOwnCollation(const LcWorkbookColumn* column, std::string_view collation);
  void SetOrder(std::int64_t order, LcIndexPart& part) const;
  void SetNames(std::size_t place, const ColumnEntry* column, LcIndexPart& part);

  Model& model_;
  Constraints& constraints_;
  std::vector<Index> all_;
  HashedPlaces places_;
  std::size_t mark_ = 0;
  std::size_t constraint_mark_ = 0;
  std::vector<std::int64_t> positions_;
  std::vector<std::int64_t> orders_;
  std::vector<std::int64_t> operator_classes_;
  std::vector<std::int64_t> collations_;
};

}  // namespace odbcimport::exact
