// Tells which keys a route's required pairing left out.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "session/session.h"

namespace odbcimport {

// Writes them into the workbook's list of what was not read, as kept back by design: the first by
// name, the rest as a number.
class LostKeys {
 public:
  // `kind` and `reason`, a sentence part, are borrowed.
  LostKeys(ImportSession& session, std::u16string_view kind, std::u16string_view reason)
      : session_(session), kind_(kind), reason_(reason) {}

  // One key of that table; without a name of any.
  void Add(std::u16string_view owner, std::u16string_view table);

 private:
  ImportSession& session_;
  const std::u16string_view kind_;
  const std::u16string_view reason_;
  std::size_t count_ = 0;
  std::size_t rest_ = 0;  // where the number of the rest stands
};

}  // namespace odbcimport
