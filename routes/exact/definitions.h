// What the texts of CREATE statements add to what rows told: to tables and columns once these are
// there, to keys and foreign keys by their columns.
#pragma once

#include <string_view>

#include "routes/exact/constraints.h"
#include "routes/exact/model.h"

namespace odbcimport::exact {

// The text of a table or view, from a row of `tables`. What it says of the table itself is settled
// at once, the rest waits in the entry.
void TakeDefinition(Model& model, std::string_view text, TableEntry& entry);

// Names, collations, expressions, ... of columns, and checks, once columns are in their tables.
void DefineColumns(Model& model);
// The names of primary and unique keys, once those are in their tables.
void DefineKeys(Model& model);
// The names of foreign keys and when they are checked, before they become relationships.
void DefineForeignKeys(Model& model, Constraints& constraints);

// Reads `definitions`: what foreign keys do, where their own rows did not tell.
class DefinitionReader : public RowReader {
 public:
  DefinitionReader(Model& model, Constraints& constraints)
      : model_(model), constraints_(constraints) {}
  void Read(const Row& row) override;

 private:
  Model& model_;
  Constraints& constraints_;
};

}  // namespace odbcimport::exact
