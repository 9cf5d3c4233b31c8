// The phases of the exact route.
#include "routes/exact/route.h"

#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <utility>

#include "base/utf.h"
#include "routes/exact/column_readers.h"
#include "routes/exact/constraints.h"
#include "routes/exact/definitions.h"
#include "routes/exact/indexes.h"
#include "routes/exact/model.h"
#include "routes/exact/object_readers.h"
#include "routes/exact/schema_readers.h"
#include "routes/exact/selection.h"
#include "routes/exact/table_readers.h"
#include "routes/shared/phases.h"
#include "routes/shared/readers.h"

namespace odbcimport::exact {
namespace {

class ExactRoute {
 public:
  static constexpr bool kReportsEnd = true;

  ExactRoute(ImportSession& session, const Server& server);
  void Release() { catalog_.End(); }

  // The phases; all leave the result alone. What could not be read is said and no end.
  bool Begin();
  bool ReadOwnerNames();
  bool ReadTableNames();
  bool ReadSynonymNames();
  bool ReadColumnNames();
  bool ReadOperators();
  bool ReadAggregates();
  bool ReadRoutines();
  bool ReadTables();
  bool ReadDataTypes();

  bool result = true;

 private:
  void ChooseSchemas();
  void ReadNames(std::uint32_t items);
  bool ReadSurroundings();
  // The steps of ReadTables.
  bool ReadTableList();
  bool ReadColumns();
  bool ReadAboutTables();
  bool ReadKeys();
  bool ReadOutside();
  void ReadOutsideTables();
  bool ReadDefinitions();
  bool ReadForeignKeys();
  bool ReadOtherObjects();

  void ReadTypes(LcWorkbookDatatypeList* list);
  void AppendBuiltInTypes(LcWorkbookDatatypeList& list);
  bool IsHere(const LcSynonymDetails& synonym) const;
  void FillSynonyms();
  void NarrowToTables(Model& model, const Selection& selection);
  void NarrowToNumbers(const Model& model, bool narrow);
  // False where the import was stopped meanwhile, or the connection lost.
  bool Read(Kind kind, RowReader& reader);
  bool GoesOn();
  bool EndPhase();

