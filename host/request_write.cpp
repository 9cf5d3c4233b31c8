// Choices as a request file, for the workbook file that keeps what it was made by.
#include <nlohmann/json.hpp>

#include "host/choices.h"
#include "host/text.h"

namespace wbhost {
namespace {

using Json = nlohmann::ordered_json;

void AddText(Json& json, const char* name, const std::u16string& text) {
  if (!text.empty()) json[name] = ToUtf8(text);
}

void AddNumber(Json& json, const char* name, std::int32_t number) {
  if (number != 0) json[name] = number;
}

Json ItemsOf(std::uint32_t mask) {
  Json names = Json::array();
  for (const Item& item : AllItems()) {
    if ((mask & item.bit) != 0) names.push_back(item.name);
  }
  return names;
}

Json TableOf(const LcTableInfo& table) {
  Json json;
  AddText(json, "owner", table.owner);
  json["name"] = ToUtf8(table.name);
  if (table.type == ttView) json["type"] = "view";
  if (table.type != ttSynonym) return json;
  AddNumber(json, "synonymId", table.synonym.synonym_id);
  AddNumber(json, "baseTableId", table.synonym.base_table_id);
  AddText(json, "serverName", table.synonym.server_name);
  AddText(json, "databaseName", table.synonym.database_name);
  AddText(json, "baseOwner", table.synonym.base_owner);
  AddText(json, "baseTableName", table.synonym.base_table_name);
  return json;
}

void AddTables(Json& json, const char* name, const LcTableInfoList& tables) {
  for (const LcTableInfo* table : tables) {
    if (table != nullptr) json[name].push_back(TableOf(*table));
  }
}

}  // namespace

const char* NameOf(Choices::Reading reading) {
  switch (reading) {
    case Choices::Reading::kExact:
      return "exact";
    case Choices::Reading::kCompatible:
      return "compatible";
    case Choices::Reading::kAuto:
      break;
  }
  return "auto";
}

std::string WriteRequest(const Choices& choices) {
  const LcImportChoices& importer = choices.importer;
  Json json = Json::object();
  json["reading"] = NameOf(choices.reading);
  if (choices.unsafe_names) json["unsafeNames"] = true;
  if (choices.items) json["items"] = ItemsOf(*choices.items);
  AddNumber(json, "dbmsType", importer.dbms_type);
  AddText(json, "ownerRestriction", importer.owner_restriction);
  AddText(json, "catalog", importer.catalog);
  if (importer.include_system) json["includeSystem"] = true;
  if (!importer.keys) json["keys"] = false;
  if (!importer.foreign_keys) json["foreignKeys"] = false;
  AddText(json, "singleItemOwner", importer.single_item_owner);
  AddText(json, "singleTable", importer.single_table_name);
  for (const LcOwnerInfo* owner : importer.selected_owners) {
    if (owner != nullptr) json["selectedOwners"].push_back(ToUtf8(owner->name));
  }
  AddTables(json, "selectedTables", importer.selected_tables);
  AddTables(json, "selectedSynonyms", importer.selected_synonyms);
  for (const auto& [name, value] : choices.settings) {
    if (const auto* number = std::get_if<std::uint32_t>(&value)) {
      json["settings"][ToUtf8(name)] = *number;
    } else {
      json["settings"][ToUtf8(name)] = ToUtf8(std::get<std::u16string>(value));
    }
  }
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace wbhost
