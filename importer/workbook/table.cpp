// Tables and the list of tables.
#include "importer/workbook/table.h"

#include <algorithm>
#include <unordered_set>

#include "importer/workbook/first_match_index.h"

namespace {

// Up to this many columns a walk is as fast as the index and costs no memory.
constexpr std::size_t kColumnsWithoutIndex = 16;

std::size_t HashId(std::int32_t id) { return static_cast<std::uint32_t>(id); }

bool RefersTo(const LcWorkbookKeyList* side,
              const std::unordered_set<const LcWorkbookTable*>& tables) {
  if (side == nullptr) return false;
  const std::vector<LcWorkbookColumn*> columns = side->GetColumns();
  return std::any_of(columns.begin(), columns.end(), [&](const LcWorkbookColumn* column) {
    return tables.count(column->GetParentTable()) != 0;
  });
}

}  // namespace

struct LcWorkbookTable::ColumnIndex {
  FirstMatchIndex by_name;
  FirstMatchIndex by_id;
};

LcWorkbookTable::LcWorkbookTable() = default;

// A key of another table that is the partner of one of this table's refers to columns that go now.
LcWorkbookTable::~LcWorkbookTable() {
  for (const auto& key : foreign_keys_) {
    LcWorkbookForeignKey* partner = key->partner_;
    if (partner != nullptr && partner->table_ != nullptr && partner->table_ != this) {
      partner->table_->RemoveForeignKey(partner);
    }
  }
}

const char* LcWorkbookTable::GetRuntimeClass() const { return "LcWorkbookTable"; }

void LcWorkbookTable::SetName(const std::u16string& name) {
  if (name_ == name) return;
  name_ = name;
  if (indexing_list_ != nullptr) indexing_list_->OnTableRenamed();
}

void LcWorkbookTable::SetOwner(const std::u16string& owner) {
  if (owner_ == owner) return;
  owner_ = owner;
  if (indexing_list_ != nullptr) indexing_list_->OnTableRenamed();
}

const std::u16string& LcWorkbookTable::GetOwner(bool /*display*/) const { return owner_; }

void LcWorkbookTable::AddColumn(LcWorkbookColumn* column) {
  if (column == nullptr) return;
  columns_.emplace_back(column);
  column->SetTable(this);
}

int LcWorkbookTable::GetColumnCount() const { return static_cast<int>(columns_.size()); }

LcWorkbookColumn* LcWorkbookTable::GetColumn(int position) const {
  if (position < 0 || static_cast<std::size_t>(position) >= columns_.size()) return nullptr;
  return columns_[static_cast<std::size_t>(position)].get();
}

LcWorkbookColumn* LcWorkbookTable::FindColumn(const std::u16string& name) const {
  if (columns_.size() <= kColumnsWithoutIndex) {
    for (const auto& column : columns_) {
      if (column->name_ == name) return column.get();
    }
    return nullptr;
  }
  if (!column_index_) column_index_ = std::make_unique<ColumnIndex>();
  FirstMatchIndex& index = column_index_->by_name;
  index.TakeIn(
      columns_.size(), [this](std::size_t at) { return columns_[at]->indexed_by_name_ = true; },
      [this](std::size_t at) { return HashText(columns_[at]->name_); },
      [this](std::size_t a, std::size_t b) { return columns_[a]->name_ == columns_[b]->name_; });
  const std::size_t at =
      index.Find(HashText(name), [&](std::size_t i) { return columns_[i]->name_ == name; });
  return at == FirstMatchIndex::kNotFound ? nullptr : columns_[at].get();
}

LcWorkbookColumn* LcWorkbookTable::FindColumnById(int id) const {
  if (columns_.size() <= kColumnsWithoutIndex) {
    for (const auto& column : columns_) {
      if (column->column_id_ == id) return column.get();
    }
    return nullptr;
  }
  if (!column_index_) column_index_ = std::make_unique<ColumnIndex>();
  FirstMatchIndex& index = column_index_->by_id;
  index.TakeIn(
      columns_.size(), [this](std::size_t at) { return columns_[at]->indexed_by_id_ = true; },
      [this](std::size_t at) { return HashId(columns_[at]->column_id_); },
      [this](std::size_t a, std::size_t b) {
        return columns_[a]->column_id_ == columns_[b]->column_id_;
      });
  const std::size_t at =
      index.Find(HashId(id), [&](std::size_t i) { return columns_[i]->column_id_ == id; });
  return at == FirstMatchIndex::kNotFound ? nullptr : columns_[at].get();
}

void LcWorkbookTable::OnColumnRenamed() {
  if (column_index_) column_index_->by_name.Clear();
}

void LcWorkbookTable::OnColumnIdChanged() {
  if (column_index_) column_index_->by_id.Clear();
}

void LcWorkbookTable::AddForeignKey(LcWorkbookForeignKey* key) {
  if (key == nullptr || key->table_ == this) return;
  if (key->table_ != nullptr) key->table_->RemoveForeignKey(key).release();
  foreign_keys_.emplace_back(key);
  key->table_ = this;
}

std::unique_ptr<LcWorkbookForeignKey> LcWorkbookTable::RemoveForeignKey(LcWorkbookForeignKey* key) {
  const auto at = std::find_if(foreign_keys_.begin(), foreign_keys_.end(),
                               [key](const auto& held) { return held.get() == key; });
  if (at == foreign_keys_.end()) return nullptr;
  std::unique_ptr<LcWorkbookForeignKey> taken = std::move(*at);
  foreign_keys_.erase(at);
  taken->table_ = nullptr;
  return taken;
}

