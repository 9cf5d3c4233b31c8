// See odbc_ini.h.
#include "host/odbc_ini.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string_view>
#include <unordered_set>

#include "base/ascii.h"
#include "base/text.h"
#include "host/limits.h"

namespace wbhost {
namespace {

std::string Variable(const char* name) {
  const char* const value = std::getenv(name);
  return value != nullptr ? value : "";
}

// Where the driver manager of a distribution has its files, unless a variable says otherwise. (What
// it was built with it tells nobody but its own tools.)
std::string SystemFolder() {
  const std::string folder = Variable("ODBCSYSINI");
  return folder.empty() ? "/etc" : folder;
}

std::vector<IniSection> ReadIni(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return {};
  std::error_code error;
  const std::uintmax_t size = std::filesystem::file_size(path, error);
  if (error) return {};  // no plain file
  std::string text(std::min(size, kMostOdbcIniBytes), '\0');
  file.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(file.gcount()));
  return ParseIni(text);
}

}  // namespace

std::string IniSection::Value(const std::string& key) const {
  for (const auto& [known, value] : entries) {
    if (base::EqualIgnoringCase(known, key)) return value;
  }
  return {};
}

std::vector<IniSection> ParseIni(const std::string& text) {
  std::vector<IniSection> sections;
  std::istringstream lines(text);
  for (std::string whole; std::getline(lines, whole);) {
    const std::string_view line = base::TrimSpace(whole);
    if (line.empty() || line.front() == '#' || line.front() == ';') continue;
    if (line.front() == '[') {
      const std::size_t end = line.find(']');
      if (end != std::string_view::npos) {
        sections.push_back({std::string(base::TrimSpace(line.substr(1, end - 1))), {}});
      }
      continue;
    }
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos || sections.empty()) continue;
    sections.back().entries.emplace_back(base::TrimSpace(line.substr(0, equals)),
                                         base::TrimSpace(line.substr(equals + 1)));
  }
  return sections;
}

std::vector<IniSection> ReadOdbcIni() {
  const std::string of_user = Variable("ODBCINI");
  std::vector<IniSection> sections =
      ReadIni(of_user.empty() ? Variable("HOME") + "/.odbc.ini" : of_user);
  std::unordered_set<std::string> known;
  for (const IniSection& section : sections) known.insert(section.name);
  for (IniSection& section : ReadIni(SystemFolder() + "/odbc.ini")) {
    if (known.insert(section.name).second) sections.push_back(std::move(section));
  }
  return sections;
}

std::vector<IniSection> ReadOdbcInstIni() {
  const std::string name = Variable("ODBCINSTINI");
  if (!name.empty() && name.front() == '/') return ReadIni(name);
  return ReadIni(SystemFolder() + '/' + (name.empty() ? "odbcinst.ini" : name));
}

}  // namespace wbhost
