// Columns.
#include "importer/workbook/table.h"

namespace {
const std::u16string kNoText;
}

LcWorkbookColumn::LcWorkbookColumn() = default;
LcWorkbookColumn::~LcWorkbookColumn() = default;
const char* LcWorkbookColumn::GetRuntimeClass() const { return "LcWorkbookColumn"; }

void LcWorkbookColumn::SetName(const std::u16string& name) {
  if (GetName() != name) SetName(LcName(name));
}

void LcWorkbookColumn::SetName(const LcName& name) {
  name_ = name;
  if (indexed_by_name_ && table_ != nullptr) table_->OnColumnRenamed();
}

void LcWorkbookColumn::SetTable(LcWorkbookTable* table) { table_ = table; }
void LcWorkbookColumn::SetParentTable(LcWorkbookTable* table) { table_ = table; }

void LcWorkbookColumn::SetDataType(LcWorkbookDatatype* type, bool /*assign*/, bool /*from_list*/) {
  if (type != type_.get()) type_.reset(type);
}

// A type's precision has 32 bits at most on every server; a driver's larger value is cut to them.
void LcWorkbookColumn::SetPrecision(unsigned long precision) {
  precision_ = static_cast<std::uint32_t>(precision);
}

void LcWorkbookColumn::SetExtendedTypeName(const std::u16string& name) {
  extended_type_name_ = name.empty() ? nullptr : std::make_unique<std::u16string>(name);
}

const std::u16string& LcWorkbookColumn::GetExtendedTypeName() const {
  return extended_type_name_ ? *extended_type_name_ : kNoText;
}

void LcWorkbookColumn::SetColumnId(std::int32_t id) {
  if (column_id_ == id) return;
  column_id_ = id;
  if (indexed_by_id_ && table_ != nullptr) table_->OnColumnIdChanged();
}

LcColumnDetails& LcWorkbookColumn::ChangeDetails() {
  if (details_ == nullptr) details_ = std::make_unique<LcColumnDetails>();
  return *details_;
}
