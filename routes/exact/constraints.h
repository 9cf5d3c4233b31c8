// Keys, foreign keys and checks: gathered from rows (one a key with lists of column numbers, or one
// a column), and put into the workbook when all of them are known.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "routes/exact/model.h"

namespace odbcimport::exact {

// A constraint as rows told of it.
struct Constraint {
  enum class Sort { kPrimary, kUnique, kForeign, kCheck, kExclusion };
  struct Part {
    std::int64_t order = 0;     // of the key
    std::int64_t position = 0;  // of the column; 0: by name
    std::string column;
    std::int64_t target_position = 0;
    std::string target_column;
  };

  Sort sort = Sort::kPrimary;
  std::uint32_t table = kNoTable;
  std::int64_t type_id = 0;  // of a domain's check
  std::string name;
  std::string id;       // tells constraints of one name apart
  LcText defined_name;  // what the text of the table calls a foreign key; absent: `name`
  std::vector<Part> parts;
  std::uint32_t target = kNoTable;  // of the tables that the host chose
  bool target_by_id = false;
  std::int64_t target_id = 0;
  std::string target_schema;
  std::string target_table;
  std::vector<std::int64_t> set_positions;
  LcText on_update;
  LcText on_delete;
  LcText match;
  LcText expression;
  LcText comment;
  LcOptions options;
  LeDeferrable deferrable = dfNot;
  bool enforced = true;
};

class Constraints {
 public:
  explicit Constraints(Model& model) : model_(model) {}

  [[nodiscard]] std::vector<Constraint>& all() { return all_; }
  // The constraint that a row belongs to, made where the row is its first one.
  [[nodiscard]] Constraint& Find(Constraint::Sort sort, std::uint32_t table, std::string_view name,
                                 std::string_view id);
  [[nodiscard]] Constraint* FindForeignKey(std::uint32_t table, std::string_view name);

  // Primary and unique keys into tables and details; what columns said of a primary key counts
  // where no row told of one.
  void FinishKeys();
  void FinishChecks();
  // The primary keys that columns alone tell of.
  static void PrimaryKeysFromColumns(Model& model);
  // One relationship a foreign key, on both tables. The referenced tables that the workbook does
  // not hold have to be known by then (see ListOutsideTargets).
  void FinishForeignKeys();
  // Tables that foreign keys refer to and that were not read: by number, or by owner and name where
  // the row leaves open how the server spells the names of table and columns.
  struct OutsideTargets {
    std::vector<std::string> ids;
    std::vector<std::pair<std::string, std::string>> names;
  };
  [[nodiscard]] OutsideTargets ListOutsideTargets() const;

  // What was read of tables outside of the workbook, for their names.
  void SetOutside(Model* outside) { outside_ = outside; }
  // The checks of a domain.
  [[nodiscard]] std::vector<LcCheckDetails> ChecksOf(std::int64_t type_id) const;
  void Forget(std::size_t size);

 private:
  void FinishKey(Constraint& constraint);
  void FinishForeignKey(Constraint& constraint);
  void AddOutsideKey(Constraint& constraint, const std::vector<LcWorkbookColumn*>& columns);
  void NameOutsideTarget(const Constraint& constraint, LcOutsideKey& key);
  [[nodiscard]] LcForeignKeyDetails DetailsOf(Constraint& constraint) const;
  [[nodiscard]] LcCheckDetails CheckOf(const Constraint& constraint) const;
  [[nodiscard]] std::vector<LcWorkbookColumn*> ColumnsOf(const Constraint& constraint);
  [[nodiscard]] static std::vector<LcWorkbookColumn*> TargetColumnsOf(Model& model,
                                                                      const Constraint& constraint,
                                                                      std::uint32_t target);
  [[nodiscard]] static bool IsUnique(const LcWorkbookTable& table,
                                     const std::vector<LcWorkbookColumn*>& columns);
  [[nodiscard]] static std::uint64_t HashOf(Constraint::Sort sort, std::uint32_t table,
                                            std::string_view name, std::string_view id);
  [[nodiscard]] std::uint32_t PlaceOf(std::uint64_t hash, Constraint::Sort sort,
                                      std::uint32_t table, std::string_view name,
                                      std::string_view id) const;

  Model& model_;
  Model* outside_ = nullptr;
  std::vector<Constraint> all_;
  HashedPlaces places_;
};

// Reads `keys`, `foreign_keys`, `checks`, or all of them as `constraints`.
class ConstraintReader : public RowReader {
 public:
  ConstraintReader(Model& model, Constraints& constraints, Kind kind)
      : model_(model), constraints_(constraints), kind_(kind) {}
  void Mark() override { mark_ = constraints_.all().size(); }
  void Undo() override { constraints_.Forget(mark_); }
  void Read(const Row& row) override;

 private:
  [[nodiscard]] bool SortOf(const Row& row, Constraint::Sort& sort) const;
  [[nodiscard]] bool OnlyKeepsNullOut(const Row& row, std::uint32_t table);
  void ReadFacts(const Row& row, Constraint& constraint);
  void ReadTarget(const Row& row, Constraint& constraint);
  void ReadParts(const Row& row, Constraint& constraint);

  Model& model_;
  Constraints& constraints_;
  Kind kind_;
  std::size_t mark_ = 0;
  std::vector<std::int64_t> numbers_;
};

class ForeignKeyRuleReader : public RowReader {
 public:
  ForeignKeyRuleReader(Model& model, Constraints& constraints)
      : model_(model), constraints_(constraints) {}
  void Read(const Row& row) override;

 private:
  Model& model_;
  Constraints& constraints_;
};

}  // namespace odbcimport::exact
