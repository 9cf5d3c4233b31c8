#include "routes/exact/column_readers.h"

#include <memory>
#include <utility>

namespace odbcimport::exact {
namespace {

// The text of a default belongs to the expression of a column that is computed.
void SetDefault(LcColumnDetails& details, LcText text) {
  (details.generated != gnNone ? details.expression : details.default_text) = std::move(text);
}

}  // namespace

void ColumnReader::Undo() {
  for (std::size_t i = mark_; i < model_.columns.size(); ++i) {
    --model_.tables[model_.columns[i].table].columns_seen;
  }
  model_.columns.resize(mark_);
}

void ColumnReader::Read(const Row& row) {
  const std::uint32_t table = model_.FindTable(row);
  if (table == kNoTable) return;
  TableEntry& entry = model_.tables[table];
  if (!entry.wanted) return;
  ++entry.columns_seen;
  if (row.Flag(Field::kDropped)) return;

  ColumnEntry& column = model_.columns.emplace_back();
  column.made = std::make_unique<LcWorkbookColumn>();
  column.column = column.made.get();
  column.table = table;
  column.position = static_cast<std::int32_t>(row.Number(Field::kPosition));
  column.key_position = static_cast<std::int32_t>(row.Number(Field::kKeyPosition));
  column.collation_id = row.Number(Field::kCollationId);
  column.type = model_.types.Find(row);
  column.column->SetName(model_.catalog.texts().Name(row.Text(Field::kColumn)));
  column.column->SetColumnId(column.position);
  column.column->SetRequired(row.Has(Field::kNullable) ? !row.Flag(Field::kNullable)
                                                       : row.Flag(Field::kNotNull));
  ReadDetails(row, entry, *column.column);
  if (reports_) Report(table, *column.column);
}

void ColumnReader::ReadDetails(const Row& row, const TableEntry& entry, LcWorkbookColumn& column) {
  TextStore& texts = model_.catalog.texts();
  LcText comment = texts.Get(row.Text(Field::kComment));
  if (!comment && entry.has_id) {
    comment = model_.comments.Find(Comments::Of::kRelation, entry.id, column.GetColumnId());
  }
  LcColumnDetails details;
  if (row.Has(Field::kGenerated)) {
    LcFindByName(texts.Wide(row.Text(Field::kGenerated)), details.generated);
  }
  if (row.Has(Field::kIdentity)) {
    LcFindByName(texts.Wide(row.Text(Field::kIdentity)), details.identity);
  }
  LcText collation = texts.Get(row.Text(Field::kCollation));
  if (collation == entry.collation) collation = {};
  LcOptions options;
  model_.TakeOptions(row, options);
  const bool plain = !comment && details.generated == gnNone && details.identity == idNone &&
                     options.IsEmpty() && !row.Has(Field::kDefault) &&
                     !row.Has(Field::kExpression) && !collation;
  if (plain) return;
  SetDefault(details, texts.Get(row.Text(Field::kDefault)));
  if (row.Has(Field::kExpression)) details.expression = texts.Get(row.Text(Field::kExpression));
  details.collation = std::move(collation);
  details.comment = std::move(comment);
  details.options = std::move(options);
  column.SetGeneratedKey(details.identity != idNone);
  column.SetReadOnly(details.identity == idAlways || details.generated != gnNone);
  column.ChangeDetails() = std::move(details);
}

void ColumnReader::Report(std::uint32_t table, const LcWorkbookColumn& column) {
  const ImportSession& session = model_.catalog.session();
  if (table != current_) {
    reported_.resize(model_.tables.size());
    if (current_ != kNoTable && !reported_[current_]) {
      session.progress.StatusDialog(inItemDone);
      reported_[current_] = true;
    }
    current_ = table;
  }
  const LcWorkbookTable& owner = *model_.tables[table].table;
  session.progress.StatusDialog(inTableItem, iiNone, 0, owner.GetOwner(true).c_str(),
                                owner.GetName().c_str(), column.GetName().c_str(), false);
}

void ColumnReader::Finish() {
  reported_.resize(model_.tables.size());
  for (std::size_t i = 0; i < model_.tables.size(); ++i) {
    if (model_.tables[i].wanted && !reported_[i])
      model_.catalog.session().progress.StatusDialog(inItemDone);
  }
}

void DefaultReader::Read(const Row& row) {
  const std::uint32_t table = model_.FindTable(row);
  LcWorkbookColumn* column = row.Has(Field::kPosition)
                                 ? model_.FindColumn(table, row.Number(Field::kPosition))
                                 : model_.FindColumn(table, row.Text(Field::kColumn));
  if (column == nullptr) return;
  SetDefault(column->ChangeDetails(), model_.catalog.texts().Get(row.Text(Field::kDefault)));
}

namespace {

void SetType(Model& model, ColumnEntry& entry) {
  if (entry.type == ColumnTypes::kNone) return;
  const ColumnTypes::Entry& type = model.types.At(entry.type);
  if (type.type == nullptr) return;  // the kind of types could not be read
  LcWorkbookColumn& column = *entry.column;
  column.SetDataType(type.type->Copy(), true, true);
  column.SetPhysicalCode(type.type->GetPhysicalCode());
  column.SetPrecision(type.precision != 0 ? type.precision : type.length);
  column.SetWidth(static_cast<int>(type.length));
  column.SetScale(type.scale);
  if (type.named) column.SetExtendedTypeName(type.type->GetDatabaseType().Text());
  if (entry.collation_id == 0 || entry.collation_id == type.collation_id) return;
  const KnownNames::Name* collation = model.names.Find("collation", entry.collation_id);
  if (collation != nullptr) column.ChangeDetails().collation = collation->name;
}

// Rows come table by table where the server does not say how many a table has: then all but the
// last one are whole.
bool IsWhole(const Model& model, std::size_t table) {
  const TableEntry& entry = model.tables[table];
  if (entry.column_count >= 0) return entry.columns_seen >= entry.column_count;
  return entry.columns_seen > 0 && !model.columns.empty() && model.columns.back().table != table;
}

}  // namespace

void FinishColumns(Model& model, bool whole, LcWorkbookTableList* list) {
  std::vector<bool> kept(model.tables.size(), true);
  for (std::size_t i = 0; i < model.tables.size(); ++i) kept[i] = whole || IsWhole(model, i);
  model.OrderColumns();
  for (std::size_t i = 0; i < model.tables.size(); ++i) {
    const TableEntry& entry = model.tables[i];
    if (kept[i] && entry.table != nullptr) entry.table->ReserveColumns(entry.columns);
  }
  for (ColumnEntry& entry : model.columns) {
    SetType(model, entry);
    if (kept[entry.table]) model.tables[entry.table].table->AddColumn(entry.made.release());
  }
  for (std::size_t i = 0; i < model.tables.size(); ++i) {
    TableEntry& entry = model.tables[i];
    if (!entry.wanted) continue;
    if (kept[i]) {
      if (list != nullptr) list->Append(std::move(entry.made));
    } else {
      entry.wanted = false;
      entry.table = nullptr;
    }
  }
}

}  // namespace odbcimport::exact
