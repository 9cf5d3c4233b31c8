// What a real server itself says that it holds, and what an import finds there.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "importer/workbook/enums.h"
#include "tests/support/connection.h"
#include "tests/support/facts.h"

namespace real {

// Whether the driver manager knows a driver of that name.
bool IsDriverInstalled(const std::string& driver);

// What asks a server for its schema, in the columns of wbtest::SchemaRows.
struct SchemaQueries {
  const char* tables;
  const char* columns;
  const char* keys;
  const char* pairs;
};

wbtest::Facts Ask(const wbtest::Connection& server, const SchemaQueries& queries);

// One import, as a host does it.
struct Import {
  // `on_event` is called with the number of each notification, from 0.
  Import(const wbtest::Connection& server, const std::u16string& catalog,
         const std::function<void(int)>& on_event = {}, std::uint32_t items = ibTables | ibViews);

  LcWorkbook workbook;
  bool result = false;
  unsigned short status = 0;
};

}  // namespace real
