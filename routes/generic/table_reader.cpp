// Reads owners, tables and views from SQLTables.
#include "routes/generic/table_reader.h"

#include <memory>
#include <string>
#include <unordered_set>

#include "routes/generic/connection_facts.h"

namespace odbcimport::generic {

bool TableReader::GetOwnerNamesODBC() {
  LcOwnerInfoList* owners = session_.sink.owner_names();
  if (owners == nullptr) return true;

  std::unordered_set<std::u16string> known;
  for (const LcOwnerInfo* owner : owners->Present()) known.insert(owner->name);

  CatalogStatement statement;
  SQLRETURN result = statement.Open(
      session_.connection.hdbc(),
      [&](odbc::Statement& call) {
        return call.Tables(CatalogArgument(session_.choices), u"%", nullptr, nullptr);
      },
      [&](odbc::Statement& bind) { owner_.Bind(bind, 2); });
  if (odbc::Succeeded(result)) {
    while (!session_.progress.WasImportStoppedOrCancelled()) {
      owner_.Empty();
      result = statement.Fetch();
      if (!odbc::Succeeded(result)) break;
      // A NULL owner gives one entry without a name: tables without an owner exist.
      const auto [name, is_new] = known.emplace(owner_.Read());
      if (!is_new) continue;
      auto owner = std::make_unique<LcOwnerInfo>();
      owner->name = *name;
      owners->Append(std::move(owner));
    }
  }
  if (result == SQL_ERROR) handleErrorMsgsODBC(session_, statement.Get());
  return result != SQL_ERROR;
}

void TableReader::GetTablesAndViewsODBC(bool names_only) {
  const LcImportChoices& choices = session_.choices;
  SetupTableTypesODBC(choices, type_);
  // Required (sqlite_route_test, simulated_route_test): with an owner restriction every type of
  // table is read, an owner's views too although only tables were asked for. An empty list goes as
  // a null pointer, since PostgreSQL's driver returns nothing for an empty text.
  if (!choices.owner_restriction.empty()) type_.Empty();
  if (odbc::Succeeded(
          OpenTables(ArgumentOrNull(choices.owner_restriction), nullptr, type_.ArgumentOrNull()))) {
    ReadRows(names_only);
  }
  statement_.Release();

  const std::u16string& system_owner = session_.server().system_owner;
  if (choices.include_system && !system_owner.empty() && !choices.owner_restriction.empty() &&
      system_owner != choices.owner_restriction) {
    GetSystemTablesODBC();
  }
}

void TableReader::GetRequestedTablesAndViewsODBC(bool names_only) {
  SetupTableTypesODBC(session_.choices, type_);
  // The list of types lies in the buffer that the type of every row is read into. So it is empty
  // after the first owner that was read, and all further owners are read with all types of tables.
  // Required (sqlite_route_test): hosts have learned to expect the views of those owners.
  for (const LcOwnerInfo* owner : session_.choices.selected_owners) {
    if (owner == nullptr) break;
    if (odbc::Succeeded(OpenTables(owner->name.c_str(), nullptr, type_.ArgumentOrNull()))) {
      ReadRows(names_only);
    }
  }
  for (const LcTableInfo* table : session_.choices.selected_tables) {
    if (table == nullptr) break;
    if (odbc::Succeeded(OpenTables(ArgumentOrNull(table->owner), table->name.c_str(), nullptr))) {
      ReadRows(names_only);
    }
  }
  statement_.Release();
}

bool TableReader::GetSynonymsODBC(bool /*names_only*/) { return true; }

bool TableReader::GetRequestedSynonymsODBC(bool /*names_only*/) { return false; }

void TableReader::GetSystemTablesODBC() {
  if (odbc::Succeeded(
          OpenTables(session_.server().system_owner.c_str(), nullptr, u"'SYSTEM TABLE'"))) {
    // Required (simulated_route_test): system tables always go to the list of tables, even while
    // names are read.
    ReadRows(false);
  }
  statement_.Release();
}

SQLRETURN TableReader::OpenTables(const char16_t* owner, const char16_t* table,
                                  const char16_t* types) {
  return statement_.Open(
      session_.connection.hdbc(),
      [&](odbc::Statement& call) {
        return call.Tables(CatalogArgument(session_.choices), owner, table, types);
      },
      [this](odbc::Statement& bind) {
        owner_.Bind(bind, 2);
        name_.Bind(bind, 3);
        type_.Bind(bind, 4);
      });
}

void TableReader::ReadRows(bool names_only) {
  while (GetTableODBC(names_only)) {
  }
  statement_.EndResult();
  statement_.Unbind();
}

bool TableReader::GetTableODBC(bool names_only) {
  type_.Empty();
  owner_.Empty();
  name_.Empty();
  const SQLRETURN result = statement_.Fetch();
  if (result == SQL_ERROR) handleErrorMsgsODBC(session_, statement_.Get());
  if (!odbc::Succeeded(result)) return false;

  // "SYSTEM TABLE" and whatever else a driver has are tables.
  const enumTableType type = type_.Read() == u"VIEW" ? ttView : ttTable;
  if (names_only && session_.sink.table_names() != nullptr) {
    auto info = std::make_unique<LcTableInfo>();
    info->name = name_.Read();
    info->owner = owner_.Read();
    info->type = type;
    session_.sink.table_names()->Append(std::move(info));
  } else if (!names_only && session_.sink.tables() != nullptr) {
    auto table = std::make_unique<LcWorkbookTable>();
    table->SetName(std::u16string(name_.Read()));
    const std::u16string_view owner = owner_.Read();
    if (!owner.empty()) table->SetOwner(std::u16string(owner));
    table->SetType(type);
    session_.sink.tables()->Append(std::move(table));
  }
  return true;
}

}  // namespace odbcimport::generic
