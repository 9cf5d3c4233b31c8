// Key lists and foreign keys.
#include <algorithm>
#include <iterator>
#include <utility>

#include "importer/workbook/table.h"

namespace {
constexpr int kLastKeyPosition = 32767;
}

LcWorkbookKeyList::LcWorkbookKeyList() = default;
LcWorkbookKeyList::~LcWorkbookKeyList() = default;
const char* LcWorkbookKeyList::GetRuntimeClass() const { return "LcWorkbookKeyList"; }

LcWorkbookKeyList::LcWorkbookKeyList(const LcWorkbookKeyList& other)
    : LcObject(other),
      first_(other.first_),
      positions_(other.positions_ ? std::make_unique<Positions>(*other.positions_) : nullptr) {}

LcWorkbookKeyList& LcWorkbookKeyList::operator=(const LcWorkbookKeyList& other) {
  if (this == &other) return *this;
  first_ = other.first_;
  positions_ = other.positions_ ? std::make_unique<Positions>(*other.positions_) : nullptr;
  return *this;
}

LcWorkbookKeyList::Positions& LcWorkbookKeyList::Spread() {
  if (!positions_) {
    positions_ = std::make_unique<Positions>();
    if (first_ != nullptr) positions_->push_back(std::exchange(first_, nullptr));
  }
  return *positions_;
}

void LcWorkbookKeyList::AddKeyColumn(LcWorkbookColumn* column) {
  if (column == nullptr) return;
  if (first_ == nullptr && !positions_) {
    first_ = column;
  } else {
    Spread().push_back(column);
  }
}

bool LcWorkbookKeyList::InsertKeyColumn(LcWorkbookColumn* column, int position) {
  if (column == nullptr || position < 0 || position > kLastKeyPosition) return false;
  if (position == 0 && first_ == nullptr && !positions_) {
    first_ = column;
    return true;
  }
  Positions& positions = Spread();
  const auto at = static_cast<std::size_t>(position);
  if (at >= positions.size()) {
    positions.resize(at + 1);
    positions[at] = column;
  } else if (positions[at] == nullptr) {
    positions[at] = column;
  } else {
    positions.insert(positions.begin() + position, column);
  }
  return true;
}

int LcWorkbookKeyList::GetCount() const {
  if (!positions_) return first_ != nullptr ? 1 : 0;
  return static_cast<int>(std::count_if(positions_->begin(), positions_->end(),
                                        [](const auto* column) { return column != nullptr; }));
}

std::vector<LcWorkbookColumn*> LcWorkbookKeyList::GetColumns() const {
  if (!positions_) return first_ != nullptr ? Positions{first_} : Positions();
  Positions present;
  present.reserve(positions_->size());
  std::copy_if(positions_->begin(), positions_->end(), std::back_inserter(present),
               [](const auto* column) { return column != nullptr; });
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
