// The files in which the driver manager keeps drivers and data sources, read in one pass each. Its
// own functions read and join both files anew for every question: minutes where they have 20,000
// entries.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace wbhost {

struct IniSection {
  std::string name;
  std::vector<std::pair<std::string, std::string>> entries;  // keys and values as they stand
  // Empty where there is no such key, which goes without upper and lower case.
  std::string Value(const std::string& key) const;
};

// The user's sections of odbc.ini, then the system's of other names.
[[nodiscard]] std::vector<IniSection> ReadOdbcIni();
// The sections of odbcinst.ini.
[[nodiscard]] std::vector<IniSection> ReadOdbcInstIni();
// Of a file's text; a line that is neither a section nor an entry is passed over.
[[nodiscard]] std::vector<IniSection> ParseIni(const std::string& text);

}  // namespace wbhost
