// Imports from a server that the simulator plays.
#include "tests/routes/native/native_run.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

namespace odbcimport::test {
namespace {

NativeRun* running = nullptr;  // the callback has no context

class FixedSettings : public platform::SettingsStore {
 public:
  explicit FixedSettings(std::uint32_t generic) : generic_(generic) {}
  std::optional<std::uint32_t> ReadDWORD(const std::u16string&, const std::u16string&) override {
    return generic_;
  }

 private:
  std::uint32_t generic_;
};

std::string FullName(const LcWorkbookTable& table) {
  return Narrow(table.GetOwner(false)) + "." + Narrow(table.GetName());
}

std::string Names(const LcWorkbookKeyList* columns) {
  std::string names;
  if (columns == nullptr) return names;
  for (const LcWorkbookColumn* column : columns->GetColumns()) {
    names += (names.empty() ? "" : ",") + Narrow(column->GetName());
  }
  return "(" + names + ")";
}

std::string Side(const LcWorkbookKeyList* columns) {
  if (columns == nullptr || columns->IsEmpty()) return "nothing";
  return FullName(*columns->GetColumns()[0]->GetParentTable()) + Names(columns);
}

// The key belongs to a table of the list, and all columns of its key side are that table's.
void ExpectKeyAtHome(const LcWorkbookTable& table, const LcWorkbookForeignKey& key) {
  ASSERT_NE(key.GetKey(), nullptr);
  ASSERT_NE(key.GetForeignKey(), nullptr);
  EXPECT_EQ(key.GetTable(), &table);
  for (const LcWorkbookColumn* column : key.GetKey()->GetColumns()) {
    EXPECT_EQ(column->GetParentTable(), &table) << Side(key.GetKey());
  }
}

}  // namespace

std::u16string Wide(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }
std::string Narrow(const std::u16string& text) {
  std::string narrow;
  for (const char16_t c : text) narrow += c < 128 ? static_cast<char>(c) : '?';
  return narrow;
}

std::string ColumnText(const LcWorkbookColumn& column) {
  const LcWorkbookDatatype* type = column.GetDataType();
  std::string text = Narrow(column.GetName()) + " " + std::to_string(column.GetPhysicalCode()) +
                     " " + std::to_string(column.GetWidth()) + "/" +
                     std::to_string(column.GetPrecision()) + "/" +
                     std::to_string(column.GetScale()) + " " +
                     (type == nullptr ? "-" : Narrow(type->GetTypeName()));
  if (type != nullptr && type->GetExtendedTypeNameCount() > 0) {
    text += " " + Narrow(type->GetExtendedTypeName(0));
  }
  if (column.IsGeneratedKey()) text += " serial";
  return text + (column.IsRequired() ? "!" : "");
}

std::vector<std::string> ColumnLines(const LcWorkbookTableList& tables) {
  std::vector<std::string> lines;
  for (const LcWorkbookTable* table : tables) {
    for (int i = 0; i < table->GetColumnCount(); ++i) {
      lines.push_back(FullName(*table) + ": " + ColumnText(*table->GetColumn(i)));
    }
  }
  return lines;
}

std::vector<std::string> KeyLines(const LcWorkbookTableList& tables) {
  std::vector<std::string> lines;
  for (const LcWorkbookTable* table : tables) {
    if (!table->GetPrimaryKey().IsEmpty()) {
      lines.push_back(FullName(*table) + " key " + Names(&table->GetPrimaryKey()));
    }
    for (const auto& key : table->GetForeignKeys()) {
      if (key->GetRole() != fkForward) continue;
      lines.push_back(Side(key->GetKey()) + " <- " + Side(key->GetForeignKey()));
    }
  }
  return lines;
}

void ExpectKeysInPairs(const LcWorkbookTableList& tables) {
  for (const LcWorkbookTable* table : tables) {
    for (const auto& key : table->GetForeignKeys()) {
      ExpectKeyAtHome(*table, *key);
      const LcWorkbookForeignKey* partner = key->GetPartner();
      ASSERT_NE(partner, nullptr) << Side(key->GetKey());
      EXPECT_EQ(partner->GetPartner(), key.get());
      EXPECT_NE(partner->GetRole(), key->GetRole());
      EXPECT_EQ(Side(key->GetKey()), Side(partner->GetForeignKey()));
      EXPECT_EQ(Side(key->GetForeignKey()), Side(partner->GetKey()));
    }
  }
}

NativeRun::NativeRun(const std::string& server, const std::string& keywords)
    : importer(&Callback, &workbook),
      connection_(wbtest::Connection::OpenSimulator(server, keywords)) {
  importer.SyncLogin(connection_->henv(), connection_->hdbc());
  importer.choices.item_mask = ibTables | ibViews;
  importer.choices.keys = true;
  importer.choices.foreign_keys = true;
}

bool NativeRun::Run() {
  running = this;
  status = 0;
  platform::GetServices().settings = std::make_shared<FixedSettings>(0);
  return importer.ImportItems(status);
}

bool NativeRun::RunGeneric() {
  running = this;
  status = 0;
  platform::GetServices().settings = std::make_shared<FixedSettings>(1);
  return importer.ImportItems(status);
}

void NativeRun::SelectTable(const std::string& owner, const std::string& name) {
  LcTableInfo* entry = importer.choices.selected_tables.Append(std::make_unique<LcTableInfo>());
  entry->owner = Wide(owner);
  entry->name = Wide(name);
}

LcTableInfo* NativeRun::SelectSynonym(const std::string& owner, const std::string& name) {
  LcTableInfo* entry = importer.choices.selected_synonyms.Append(std::make_unique<LcTableInfo>());
  entry->owner = Wide(owner);
  entry->name = Wide(name);
  entry->type = ttSynonym;
  return entry;
}

void NativeRun::Callback(enumImpNotify notify, void* record) {
  std::string text = std::to_string(notify);
  if (notify == inPhaseStart || notify == inLoopStart) {
    const auto* start = static_cast<const LcImpProgStartInfo*>(record);
    text += " " + std::to_string(start->item_type);
    if (notify == inLoopStart) text += " " + std::to_string(start->count);
  } else if (record != nullptr) {
    const auto* item = static_cast<const LcImpItemInfo*>(record);
    text += " " + Narrow(item->text1) + "|" + Narrow(item->text2) + "|" + Narrow(item->text3);
  }
  running->events.push_back(text);
  if (running->on_event) running->on_event(text);
}

}  // namespace odbcimport::test
