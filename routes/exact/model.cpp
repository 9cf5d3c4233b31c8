// Finding again what was read.
#include "routes/exact/model.h"

#include <algorithm>
#include <tuple>

#include "routes/exact/sort_once.h"

namespace odbcimport::exact {
namespace {

std::uint64_t HashOf(std::string_view schema, std::string_view name) {
  return HashedPlaces::HashOf(name, HashedPlaces::HashOf(schema));
}

}  // namespace

std::string FoldCase(std::string_view text) {
  std::string folded(text);
  for (char& c : folded) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return folded;
}

std::int64_t Comments::KeyOf(std::int64_t id, std::int64_t position) {
  constexpr int kPositionBits = 16;  // a table has fewer columns than that
  return static_cast<std::int64_t>((static_cast<std::uint64_t>(id) << kPositionBits) +
                                   static_cast<std::uint64_t>(position));
}

void Comments::Add(Of of, std::int64_t id, std::int64_t position, LcText text) {
  places_[static_cast<std::size_t>(of)].Add(KeyOf(id, position),
                                            static_cast<std::uint32_t>(texts_.size()));
  texts_.push_back(std::move(text));
}

LcText Comments::Find(Of of, std::int64_t id, std::int64_t position) const {
  const std::uint32_t place = places_[static_cast<std::size_t>(of)].Get(KeyOf(id, position));
  return place != NumberMap::kNone ? texts_[place] : LcText();
}

void KnownNames::Add(std::string_view of, std::int64_t id, Name name) {
  names_[std::string(of)][id] = std::move(name);
}

const KnownNames::Name* KnownNames::Find(std::string_view of, std::int64_t id) const {
  const auto sort = names_.find(std::string(of));
  if (sort == names_.end()) return nullptr;
  const auto name = sort->second.find(id);
  return name != sort->second.end() ? &name->second : nullptr;
}

void Model::IndexTables() {
  SortOnce(tables, [](const TableEntry& a, const TableEntry& b) {
    return std::tie(a.schema, a.name) < std::tie(b.schema, b.name);
  });
  for (std::uint32_t i = 0; i < tables.size(); ++i) {
    const TableEntry& entry = tables[i];
    if (entry.has_id) tables_by_id_.Add(entry.id, i);
    if (FindTable(entry.schema, entry.name, tables_by_name_, false) == kNoTable) {
      tables_by_name_.Add(HashOf(entry.schema, entry.name), i);
    }
    if (!catalog.dialect().ignores_case) continue;
    const std::string folded = FoldCase(entry.name);
    if (FindTable(entry.schema, folded, tables_by_folded_name_, true) == kNoTable) {
      tables_by_folded_name_.Add(HashOf(entry.schema, folded), i);
    }
  }
}

std::uint32_t Model::FindTable(const Row& row) {
  if (row.Has(Field::kTableId)) {
    const std::int64_t id = row.Number(Field::kTableId);
    // Rows come table by table, mostly.
    if (id == last_id_ && last_table_ != kNoTable) return last_table_;
    last_id_ = id;
    const std::uint32_t next = last_table_ + 1;  // 0 behind kNoTable
    const bool is_next = next < tables.size() && tables[next].has_id && tables[next].id == id;
    last_table_ = is_next ? next : tables_by_id_.Get(id);
    return last_table_;
  }
  if (!row.Has(Field::kTable)) return kNoTable;
  const std::string_view schema = catalog.SchemaOf(row);
  const std::string_view name = row.Text(Field::kTable);
  const auto is_called = [&](std::uint32_t table) {
    return table < tables.size() && tables[table].name == name && tables[table].schema == schema;
  };
  if (is_called(last_table_)) return last_table_;
  last_table_ = is_called(last_table_ + 1) ? last_table_ + 1 : FindTable(schema, name);
  if (last_table_ != kNoTable) last_id_ = tables[last_table_].id;
  return last_table_;
}

std::uint32_t Model::FindTable(std::string_view schema, std::string_view name) const {
  const std::uint32_t exact = FindTable(schema, name, tables_by_name_, false);
  if (exact != kNoTable || !catalog.dialect().ignores_case) return exact;
  return FindTable(schema, FoldCase(name), tables_by_folded_name_, true);
}

std::uint32_t Model::FindTable(std::string_view schema, std::string_view name,
                               const HashedPlaces& places, bool folded) const {
  return places.Find(HashOf(schema, name), [&](std::uint32_t table) {
    const TableEntry& entry = tables[table];
    return entry.schema == schema && (folded ? FoldCase(entry.name) == name : entry.name == name);
  });
}

LcWorkbookTable* Model::FindWanted(const Row& row) {
  const std::uint32_t table = FindTable(row);
  return table != kNoTable && tables[table].wanted ? tables[table].table : nullptr;
}

void Model::OrderColumns() {
  SortOnce(columns, [](const ColumnEntry& a, const ColumnEntry& b) {
    return a.table != b.table ? a.table < b.table : a.position < b.position;
  });
  for (std::uint32_t i = 0; i < columns.size(); ++i) {
    TableEntry& entry = tables[columns[i].table];
    if (entry.columns == 0) entry.first_column = i;
    ++entry.columns;
  }
}

LcWorkbookColumn* Model::FindColumn(std::uint32_t table, std::int64_t position) const {
  const ColumnEntry* entry = FindEntry(table, position);
  return entry != nullptr ? entry->column : nullptr;
}

const ColumnEntry* Model::FindEntry(std::uint32_t table, std::int64_t position) const {
  if (table == kNoTable) return nullptr;
  const TableEntry& entry = tables[table];
  const ColumnEntry* const first = columns.data() + entry.first_column;
  const ColumnEntry* const last = first + entry.columns;
  // Without gaps in the numbers the column stands in its place.
  if (position >= 1 && position <= entry.columns && first[position - 1].position == position) {
    return &first[position - 1];
  }
  const ColumnEntry* const found = std::lower_bound(
      first, last, position,
      [](const ColumnEntry& column, std::int64_t wanted) { return column.position < wanted; });
  return found != last && found->position == position ? found : nullptr;
}

LcWorkbookColumn* Model::FindColumn(std::uint32_t table, std::string_view name) {
  if (table == kNoTable || name.data() == nullptr) return nullptr;
  const TableEntry& entry = tables[table];
  if (entry.table == nullptr) return nullptr;
  LcWorkbookColumn* column = entry.table->FindColumn(catalog.texts().Wide(name));
  if (column != nullptr || !catalog.dialect().ignores_case) return column;
  const std::u16string wanted = catalog.texts().Wide(FoldCase(name));
  for (std::uint32_t i = entry.first_column; i < entry.first_column + entry.columns; ++i) {
    std::u16string folded = columns[i].column->GetName();
    for (char16_t& c : folded) {
      if (c >= u'A' && c <= u'Z') c = static_cast<char16_t>(c - u'A' + u'a');
    }
    if (folded == wanted) return columns[i].column;
  }
  return nullptr;
}

LcText Model::NameOf(const Row& row, Field text_field, Field id_field, std::string_view of) {
  if (row.Has(text_field)) return catalog.texts().Get(row.Text(text_field));
  if (!row.Has(id_field)) return {};
  const KnownNames::Name* name = names.Find(of, row.Number(id_field));
  return name != nullptr ? name->name : LcText();
}

void Model::TakeOptions(const Row& row, LcOptions& options) {
  if (!row.HasOptions()) return;
  row.ForEachOption([&](const Row::Option& option) {
    options.Set(catalog.texts().Get(option.name), catalog.texts().Get(option.value));
  });
}

bool Model::FindSchema(const Row& row, std::string_view& schema) const {
  if (!row.Has(Field::kSchemaId)) {
    schema = catalog.SchemaOf(row);
    return true;
  }
  const std::uint32_t place = schemas_by_id.Get(row.Number(Field::kSchemaId));
  if (place == NumberMap::kNone) return false;
  schema = schemas[place];
  return true;
}

}  // namespace odbcimport::exact
