// The services in force.
#include "platform/defaults.h"
#include "platform/platform.h"

namespace platform {

namespace {

std::string& Problem() {
  static std::string problem;
  return problem;
}

Services MakeDefaults() {
  Services services;
  services.settings = MakeTomlSettingsStore(FindSettingsFile(), &Problem());
  services.message_box = MakeStandardErrorMessageBox();
  services.busy_cursor = MakeNoBusyCursor();
  return services;
}

}  // namespace

const std::string& SettingsProblem() {
  static_cast<void>(GetServices());  // which read the file
  return Problem();
}

Services& GetServices() {
  static Services services = MakeDefaults();
  return services;
}

}  // namespace platform
