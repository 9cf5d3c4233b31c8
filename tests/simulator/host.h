// A host for tests: imports everything from one of the simulator's servers.
#pragma once

#include <memory>
#include <string>

#include "importer/odbc_workbook_import.h"
#include "platform/platform.h"
#include "tests/support/connection.h"
#include "tests/support/temporary.h"

namespace simtest {

// The host's settings send every server to the generic route, or none, during its life.
class RouteSetting {
 public:
  explicit RouteSetting(bool generic);

 private:
  wbtest::ScopedService<platform::SettingsStore> scope_;
};

enum class HostAct { kNothing, kStop, kCancel };

struct Outcome {
  bool result = false;
  unsigned short status = 0;
  unsigned notifications = 0;
  std::unique_ptr<LcWorkbook> workbook;

  std::string File() const;  // the workbook's JSON form
};

// One import of everything, system objects included where `system` is set. At the n-th
// notification, counted from 1, the host acts.
Outcome ImportAll(const wbtest::Connection& connection, bool system = true,
                  HostAct act = HostAct::kNothing, unsigned at_notification = 0,
                  const std::u16string& catalog = {}, LeReading reading = rdCompatible);

}  // namespace simtest
