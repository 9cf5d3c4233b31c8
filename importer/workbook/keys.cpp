// Key lists and foreign keys.
#include "importer/workbook/table.h"

namespace {
constexpr int kLastKeyPosition = 32767;
}

LcWorkbookKeyList::LcWorkbookKeyList() = default;
LcWorkbookKeyList::~LcWorkbookKeyList() = default;
const char* LcWorkbookKeyList::GetRuntimeClass() const { return "LcWorkbookKeyList"; }

void LcWorkbookKeyList::AddKeyColumn(LcWorkbookColumn* column) {
  if (column != nullptr) columns_.push_back(column);
}

bool LcWorkbookKeyList::InsertKeyColumn(LcWorkbookColumn* column, int position) {
  if (column == nullptr || position < 0 || position > kLastKeyPosition) return false;
  const auto at = static_cast<std::size_t>(position);
  if (at >= columns_.size()) {
    columns_.resize(at + 1);
    columns_[at] = column;
  } else if (columns_[at] == nullptr) {
    columns_[at] = column;
  } else {
    columns_.insert(columns_.begin() + position, column);
  }
  return true;
}

int LcWorkbookKeyList::GetCount() const {
  int count = 0;
  for (const LcWorkbookColumn* column : columns_) count += column != nullptr ? 1 : 0;
  return count;
}

std::vector<LcWorkbookColumn*> LcWorkbookKeyList::GetColumns() const {
  std::vector<LcWorkbookColumn*> present;
  present.reserve(columns_.size());
  for (LcWorkbookColumn* column : columns_) {
    if (column != nullptr) present.push_back(column);
  }
  return present;
}

LcWorkbookForeignKey::LcWorkbookForeignKey() = default;
LcWorkbookForeignKey::~LcWorkbookForeignKey() {
  if (partner_ != nullptr) partner_->partner_ = nullptr;
}
const char* LcWorkbookForeignKey::GetRuntimeClass() const { return "LcWorkbookForeignKey"; }

void LcWorkbookForeignKey::SetKey(LcWorkbookColumn* column) {
  if (!key_) key_ = std::make_unique<LcWorkbookKeyList>();
  key_->AddKeyColumn(column);
}

void LcWorkbookForeignKey::SetKey(LcWorkbookKeyList* columns) {
  if (columns != key_.get()) key_.reset(columns);
}

void LcWorkbookForeignKey::SetForeignKey(LcWorkbookColumn* column) {
  if (!foreign_key_) foreign_key_ = std::make_unique<LcWorkbookKeyList>();
  foreign_key_->AddKeyColumn(column);
}

void LcWorkbookForeignKey::SetForeignKey(LcWorkbookKeyList* columns) {
  if (columns != foreign_key_.get()) foreign_key_.reset(columns);
}

void LcWorkbookForeignKey::Pair(LcWorkbookForeignKey* forward, LcWorkbookForeignKey* mirror) {
  if (forward == nullptr || mirror == nullptr || forward == mirror) return;
  for (LcWorkbookForeignKey* key : {forward, mirror}) {
    if (key->partner_ != nullptr) key->partner_->partner_ = nullptr;
    key->partner_ = nullptr;
  }
  forward->role_ = fkForward;
  mirror->role_ = fkMirror;
  forward->partner_ = mirror;
  mirror->partner_ = forward;
}
