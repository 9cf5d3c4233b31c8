// Tables and the list of tables.
#include "importer/workbook/table.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>

#include "importer/workbook/first_match_index.h"

namespace {

// Up to this many columns a walk is as fast as the index and costs no memory.
constexpr std::size_t kColumnsWithoutIndex = 16;
// A longer table gets its index after this many look-ups: most tables of a schema are asked for a
// key column or two, for which an index would cost more than it saves.
constexpr std::uint8_t kWalksBeforeIndex = 8;

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
  TextIndex<LcWorkbookColumn> by_name;
  NumberIndex<LcWorkbookColumn> by_id;
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
  std::unique_ptr<LcWorkbookColumn> owned(column);  // also where there is no room for it
  columns_.push_back(std::move(owned));
  column->SetTable(this);
}

int LcWorkbookTable::GetColumnCount() const { return static_cast<int>(columns_.size()); }

LcWorkbookColumn* LcWorkbookTable::GetColumn(int position) const {
  if (position < 0 || static_cast<std::size_t>(position) >= columns_.size()) return nullptr;
  return columns_[static_cast<std::size_t>(position)].get();
}

bool LcWorkbookTable::WalksColumns() const {
  if (columns_.size() <= kColumnsWithoutIndex) return true;
  return !column_index_ && ++column_walks_ <= kWalksBeforeIndex;
}

LcWorkbookColumn* LcWorkbookTable::FindColumn(const std::u16string& name) const {
  if (WalksColumns()) {
    for (const auto& column : columns_) {
      if (column->GetName() == name) return column.get();
    }
    return nullptr;
  }
  if (!column_index_) column_index_ = std::make_unique<ColumnIndex>();
  const auto entry_at = [this](std::size_t at) {
    columns_[at]->indexed_by_name_ = true;
    return columns_[at].get();
  };
  column_index_->by_name.TakeIn(columns_.size(), entry_at, [](const LcWorkbookColumn& column) {
    return TextKey{{}, column.GetName()};
  });
  return column_index_->by_name.Find({{}, name});
}

LcWorkbookColumn* LcWorkbookTable::FindColumnById(int id) const {
  if (WalksColumns()) {
    for (const auto& column : columns_) {
      if (column->column_id_ == id) return column.get();
    }
    return nullptr;
  }
  if (!column_index_) column_index_ = std::make_unique<ColumnIndex>();
  const auto entry_at = [this](std::size_t at) {
    columns_[at]->indexed_by_id_ = true;
    return columns_[at].get();
  };
  column_index_->by_id.TakeIn(columns_.size(), entry_at,
                              [](const LcWorkbookColumn& column) { return column.column_id_; });
  return column_index_->by_id.Find(id);
}

void LcWorkbookTable::OnColumnRenamed() {
  if (column_index_) column_index_->by_name.Clear();
}

void LcWorkbookTable::OnColumnIdChanged() {
  if (column_index_) column_index_->by_id.Clear();
}

void LcWorkbookTable::AddForeignKey(LcWorkbookForeignKey* key) {
  if (key == nullptr || key->table_ == this) return;
  if (key->table_ != nullptr) static_cast<void>(key->table_->RemoveForeignKey(key).release());
  std::unique_ptr<LcWorkbookForeignKey> owned(key);  // also where there is no room for it
  foreign_keys_.push_back(std::move(owned));
  key->table_ = this;
}

std::unique_ptr<LcWorkbookForeignKey> LcWorkbookTable::RemoveForeignKey(LcWorkbookForeignKey* key) {
  // From the back: a key that is taken back while a catalog is read was added last.
  const auto at = std::find_if(foreign_keys_.rbegin(), foreign_keys_.rend(),
                               [key](const auto& held) { return held.get() == key; });
  if (at == foreign_keys_.rend()) return nullptr;
  std::unique_ptr<LcWorkbookForeignKey> taken = std::move(*at);
  foreign_keys_.erase(std::prev(at.base()));
  taken->table_ = nullptr;
  return taken;
}

LcTableDetails& LcWorkbookTable::ChangeDetails() {
  if (details_ == nullptr) details_ = std::make_unique<LcTableDetails>();
  return *details_;
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
  TextIndex<LcWorkbookTable> by_owner_and_name;
  TextIndex<LcWorkbookTable> by_name;
  NumberIndex<LcWorkbookTable> by_id;
};

LcWorkbookTableList::LcWorkbookTableList() : index_(std::make_unique<Index>()) {}
LcWorkbookTableList::~LcWorkbookTableList() { LcWorkbookTableList::OnClearing(); }

// The table at a position, which from here on tells of a new name; the list stays logically
// unchanged.
LcWorkbookTable* LcWorkbookTableList::StartIndexing(std::size_t position) const {
  LcWorkbookTable* table = GetAt(position);
  if (table != nullptr) table->indexing_list_ = const_cast<LcWorkbookTableList*>(this);
  return table;
}

LcWorkbookTable* LcWorkbookTableList::FindTable(const std::u16string& owner,
                                                const std::u16string& name) const {
  index_->by_owner_and_name.TakeIn(
      GetCount(), [this](std::size_t at) { return StartIndexing(at); },
      [](const LcWorkbookTable& table) {
        return TextKey{table.owner_, table.name_};
      });
  return index_->by_owner_and_name.Find({owner, name});
}

LcWorkbookTable* LcWorkbookTableList::FindTableNoOwner(const std::u16string& name) const {
  index_->by_name.TakeIn(
      GetCount(), [this](std::size_t at) { return StartIndexing(at); },
      [](const LcWorkbookTable& table) {
        return TextKey{{}, table.name_};
      });
  return index_->by_name.Find({{}, name});
}

LcWorkbookTable* LcWorkbookTableList::FindTableById(int id) const {
  const auto entry_at = [this](std::size_t at) {
    LcWorkbookTable* table = StartIndexing(at);
    if (table != nullptr) table->indexed_by_id_ = true;
    return table;
  };
  index_->by_id.TakeIn(GetCount(), entry_at,
                       [](const LcWorkbookTable& table) { return table.synonym_id_; });
  return index_->by_id.Find(id);
}

void LcWorkbookTableList::RemoveTablesFrom(std::size_t first) {
  std::size_t end = first;
  std::unordered_set<const LcWorkbookTable*> doomed;
  while (end < entries_.size() && entries_[end]) doomed.insert(entries_[end++].get());
  if (doomed.empty()) return;
  for (LcWorkbookTable* table : Present()) {
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
  for (LcWorkbookTable* table : Present()) {
    table->foreign_keys_.clear();
    table->indexing_list_ = nullptr;
  }
}

void LcWorkbookTableList::OnChanged() {
  OnTableRenamed();
  OnTableIdChanged();
}
