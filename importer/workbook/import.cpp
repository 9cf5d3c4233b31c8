// The base of an importer.
#include "importer/workbook/import.h"

#include <algorithm>
#include <vector>

LcWorkbookImport::LcWorkbookImport(LcWorkbook* workbook) {
  if (workbook == nullptr) return;
  targets.owner_names = &workbook->owner_names;
  targets.table_names = &workbook->table_names;
  targets.column_names = &workbook->column_names;
  targets.tables = &workbook->tables;
  targets.data_types = &workbook->data_types;
  targets.operators = &workbook->operators;
  targets.boolean_functions = &workbook->boolean_functions;
  targets.functions = &workbook->functions;
  targets.aggregates = &workbook->aggregates;
  targets.procedures = &workbook->procedures;
}

LcWorkbookImport::~LcWorkbookImport() = default;

namespace {

std::vector<LcWorkbookColumn*> SortedSet(std::vector<LcWorkbookColumn*> columns) {
  std::sort(columns.begin(), columns.end());
  columns.erase(std::unique(columns.begin(), columns.end()), columns.end());
  return columns;
}

}  // namespace

void LcWorkbookImport::SetKeyType(LcWorkbookForeignKey* key) const {
  if (key == nullptr) return;
  bool one_to_one = false;
  if (key->GetForeignKey() != nullptr && !key->GetForeignKey()->IsEmpty()) {
    const std::vector<LcWorkbookColumn*> side = SortedSet(key->GetForeignKey()->GetColumns());
    const LcWorkbookTable* table = side.front()->GetParentTable();
    one_to_one = table != nullptr && side == SortedSet(table->GetPrimaryKey().GetColumns());
  }
  key->SetOneToOne(one_to_one);
}
