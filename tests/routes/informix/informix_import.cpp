// Imports from the Informix practice servers.
#include "tests/routes/informix/informix_import.h"

namespace odbcimport::test {
namespace {

InformixImport* running = nullptr;  // the callback has no context

std::string TypeAndNumber(int code, int generic, int group) {
  return std::to_string(code) + "/" + std::to_string(generic) + "/" + std::to_string(group);
}

std::string ColumnNames(const LcWorkbookKeyList* keys) {
  std::string names;
  for (const LcWorkbookColumn* column : keys->GetColumns()) {
    names += (names.empty() ? "" : ",") + Narrow(column->GetName());
  }
  return names;
}

}  // namespace

std::string Narrow(std::u16string_view text) { return {text.begin(), text.end()}; }
std::u16string Wide(const std::string& text) { return {text.begin(), text.end()}; }

InformixImport::InformixImport(const std::string& server_name, const Lines& statements)
    : connection_(wbtest::Connection::OpenSimulator(server_name)),
      own_types_(std::make_shared<LcODBCDatatypeList>(dbmsUnknown, 0)) {
  for (const std::string& statement : statements) connection_->Execute(statement);
  base.henv = connection_->henv();
  base.hdbc = connection_->hdbc();
  base.choices.item_mask = ibTables | ibViews;
  base.choices.keys = true;
  base.choices.foreign_keys = true;
  base.targets.data_types = nullptr;
  server.dbms_type = dbmsInformix;
  server.dbms_version = server_name == "informix" ? 9 : 7;
  server.is_ius = server.dbms_version == 9;
}

InformixImport::~InformixImport() = default;

ImportSession InformixImport::Session() {
  base.choices.dbms_type = server.dbms_type;
  return ImportSession(base, &workbook, server, own_types_, &Callback, current_item);
}

bool InformixImport::Run(Route route) {
  if ((base.choices.item_mask & ibDataTypes) != 0) base.targets.data_types = &workbook.data_types;
  running = this;
  ImportSession session = Session();
  return route(session, status);
}

void InformixImport::SelectTable(const char16_t* owner, const char16_t* name) {
  LcTableInfo* entry = base.choices.selected_tables.Append(std::make_unique<LcTableInfo>());
  entry->owner = owner;
  entry->name = name;
}

LcTableInfo* InformixImport::SelectSynonym(const char16_t* owner, const char16_t* name,
                                           const LcSynonymDetails& details) {
  LcTableInfo* entry = base.choices.selected_synonyms.Append(std::make_unique<LcTableInfo>());
  entry->owner = owner;
  entry->name = name;
  entry->type = ttSynonym;
  entry->synonym = details;
  return entry;
}

void InformixImport::Callback(enumImpNotify notify, void* record) {
  std::string text = std::to_string(notify);
  if (notify == inPhaseStart || notify == inLoopStart) {
    const auto* start = static_cast<LcImpProgStartInfo*>(record);
    text += " " + std::to_string(start->item_type) + " " + std::to_string(start->count);
  } else if (record != nullptr) {
    const auto* item = static_cast<LcImpItemInfo*>(record);
    text += " " + Narrow(item->text1) + "|" + Narrow(item->text2) + "|" + Narrow(item->text3);
    if (!item->flag) text += " without the flag";
  }
  running->events.push_back(text);
  if (running->on_event) running->on_event(text);
}

Lines InformixImport::Tables() const {
  constexpr const char* kKinds[] = {"", " view", " synonym"};
  Lines lines;
  for (const LcWorkbookTable* table : workbook.tables) {
    lines.push_back(Narrow(table->GetOwner(false)) + "." + Narrow(table->GetName()) +
                    kKinds[table->GetType()]);
  }
  return lines;
}

LcWorkbookTable* InformixImport::Table(const std::string& owner, const std::string& name) const {
  return workbook.tables.FindTable(Wide(owner), Wide(name));
}

Lines InformixImport::Columns(const std::string& owner, const std::string& name) const {
  Lines lines;
  const LcWorkbookTable* table = Table(owner, name);
  for (int i = 0; table != nullptr && i < table->GetColumnCount(); ++i) {
    const LcWorkbookColumn& column = *table->GetColumn(i);
    std::string line = Narrow(column.GetName()) + " " + std::to_string(column.GetPhysicalCode()) +
                       " " + std::to_string(column.GetWidth()) + "/" +
                       std::to_string(column.GetPrecision()) + "/" +
                       std::to_string(column.GetScale());
    if (column.IsRequired()) line += " !";
    if (column.IsGeneratedKey()) line += " *";
    if (column.GetIntervalMax() != ipNone) {
      line += " " + std::to_string(column.GetIntervalMax()) + "-" +
              std::to_string(column.GetIntervalMin());
    }
    if (!column.GetExtendedTypeName().empty()) line += " " + Narrow(column.GetExtendedTypeName());
    lines.push_back(line);
  }
  return lines;
}

Lines InformixImport::PrimaryKey(const std::string& owner, const std::string& name) const {
  Lines lines;
  const LcWorkbookTable* table = Table(owner, name);
  if (table == nullptr) return lines;
  for (const LcWorkbookColumn* column : table->GetPrimaryKey().GetColumns()) {
    lines.push_back(Narrow(column->GetName()) + (column->IsPrimaryKey() ? "" : " not marked"));
  }
  return lines;
}

Lines InformixImport::ForeignKeys(const std::string& owner, const std::string& name) const {
  Lines lines;
  const LcWorkbookTable* table = Table(owner, name);
  if (table == nullptr) return lines;
  for (const auto& key : table->GetForeignKeys()) {
    const LcWorkbookTable* other = key->GetPartner()->GetTable();
    lines.push_back(ColumnNames(key->GetKey()) + (key->GetRole() == fkForward ? " > " : " < ") +
                    Narrow(other->GetOwner(false)) + "." + Narrow(other->GetName()) + " " +
                    ColumnNames(key->GetForeignKey()) + (key->IsOneToOne() ? " 1:1" : ""));
  }
  return lines;
}

std::string Describe(const LcWorkbookDatatype* type) {
  if (type == nullptr) return "no type";
  std::string text =
      TypeAndNumber(type->GetPhysicalCode(), type->GetGenericCode(), type->GetTypeGroup()) + " " +
      Narrow(type->GetTypeName());
  if (!type->GetName().empty()) text += " of field " + Narrow(type->GetName());
  for (int i = 0; i < type->GetExtendedTypeNameCount(); ++i) {
    text += " <" + Narrow(type->GetExtendedTypeName(i)) + ">";
  }
  if (type->GetExtendedId() != 0) text += " #" + std::to_string(type->GetExtendedId());
  if (!type->GetOwner().empty()) text += " of " + Narrow(type->GetOwner());
  text += " " + std::to_string(type->GetLength()) + "," + std::to_string(type->GetPrecision()) +
          "," + std::to_string(type->GetScale());
  if (type->IsLong()) text += " long";
  if (type->IsSizeModifiable()) text += " sized";
  if (type->IsDistinct()) text += " distinct";
  const std::string base =
      TypeAndNumber(type->GetBaseCode(), type->GetGenericBaseCode(), type->GetBaseTypeGroup());
  if (base != "0/0/0" || !type->GetBaseExtendedTypeName().empty()) {
    text += " base " + base + " " + Narrow(type->GetBaseOwner()) + "." +
            Narrow(type->GetBaseExtendedTypeName());
  }
  for (int i = 0; i < type->GetComponentCount(); ++i) {
    text += (i == 0 ? " [" : "; ") + Describe(type->GetComponent(i));
  }
  return type->GetComponentCount() > 0 ? text + "]" : text;
}

}  // namespace odbcimport::test
