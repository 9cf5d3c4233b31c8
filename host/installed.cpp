// The drivers and data sources that the driver manager knows.
#include <odbcinst.h>

#include <algorithm>
#include <array>

#include "host/connection.h"
#include "host/odbc_handles.h"

namespace wbhost {
namespace {

using Buffer = std::array<SQLWCHAR, 512>;

std::string Text(const Buffer& buffer) {
  const auto end = std::find(buffer.begin(), buffer.end() - 1, SQLWCHAR{0});
  return FromWide(buffer.data(), static_cast<std::size_t>(end - buffer.begin()));
}

}  // namespace

std::vector<Installed> InstalledDrivers() {
  const Environment environment;
  std::vector<Installed> drivers;
  SQLUSMALLINT direction = SQL_FETCH_FIRST;
  for (;;) {
    Buffer name{};
    Buffer attributes{};
    if (!Succeeded(SQLDriversW(environment.Get(), direction, name.data(), name.size(), nullptr,
                               attributes.data(), attributes.size(), nullptr))) {
      return drivers;
    }
    drivers.push_back({Text(name), {}});
    direction = SQL_FETCH_NEXT;
  }
}

std::vector<Installed> DataSources() {
  const Environment environment;
  std::vector<Installed> sources;
  SQLUSMALLINT direction = SQL_FETCH_FIRST;
  for (;;) {
    Buffer name{};
    Buffer driver{};
    if (!Succeeded(SQLDataSourcesW(environment.Get(), direction, name.data(), name.size(), nullptr,
                                   driver.data(), driver.size(), nullptr))) {
      return sources;
    }
    sources.push_back({Text(name), Text(driver)});
    direction = SQL_FETCH_NEXT;
  }
}

std::string DataSourceValue(const std::string& source, const char* key) {
  std::array<char, 4096> value{};
  SQLGetPrivateProfileString(source.c_str(), key, "", value.data(), value.size(), "odbc.ini");
  value.back() = 0;
  return value.data();
}

}  // namespace wbhost