  ImportSession& session_;
  Catalog catalog_;
  Selection selection_;
  Model model_;
  Model outside_;  // tables that the host did not choose and that chosen ones refer to
  TableReader tables_;
  Constraints constraints_;
  IndexReader indexes_;
  bool constraints_read_ = false;
};

// clang-format off
constexpr Phase<ExactRoute> kPhases[] = {
    {kWhateverIsWanted,                          "begin",         &ExactRoute::Begin},
    {ibOwnerNames,                               "owner names",   &ExactRoute::ReadOwnerNames},
    {ibTableNames | ibViewNames,                 "table names",   &ExactRoute::ReadTableNames},
    {ibSynonymNames,                             "synonym names", &ExactRoute::ReadSynonymNames},
    {ibColumnNames,                              "column names",  &ExactRoute::ReadColumnNames},
    {ibOperators,                                "operators",     &ExactRoute::ReadOperators},
    {ibAggregates,                               "aggregates",    &ExactRoute::ReadAggregates},
    {ibFunctions | ibProcedures | ibAggregates,  "routines",      &ExactRoute::ReadRoutines},
    {ibTables | ibViews | ibSynonyms,            "tables",        &ExactRoute::ReadTables},
    {ibDataTypes,                                "data types",    &ExactRoute::ReadDataTypes},
};
// clang-format on

ExactRoute::ExactRoute(ImportSession& session, const Server& server)
    : session_(session),
      catalog_(session, server),
      selection_(session.choices),
      model_(catalog_),
      outside_(catalog_),
      tables_(model_, selection_),
      constraints_(model_),
      indexes_(model_, constraints_) {}

bool ExactRoute::GoesOn() {
  if (catalog_.IsConnectionLost()) result = false;
  return result && !session_.progress.WasImportStoppedOrCancelled();
}

bool ExactRoute::EndPhase() {
  session_.progress.StatusDialog(inPhaseEnd);
  return GoesOn();
}

bool ExactRoute::Begin() {
  catalog_.Begin();
  ChooseSchemas();
  session_.sink.workbook()->details.options = catalog_.server().options;
  return GoesOn();
}

bool ExactRoute::Read(Kind kind, RowReader& reader) {
  return catalog_.Read(kind, reader) != ReadResult::kStopped && GoesOn();
}

// A server that is read schema by schema has one in hand where the host chose none.
void ExactRoute::ChooseSchemas() {
  catalog_.values.system = session_.choices.include_system;
  if (!catalog_.dialect().each_schema) {
    selection_.FillMarks(nullptr, catalog_.values);
    return;
  }
  catalog_.schemas = selection_.Schemas();
  if (!catalog_.schemas.empty()) {
    selection_.FillMarks(nullptr, catalog_.values);
    return;
  }
  const std::string catalog = base::ToUtf8(session_.choices.catalog);
  const std::string& schema = catalog.empty() ? catalog_.server().schema : catalog;
  if (schema.empty()) {
    catalog_.AddNotRead("schemas", "", "", u"the connection is in no database, and none was chosen",
                        false);
    return;
  }
  catalog_.schemas = {schema};
  if (selection_.IsEmpty()) selection_ = Selection::OfOwner(schema);
  selection_.FillMarks(nullptr, catalog_.values);
}

bool ExactRoute::ReadOwnerNames() {
  session_.progress.StatusDialog(inPhaseStart, iiOwnerNames);
  Model names(catalog_);
  const Selection everything = Selection::OfEverything();
  SchemaReader reader(names, everything, false);
  if (catalog_.dialect().owners) Read(Kind::kSchemas, reader);
  std::set<std::string> sorted(names.schemas.begin(), names.schemas.end());
  for (const std::string& name : sorted) {
    if (session_.sink.owner_names() == nullptr) break;
    auto owner = std::make_unique<LcOwnerInfo>();
    owner->name = base::ToUtf16(name);
    session_.sink.owner_names()->Append(std::move(owner));
  }
  return EndPhase();
}

void ExactRoute::ReadNames(std::uint32_t items) {
  Model names(catalog_);
  SchemaReader schemas(names, selection_, false);
  if (!Read(Kind::kSchemas, schemas) || session_.sink.table_names() == nullptr) return;
  TableNameReader reader(names, selection_, items);
  Read(Kind::kTables, reader);
  reader.Append(*session_.sink.table_names());
}

bool ExactRoute::ReadTableNames() {
  session_.progress.StatusDialog(inPhaseStart, iiTableNames);
  ReadNames(session_.choices.item_mask & (ibTableNames | ibViewNames));
  return EndPhase();
}

bool ExactRoute::ReadSynonymNames() {
  session_.progress.StatusDialog(inPhaseStart, iiSynonymNames);
  ReadNames(ibSynonymNames);
  return EndPhase();
}

bool ExactRoute::ReadColumnNames() {
  session_.progress.StatusDialog(inPhaseStart, iiColumnNames);
  const Selection one(base::ToUtf8(session_.choices.single_item_owner),
                      base::ToUtf8(session_.choices.single_table_name));
  const MarkValues saved = catalog_.values;
  one.FillMarks(nullptr, catalog_.values);
  Model model(catalog_);
  SchemaReader schemas(model, one, false);
  TableReader tables(model, one);
  ColumnReader columns(model, false);
  ColumnTypeReader types(model);
  if (Read(Kind::kSchemas, schemas) && Read(Kind::kTables, tables)) {
    model.IndexTables();
    NarrowToTables(model, one);
    bool whole = Read(Kind::kColumns, columns) && Read(Kind::kViewColumns, columns);
    model.types.ListNumbers(catalog_.values.type_ids, catalog_.values.type_modifiers);
    catalog_.values.by_types = true;
    whole = whole && Read(Kind::kColumnTypes, types);
    model.types.Settle();
    FinishColumns(model, whole, nullptr);
  }
  catalog_.values = saved;
  for (const TableEntry& entry : model.tables) {
    if (!entry.wanted || session_.sink.column_names() == nullptr) continue;
    for (int i = 0; i < entry.table->GetColumnCount(); ++i) {
      const LcWorkbookColumn& column = *entry.table->GetColumn(i);
      auto info = std::make_unique<LcWBColumnInfo>();
      info->name = column.GetName();
      if (column.GetDataType() != nullptr) info->data_type.reset(column.GetDataType()->Copy());
      session_.sink.column_names()->Append(std::move(info));
    }
    break;
  }
  return EndPhase();
}

bool ExactRoute::ReadOperators() {
  session_.progress.StatusDialog(inPhaseStart, iiOperators);
  GetOperators(session_);
  return EndPhase();
}

bool ExactRoute::ReadAggregates() {
  GetAggregates(session_);  // reports its phase itself
  return GoesOn();
}

bool ExactRoute::ReadRoutines() {
  session_.progress.StatusDialog(inPhaseStart,
                                 session_.HasItem(ibFunctions) ? iiGeneralFunctions : iiProcedures);
  // Single tables have no routines of their own.
  if (!selection_.HasTables() && ReadSurroundings()) {
    RoutineReader routines(model_, selection_);
    ParameterReader parameters(routines);
    if (Read(Kind::kRoutines, routines)) Read(Kind::kParameters, parameters);
    routines.Finish(session_.choices.item_mask);
  }
  return EndPhase();
}

// What stands around the tables is read once.
bool ExactRoute::ReadSurroundings() {
  if (!model_.schemas.empty()) return GoesOn();
  CommentReader comments(model_);
  SchemaReader schemas(model_, selection_, true);
  NameReader names(model_);
  NotReadReader not_read(model_, selection_);
  return Read(Kind::kComments, comments) && Read(Kind::kSchemas, schemas) &&
         Read(Kind::kNames, names) && Read(Kind::kNotRead, not_read);
}

bool ExactRoute::ReadTables() {
  if (session_.sink.tables() == nullptr) return true;
  session_.progress.StatusDialog(inPhaseStart, iiTablesAndViews);
  const bool listed = ReadTableList();
  if (!EndPhase() || !listed) return GoesOn();
  return ReadColumns() && ReadAboutTables() && ReadKeys() && ReadOutside() && ReadForeignKeys() &&
         ReadOtherObjects();
}

bool ExactRoute::ReadTableList() {
  if (!ReadSurroundings()) return false;
  const bool whole = Read(Kind::kTables, tables_);
  tables_.Finish();
  if (!whole) return false;
  model_.IndexTables();
  NarrowToTables(model_, selection_);
  return true;
}

// From here on statements are narrowed to the tables that were found, where the host chose some.
void ExactRoute::NarrowToTables(Model& model, const Selection& selection) {
  catalog_.each_table.clear();
  for (const TableEntry& entry : model.tables) {
    if (entry.wanted) catalog_.each_table.push_back({entry.schema, entry.name, entry.kind});
  }
  NarrowToNumbers(model, !selection.IsEmpty() && !catalog_.dialect().each_schema);
}

void ExactRoute::NarrowToNumbers(const Model& model, bool narrow) {
  MarkValues& values = catalog_.values;
  values.table_ids.clear();
  values.by_ids = false;
  for (const TableEntry& entry : model.tables) {
    if (!narrow || !entry.wanted || !entry.has_id) continue;
    values.by_ids = true;
    values.table_ids.push_back(std::to_string(entry.id));
  }
}

bool ExactRoute::ReadColumns() {
  session_.progress.StatusDialog(inLoopStart, iiTablesAndViews, catalog_.each_table.size());
  bool whole = true;
  if (!catalog_.each_table.empty()) {
    ColumnReader columns(model_, true);
    whole = Read(Kind::kColumns, columns) && Read(Kind::kViewColumns, columns);
    if (whole) columns.Finish();
    ColumnTypeReader types(model_);
    MarkValues& values = catalog_.values;
    model_.types.ListNumbers(values.type_ids, values.type_modifiers);
    values.by_types = !values.type_ids.empty();
    // The types of what was read so far are worth having even where the host stopped meanwhile,
    // but asking for them would make it wait.
    if (whole && values.by_types) whole = Read(Kind::kColumnTypes, types);
    values.by_types = false;
    model_.types.Settle();
  }
  FinishColumns(model_, whole, session_.sink.tables());
  DefineColumns(model_);
  FillSynonyms();
  if (!whole) return false;
  session_.progress.StatusDialog(inLoopEnd);
  return GoesOn();
}

// What a synonym of another server or database stands for is not read, whatever has its name here.
bool ExactRoute::IsHere(const LcSynonymDetails& synonym) const {
  const std::u16string& database = synonym.database_name;
  return synonym.server_name.empty() &&
         (database.empty() || base::ToUtf8(database) == catalog_.server().catalog);
}

// A synonym has the columns of what it stands for.
void ExactRoute::FillSynonyms() {
  for (const TableEntry& entry : model_.tables) {
    if (!entry.wanted || entry.table->GetType() != ttSynonym || entry.columns != 0) continue;
    const LcSynonymDetails synonym = entry.table->GetSynonymDetails();
    if (!IsHere(synonym)) continue;
    const std::uint32_t base =
        model_.FindTable(base::ToUtf8(synonym.base_owner), base::ToUtf8(synonym.base_table_name));
    if (base == kNoTable || model_.tables[base].table == nullptr) continue;
    const LcWorkbookTable& table = *model_.tables[base].table;
    for (int i = 0; i < table.GetColumnCount(); ++i) {
      const LcWorkbookColumn& column = *table.GetColumn(i);
      auto copy = std::make_unique<LcWorkbookColumn>();
      copy->SetName(column.GetName());
      copy->SetColumnId(column.GetColumnId());
      copy->SetRequired(column.IsRequired());
      copy->SetPhysicalCode(column.GetPhysicalCode());
      copy->SetPrecision(column.GetPrecision());
      copy->SetWidth(column.GetWidth());
      copy->SetScale(column.GetScale());
      copy->SetExtendedTypeName(column.GetExtendedTypeName());
      if (column.GetDataType() != nullptr) {
        copy->SetDataType(column.GetDataType()->Copy(), true, true);
      }
      entry.table->AddColumn(copy.release());
    }
  }
}

bool ExactRoute::ReadAboutTables() {
  if (catalog_.each_table.empty()) return true;
  DefaultReader defaults(model_);
  TableOptionReader options(model_);
  ViewTextReader view_texts(model_);
  return Read(Kind::kColumnDefaults, defaults) && Read(Kind::kTableOptions, options) &&
         Read(Kind::kViewTexts, view_texts);
}

bool ExactRoute::ReadKeys() {
  if (catalog_.each_table.empty()) return true;
  session_.progress.StatusDialog(inPhaseStart, iiPrimaryKeys);
  ConstraintReader all(model_, constraints_, Kind::kConstraints);
  ConstraintReader checks(model_, constraints_, Kind::kChecks);
  bool read = Read(Kind::kConstraints, all) && Read(Kind::kChecks, checks);
  constraints_read_ = true;
  if (read && session_.choices.keys) {
    ConstraintReader keys(model_, constraints_, Kind::kKeys);
    read = Read(Kind::kKeys, keys) && Read(Kind::kIndexes, indexes_);
  }
  if (read && session_.choices.foreign_keys) {
    ConstraintReader foreign_keys(model_, constraints_, Kind::kForeignKeys);
    ForeignKeyRuleReader rules(model_, constraints_);
    read = Read(Kind::kForeignKeys, foreign_keys) && Read(Kind::kForeignKeyRules, rules) &&
           ReadDefinitions();
  }
  if (!read) return false;
  if (session_.choices.keys) {
    constraints_.FinishKeys();
    DefineKeys(model_);
    indexes_.Finish();
  }
  constraints_.FinishChecks();
  return EndPhase();
}

// A text a table, only of those with a foreign key that no row told the actions of.
bool ExactRoute::ReadDefinitions() {
  if (!catalog_.Has(Kind::kDefinitions)) return true;
  std::vector<bool> lacks(model_.tables.size(), false);
  for (const Constraint& constraint : constraints_.all()) {
    const bool told = constraint.sort != Constraint::Sort::kForeign || constraint.on_delete;
    if (!told && constraint.table != kNoTable) lacks[constraint.table] = true;
  }
  auto saved_tables = std::exchange(catalog_.each_table, {});
  for (std::size_t i = 0; i < lacks.size(); ++i) {
    const TableEntry& entry = model_.tables[i];
    if (lacks[i]) catalog_.each_table.push_back({entry.schema, entry.name, entry.kind});
  }
  DefinitionReader reader(model_, constraints_);
  const bool goes_on = Read(Kind::kDefinitions, reader);
  catalog_.each_table = std::move(saved_tables);
  return goes_on;
}

bool ExactRoute::ReadForeignKeys() {
  if (!session_.choices.foreign_keys) return true;
  session_.progress.StatusDialog(inLoopStart, iiForeignKeys, session_.sink.tables()->GetCount());
  for (const TableEntry& entry : model_.tables) {
    if (!entry.wanted) continue;
    session_.progress.StatusDialog(inTableItem, iiNone, 0, entry.table->GetOwner(true).c_str(),
                                   entry.table->GetName().c_str(), u"", true);
    if (!GoesOn()) return false;
  }
  DefineForeignKeys(model_, constraints_);
  constraints_.FinishForeignKeys();
  session_.progress.StatusDialog(inLoopEnd);
  return GoesOn();
}

bool ExactRoute::ReadOtherObjects() {
  TriggerReader triggers(model_);
  if (!Read(Kind::kTriggers, triggers)) return false;
  triggers.Finish();
  SequenceReader sequences(model_, selection_);
  if (!Read(Kind::kSequences, sequences)) return false;
  sequences.Finish();
  if (!session_.HasItem(ibDataTypes)) ReadTypes(nullptr);
  return GoesOn();
}

// Tables that were not chosen and that chosen ones refer to or are part of: for their names alone.
bool ExactRoute::ReadOutside() {
  Constraints::OutsideTargets targets = constraints_.ListOutsideTargets();
  tables_.ListOutsideParents(targets.ids);
  const MarkValues saved = catalog_.values;
  if (!targets.ids.empty()) {
    Selection::OfEverything().FillMarks(nullptr, catalog_.values);
    catalog_.values.table_ids = std::move(targets.ids);
    catalog_.values.by_ids = true;
    ReadOutsideTables();
  } else if (!targets.names.empty() && !catalog_.dialect().each_schema) {
    Selection(std::move(targets.names)).FillMarks(nullptr, catalog_.values);
    catalog_.values.by_ids = false;
    ReadOutsideTables();
  }
  catalog_.values = saved;
  constraints_.SetOutside(&outside_);
  tables_.SettleParents(outside_);
  return GoesOn();
}

void ExactRoute::ReadOutsideTables() {
  const Selection everything = Selection::OfEverything();
  SchemaReader schemas(outside_, everything, false);
  TableReader tables(outside_, everything, TableReader::Wanted::kEveryKind);
  ColumnReader columns(outside_, false);
  if (!Read(Kind::kSchemas, schemas) || !Read(Kind::kTables, tables)) return;
  tables.Finish();
  outside_.IndexTables();
  NarrowToNumbers(outside_, true);
  const bool whole = Read(Kind::kColumns, columns);
  FinishColumns(outside_, whole, nullptr);
  Constraints::PrimaryKeysFromColumns(outside_);
}

void ExactRoute::ReadTypes(LcWorkbookDatatypeList* list) {
  if (!ReadSurroundings()) return;
  MarkValues& values = catalog_.values;
  TypeReader reader(model_, selection_);
  if (selection_.HasTables()) {
    values.type_ids.clear();
    for (const ColumnTypes::Entry& entry : model_.types.All()) {
      if (entry.id != 0) values.type_ids.push_back(std::to_string(entry.id));
    }
    values.by_types = !values.type_ids.empty();
  }
  const bool read = Read(Kind::kTypes, reader);
  values.by_types = false;
  if (!read) return;
  if (!constraints_read_ && !selection_.HasTables()) {
    ConstraintReader all(model_, constraints_, Kind::kConstraints);
    ConstraintReader checks(model_, constraints_, Kind::kChecks);
    if (!Read(Kind::kConstraints, all) || !Read(Kind::kChecks, checks)) return;
  }
  reader.Finish(constraints_, list);
}

bool ExactRoute::ReadDataTypes() {
  session_.progress.StatusDialog(inPhaseStart, iiDataTypes);
  LcWorkbookDatatypeList* list = session_.sink.data_types();
  if (list != nullptr) {
    // Without tables there are no columns that tell which types are in use.
    if (model_.types.All().empty() && !selection_.HasTables()) {
      ColumnTypeReader types(model_);
      static_cast<void>(Read(Kind::kColumnTypes, types));
      model_.types.Settle();
    }
    AppendBuiltInTypes(*list);
  }
  if (GoesOn()) ReadTypes(list);
  return EndPhase();
}

// The server's own types that columns have, each once and without a column's sizes.
void ExactRoute::AppendBuiltInTypes(LcWorkbookDatatypeList& list) {
  std::set<std::u16string> seen;
  std::vector<const LcWorkbookDatatype*> types;
  for (const ColumnTypes::Entry& entry : model_.types.All()) {
    if (entry.type == nullptr || entry.named) continue;
    if (seen.insert(entry.type->GetTypeName()).second) types.push_back(entry.type.get());
  }
  std::sort(types.begin(), types.end(),
            [](const auto* a, const auto* b) { return a->GetTypeName() < b->GetTypeName(); });
  for (const LcWorkbookDatatype* type : types) {
    std::unique_ptr<LcWorkbookDatatype> entry(type->Copy());
    entry->SetLength(0);
    entry->SetPrecision(0);
    entry->SetScale(0);
    entry->SetDatabaseType({});
    list.Append(std::move(entry));
  }
}

}  // namespace

bool ReadExactly(ImportSession& session, const Server& server, unsigned short& status) {
  ExactRoute route(session, server);
  return RunRoute(session, route, kPhases, status);
}

}  // namespace odbcimport::exact
