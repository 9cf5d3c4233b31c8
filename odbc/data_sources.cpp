// The entries of odbc.ini.
#include "odbc/data_sources.h"

#include <odbcinst.h>

#include <array>

namespace odbc {

std::string ReadDataSourceValue(const std::string& data_source, const std::string& keyword) {
  // With an empty section or entry the function lists names instead.
  if (data_source.empty() || keyword.empty()) return {};
  std::array<char, 1024> value{};
  SQLGetPrivateProfileString(data_source.c_str(), keyword.c_str(), "", value.data(),
                             static_cast<int>(value.size()), "odbc.ini");
  value.back() = 0;
  return value.data();
}

}  // namespace odbc
