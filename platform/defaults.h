// The implementations that serve where a host has installed none.
#pragma once

#include <memory>
#include <string>

#include "platform/platform.h"

namespace platform {

// Reads a TOML file, now. A key's text, such as
// SOFTWARE\Tandor\Lumagraph\4.0, names the table of the same path:
// [SOFTWARE.Tandor.Lumagraph."4.0"]. Only an integer that fits 32 bits, signed or unsigned, is a
// value. A file that is missing, cannot be read, is no TOML or is larger or deeper than a file of
// settings gets has no values, and `why`, where it is not null, tells so in words; else it is
// empty.
[[nodiscard]] std::shared_ptr<SettingsStore> MakeTomlSettingsStore(const std::string& path,
                                                                   std::string* why = nullptr);
// What was wrong with the settings file in force; empty where nothing was.
[[nodiscard]] const std::string& SettingsProblem();
// The settings file in force: the one that WBIMPORT_SETTINGS names, else the first
// wbimport/settings.toml that exists in the user's and the system's configuration folders
// (XDG_CONFIG_HOME, XDG_CONFIG_DIRS and their defaults). Empty when there is none.
[[nodiscard]] std::string FindSettingsFile();

// Writes each text to standard error, as a paragraph of its own.
[[nodiscard]] std::shared_ptr<MessageBox> MakeStandardErrorMessageBox();
// Shows nothing: a command line has no pointer.
[[nodiscard]] std::shared_ptr<BusyCursor> MakeNoBusyCursor();

}  // namespace platform
