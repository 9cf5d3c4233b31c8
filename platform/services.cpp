// The services in force.
#include "platform/defaults.h"
#include "platform/platform.h"

namespace platform {

namespace {

Services MakeDefaults() {
  Services services;
  services.settings = MakeTomlSettingsStore(FindSettingsFile());
  services.message_box = MakeStandardErrorMessageBox();
  services.busy_cursor = MakeNoBusyCursor();
  return services;
}

}  // namespace

Services& GetServices() {
  static Services services = MakeDefaults();
  return services;
}

}  // namespace platform
