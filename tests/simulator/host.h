// A host for tests: imports everything from one of the simulator's servers.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "importer/odbc_workbook_import.h"
#include "platform/platform.h"
#include "tests/support/connection.h"

namespace simtest {

// The host's settings during the life of this object: numbers by value name.
class Settings {
 public:
  explicit Settings(std::map<std::u16string, std::uint32_t> numbers);
  ~Settings();
  Settings(const Settings&) = delete;
  Settings& operator=(const Settings&) = delete;

 private:
  std::shared_ptr<platform::SettingsStore> before_;
};

// Settings that send every server to the generic route, or none.
std::map<std::u16string, std::uint32_t> RouteSettings(bool generic);

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
                  HostAct act = HostAct::kNothing, unsigned at_notification = 0);

// True under WB_LONG=1: tests that go through many cases then take all of them.
bool IsLongRun();

}  // namespace simtest