void LcWorkbookTable::SetSynonymDetails(const LcSynonymDetails& details) {
  SetSynonymId(details.synonym_id);
  const bool empty = details.base_table_id == 0 && details.server_name.empty() &&
                     details.database_name.empty() && details.base_owner.empty() &&
                     details.base_table_name.empty();
  synonym_ = empty ? nullptr : std::make_unique<LcSynonymDetails>(details);
}

LcSynonymDetails LcWorkbookTable::GetSynonymDetails() const {
  LcSynonymDetails details = synonym_ ? *synonym_ : LcSynonymDetails();
  details.synonym_id = synonym_id_;
  return details;
}

void LcWorkbookTable::SetSynonymId(std::int32_t id) {
  if (synonym_id_ == id) return;
  synonym_id_ = id;
  if (indexing_list_ != nullptr && indexed_by_id_) indexing_list_->OnTableIdChanged();
}

struct LcWorkbookTableList::Index {
  FirstMatchIndex by_owner_and_name;
  FirstMatchIndex by_name;
  FirstMatchIndex by_id;
};

LcWorkbookTableList::LcWorkbookTableList() : index_(std::make_unique<Index>()) {}
LcWorkbookTableList::~LcWorkbookTableList() { OnClearing(); }

// True for a table, false for an empty entry. From here on the table tells of a new name; the list
// stays logically unchanged.
bool LcWorkbookTableList::StartIndexing(std::size_t position) const {
  LcWorkbookTable* table = GetAt(position);
  if (table != nullptr) table->indexing_list_ = const_cast<LcWorkbookTableList*>(this);
  return table != nullptr;
}

LcWorkbookTable* LcWorkbookTableList::FindTable(const std::u16string& owner,
                                                const std::u16string& name) const {
  FirstMatchIndex& index = index_->by_owner_and_name;
  index.TakeIn(
      GetCount(), [this](std::size_t at) { return StartIndexing(at); },
      [this](std::size_t at) {
        return HashPair(HashText(GetAt(at)->owner_), HashText(GetAt(at)->name_));
      },
      [this](std::size_t a, std::size_t b) {
        return GetAt(a)->name_ == GetAt(b)->name_ && GetAt(a)->owner_ == GetAt(b)->owner_;
      });
  return GetAt(index.Find(HashPair(HashText(owner), HashText(name)), [&](std::size_t at) {
    return GetAt(at)->name_ == name && GetAt(at)->owner_ == owner;
  }));
}

LcWorkbookTable* LcWorkbookTableList::FindTableNoOwner(const std::u16string& name) const {
  FirstMatchIndex& index = index_->by_name;
  index.TakeIn(
      GetCount(), [this](std::size_t at) { return StartIndexing(at); },
      [this](std::size_t at) { return HashText(GetAt(at)->name_); },
      [this](std::size_t a, std::size_t b) { return GetAt(a)->name_ == GetAt(b)->name_; });
  return GetAt(
      index.Find(HashText(name), [&](std::size_t at) { return GetAt(at)->name_ == name; }));
}

LcWorkbookTable* LcWorkbookTableList::FindTableById(int id) const {
  FirstMatchIndex& index = index_->by_id;
  index.TakeIn(
      GetCount(),
      [this](std::size_t at) { return StartIndexing(at) && (GetAt(at)->indexed_by_id_ = true); },
      [this](std::size_t at) { return HashId(GetAt(at)->synonym_id_); },
      [this](std::size_t a, std::size_t b) {
        return GetAt(a)->synonym_id_ == GetAt(b)->synonym_id_;
      });
  return GetAt(
      index.Find(HashId(id), [&](std::size_t at) { return GetAt(at)->synonym_id_ == id; }));
}

void LcWorkbookTableList::RemoveTablesFrom(std::size_t first) {
  std::size_t end = first;
  std::unordered_set<const LcWorkbookTable*> doomed;
  while (end < entries_.size() && entries_[end]) doomed.insert(entries_[end++].get());
  if (doomed.empty()) return;
  for (LcWorkbookTable* table : *this) {
    if (table == nullptr) continue;
    if (doomed.count(table) != 0) {
      table->foreign_keys_.clear();
      table->indexing_list_ = nullptr;
      continue;
    }
    auto& keys = table->foreign_keys_;
    keys.erase(std::remove_if(keys.begin(), keys.end(),
                              [&](const auto& key) {
                                return RefersTo(key->GetKey(), doomed) ||
                                       RefersTo(key->GetForeignKey(), doomed);
                              }),
               keys.end());
  }
  entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(first),
                 entries_.begin() + static_cast<std::ptrdiff_t>(end));
  OnChanged();
}

void LcWorkbookTableList::OnTableRenamed() {
  index_->by_owner_and_name.Clear();
  index_->by_name.Clear();
}

void LcWorkbookTableList::OnTableIdChanged() { index_->by_id.Clear(); }

// All keys go before the first table does, so that no table looks for its keys' partners.
void LcWorkbookTableList::OnClearing() {
  for (LcWorkbookTable* table : *this) {
    if (table == nullptr) continue;
    table->foreign_keys_.clear();
    table->indexing_list_ = nullptr;
  }
}

void LcWorkbookTableList::OnChanged() {
  OnTableRenamed();
  OnTableIdChanged();
}
