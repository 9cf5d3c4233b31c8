// Tries a dialect out on a server: every statement is run as an import would run it, whole and
// narrowed to one table, and its rows are compared with its heading.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "routes/exact/catalog.h"

namespace odbcimport::exact {

struct SectionCheck {
  const Section* section = nullptr;
  std::string problem;  // one English sentence part, UTF-8; empty: none
  bool ran = false;     // false: not for this server's version, or nothing to run it for
  long rows = 0;        // of the whole
};

// False, with the reason in `why`, where the dialect is not for the server.
[[nodiscard]] bool TryDialect(void* henv, void* hdbc, const std::shared_ptr<const Dialect>& dialect,
                              std::vector<SectionCheck>& checks, std::string& why);

}  // namespace odbcimport::exact
