// Where the results of an import go: the workbook's lists.
#pragma once

#include <memory>
#include <utility>

#include "importer/workbook/import.h"

namespace odbcimport {

// Whoever has it writes; what only reads gets none, or a const session, which gives nothing to
// write on.
class Sink {
 public:
  Sink(LcWorkbookImport& base, LcWorkbook* workbook,
       std::shared_ptr<LcWorkbookDatatypeList> own_types)
      : base_(base),
        targets_(base.targets),
        workbook_(workbook),
        own_types_(std::move(own_types)) {}

  // Null: the routes with own SQL refuse to run.
  [[nodiscard]] LcWorkbook* workbook() { return workbook_; }
  // Null: the host does not want that kind.
  [[nodiscard]] LcOwnerInfoList* owner_names() { return targets_.owner_names; }
  [[nodiscard]] LcTableInfoList* table_names() { return targets_.table_names; }
  [[nodiscard]] LcWBColumnInfoList* column_names() { return targets_.column_names; }
  [[nodiscard]] LcWorkbookTableList* tables() { return targets_.tables; }
  [[nodiscard]] LcWorkbookDatatypeList* data_types() { return targets_.data_types; }
  [[nodiscard]] const LcWorkbookDatatypeList* data_types() const { return targets_.data_types; }
  LcWorkbookOperatorList* operators() { return targets_.operators; }
  [[nodiscard]] LcWorkbookFunctionList* boolean_functions() { return targets_.boolean_functions; }
  [[nodiscard]] LcWorkbookFunctionList* functions() { return targets_.functions; }
  [[nodiscard]] LcWorkbookAggregateList* aggregates() { return targets_.aggregates; }
  [[nodiscard]] LcWorkbookProcedureList* procedures() { return targets_.procedures; }

  // The importer's own list of built-in types.
  [[nodiscard]] LcWorkbookDatatypeList& own_types() { return *own_types_; }
  // The list that types are created from: the host's target list or, failing that, the own list.
  [[nodiscard]] LcWorkbookDatatypeList& TypesInForce() {
    return targets_.data_types != nullptr ? *targets_.data_types : *own_types_;
  }
  [[nodiscard]] const LcWorkbookDatatypeList& TypesInForce() const {
    return targets_.data_types != nullptr ? *targets_.data_types : *own_types_;
  }
  void SetKeyType(LcWorkbookForeignKey* key) const { base_.SetKeyType(key); }

 private:
  const LcWorkbookImport& base_;
  const LcImportTargets& targets_;
  LcWorkbook* const workbook_;
  std::shared_ptr<LcWorkbookDatatypeList> own_types_;
};

}  // namespace odbcimport
