// What the program gives the module in place of its default services.
#include "host/services.h"

#include <fmt/format.h>

#include <utility>

#include "host/connection.h"
#include "host/text.h"

namespace wbhost {

class InstalledServices::Box : public platform::MessageBox {
 public:
  Box(Screen& screen, Reports& reports) : screen_(screen), reports_(reports) {}
  void Show(const std::u16string& text, int /*help_context*/) override {
    ++count_;
    const std::string message = ToUtf8(text);
    screen_.SayError("database error: " + OneLine(message));
    reports_.errors.WriteJsonString(message);
  }
  std::uint32_t count() const { return count_; }

 private:
  Screen& screen_;
  Reports& reports_;
  std::uint32_t count_ = 0;
};

class InstalledServices::Store : public platform::SettingsStore {
 public:
  Store(Settings settings, std::shared_ptr<platform::SettingsStore> behind, RunRecording& recording,
        const ReplayNotes* notes)
      : settings_(std::move(settings)),
        behind_(std::move(behind)),
        recording_(recording),
        notes_(notes) {}
  std::optional<std::uint32_t> ReadDWORD(const std::u16string& key,
                                         const std::u16string& value) override {
    const std::optional<std::uint32_t> number = Find(key, value);
    // A replay decides on its own way.
    if (generic_ && value == u"GenericWorkbookImport") return number;
    if (number) recording_.NoteSetting(value, *number);
    return number;
  }

  void ReadGenerically(bool generic) { generic_ = generic; }

 private:
  std::optional<std::uint32_t> Find(const std::u16string& key, const std::u16string& value) {
    if (generic_ && value == u"GenericWorkbookImport") return *generic_ ? 1 : 0;
    const auto setting = settings_.find(value);
    if (setting != settings_.end()) {
      // A text counts as not set, and hides what the store behind has.
      const auto* number = std::get_if<std::uint32_t>(&setting->second);
      return number != nullptr ? std::optional(*number) : std::nullopt;
    }
    if (notes_ != nullptr) {
      const auto noted = notes_->settings.find(value);
      return noted != notes_->settings.end() ? std::optional(noted->second) : std::nullopt;
    }
    return behind_ != nullptr ? behind_->ReadDWORD(key, value) : std::nullopt;
  }

  Settings settings_;
  std::optional<bool> generic_;
  std::shared_ptr<platform::SettingsStore> behind_;
  RunRecording& recording_;
  const ReplayNotes* notes_;
};

// What is known of data sources: here, or where a recording was made.
class InstalledServices::Database : public platform::DatabaseUtilities {
 public:
  Database(std::shared_ptr<platform::DatabaseUtilities> behind, RunRecording& recording,
           const ReplayNotes* notes)
      : behind_(std::move(behind)), recording_(recording), notes_(notes) {}
  LeDBMSType DeterineDBMSTypeByName(const char16_t* dbms_name) override {
    return behind_->DeterineDBMSTypeByName(dbms_name);
  }
  void RecoverLoginParameters(void* hdbc, const char16_t* connect_text, std::u16string& driver,
                              std::u16string& database, std::u16string& user,
                              std::u16string& data_source, std::u16string& server) override {
    behind_->RecoverLoginParameters(hdbc, connect_text, driver, database, user, data_source,
                                    server);
    // The schema is asked for only where there is a data source.
    if (notes_ != nullptr && !notes_->catalog_schema.empty()) data_source = u"recording";
  }
  bool GetDB2CLISchema(const char16_t* data_source, std::u16string& schema) override {
    if (notes_ != nullptr) {
      schema = notes_->catalog_schema;
    } else {
      static_cast<void>(behind_->GetDB2CLISchema(data_source, schema));  // the name tells
    }
    if (!schema.empty()) recording_.NoteCatalogSchema(schema);
    return !schema.empty();
  }

 private:
  std::shared_ptr<platform::DatabaseUtilities> behind_;
  RunRecording& recording_;
  const ReplayNotes* notes_;
};

// What the module consumes unseen, taken before it is consumed: reading a diagnostic record, unlike
// SQLError, leaves it there.
class InstalledServices::Log : public platform::CallLog {
 public:
  Log(Reports& reports, std::shared_ptr<platform::CallLog> behind)
      : reports_(reports), behind_(std::move(behind)) {}
  void OnCallStart(const platform::DriverCall& call) override { behind_->OnCallStart(call); }
  void OnCall(const platform::DriverCall& call) override {
    behind_->OnCall(call);
    ledger_.Note(call);
    if (call.result != kSqlError) return;
    ++failures_;
    last_failure_ = fmt::format("{}: {}", call.function,
                                call.refused != nullptr ? call.refused : DiagnosticsOfCall(call));
    reports_.log.WriteScrubbed(last_failure_);
  }
  std::size_t failures() const { return failures_; }
  const std::string& last_failure() const { return last_failure_; }
  CallLedger& ledger() { return ledger_; }

 private:
  static constexpr short kSqlError = -1;
  Reports& reports_;
  std::shared_ptr<platform::CallLog> behind_;
  CallLedger ledger_;
  std::size_t failures_ = 0;
  std::string last_failure_;
};

InstalledServices::InstalledServices(const Settings& settings, Screen& screen, Reports& reports,
                                     RunRecording& recording, const ReplayNotes* notes,
                                     std::shared_ptr<platform::CallLog> behind)
    : box_(std::make_shared<Box>(screen, reports)),
      store_(std::make_shared<Store>(settings, platform::GetServices().settings, recording, notes)),
      log_(std::make_shared<Log>(reports, std::move(behind))),
      saved_(std::make_unique<platform::Services>(platform::GetServices())) {
  platform::Services& services = platform::GetServices();
  services.message_box = box_;
  services.settings = store_;
  services.database = std::make_shared<Database>(saved_->database, recording, notes);
  services.call_log = log_;
}

InstalledServices::~InstalledServices() { platform::GetServices() = *saved_; }

void InstalledServices::ReadGenerically(bool generic) { store_->ReadGenerically(generic); }

CallLedger& InstalledServices::ledger() const { return log_->ledger(); }
std::uint32_t InstalledServices::ErrorsShown() const { return box_->count(); }
std::size_t InstalledServices::Failures() const { return log_->failures(); }
const std::string& InstalledServices::LastFailure() const { return log_->last_failure(); }

}  // namespace wbhost
