// See replay_notes.h.
#include "host/replay_notes.h"

#include <fmt/format.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "host/outcome.h"
#include "host/text.h"
#include "recording/file.h"

namespace wbhost {
namespace {

using Json = nlohmann::json;

std::u16string Text(const Json& note, const char* field) {
  return ToUtf16(note.value(field, std::string()));
}

Choices ReadChoices(const Json& note) {
  Choices choices;
  LcImportChoices& importer = choices.importer;
  if (note.at("items").is_number()) choices.items = note["items"].get<std::uint32_t>();
  importer.dbms_type = static_cast<LeDBMSType>(note.at("dbmsType").get<int>());
  importer.owner_restriction = Text(note, "owner");
  importer.catalog = Text(note, "catalog");
  importer.include_system = note.at("includeSystem").get<int>() != 0;
  // A recording without it is of a time when there was one reading only; then it was a number.
  const Json reading = note.value("reading", Json("compatible"));
  choices.reading =
      reading.is_string()
          ? FindReading(reading.get<std::string>()).value_or(Choices::Reading::kCompatible)
      : reading == int{rdExact} ? Choices::Reading::kExact
                                : Choices::Reading::kCompatible;
  importer.reading = choices.reading == Choices::Reading::kCompatible ? rdCompatible : rdExact;
  importer.keys = note.at("keys").get<int>() != 0;
  importer.foreign_keys = note.at("foreignKeys").get<int>() != 0;
  importer.single_item_owner = Text(note, "itemOwner");
  importer.single_table_name = Text(note, "table");
  return choices;
}

void ReadSelected(const Json& note, Choices& choices) {
  const std::string kind = note.at("kind").get<std::string>();
  if (kind == "owner") {
    auto owner = std::make_unique<LcOwnerInfo>();
    owner->name = Text(note, "owner");
    choices.importer.selected_owners.Append(std::move(owner));
    return;
  }
  auto table = std::make_unique<LcTableInfo>();
  table->owner = Text(note, "owner");
  table->name = Text(note, "table");
  table->type = static_cast<enumTableType>(note.at("type").get<int>());
  LcSynonymDetails& synonym = table->synonym;
  synonym.synonym_id = note.at("synonymId").get<std::int32_t>();
  synonym.base_table_id = note.at("baseTableId").get<std::int32_t>();
  synonym.server_name = Text(note, "serverName");
  synonym.database_name = Text(note, "databaseName");
  synonym.base_owner = Text(note, "baseOwner");
  synonym.base_table_name = Text(note, "baseTable");
  LcTableInfoList& list =
      kind == "synonym" ? choices.importer.selected_synonyms : choices.importer.selected_tables;
  list.Append(std::move(table));
}

void ReadNote(const Json& note, ReplayNotes& notes) {
  const std::string what = note.at("host").get<std::string>();
  if (what == "choices") {
    notes.choices = ReadChoices(note);
  } else if (what == "selected" && notes.choices) {
    ReadSelected(note, *notes.choices);
  } else if (what == "dialect" && notes.choices) {
    notes.choices->importer.dialect = note.at("text").get<std::string>();
  } else if (what == "setting") {
    notes.settings[Text(note, "name")] = note.at("value").get<std::uint32_t>();
  } else if (what == "schema") {
    notes.catalog_schema = Text(note, "owner");
  } else if (what == "stop" || what == "cancel") {
    notes.interrupts.push_back({what == "stop" ? InterruptWish::kStop : InterruptWish::kCancel,
                                note.at("import").get<unsigned>(),
                                note.at("notification").get<unsigned>()});
  } else if (what == "end") {
    notes.whole = true;
  }
}

}  // namespace

std::optional<ReplayNotes> ReplayNotes::Read(const std::string& file) {
  if (file.empty()) return std::nullopt;
  ReplayNotes notes;
  std::string why;
  try {
    const bool read = recording::ReadLines(
        file, "{\"host\":", [&notes](std::string_view line) { ReadNote(Json::parse(line), notes); },
        why);
    if (!read) throw Failure(ExitCode::kConnection, why);
  } catch (const Json::exception& error) {
    throw Failure(ExitCode::kConnection,
                  fmt::format("{} has a line that cannot be understood: {}", file, error.what()));
  }
  return notes;
}

InterruptWish ReplayNotes::WishAt(unsigned import_number, unsigned notification) const {
  InterruptWish wish = InterruptWish::kNone;
  for (const Interrupt& interrupt : interrupts) {
    const bool came =
        import_number > interrupt.import_number ||
        (import_number == interrupt.import_number && notification >= interrupt.notification);
    if (came) wish = std::max(wish, interrupt.wish);
  }
  return wish;
}

}  // namespace wbhost
