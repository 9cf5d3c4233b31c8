// The request file: JSON, read field by field. An unknown field, an unknown name or a wrong type is
// an error that names the file and the field, since a misspelt choice that were ignored would
// import something else than was asked for.
#include <fmt/format.h>

#include <functional>
#include <limits>
#include <nlohmann/json.hpp>

#include "host/choices.h"
#include "host/limits.h"
#include "host/outcome.h"

namespace wbhost {
namespace {

using nlohmann::json;

// Where in the file a value stands, for messages.
class Place {
 public:
  Place(const std::string& file, std::string field) : file_(file), field_(std::move(field)) {}
  Place Field(const std::string& name) const {
    return {file_, field_.empty() ? name : field_ + "." + name};
  }
  Place Element(std::size_t index) const { return {file_, fmt::format("{}[{}]", field_, index)}; }
  [[noreturn]] void Fail(const std::string& reason) const {
    throw Failure(ExitCode::kUsage, field_.empty()
                                        ? fmt::format("{}: {}", file_, reason)
                                        : fmt::format("{}: field {}: {}", file_, field_, reason));
  }

 private:
  const std::string& file_;
  std::string field_;
};

std::u16string ReadText(const json& value, const Place& place) {
  if (!value.is_string()) place.Fail(fmt::format("must be a string, not {}", value.type_name()));
  return ToUtf16(value.get_ref<const std::string&>());
}

bool ReadBool(const json& value, const Place& place) {
  if (!value.is_boolean()) {
    place.Fail(fmt::format("must be true or false, not {}", value.type_name()));
  }
  return value.get<bool>();
}

std::int64_t ReadInteger(const json& value, const Place& place, std::int64_t low,
                         std::int64_t high) {
  if (!value.is_number_integer()) {
    place.Fail(fmt::format("must be an integer, not {}",
                           value.is_number() ? "a fraction" : value.type_name()));
  }
  const bool too_large =
      value.is_number_unsigned() && value.get<std::uint64_t>() > static_cast<std::uint64_t>(high);
  if (too_large || (!value.is_number_unsigned() && value.get<std::int64_t>() < low) ||
      value.get<std::int64_t>() < low) {
    place.Fail(fmt::format("must lie between {} and {}", low, high));
  }
  return value.get<std::int64_t>();
}

std::int32_t ReadInt32(const json& value, const Place& place) {
  return static_cast<std::int32_t>(ReadInteger(value, place,
                                               std::numeric_limits<std::int32_t>::min(),
                                               std::numeric_limits<std::int32_t>::max()));
}

void ForEachElement(const json& value, const Place& place,
                    const std::function<void(const json&, const Place&)>& read) {
  if (!value.is_array()) place.Fail(fmt::format("must be a list, not {}", value.type_name()));
  for (std::size_t i = 0; i < value.size(); ++i) read(value[i], place.Element(i));
}

// A reader per field name; a field without a reader is unknown.
using FieldReaders = std::map<std::string, std::function<void(const json&, const Place&)>>;

void ReadFields(const json& value, const Place& place, const FieldReaders& readers) {
  if (!value.is_object()) place.Fail(fmt::format("must be an object, not {}", value.type_name()));
  for (const auto& [name, field] : value.items()) {
    const auto reader = readers.find(name);
    if (reader == readers.end()) {
      std::string known;
      for (const auto& entry : readers) known += fmt::format(" {}", entry.first);
      place.Field(name).Fail(fmt::format("is not known; there are{}", known));
    }
    reader->second(field, place.Field(name));
  }
}

std::uint32_t ReadItems(const json& value, const Place& place) {
  std::uint32_t mask = 0;
  ForEachElement(value, place, [&](const json& element, const Place& at) {
    const std::string name = ToUtf8(ReadText(element, at));
    const std::optional<LeItemBit> bit = FindItem(name);
    if (!bit) {
      std::string known;
      for (const Item& item : AllItems()) known += fmt::format(" {}", item.name);
      at.Fail(fmt::format("there is no item '{}'; there are{}", name, known));
    }
    mask |= *bit;
  });
  return mask;
}

enumTableType ReadTableType(const json& value, const Place& place) {
  const std::u16string text = ReadText(value, place);
  if (text == u"table") return ttTable;
  if (text == u"view") return ttView;
  place.Fail(fmt::format("must be table or view, not '{}'", ToUtf8(text)));
}

Choices::Reading ReadReading(const json& value, const Place& place) {
  const std::string text = ToUtf8(ReadText(value, place));
  const std::optional<Choices::Reading> reading = FindReading(text);
  if (!reading) place.Fail(fmt::format("must be exact, compatible or auto, not '{}'", text));
  return *reading;
}

std::unique_ptr<LcTableInfo> ReadTable(const json& value, const Place& place) {
  auto entry = std::make_unique<LcTableInfo>();
  bool named = false;
  ReadFields(value, place,
             {{"owner", [&](auto& v, auto& at) { entry->owner = ReadText(v, at); }},
              {"name",
               [&](auto& v, auto& at) {
                 entry->name = ReadText(v, at);
                 named = true;
               }},
              {"type", [&](auto& v, auto& at) { entry->type = ReadTableType(v, at); }}});
  if (!named) place.Field("name").Fail("is missing");
  return entry;
}

std::unique_ptr<LcTableInfo> ReadSynonym(const json& value, const Place& place) {
  auto entry = std::make_unique<LcTableInfo>();
  entry->type = ttSynonym;
  LcSynonymDetails& details = entry->synonym;
  bool named = false;
  ReadFields(
      value, place,
      {{"owner", [&](auto& v, auto& at) { entry->owner = ReadText(v, at); }},
       {"name",
        [&](auto& v, auto& at) {
          entry->name = ReadText(v, at);
          named = true;
        }},
       {"synonymId", [&](auto& v, auto& at) { details.synonym_id = ReadInt32(v, at); }},
       {"baseTableId", [&](auto& v, auto& at) { details.base_table_id = ReadInt32(v, at); }},
       {"serverName", [&](auto& v, auto& at) { details.server_name = ReadText(v, at); }},
       {"databaseName", [&](auto& v, auto& at) { details.database_name = ReadText(v, at); }},
       {"baseOwner", [&](auto& v, auto& at) { details.base_owner = ReadText(v, at); }},
       {"baseTableName", [&](auto& v, auto& at) { details.base_table_name = ReadText(v, at); }}});
  if (!named) place.Field("name").Fail("is missing");
  return entry;
}

Setting ReadSetting(const json& value, const Place& place) {
  if (value.is_string()) return ReadText(value, place);
  if (!value.is_number()) {
    place.Fail(fmt::format("must be an integer or a string, not {}", value.type_name()));
  }
  return static_cast<std::uint32_t>(
      ReadInteger(value, place, 0, std::numeric_limits<std::uint32_t>::max()));
}

// The settings that the importer reads.
FieldReaders SettingReaders(Settings& settings) {
  FieldReaders readers;
  for (const char* name :
       {"GenericWorkbookImport", "GenericDB2WorkbookImport", "ExactWorkbookImport"}) {
    readers[name] = [&settings, name](const json& v, const Place& at) {
      settings[ToUtf16(name)] = ReadSetting(v, at);
    };
  }
  return readers;
}

}  // namespace

Choices ParseRequest(std::string_view text, const std::string& file_name) {
  const Place top(file_name, "");
  json document;
  try {
    document = json::parse(text, [&](int depth, json::parse_event_t, json&) {
      if (depth > kDeepestRequest) {
        top.Fail(fmt::format("nests deeper than {}", kDeepestRequest));
      }
      return true;
    });
  } catch (const json::exception& error) {
    top.Fail(fmt::format("is no JSON: {}", error.what()));
  }
  Choices choices;
  // Who has kept a file gets what it always gave.
  choices.reading = Choices::Reading::kCompatible;
  LcImportChoices& importer = choices.importer;
  ReadFields(
      document, top,
      {{"items", [&](auto& v, auto& at) { choices.items = ReadItems(v, at); }},
       {"dbmsType",
        [&](auto& v, auto& at) {
          importer.dbms_type =
              static_cast<LeDBMSType>(ReadInteger(v, at, dbmsUnknown, dbmsRedBrick));
        }},
       {"ownerRestriction",
        [&](auto& v, auto& at) { importer.owner_restriction = ReadText(v, at); }},
       {"catalog", [&](auto& v, auto& at) { importer.catalog = ReadText(v, at); }},
       {"includeSystem", [&](auto& v, auto& at) { importer.include_system = ReadBool(v, at); }},
       {"keys", [&](auto& v, auto& at) { importer.keys = ReadBool(v, at); }},
       {"foreignKeys", [&](auto& v, auto& at) { importer.foreign_keys = ReadBool(v, at); }},
       {"singleItemOwner",
        [&](auto& v, auto& at) { importer.single_item_owner = ReadText(v, at); }},
       {"singleTable", [&](auto& v, auto& at) { importer.single_table_name = ReadText(v, at); }},
       {"selectedOwners",
        [&](auto& v, auto& at) {
          ForEachElement(v, at, [&](auto& element, auto& place) {
            auto owner = std::make_unique<LcOwnerInfo>();
            owner->name = ReadText(element, place);
            importer.selected_owners.Append(std::move(owner));
          });
        }},
       {"selectedTables",
        [&](auto& v, auto& at) {
          ForEachElement(v, at, [&](auto& element, auto& place) {
            importer.selected_tables.Append(ReadTable(element, place));
          });
        }},
       {"selectedSynonyms",
        [&](auto& v, auto& at) {
          ForEachElement(v, at, [&](auto& element, auto& place) {
            importer.selected_synonyms.Append(ReadSynonym(element, place));
          });
        }},
       {"unsafeNames", [&](auto& v, auto& at) { choices.unsafe_names = ReadBool(v, at); }},
       {"reading", [&](auto& v, auto& at) { choices.reading = ReadReading(v, at); }},
       {"settings",
        [&](auto& v, auto& at) { ReadFields(v, at, SettingReaders(choices.settings)); }}});
  return choices;
}

}  // namespace wbhost
