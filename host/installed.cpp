// The drivers and data sources that the driver manager knows.
#include "base/ascii.h"
#include "host/connection.h"
#include "host/odbc_ini.h"
#include "host/text.h"

namespace wbhost {
namespace {

// A file can have any bytes.
std::string Valid(const std::string& text) { return ToUtf8(ToUtf16(text)); }

// What the driver manager keeps for itself.
bool IsOwn(const IniSection& section) { return base::EqualIgnoringCase(section.name, "ODBC"); }

}  // namespace

std::vector<Installed> InstalledDrivers() {
  std::vector<Installed> drivers;
  for (const IniSection& section : ReadOdbcInstIni()) {
    if (!IsOwn(section)) drivers.push_back({Valid(section.name), {}});
  }
  return drivers;
}

std::vector<Installed> DataSources() {
  std::vector<Installed> sources;
  for (const IniSection& section : ReadOdbcIni()) {
    if (!IsOwn(section)) sources.push_back({Valid(section.name), Valid(section.Value("Driver"))});
  }
  return sources;
}

std::string DataSourceValue(const std::string& source, const char* key) {
  for (const IniSection& section : ReadOdbcIni()) {
    if (base::EqualIgnoringCase(section.name, source)) return section.Value(key);
  }
  return {};
}

}  // namespace wbhost
