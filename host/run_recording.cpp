// See run_recording.h.
#include "host/run_recording.h"

#include <nlohmann/json.hpp>

#include "base/ascii.h"
#include "base/connection_string.h"
#include "host/driver_calls.h"
#include "host/odbc_handles.h"
#include "host/text.h"

namespace wbhost {

using platform::DriverCall;

namespace {

constexpr int kVersion = 1;

std::string MakeHeader(const std::string& names, const nlohmann::ordered_json& driver) {
  nlohmann::ordered_json header;
  header["recording"] = "wbimport";
  header["version"] = kVersion;
  header["program"] = WB_VERSION;
  header["names"] = names;
  header["driver"] = driver;
  return header.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

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
    : name_(options.record.value_or("")), names_(options.record_names.value_or("plain")) {
  if (!options.record) return;
  scrubber_ = std::make_shared<Scrubber>(target, secrets);
  auto rules = names_ == "hashed" ? std::make_unique<recording::NameRules>() : nullptr;
  recorder_ = std::make_shared<recording::Recorder>(
      name_, std::move(rules),
      [scrubber = scrubber_](const DriverCall& call) { return scrubber->Read(call); });
}

RunRecording::~RunRecording() {
  if (recorder_ == nullptr) return;
  recorder_->Begin(MakeHeader(names_, nullptr));  // where there was no connection
  recorder_->Finish();
}

void RunRecording::Begin(const Connection& connection) {
  if (recorder_ == nullptr) return;
  const DriverCalls& calls = connection.calls();
  const auto text = [&calls](SQLUSMALLINT info) {
    return ToUtf8(calls.InfoText(info).value_or(u""));
  };
  calls.AskFunctions();
  scrubber_->AddLogin(text(SQL_USER_NAME));
  recorder_->Begin(MakeHeader(names_, {{"name", text(SQL_DRIVER_NAME)},
                                       {"version", text(SQL_DRIVER_VER)},
                                       {"odbc", text(SQL_DRIVER_ODBC_VER)},
                                       {"manager", text(SQL_DM_VER)}}));
}

bool RunRecording::Finish() {
  if (recorder_ == nullptr) return true;
  recorder_->Finish();
  return recorder_->IsGood();
}

bool RunRecording::IsGood() const { return recorder_ == nullptr || recorder_->IsGood(); }

}  // namespace wbhost
