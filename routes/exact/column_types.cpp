// Types of columns.
#include "routes/exact/column_types.h"

#include <algorithm>
#include <array>
#include <limits>

namespace odbcimport::exact {
namespace {

std::uint16_t CutTo16(std::int64_t number) {
  return static_cast<std::uint16_t>(
      std::clamp<std::int64_t>(number, 0, std::numeric_limits<std::uint16_t>::max()));
}

void SetSizes(const ColumnTypes::Entry& entry, LcWorkbookDatatype& type) {
  type.SetLength(entry.length);
  type.SetPrecision(CutTo16(static_cast<std::int64_t>(entry.precision)));
  type.SetScale(entry.scale);
}

}  // namespace

std::uint32_t ColumnTypes::Find(const Row& row) {
  if (row.Has(Field::kTypeId)) {
    return FindByNumber(row.Number(Field::kTypeId), row.Number(Field::kTypeModifier, -1),
                        row.Number(Field::kDimensions));
  }
  return FindByText(row);
}

std::uint32_t ColumnTypes::FindByNumber(std::int64_t id, std::int64_t modifier,
                                        std::int64_t dimensions) {
  const auto is_it = [&](const Entry& entry) {
    return entry.id == id && entry.modifier == modifier && entry.dimensions == dimensions;
  };
  if (last_ != kNone && is_it(entries_[last_])) return last_;
  const std::uint32_t first = by_id_.Get(id);
  std::uint32_t at = first;
  while (at != kNone && !is_it(entries_[at])) at = entries_[at].next;
  if (at == kNone) {
    at = static_cast<std::uint32_t>(entries_.size());
    Entry& entry = entries_.emplace_back();
    entry.id = id;
    entry.modifier = modifier;
    entry.dimensions = dimensions;
    if (first == kNone) {
      by_id_.Add(id, at);
    } else {
      entry.next = entries_[first].next;
      entries_[first].next = at;
    }
  }
  return last_ = at;
}

std::uint32_t ColumnTypes::FindByText(const Row& row) {
  constexpr std::array<Field, 6> kParts = {Field::kType,   Field::kBaseType,  Field::kTypeSchema,
                                           Field::kLength, Field::kPrecision, Field::kScale};
  // Most spellings tell types apart alone.
  const std::uint64_t hash = HashedPlaces::HashOf(row.Text(Field::kType));
  const std::uint32_t known = by_text_.Find(hash, [&](std::uint32_t place) {
    std::string_view texts = spelled_[place].texts;
    return std::all_of(kParts.begin(), kParts.end(), [&](Field field) {
      const std::string_view text = row.Text(field);
      const bool is_there = texts.size() > text.size() && texts.starts_with(text);
      if (!is_there || texts[text.size()] != '\0') return false;
      texts.remove_prefix(text.size() + 1);
      return true;
    });
  });
  if (known != HashedPlaces::kNone) return spelled_[known].entry;
  const auto at = static_cast<std::uint32_t>(entries_.size());
  by_text_.Add(hash, static_cast<std::uint32_t>(spelled_.size()));
  Spelled& made = spelled_.emplace_back();
  made.entry = at;
  for (const Field field : kParts) made.texts.append(row.Text(field)) += '\0';
  Fill(row, entries_.emplace_back());
  return at;
}

void ColumnTypes::Tell(const Row& row) {
  const std::int64_t id = row.Number(Field::kTypeId);
  const std::int64_t modifier = row.Number(Field::kTypeModifier, -1);
  FindByNumber(id, modifier, 0);
  for (std::uint32_t at = by_id_.Get(id); at != kNone; at = entries_[at].next) {
    Entry& entry = entries_[at];
    if (entry.modifier == modifier && entry.type == nullptr) Fill(row, entry);
  }
}

const TypeKind& ColumnTypes::KindOf(std::string_view spelling, std::string_view base_type,
                                    std::string_view category, bool& known) {
  known = false;
  if (category == "array") return kCollectionKind;
  if (category == "composite") return kRowKind;
  key_.assign(base_type).append(1, '\0').append(spelling);
  const auto [found, is_new] = kinds_.emplace(key_, nullptr);
  if (is_new) {
    for (const TypeRule& rule : catalog_.dialect().types) {
      const bool has_size = rule.pattern.find('(') != std::string::npos;
      if (!MatchesPattern(rule.pattern, has_size ? spelling : base_type)) continue;
      found->second = FindTypeKind(rule.kind);
      break;
    }
  }
  known = found->second != nullptr;
  return known ? *found->second : kOpaqueKind;
}

std::unique_ptr<LcWorkbookDatatype> ColumnTypes::Make(std::string_view spelling,
                                                      std::string_view base_type,
                                                      std::string_view schema,
                                                      std::string_view category) {
  auto type = std::make_unique<LcWorkbookDatatype>();
  bool known = false;
  const TypeKind& kind = KindOf(spelling, base_type, category, known);
  const std::u16string name = catalog_.texts().Wide(base_type);
  type->SetTypeName(name);
  if (!known) type->SetExtendedTypeName(name, 0);
  if (!schema.empty()) type->SetOwner(catalog_.texts().Wide(schema));
  type->SetDatabaseType(catalog_.texts().Get(spelling));
  type->SetPhysicalCode(kind.physical_code);
  type->SetGenericCode(kind.generic_code);
  type->SetTypeGroup(kind.group);
  type->SetLong(kind.is_long);
  type->SetSizeModifiable(kind.size_modifiable);
  type->SetDistinct(category == "domain");
  return type;
}

void ColumnTypes::Fill(const Row& row, Entry& entry) {
  std::string spelling(row.Text(Field::kType));
  // The element's spelling ends in one pair of brackets; the server counts the others.
  for (std::int64_t i = 1; i < entry.dimensions; ++i) spelling += "[]";
  const std::string_view category = row.Text(Field::kCategory);
  entry.type = Make(spelling, row.Text(Field::kBaseType), row.Text(Field::kTypeSchema), category);
  entry.named =
      category == "domain" || category == "enum" || category == "composite" || category == "range";
  entry.length = static_cast<unsigned long>(std::max<std::int64_t>(0, row.Number(Field::kLength)));
  entry.precision =
      static_cast<unsigned long>(std::max<std::int64_t>(0, row.Number(Field::kPrecision)));
  entry.scale = CutTo16(row.Number(Field::kScale));
  entry.collation_id = row.Number(Field::kCollationId);
  entry.collation = catalog_.texts().Get(row.Text(Field::kCollation));
  entry.base_id = row.Number(Field::kBaseTypeId);
  entry.base_modifier = row.Number(Field::kBaseTypeModifier, -1);
  if (entry.named && entry.id != 0) entry.type->SetExtendedId(static_cast<long>(entry.id));
  SetSizes(entry, *entry.type);
}

const ColumnTypes::Entry* ColumnTypes::FindTold(std::int64_t id, std::int64_t modifier) const {
  for (std::uint32_t at = by_id_.Get(id); at != kNone; at = entries_[at].next) {
    const Entry& entry = entries_[at];
    if (entry.modifier == modifier && entry.type != nullptr) return &entry;
  }
  return nullptr;
}

const LcWorkbookDatatype* ColumnTypes::Find(std::int64_t id) const {
  const Entry* entry = FindTold(id, -1);
  return entry != nullptr ? entry->type.get() : nullptr;
}

void ColumnTypes::Settle() {
  constexpr int kDeepest = 32;  // domains of domains; a server allows no circle
  for (Entry& entry : entries_) {
    if (entry.type != nullptr) Inherit(entry, kDeepest);
  }
}

// A domain has codes and sizes of the type that it is made of; an array knows its element.
void ColumnTypes::Inherit(Entry& entry, int depth) {
  if (entry.base_id == 0 || depth == 0) return;
  const Entry* found = FindTold(entry.base_id, entry.base_modifier);
  if (found == nullptr || found == &entry) return;
  Entry& base = entries_[static_cast<std::size_t>(found - entries_.data())];
  Inherit(base, depth - 1);
  LcWorkbookDatatype& type = *entry.type;
  const LcWorkbookDatatype& of = *base.type;
  type.SetBaseCode(of.GetPhysicalCode());
  type.SetGenericBaseCode(of.GetGenericCode());
  type.SetBaseTypeGroup(of.GetTypeGroup());
  type.SetBaseOwner(of.GetOwner());
  type.SetBaseExtendedTypeName(of.GetExtendedTypeName(0));
  entry.base_id = 0;
  if (!type.IsDistinct()) return;
  type.SetPhysicalCode(of.GetPhysicalCode());
  type.SetGenericCode(of.GetGenericCode());
  type.SetTypeGroup(of.GetTypeGroup());
  type.SetLong(of.IsLong());
  entry.length = base.length;
  entry.precision = base.precision;
  entry.scale = base.scale;
  SetSizes(entry, type);
}

void ColumnTypes::ListNumbers(std::vector<std::string>& ids,
                              std::vector<std::string>& modifiers) const {
  ids.clear();
  modifiers.clear();
  for (const Entry& entry : entries_) {
    if (entry.id == 0 || entry.type != nullptr) continue;
    ids.push_back(std::to_string(entry.id));
    modifiers.push_back(std::to_string(entry.modifier));
  }
}

}  // namespace odbcimport::exact
