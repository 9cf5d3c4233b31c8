// Constraints into the workbook.
#include "routes/exact/constraints.h"

#include <algorithm>
#include <memory>
#include <set>
#include <tuple>
#include <utility>

#include "routes/exact/sort_once.h"

namespace odbcimport::exact {
namespace {

std::unique_ptr<LcWorkbookKeyList> ListOf(const std::vector<LcWorkbookColumn*>& columns) {
  auto list = std::make_unique<LcWorkbookKeyList>();
  for (LcWorkbookColumn* column : columns) list->AddKeyColumn(column);
  return list;
}

std::uint32_t TargetOf(const Model& model, const Constraint& constraint) {
  return constraint.target_by_id
             ? model.FindTable(constraint.target_id)
             : model.FindTable(constraint.target_schema, constraint.target_table);
}

bool NamesColumns(const Constraint& constraint) {
  return std::all_of(constraint.parts.begin(), constraint.parts.end(),
                     [](const Constraint::Part& part) { return !part.target_column.empty(); });
}

bool IsWhole(const std::vector<LcWorkbookColumn*>& columns, std::size_t parts) {
  return columns.size() == parts &&
         std::find(columns.begin(), columns.end(), nullptr) == columns.end();
}

}  // namespace

std::uint64_t Constraints::HashOf(Constraint::Sort sort, std::uint32_t table, std::string_view name,
                                  std::string_view id) {
  constexpr int kSortBits = 3;
  const std::uint64_t numbers =
      (std::uint64_t{table} << kSortBits) + static_cast<std::uint64_t>(sort);
  return HashedPlaces::HashOf(name, id.empty() ? numbers : HashedPlaces::HashOf(id, numbers));
}

std::uint32_t Constraints::PlaceOf(std::uint64_t hash, Constraint::Sort sort, std::uint32_t table,
                                   std::string_view name, std::string_view id) const {
  return places_.Find(hash, [&](std::uint32_t place) {
    const Constraint& known = all_[place];
    return known.table == table && known.sort == sort && known.name == name && known.id == id;
  });
}

Constraint& Constraints::Find(Constraint::Sort sort, std::uint32_t table, std::string_view name,
                              std::string_view id) {
  if (!all_.empty()) {
    Constraint& last = all_.back();
    if (last.table == table && last.sort == sort && last.name == name && last.id == id) return last;
  }
  const std::uint64_t hash = HashOf(sort, table, name, id);
  const std::uint32_t known = PlaceOf(hash, sort, table, name, id);
  if (known != HashedPlaces::kNone) return all_[known];
  places_.Add(hash, static_cast<std::uint32_t>(all_.size()));
  Constraint& made = all_.emplace_back();
  made.sort = sort;
  made.table = table;
  made.name = name;
  made.id = id;
  return made;
}

Constraint* Constraints::FindForeignKey(std::uint32_t table, std::string_view name) {
  constexpr Constraint::Sort kSort = Constraint::Sort::kForeign;
  const std::uint32_t known = PlaceOf(HashOf(kSort, table, name, ""), kSort, table, name, "");
  return known != HashedPlaces::kNone ? &all_[known] : nullptr;
}

void Constraints::Forget(std::size_t size) {
  all_.resize(size);
  places_.ForgetFrom(static_cast<std::uint32_t>(size));
}

std::vector<LcWorkbookColumn*> Constraints::ColumnsOf(const Constraint& constraint) {
  std::vector<LcWorkbookColumn*> columns;
  columns.reserve(constraint.parts.size());
  for (const Constraint::Part& part : constraint.parts) {
    columns.push_back(part.position != 0 ? model_.FindColumn(constraint.table, part.position)
                                         : model_.FindColumn(constraint.table, part.column));
  }
  return columns;
}

// A key that names no target columns means the primary key, in its order.
std::vector<LcWorkbookColumn*> Constraints::TargetColumnsOf(Model& model,
                                                            const Constraint& constraint,
                                                            std::uint32_t target) {
  std::vector<LcWorkbookColumn*> columns;
  columns.reserve(constraint.parts.size());
  for (const Constraint::Part& part : constraint.parts) {
    if (part.target_position != 0) {
      columns.push_back(model.FindColumn(target, part.target_position));
    } else if (!part.target_column.empty()) {
      columns.push_back(model.FindColumn(target, part.target_column));
    }
  }
  if (columns.empty()) return model.tables[target].table->GetPrimaryKey().GetColumns();
  return columns;
}

void Constraints::FinishKeys() {
  for (Constraint& constraint : all_) {
    std::sort(constraint.parts.begin(), constraint.parts.end(),
              [](const auto& a, const auto& b) { return a.order < b.order; });
  }
  SortOnce(all_, [](const Constraint& a, const Constraint& b) {
    return std::tie(a.table, a.sort, a.name) < std::tie(b.table, b.sort, b.name);
  });
  places_.Clear();
  for (Constraint& constraint : all_) {
    if (constraint.sort == Constraint::Sort::kPrimary ||
        constraint.sort == Constraint::Sort::kUnique) {
      FinishKey(constraint);
    }
  }
  PrimaryKeysFromColumns(model_);
}

void Constraints::FinishKey(Constraint& constraint) {
  if (constraint.table == kNoTable || !model_.tables[constraint.table].wanted) return;
  LcWorkbookTable& table = *model_.tables[constraint.table].table;
  const std::vector<LcWorkbookColumn*> columns = ColumnsOf(constraint);
  if (!IsWhole(columns, constraint.parts.size())) return;
  LcKeyDetails key;
  key.name = model_.catalog.texts().Get(constraint.name);
  key.columns = columns;
  key.comment = std::move(constraint.comment);
  key.options = std::move(constraint.options);
  key.deferrable = constraint.deferrable;
  if (constraint.sort == Constraint::Sort::kUnique) {
    key.kind = kkUnique;
    table.ChangeDetails().unique_keys.push_back(std::move(key));
    return;
  }
  for (LcWorkbookColumn* column : columns) {
    table.GetPrimaryKey().AddKeyColumn(column);
    column->SetPrimaryKey(true);
  }
  table.ChangeDetails().primary_key = std::make_unique<LcKeyDetails>(std::move(key));
}

void Constraints::PrimaryKeysFromColumns(Model& model) {
  for (const TableEntry& entry : model.tables) {
    if (!entry.wanted || !entry.table->GetPrimaryKey().IsEmpty()) continue;
    std::vector<const ColumnEntry*> key;
    for (std::uint32_t i = entry.first_column; i < entry.first_column + entry.columns; ++i) {
      if (model.columns[i].key_position > 0) key.push_back(&model.columns[i]);
    }
    if (key.empty()) continue;
    std::sort(key.begin(), key.end(), [](const ColumnEntry* a, const ColumnEntry* b) {
      return a->key_position < b->key_position;
    });
    auto details = std::make_unique<LcKeyDetails>();
    for (const ColumnEntry* column : key) {
      entry.table->GetPrimaryKey().AddKeyColumn(column->column);
      column->column->SetPrimaryKey(true);
      details->columns.push_back(column->column);
    }
    entry.table->ChangeDetails().primary_key = std::move(details);
  }
}

LcCheckDetails Constraints::CheckOf(const Constraint& constraint) const {
  LcCheckDetails check;
  check.name = model_.catalog.texts().Get(constraint.name);
  check.expression = constraint.expression;
  check.comment = constraint.comment;
  check.options = constraint.options;
  if (!constraint.enforced) check.options.Set(u"enforced", u"no");
  if (constraint.deferrable != dfNot) {
    check.options.Set(u"deferrable", LcNameOf(constraint.deferrable));
  }
  return check;
}

std::vector<LcCheckDetails> Constraints::ChecksOf(std::int64_t type_id) const {
  std::vector<LcCheckDetails> checks;
  for (const Constraint& constraint : all_) {
    if (constraint.type_id == type_id && type_id != 0) checks.push_back(CheckOf(constraint));
  }
  return checks;
}

void Constraints::FinishChecks() {
  for (const Constraint& constraint : all_) {
    const bool is_check = constraint.sort == Constraint::Sort::kCheck ||
                          constraint.sort == Constraint::Sort::kExclusion;
    if (!is_check || constraint.table == kNoTable || !model_.tables[constraint.table].wanted) {
      continue;
    }
    model_.tables[constraint.table].table->ChangeDetails().checks.push_back(CheckOf(constraint));
  }
}

Constraints::OutsideTargets Constraints::ListOutsideTargets() const {
  OutsideTargets targets;
  NumberMap seen;
  std::set<std::pair<std::string, std::string>> seen_names;
  for (const Constraint& constraint : all_) {
    if (constraint.sort != Constraint::Sort::kForeign) continue;
    if (constraint.table == kNoTable || !model_.tables[constraint.table].wanted) continue;
    const std::uint32_t target = constraint.target;
    if (target != kNoTable && model_.tables[target].wanted) continue;
    if (constraint.target_by_id) {
      if (seen.Get(constraint.target_id) != NumberMap::kNone) continue;
      seen.Add(constraint.target_id, 0);
      targets.ids.push_back(std::to_string(constraint.target_id));
    } else if (model_.catalog.dialect().ignores_case || !NamesColumns(constraint)) {
      const auto [name, is_new] =
          seen_names.emplace(constraint.target_schema, constraint.target_table);
      if (is_new) targets.names.push_back(*name);
    }
  }
  return targets;
}

void Constraints::FinishForeignKeys() {
  for (Constraint& constraint : all_) {
    if (constraint.sort == Constraint::Sort::kForeign) FinishForeignKey(constraint);
  }
}

LcForeignKeyDetails Constraints::DetailsOf(Constraint& constraint) const {
  LcForeignKeyDetails details;
  details.name = constraint.defined_name;
  if (!details.name && !constraint.name.empty()) {
    details.name = model_.catalog.texts().Get(constraint.name);
  }
  details.on_update = std::move(constraint.on_update);
  details.on_delete = std::move(constraint.on_delete);
  details.match = std::move(constraint.match);
  details.comment = std::move(constraint.comment);
  details.options = std::move(constraint.options);
  details.deferrable = constraint.deferrable;
  details.enforced = constraint.enforced;
  std::u16string set_columns;
  for (const std::int64_t position : constraint.set_positions) {
    const LcWorkbookColumn* column = model_.FindColumn(constraint.table, position);
    if (column == nullptr) continue;
    if (!set_columns.empty()) set_columns += u", ";
    set_columns += column->GetName();
  }
  if (!set_columns.empty()) details.options.Set(u"on delete columns", set_columns);
  return details;
}

bool Constraints::IsUnique(const LcWorkbookTable& table,
                           const std::vector<LcWorkbookColumn*>& columns) {
  const auto is_key = [&](const std::vector<LcWorkbookColumn*>& key) {
    return std::is_permutation(key.begin(), key.end(), columns.begin(), columns.end());
  };
  if (is_key(table.GetPrimaryKey().GetColumns())) return true;
  const LcTableDetails* details = table.GetDetails();
  return details != nullptr &&
         std::any_of(details->unique_keys.begin(), details->unique_keys.end(),
                     [&](const LcKeyDetails& key) { return is_key(key.columns); });
}

void Constraints::FinishForeignKey(Constraint& constraint) {
  if (constraint.table == kNoTable || !model_.tables[constraint.table].wanted) return;
  LcWorkbookTable& from = *model_.tables[constraint.table].table;
  const std::vector<LcWorkbookColumn*> columns = ColumnsOf(constraint);
  if (!IsWhole(columns, constraint.parts.size())) return;
  const std::uint32_t target = constraint.target;
  std::vector<LcWorkbookColumn*> target_columns;
  if (target != kNoTable && model_.tables[target].wanted) {
    target_columns = TargetColumnsOf(model_, constraint, target);
  }
  if (!IsWhole(target_columns, columns.size()) || columns.empty()) {
    AddOutsideKey(constraint, columns);
    return;
  }
  LcWorkbookTable& to = *model_.tables[target].table;
  auto forward = std::make_unique<LcWorkbookForeignKey>();
  auto mirror = std::make_unique<LcWorkbookForeignKey>();
  forward->SetKey(ListOf(target_columns).release());
  forward->SetForeignKey(ListOf(columns).release());
  mirror->SetKey(ListOf(columns).release());
  mirror->SetForeignKey(ListOf(target_columns).release());
  LcWorkbookForeignKey::Pair(forward.get(), mirror.get());
  const auto details = std::allocate_shared<LcForeignKeyDetails>(
      LcPoolAllocator<LcForeignKeyDetails>(), DetailsOf(constraint));
  forward->SetDetails(details);
  mirror->SetDetails(details);
  // A row that refers meets one row that is referred to; the other way round only where the
  // referring columns are a key of their table.
  forward->SetOneToOne(IsUnique(from, columns));
  mirror->SetOneToOne(true);
  to.AddForeignKey(forward.release());
  from.AddForeignKey(mirror.release());
}

void Constraints::AddOutsideKey(Constraint& constraint,
                                const std::vector<LcWorkbookColumn*>& columns) {
  LcOutsideKey key;
  key.details = DetailsOf(constraint);
  key.columns = columns;
  NameOutsideTarget(constraint, key);
  model_.tables[constraint.table].table->ChangeDetails().outside_keys.push_back(std::move(key));
}

// As the server spells the names where the table was found, else as the row has them.
void Constraints::NameOutsideTarget(const Constraint& constraint, LcOutsideKey& key) {
  TextStore& texts = model_.catalog.texts();
  Model& known = outside_ != nullptr ? *outside_ : model_;
  const std::uint32_t target = TargetOf(known, constraint);
  if (target != kNoTable && known.tables[target].table != nullptr) {
    key.target_owner = texts.Get(known.tables[target].schema);
    key.target_table = texts.Get(known.tables[target].name);
    const std::vector<LcWorkbookColumn*> columns = TargetColumnsOf(known, constraint, target);
    if (IsWhole(columns, constraint.parts.size())) {
      for (const LcWorkbookColumn* column : columns) {
        key.target_columns.emplace_back(column->GetName());
      }
      return;
    }
  } else if (!constraint.target_table.empty()) {
    key.target_owner = texts.Get(constraint.target_schema);
    key.target_table = texts.Get(constraint.target_table);
  }
  for (const Constraint::Part& part : constraint.parts) {
    if (!part.target_column.empty()) key.target_columns.push_back(texts.Get(part.target_column));
  }
}

bool ConstraintReader::SortOf(const Row& row, Constraint::Sort& sort) const {
  struct Name {
    std::string_view name;
    Constraint::Sort sort;
  };
  static constexpr Name kNames[] = {{"primary", Constraint::Sort::kPrimary},
                                    {"unique", Constraint::Sort::kUnique},
                                    {"foreign", Constraint::Sort::kForeign},
                                    {"check", Constraint::Sort::kCheck},
                                    {"exclusion", Constraint::Sort::kExclusion}};
  if (kind_ == Kind::kForeignKeys) {
    sort = Constraint::Sort::kForeign;
    return true;
  }
  const std::string_view kind = row.Text(Field::kKind);
  if (kind_ == Kind::kChecks && kind.empty()) {
    sort = Constraint::Sort::kCheck;
    return true;
  }
  for (const Name& name : kNames) {
    if (name.name != kind) continue;
    sort = name.sort;
    return true;
  }
  return false;
}

// A check that the server made of a column's NOT NULL, which the column itself tells.
bool ConstraintReader::OnlyKeepsNullOut(const Row& row, std::uint32_t table) {
  const std::string_view name = row.Text(Field::kColumn);
  const LcWorkbookColumn* const column = model_.FindColumn(table, name);
  return column != nullptr && column->IsRequired() &&
         row.Text(Field::kExpression) == '"' + std::string(name) + "\" IS NOT NULL";
}

void ConstraintReader::Read(const Row& row) {
  Constraint::Sort sort{};
  if (!SortOf(row, sort)) return;
  const std::int64_t type_id = row.Number(Field::kTypeId);
  const std::uint32_t table = model_.FindTable(row);
  if (type_id == 0 && (table == kNoTable || !model_.tables[table].wanted)) return;
  if (sort == Constraint::Sort::kCheck && OnlyKeepsNullOut(row, table)) return;
  // What numbers tell apart has no name in common with anything.
  std::string id(row.Text(Field::kKeyId));
  if (id.empty() && type_id != 0) id = row.Text(Field::kConstraintId);
  const std::size_t before = constraints_.all().size();
  Constraint& constraint = constraints_.Find(sort, table, row.Text(Field::kName), id);
  if (constraints_.all().size() != before) {
    constraint.type_id = type_id;
    ReadFacts(row, constraint);
    if (sort == Constraint::Sort::kForeign) ReadTarget(row, constraint);
  }
  ReadParts(row, constraint);
}

void ConstraintReader::ReadFacts(const Row& row, Constraint& constraint) {
  TextStore& texts = model_.catalog.texts();
  constraint.expression = texts.Get(row.Text(Field::kExpression));
  constraint.comment = texts.Get(row.Text(Field::kComment));
  if (!constraint.comment && row.Has(Field::kConstraintId)) {
    constraint.comment =
        model_.comments.Find(Comments::Of::kConstraint, row.Number(Field::kConstraintId));
  }
  LcFindByName(texts.Wide(row.Text(Field::kDeferrable)), constraint.deferrable);
  constraint.enforced = !row.Has(Field::kEnforced) || row.Flag(Field::kEnforced);
  model_.TakeOptions(row, constraint.options);
}

void ConstraintReader::ReadTarget(const Row& row, Constraint& constraint) {
  TextStore& texts = model_.catalog.texts();
  constraint.target_by_id = row.Has(Field::kTargetId);
  constraint.target_id = row.Number(Field::kTargetId);
  constraint.target_schema =
      row.Has(Field::kTargetSchema) ? row.Text(Field::kTargetSchema) : model_.catalog.SchemaOf(row);
  constraint.target_table = row.Text(Field::kTargetTable);
  constraint.target = TargetOf(model_, constraint);
  constraint.on_update = texts.Get(row.Text(Field::kOnUpdate));
  constraint.on_delete = texts.Get(row.Text(Field::kOnDelete));
  constraint.match = texts.Get(row.Text(Field::kMatch));
  if (row.Has(Field::kSetPositions)) {
    ReadNumbers(row.Text(Field::kSetPositions), constraint.set_positions);
  }
}

void ConstraintReader::ReadParts(const Row& row, Constraint& constraint) {
  if (row.Has(Field::kColumnPositions)) {
    ReadNumbers(row.Text(Field::kColumnPositions), numbers_);
    for (const std::int64_t number : numbers_) {
      Constraint::Part& part = constraint.parts.emplace_back();
      part.order = static_cast<std::int64_t>(constraint.parts.size());
      part.position = number;
    }
    ReadNumbers(row.Text(Field::kTargetPositions), numbers_);
    const std::size_t targets = std::min(numbers_.size(), constraint.parts.size());
    for (std::size_t i = 0; i < targets; ++i) constraint.parts[i].target_position = numbers_[i];
    return;
  }
  if (!row.Has(Field::kColumn)) return;
  Constraint::Part& part = constraint.parts.emplace_back();
  part.order = row.Number(Field::kPosition);
  part.column = row.Text(Field::kColumn);
  part.target_column = row.Text(Field::kTargetColumn);
}

void ForeignKeyRuleReader::Read(const Row& row) {
  Constraint* constraint =
      constraints_.FindForeignKey(model_.FindTable(row), row.Text(Field::kName));
  if (constraint == nullptr) return;
  TextStore& texts = model_.catalog.texts();
  constraint->on_update = texts.Get(row.Text(Field::kOnUpdate));
  constraint->on_delete = texts.Get(row.Text(Field::kOnDelete));
  constraint->match = texts.Get(row.Text(Field::kMatch));
  LcFindByName(texts.Wide(row.Text(Field::kDeferrable)), constraint->deferrable);
  constraint->enforced = !row.Has(Field::kEnforced) || row.Flag(Field::kEnforced);
  constraint->comment = texts.Get(row.Text(Field::kComment));
  model_.TakeOptions(row, constraint->options);
}

}  // namespace odbcimport::exact
