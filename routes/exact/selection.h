// Which tables a host wants: its choice of owners and tables, as marks for the statements and as a
// question about each table that a statement gave.
#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "importer/workbook/import.h"
#include "routes/exact/statement.h"

namespace odbcimport::exact {

class Selection {
 public:
  // What the choices mean for tables and views; a selection wins over the owner restriction.
  explicit Selection(const LcImportChoices& choices);
  // One table, for its columns' names; an empty owner is any.
  Selection(std::string owner, std::string table);
  // Tables by owner and name.
  explicit Selection(std::vector<std::pair<std::string, std::string>> tables);
  [[nodiscard]] static Selection OfOwner(const std::string& owner);
  [[nodiscard]] static Selection OfEverything() { return {}; }

  [[nodiscard]] bool IsEmpty() const { return owners_.empty() && tables_.empty(); }
  [[nodiscard]] bool HasTables() const { return !tables_.empty(); }
  [[nodiscard]] bool Wants(std::string_view schema, std::string_view table) const;
  [[nodiscard]] bool WantsSchema(std::string_view schema) const;

  // Fills the marks of a statement. `schema`: narrowed to that one, for dialects that read schema
  // by schema; null: all.
  void FillMarks(const std::string* schema, MarkValues& values) const;
  // The schemas that the choice names, for dialects that read schema by schema; none where it
  // names none.
  [[nodiscard]] std::vector<std::string> Schemas() const;

 private:
  struct Table {
    std::string owner;
    std::string name;
  };
  Selection() = default;
  [[nodiscard]] static std::string KeyOf(std::string_view owner, std::string_view name);

  std::vector<std::string> owners_;
  std::vector<Table> tables_;
  std::unordered_set<std::string> owner_set_;
  std::unordered_set<std::string> table_set_;  // by KeyOf; an empty owner is any
};

}  // namespace odbcimport::exact
