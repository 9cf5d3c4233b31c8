// What the program gives the module in place of its default services.
#pragma once

#include <cstdint>
#include <memory>

#include "host/call_ledger.h"
#include "host/choices.h"
#include "host/replay_notes.h"
#include "host/reports.h"
#include "host/run_recording.h"
#include "host/screen.h"
#include "platform/platform.h"

namespace wbhost {

// Installs the services for its lifetime and gives the earlier ones back: message boxes become
// diagnostics, which are counted, and the settings of the run go before the settings store.
class InstalledServices {
 public:
  // `behind` hears of every call first. A replay's `notes`, which may be null, stand in for the
  // settings store and for what is known of data sources here.
  InstalledServices(const Settings& settings, Screen& screen, Reports& reports,
                    RunRecording& recording, const ReplayNotes* notes,
                    std::shared_ptr<platform::CallLog> behind);
  ~InstalledServices();
  InstalledServices(const InstalledServices&) = delete;
  InstalledServices& operator=(const InstalledServices&) = delete;

  // Goes before all settings, for runs from now on.
  void ReadGenerically(bool generic);

  // What was lost unseen on the way.
  [[nodiscard]] CallLedger& ledger() const;
  // Message boxes shown so far.
  [[nodiscard]] std::uint32_t ErrorsShown() const;
  // How many of the driver's calls failed so far.
  [[nodiscard]] std::size_t Failures() const;
  // The last of them with its diagnostics; empty while none did.
  [[nodiscard]] const std::string& LastFailure() const;

 private:
  class Box;
  class Store;
  class Log;
  class Database;
  std::shared_ptr<Box> box_;
  std::shared_ptr<Store> store_;
  std::shared_ptr<Log> log_;
  std::unique_ptr<platform::Services> saved_;
};

}  // namespace wbhost
