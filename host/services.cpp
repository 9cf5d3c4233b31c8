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
  Store(Settings settings, std::shared_ptr<platform::SettingsStore> behind)
      : settings_(std::move(settings)), behind_(std::move(behind)) {}
  std::optional<std::uint32_t> ReadDWORD(const std::u16string& key,
                                         const std::u16string& value) override {
    const auto setting = settings_.find(value);
    if (setting == settings_.end()) {
      return behind_ != nullptr ? behind_->ReadDWORD(key, value) : std::nullopt;
    }
    // A text counts as not set, and hides what the store behind has.
    const auto* number = std::get_if<std::uint32_t>(&setting->second);
    return number != nullptr ? std::optional(*number) : std::nullopt;
  }

 private:
  Settings settings_;
  std::shared_ptr<platform::SettingsStore> behind_;
};

// What the module consumes unseen, taken before it is consumed: reading a diagnostic record, unlike
// SQLError, leaves it there.
class InstalledServices::Log : public platform::CallLog {
 public:
  Log(Reports& reports, std::shared_ptr<platform::CallLog> recorder)
      : reports_(reports), recorder_(std::move(recorder)) {}
  void OnCall(const platform::DriverCall& call) override {
    if (recorder_ != nullptr) recorder_->OnCall(call);
    if (call.result != kSqlError) return;
    reports_.log.WriteScrubbed(fmt::format("{}: {}", call.function, DiagnosticsOfCall(call)));
  }

 private:
  static constexpr short kSqlError = -1;
  Reports& reports_;
  std::shared_ptr<platform::CallLog> recorder_;
};

InstalledServices::InstalledServices(const Settings& settings, Screen& screen, Reports& reports,
                                     std::shared_ptr<platform::CallLog> recorder)
    : box_(std::make_shared<Box>(screen, reports)),
      saved_(std::make_unique<platform::Services>(platform::GetServices())) {
  platform::Services& services = platform::GetServices();
  services.message_box = box_;
  services.settings = std::make_shared<Store>(settings, saved_->settings);
  services.call_log = recorder;
  if (reports.log.IsOpen()) services.call_log = std::make_shared<Log>(reports, std::move(recorder));
}

InstalledServices::~InstalledServices() { platform::GetServices() = *saved_; }

std::uint32_t InstalledServices::ErrorsShown() const { return box_->count(); }

}  // namespace wbhost
