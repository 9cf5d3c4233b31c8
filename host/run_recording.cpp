// See run_recording.h.
#include "host/run_recording.h"

#include <unistd.h>

#include <nlohmann/json.hpp>

#include "base/ascii.h"
#include "base/connection_string.h"
#include "host/driver_calls.h"
#include "host/odbc_handles.h"
#include "host/text.h"

namespace wbhost {

using platform::DriverCall;
using platform::DriverField;

namespace {

constexpr int kVersion = 1;
constexpr const char16_t* kNoText = nullptr;

std::string MakeHeader(const std::string& names, const nlohmann::ordered_json& driver) {
  nlohmann::ordered_json header;
  header["recording"] = "wbimport";
  header["version"] = kVersion;
  header["program"] = WB_VERSION;
  header["names"] = names;
  header["driver"] = driver;
  return header.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

// Without folders, which belong to one machine.
std::string BaseName(const std::string& driver) { return driver.substr(driver.rfind('/') + 1); }

}  // namespace

// Takes out of the driver's messages what belongs to the connection: passwords and the login name
// everywhere, and from what connecting says every value of the connection string, since drivers
// like to quote hosts, ports and whole strings.
class RunRecording::Scrubber {
 public:
  Scrubber(const Target& target, const Secrets& secrets) : secrets_(secrets) {
    for (const base::Attribute& attribute : base::ParseConnectionString(target.connect_string)) {
      if (base::EqualIgnoringCase(attribute.key, "Driver")) continue;
      const std::string value = base::PlainValue(attribute.value);
      connection_.Add(value);
      for (const char* login : {"UID", "User", "UserName", "LogonID"}) {
        if (base::EqualIgnoringCase(attribute.key, login)) logins_.Add(value);
      }
    }
  }
  void AddLogin(const std::string& name) { logins_.Add(name); }

  std::vector<recording::Diagnostic> Read(const DriverCall& call) const {
    const bool connects = std::string_view(call.function) == "SQLDriverConnectW";
    std::vector<recording::Diagnostic> diagnostics =
        ReadDiagnosticRecords(call.on_statement ? SQL_HANDLE_STMT : SQL_HANDLE_DBC, call.handle);
    for (recording::Diagnostic& diagnostic : diagnostics) {
      std::string text = logins_.Scrub(secrets_.Scrub(ToUtf8(diagnostic.message)));
      if (connects) text = connection_.Scrub(text);
      diagnostic.message = ToUtf16(text);
    }
    return diagnostics;
  }

 private:
  const Secrets& secrets_;
  Secrets logins_;
  Secrets connection_;
};

RunRecording::RunRecording(const ReportOptions& options, const Target& target,
                           const Secrets& secrets)
    : name_(options.record.value_or("")),
      names_(options.record_names.value_or("plain")),
      driver_(base::FindAttribute(target.connect_string, "Driver").value_or("")) {
  if (!options.record) return;
  scrubber_ = std::make_shared<Scrubber>(target, secrets);
  auto rules = names_ == "hashed" ? std::make_unique<recording::NameRules>() : nullptr;
  recorder_ = std::make_shared<recording::Recorder>(
      name_, std::move(rules),
      [scrubber = scrubber_](const DriverCall& call) { return scrubber->Read(call); });
}

RunRecording::~RunRecording() {
  if (recorder_ == nullptr) return;
  // Where there was no connection, what was said of it is kept in place of nothing else.
  if (access(name_.c_str(), F_OK) != 0) recorder_->Begin(MakeHeader(names_, nullptr));
}

void RunRecording::Begin(const Connection& connection) {
  if (recorder_ == nullptr) return;
  const DriverCalls& calls = connection.calls();
  const auto text = [&calls](SQLUSMALLINT info) {
    return ToUtf8(calls.InfoText(info).value_or(u""));
  };
  calls.AskFunctions();
  scrubber_->AddLogin(text(SQL_USER_NAME));
  const std::string name = text(SQL_DRIVER_NAME);  // MDB Tools does not tell
  recorder_->Begin(MakeHeader(names_, {{"name", name.empty() ? BaseName(driver_) : name},
                                       {"version", text(SQL_DRIVER_VER)},
                                       {"odbc", text(SQL_DRIVER_ODBC_VER)},
                                       {"manager", text(SQL_DM_VER)}}));
}

void RunRecording::NoteChoices(const Choices& choices) {
  if (recorder_ == nullptr) return;
  const LcImportChoices& importer = choices.importer;
  const DriverField items =
      choices.items ? DriverField{"items", *choices.items} : DriverField{"items", kNoText};
  const std::u16string reading = ToUtf16(NameOf(choices.reading));
  Note("choices", {items,
                   {"dbmsType", importer.dbms_type},
                   {"includeSystem", importer.include_system},
                   {"keys", importer.keys},
                   {"foreignKeys", importer.foreign_keys},
                   {"owner", importer.owner_restriction.c_str()},
                   {"catalog", importer.catalog.c_str()},
                   {"reading", reading.c_str()},
                   {"itemOwner", importer.single_item_owner.c_str()},
                   {"table", importer.single_table_name.c_str()}});
  for (const LcOwnerInfo* owner : importer.selected_owners)
    if (owner != nullptr) Note("selected", {{"kind", u"owner"}, {"owner", owner->name.c_str()}});
  for (const LcTableInfo* table : importer.selected_tables)
    if (table != nullptr) NoteSelected(u"table", *table);
  for (const LcTableInfo* synonym : importer.selected_synonyms)
    if (synonym != nullptr) NoteSelected(u"synonym", *synonym);
  if (!importer.dialect.empty()) {
    const std::u16string dialect = ToUtf16(importer.dialect);
    Note("dialect", {{"text", dialect.c_str()}});
  }
}

void RunRecording::NoteSelected(const char16_t* kind, const LcTableInfo& table) {
  const LcSynonymDetails& synonym = table.synonym;
  Note("selected", {{"kind", kind},
                    {"owner", table.owner.c_str()},
                    {"table", table.name.c_str()},
                    {"type", table.type},
                    {"synonymId", synonym.synonym_id},
                    {"baseTableId", synonym.base_table_id},
                    {"serverName", synonym.server_name.c_str()},
                    {"databaseName", synonym.database_name.c_str()},
                    {"baseOwner", synonym.base_owner.c_str()},
                    {"baseTable", synonym.base_table_name.c_str()}});
}

void RunRecording::NoteSetting(const std::u16string& name, std::uint32_t value) {
  if (settings_noted_.insert(name).second)
    Note("setting", {{"name", name.c_str()}, {"value", value}});
}

void RunRecording::NoteCatalogSchema(const std::u16string& schema) {
  Note("schema", {{"owner", schema.c_str()}});
}

void RunRecording::NoteInterrupt(InterruptWish wish, unsigned import_number,
                                 unsigned notification) {
  if (wish == wish_noted_) return;
  wish_noted_ = wish;
  Note(wish == InterruptWish::kStop ? "stop" : "cancel",
       {{"import", import_number}, {"notification", notification}});
}

void RunRecording::Note(const char* what, std::initializer_list<DriverField> fields) {
  if (recorder_ != nullptr) recorder_->Note(what, {fields.begin(), fields.size()});
}

bool RunRecording::Finish() {
  if (recorder_ == nullptr) return true;
  recorder_->Finish();
  return recorder_->IsGood();
}

bool RunRecording::IsGood() const { return recorder_ == nullptr || recorder_->IsGood(); }

}  // namespace wbhost
