// The readers of synonyms with the columns of their base tables.
#include "routes/native/synonyms.h"

#include <memory>

#include "base/ascii.h"
#include "catalogues/conversions.h"
#include "routes/native/columns.h"

namespace odbcimport::native {
namespace {

constexpr int kOwner = 1;
constexpr int kName = 2;

}  // namespace

LocalSynonymReader::LocalSynonymReader(ImportSession& session, LcWorkbookTableList& tables)
    : session_(session), tables_(tables) {
  if (session.server().dbms_type != dbmsOracle) return;
  for (const LcTableInfo* entry : session.choices.selected_synonyms.Present()) {
    if (entry->type != ttSynonym || entry->synonym.database_name.empty()) {
      continue;
    }
    linked_[{entry->owner, entry->name}] = entry;
  }
}

void LocalSynonymReader::StartSynonym() {
  const std::u16string& owner = boundary_.owner();
  const std::u16string& name = boundary_.name();
  auto table = std::make_unique<LcWorkbookTable>();
  // PUBLIC is no user of Oracle: what belongs to it is kept with the system's own objects.
  const bool is_public =
      session_.server().dbms_type == dbmsOracle && base::EqualIgnoringCase(owner, u"PUBLIC");
  table->SetOwner(is_public ? u"SYS" : owner);
  table->SetName(name);
  table->SetType(ttSynonym);
  if (const auto found = linked_.find({owner, name}); found != linked_.end()) {
    const LcSynonymDetails& selected = found->second->synonym;
    LcSynonymDetails details;
    details.database_name = selected.database_name;
    details.base_owner = selected.base_owner;
    details.base_table_name = selected.base_table_name;
    table->SetSynonymDetails(details);
  }
  synonym_ = tables_.Append(std::move(table));
  session_.progress.SetTableInHand(owner, name);
}

bool LocalSynonymReader::Read(const LcODBCRecordList& rows) {
  const ColumnPositions& positions = SynonymColumnPositions(session_.server().dbms_type);
  const int count = rows.GetRowCount();
  for (int row = 1; row <= count; ++row) {
    const std::u16string_view owner = rows.View(row, kOwner);
    const std::u16string_view name = rows.View(row, kName);
    if (boundary_.Next(owner, name)) StartSynonym();
    if (session_.progress.WasImportStoppedOrCancelled()) return false;
    AddNativeColumn(session_, rows, row, positions, boundary_.owner(), boundary_.name(), *synonym_);
    if (session_.progress.WasImportStoppedOrCancelled()) return false;
  }
  return true;
}

bool IsRemoteSynonym(const LcTableInfo* entry) {
  return entry != nullptr && entry->type == ttSynonym && entry->synonym.base_table_id == 0;
}

bool ReadRemoteSynonym(ImportSession& session, const LcTableInfo& entry,
                       const LcODBCRecordList& rows, LcWorkbookTableList& tables) {
  const int count = rows.GetRowCount();
  if (count == 0) return true;
  auto made = std::make_unique<LcWorkbookTable>();
  made->SetName(entry.name);
  made->SetOwner(entry.owner);
  made->SetType(ttSynonym);
  made->SetSynonymDetails(entry.synonym);
  LcWorkbookTable* table = tables.Append(std::move(made));
  const ColumnPositions& positions = SynonymColumnPositions(session.server().dbms_type);
  for (int row = 1; row <= count; ++row) {
    AddNativeColumn(session, rows, row, positions, entry.owner, entry.name, *table);
    if (session.progress.WasImportStoppedOrCancelled()) return false;
  }
  return true;
}

}  // namespace odbcimport::native
