// What tests of the function readers share: rows that go in, and functions that came out.
#pragma once

#include <string>
#include <vector>

#include "odbc/record_list.h"
#include "tests/support/recorded_session.h"

namespace odbcimport::test {

inline void AddRow(LcODBCRecordList& rows, std::initializer_list<const char16_t*> cells) {
  rows.AddRow(std::vector<std::u16string_view>(cells.begin(), cells.end()));
}

// For messages and comparisons; the texts under test are ASCII.
inline std::string Narrow(std::u16string_view text) {
  std::string narrow;
  for (char16_t c : text) narrow += c < 128 ? static_cast<char>(c) : '?';
  return narrow;
}

// One line a function: owner.name: and its signatures.
inline std::vector<std::string> Lines(const LcWorkbookFunctionList& functions) {
  std::vector<std::string> lines;
  for (const LcWorkbookFunction* function : functions) {
    std::string line = Narrow(function->GetOwner()) + "." + Narrow(function->GetName()) + ":";
    for (const auto& overload : function->GetOverloads()) line += " " + Narrow(overload->GetText());
    lines.push_back(line);
  }
  return lines;
}

}  // namespace odbcimport::test
