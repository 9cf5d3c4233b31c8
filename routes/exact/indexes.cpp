#include "routes/exact/indexes.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "routes/exact/sort_once.h"

namespace odbcimport::exact {
namespace {

// The bits of `orders`.
constexpr std::int64_t kDescending = 1;
constexpr std::int64_t kNullsFirst = 2;

// Of an index that is a key: true when it has anything that the key has no place for.
bool SaysMoreThanItsKey(const LcIndexDetails& index) {
  return index.method || index.predicate || !index.options.IsEmpty() ||
         std::any_of(index.parts.begin(), index.parts.end(), [](const LcIndexPart& part) {
           return part.column == nullptr || part.descending || part.included ||
                  !part.options.IsEmpty();
         });
}

}  // namespace

void IndexReader::Mark() {
  mark_ = all_.size();
  constraint_mark_ = constraints_.all().size();
}

void IndexReader::Undo() {
  all_.resize(mark_);
  constraints_.Forget(constraint_mark_);
  places_.ForgetFrom(static_cast<std::uint32_t>(mark_));
}

IndexReader::Index& IndexReader::Find(std::uint32_t table, std::string_view name, bool& is_new) {
  is_new = false;
  if (!all_.empty() && all_.back().table == table && all_.back().name == name) return all_.back();
  const std::uint64_t hash = HashedPlaces::HashOf(name, table);
  const std::uint32_t known = places_.Find(hash, [&](std::uint32_t place) {
    return all_[place].table == table && all_[place].name == name;
  });
  if (known != HashedPlaces::kNone) return all_[known];
  places_.Add(hash, static_cast<std::uint32_t>(all_.size()));
  is_new = true;
  Index& index = all_.emplace_back();
  index.table = table;
  index.name = name;
  return index;
}

void IndexReader::Read(const Row& row) {
  const std::uint32_t table = model_.FindTable(row);
  if (table == kNoTable || !model_.tables[table].wanted) return;
  bool is_new = false;
  Index& index = Find(table, row.Text(Field::kName), is_new);
  if (is_new) ReadFacts(row, index);
  if (row.Has(Field::kKey)) ReadKey(row, index);
  if (row.Has(Field::kColumnPositions)) {
    ReadParts(row, index);
  } else {
    ReadPart(row, index);
  }
}

void IndexReader::ReadFacts(const Row& row, Index& index) {
  TextStore& texts = model_.catalog.texts();
  LcIndexDetails& details = index.details;
  details.name = texts.Get(index.name);
  details.unique = row.Flag(Field::kUnique);
  details.method = model_.NameOf(row, Field::kMethod, Field::kMethodId, "method");
  details.predicate = texts.Get(row.Text(Field::kPredicate));
  details.comment = texts.Get(row.Text(Field::kComment));
  if (!details.comment && row.Has(Field::kIndexId)) {
    details.comment = model_.comments.Find(Comments::Of::kRelation, row.Number(Field::kIndexId));
  }
  model_.TakeOptions(row, details.options);
  if (row.Has(Field::kDefinition)) {
    index.definition =
        std::make_unique<IndexDefinition>(ReadIndexDefinition(row.Text(Field::kDefinition)));
  }
}

// An index that is a key, on servers that keep no other account of it.
void IndexReader::ReadKey(const Row& row, Index& index) {
  const bool primary = row.Text(Field::kKey) == "primary";
  if (!primary && row.Text(Field::kKey) != "unique") return;
  Constraint& key =
      constraints_.Find(primary ? Constraint::Sort::kPrimary : Constraint::Sort::kUnique,
                        index.table, index.name, "");
  index.is_key = true;
  key.comment = index.details.comment;
  if (row.Has(Field::kColumnPositions)) {
    ReadNumbers(row.Text(Field::kColumnPositions), positions_);
    for (const std::int64_t position : positions_) {
      Constraint::Part& part = key.parts.emplace_back();
      part.order = static_cast<std::int64_t>(key.parts.size());
      part.position = position;
    }
    return;
  }
  Constraint::Part& part = key.parts.emplace_back();
  part.order = row.Number(Field::kPosition);
  part.column = row.Text(Field::kColumn);
}

void IndexReader::ReadPart(const Row& row, Index& index) {
  TextStore& texts = model_.catalog.texts();
  Part& made = index.parts.emplace_back();
  made.order = row.Number(Field::kPosition);
  LcIndexPart& part = made.part;
  part.column = model_.FindColumn(index.table, row.Text(Field::kColumn));
  part.expression = texts.Get(row.Text(Field::kExpression));
  // A column that is hidden from this user still is a part.
  if (part.column == nullptr && !part.expression) {
    part.expression = texts.Get(row.Text(Field::kColumn));
  }
  part.descending = row.Flag(Field::kDescending);
  part.included = row.Flag(Field::kIncluded);
  const auto set = [&](const char16_t* name, Field field) {
    if (!row.Text(field).empty()) part.options.Set(name, texts.Get(row.Text(field)));
  };
  set(u"prefix", Field::kPrefix);
  set(u"operator class", Field::kOperatorClass);
  if (!IsOwnCollation(part.column, row.Text(Field::kCollation))) {
    set(u"collation", Field::kCollation);
  }
}

// A part is compared as its column is, where nothing else is said.
bool IndexReader::IsOwnCollation(const LcWorkbookColumn* column, std::string_view collation) {
  const LcColumnDetails* const details = column != nullptr ? column->GetDetails() : nullptr;
  return details != nullptr && details->collation &&
         details->collation == model_.catalog.texts().Get(collation);
}

void IndexReader::ReadParts(const Row& row, Index& index) {
  ReadNumbers(row.Text(Field::kColumnPositions), positions_);
  ReadNumbers(row.Text(Field::kOrders), orders_);
  ReadNumbers(row.Text(Field::kOperatorClassIds), operator_classes_);
  ReadNumbers(row.Text(Field::kCollationIds), collations_);
  const std::vector<std::string> expressions = ReadTexts(row.Text(Field::kExpressions));
  const std::int64_t keys =
      row.Number(Field::kKeyCount, static_cast<std::int64_t>(positions_.size()));
  const bool for_all = expressions.size() == positions_.size();
  std::size_t expression = 0;
  for (std::size_t i = 0; i < positions_.size(); ++i) {
    Part& made = index.parts.emplace_back();
    made.order = static_cast<std::int64_t>(i);
    const ColumnEntry* column = model_.FindEntry(index.table, positions_[i]);
    if (column != nullptr) {
      made.part.column = column->column;
    } else {
      const std::size_t at = for_all ? i : expression++;
      if (at < expressions.size()) {
        made.part.expression = model_.catalog.texts().Get(expressions[at]);
      }
    }
    made.part.included = static_cast<std::int64_t>(i) >= keys;
    if (made.part.included) continue;
    if (i < orders_.size()) SetOrder(orders_[i], made.part);
    SetNames(i, column, made.part);
  }
}

// Where nulls stand is told where it is not what the direction means by itself: last, and first in
// descending order.
void IndexReader::SetOrder(std::int64_t order, LcIndexPart& part) const {
  part.descending = (order & kDescending) != 0;
  const bool nulls_first = (order & kNullsFirst) != 0;
  if (nulls_first == part.descending) return;
  part.options.Set(u"nulls", nulls_first ? u"first" : u"last");
}

void IndexReader::SetNames(std::size_t place, const ColumnEntry* column, LcIndexPart& part) {
  if (place < operator_classes_.size()) {
    const KnownNames::Name* name = model_.names.Find("operator_class", operator_classes_[place]);
    if (name != nullptr && !name->is_default) part.options.Set(u"operator class", name->name);
  }
  if (place >= collations_.size() || collations_[place] == 0) return;
  const bool own = column == nullptr || column->collation_id != collations_[place];
  const KnownNames::Name* name = model_.names.Find("collation", collations_[place]);
  if (own && name != nullptr && !(column == nullptr && name->is_default)) {
    part.options.Set(u"collation", name->name);
  }
}

// What stands in the text alone: expressions, the predicate, and a collation that is written though
// it is the one that there would be anyway.
void IndexReader::Define(Index& index) {
  TextStore& texts = model_.catalog.texts();
  const IndexDefinition& definition = *index.definition;
  if (!definition.predicate.empty()) index.details.predicate = texts.Get(definition.predicate);
  for (Part& made : index.parts) {
    const auto place = static_cast<std::size_t>(made.order);
    if (place >= definition.parts.size()) continue;
    const IndexDefinition::Part& defined = definition.parts[place];
    if (made.part.column == nullptr) made.part.expression = texts.Get(defined.expression);
    if (defined.collation.empty() || made.part.options.Find(u"collation")) continue;
    if (IsOwnCollation(made.part.column, defined.collation)) continue;
    made.part.options.Set(u"collation", texts.Get(defined.collation));
  }
}

void IndexReader::Finish() {
  SortOnce(all_, [](const Index& a, const Index& b) {
    return std::tie(a.table, a.name) < std::tie(b.table, b.name);
  });
  for (Index& index : all_) {
    if (index.definition != nullptr) Define(index);
    std::sort(index.parts.begin(), index.parts.end(),
              [](const Part& a, const Part& b) { return a.order < b.order; });
    index.details.parts.reserve(index.parts.size());
    for (Part& part : index.parts) index.details.parts.push_back(std::move(part.part));
    if (index.is_key && !SaysMoreThanItsKey(index.details)) continue;
    model_.tables[index.table].table->ChangeDetails().indexes.push_back(std::move(index.details));
  }
  all_.clear();
  places_.Clear();
}

}  // namespace odbcimport::exact
