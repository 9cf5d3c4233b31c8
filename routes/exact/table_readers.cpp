#include "routes/exact/table_readers.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "routes/exact/definition.h"
#include "routes/exact/definitions.h"

namespace odbcimport::exact {
namespace {

LeTableKind KindOf(std::string_view name, TextStore& texts) {
  LeTableKind kind = tkTable;
  LcFindByName(texts.Wide(name), kind);
  return kind;
}

enumTableType TypeOf(LeTableKind kind) {
  if (kind == tkView || kind == tkMaterializedView) return ttView;
  return kind == tkSynonym ? ttSynonym : ttTable;
}

// The bit of the items that asks for tables of the type, and the one for their names.
std::uint32_t ItemOf(enumTableType type) {
  return type == ttView ? ibViews : type == ttSynonym ? ibSynonyms : ibTables;
}
std::uint32_t NameItemOf(enumTableType type) {
  return type == ttView ? ibViewNames : type == ttSynonym ? ibSynonymNames : ibTableNames;
}

// A table only where the server makes one for it; no table of the workbook.
bool IsSequence(const Row& row) { return row.Text(Field::kKind) == "sequence"; }

void ReadTarget(const Row& row, TextStore& texts, LcSynonymDetails& synonym) {
  synonym.server_name = texts.Wide(row.Text(Field::kTargetServer));
  synonym.database_name = texts.Wide(row.Text(Field::kTargetDatabase));
  synonym.base_owner = texts.Wide(row.Text(Field::kTargetSchema));
  synonym.base_table_name = texts.Wide(row.Text(Field::kTargetTable));
}

// What a server says that keeps the whole statement; of one that made no view all of it.
std::string_view QueryIn(std::string_view statement) {
  const std::string_view query = ReadViewQuery(statement);
  return query.empty() ? statement : query;
}

}  // namespace

bool TableReader::IsWanted(LeTableKind kind, const TableEntry& entry) const {
  const ImportSession& session = model_.catalog.session();
  if (!selection_.Wants(entry.schema, entry.name)) return false;
  // A table that the host names is wanted whatever it turns out to be.
  return wanted_ == Wanted::kEveryKind || selection_.HasTables() ||
         session.HasItem(ItemOf(TypeOf(kind)));
}

void TableReader::Undo() {
  model_.tables.resize(mark_);
  while (!defined_.empty() && defined_.back().table >= mark_) defined_.pop_back();
}

void TableReader::Finish() {
  for (const Definition& defined : defined_) {
    TakeDefinition(model_, std::string_view(definitions_).substr(defined.begin, defined.size),
                   model_.tables[defined.table]);
  }
  definitions_ = {};
  defined_ = {};
}

void TableReader::Read(const Row& row) {
  std::string_view schema;
  if (!model_.FindSchema(row, schema)) return;
  if (IsSequence(row)) {
    AddSequence(row, schema);
    return;
  }
  TextStore& texts = model_.catalog.texts();
  TableEntry& entry = model_.tables.emplace_back();
  entry.schema = schema;
  entry.name = row.Text(Field::kTable);
  entry.has_id = row.Has(Field::kTableId);
  entry.id = row.Number(Field::kTableId);
  entry.column_count = row.Number(Field::kColumnCount, -1);
  const LeTableKind kind = KindOf(row.Text(Field::kKind), texts);
  entry.kind = kind;
  entry.wanted = IsWanted(kind, entry);
  if (!entry.wanted) return;
  entry.made = std::make_unique<LcWorkbookTable>();
  entry.table = entry.made.get();
  entry.table->SetName(texts.Wide(entry.name));
  if (!entry.schema.empty()) entry.table->SetOwner(texts.Wide(entry.schema));
  entry.table->SetType(TypeOf(kind));
  if (kind == tkSynonym) ReadSynonym(row, texts, *entry.table);
  ReadDetails(row, kind, entry);
}

// Sequences beside single tables are none of theirs.
void TableReader::AddSequence(const Row& row, std::string_view schema) {
  if (selection_.HasTables() || !selection_.WantsSchema(schema)) return;
  model_.catalog.each_sequence.push_back(
      {std::string(schema), std::string(row.Text(Field::kTable)), tkUnknown});
}

void TableReader::ReadSynonym(const Row& row, TextStore& texts, LcWorkbookTable& table) {
  LcSynonymDetails synonym;
  ReadTarget(row, texts, synonym);
  table.SetSynonymDetails(synonym);
}

void TableReader::ReadDetails(const Row& row, LeTableKind kind, TableEntry& entry) {
  TextStore& texts = model_.catalog.texts();
  LcTableDetails& details = entry.table->ChangeDetails();
  details.kind = kind;
  details.comment = texts.Get(row.Text(Field::kComment));
  if (!details.comment && entry.has_id) {
    details.comment = model_.comments.Find(Comments::Of::kRelation, entry.id);
  }
  details.view_text = texts.Get(row.Text(Field::kText));
  entry.collation = texts.Get(row.Text(Field::kCollation));
  if (entry.collation) details.options.Set(u"collation", entry.collation);
  if (row.Has(Field::kReason)) {
    model_.catalog.AddNotRead(NameOf(Kind::kColumns), entry.schema, entry.name,
                              texts.Get(row.Text(Field::kReason)), false);
  }
  if (row.Has(Field::kDefinition)) {
    const std::string_view text = row.Text(Field::kDefinition);
    defined_.push_back({model_.tables.size() - 1, definitions_.size(), text.size()});
    definitions_ += text;
  }
  if (row.Has(Field::kParentTable)) {
    details.parent_table = texts.Get(row.Text(Field::kParentTable));
    details.parent_owner =
        texts.Get(row.Has(Field::kParentSchema) ? row.Text(Field::kParentSchema)
                                                : std::string_view(entry.schema));
  } else if (row.Has(Field::kParentId)) {
    Parents& parents = parents_.emplace_back();
    parents.table_id = entry.id;
    ReadNumbers(row.Text(Field::kParentId), parents.ids);
  }
  model_.TakeOptions(row, details.options);
}

void TableReader::ListOutsideParents(std::vector<std::string>& ids) const {
  for (const Parents& parents : parents_) {
    for (const std::int64_t id : parents.ids) {
      if (model_.FindTable(id) == kNoTable) ids.push_back(std::to_string(id));
    }
  }
}

void TableReader::SettleParents(const Model& outside) {
  TextStore& texts = model_.catalog.texts();
  for (const Parents& parents : parents_) {
    const std::uint32_t child = model_.FindTable(parents.table_id);
    if (child == kNoTable || model_.tables[child].table == nullptr) continue;
    LcTableDetails& details = model_.tables[child].table->ChangeDetails();
    std::string others;
    for (const std::int64_t id : parents.ids) {
      const Model& known = model_.FindTable(id) != kNoTable ? model_ : outside;
      const std::uint32_t place = known.FindTable(id);
      if (place == kNoTable) continue;
      const TableEntry& parent = known.tables[place];
      if (details.kind == tkPartition && !details.parent_table) {
        details.parent_owner = texts.Get(parent.schema);
        details.parent_table = texts.Get(parent.name);
        continue;
      }
      if (!others.empty()) others += ", ";
      if (parent.schema != model_.tables[child].schema) others += parent.schema + ".";
      others += parent.name;
    }
    if (!others.empty()) details.options.Set(u"inherits", texts.Get(others));
  }
}

void TableNameReader::Read(const Row& row) {
  std::string_view schema;
  if (!model_.FindSchema(row, schema)) return;
  const std::string_view name = row.Text(Field::kTable);
  TextStore& texts = model_.catalog.texts();
  if (IsSequence(row)) return;
  const enumTableType type = TypeOf(KindOf(row.Text(Field::kKind), texts));
  if ((items_ & NameItemOf(type)) == 0 || !selection_.Wants(schema, name)) return;
  auto info = std::make_unique<LcTableInfo>();
  info->name = texts.Wide(name);
  info->owner = texts.Wide(schema);
  info->type = type;
  if (type == ttSynonym) ReadTarget(row, texts, info->synonym);
  found_.push_back(std::move(info));
}

void TableNameReader::Append(LcTableInfoList& list) {
  std::sort(found_.begin(), found_.end(), [](const auto& a, const auto& b) {
    return std::tie(a->owner, a->name) < std::tie(b->owner, b->name);
  });
  for (std::unique_ptr<LcTableInfo>& info : found_) list.Append(std::move(info));
  found_.clear();
}

void ViewTextReader::Read(const Row& row) {
  LcWorkbookTable* table = model_.FindWanted(row);
  if (table == nullptr) return;
  LcTableDetails& details = table->ChangeDetails();
  model_.TakeOptions(row, details.options);
  TextStore& texts = model_.catalog.texts();
  if (!row.Has(Field::kReason)) {
    details.view_text =
        texts.Get(row.Has(Field::kDefinition) ? QueryIn(row.Text(Field::kDefinition))
                                              : row.Text(Field::kText));
    return;
  }
  model_.catalog.AddNotRead(NameOf(Kind::kViewTexts), model_.catalog.SchemaOf(row),
                            row.Text(Field::kTable), texts.Get(row.Text(Field::kReason)), true);
}

void TableOptionReader::Read(const Row& row) {
  LcWorkbookTable* table = model_.FindWanted(row);
  if (table == nullptr) return;
  TextStore& texts = model_.catalog.texts();
  LcTableDetails& details = table->ChangeDetails();
  if (row.Has(Field::kKind)) details.kind = KindOf(row.Text(Field::kKind), texts);
  if (row.Has(Field::kComment)) details.comment = texts.Get(row.Text(Field::kComment));
  model_.TakeOptions(row, details.options);
}

}  // namespace odbcimport::exact
