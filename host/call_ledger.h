// What a reading through the catalog functions, or with a route's own SQL, lost without a word: it
// consumes errors, as hosts rely on, but the program hears of every call.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "importer/workbook/details.h"
#include "importer/workbook/enums.h"
#include "platform/driver_call.h"

namespace wbhost {

class CallLedger {
 public:
  // A call that was just made; its diagnostics are still there.
  void Note(const platform::DriverCall& call);
  // What the import is at, for calls whose function does not tell what they read.
  void SetPhase(enumImpItemType phase) { phase_ = phase; }
  // What was lost since the last time, for the workbook. What a driver says that it does not have
  // is no loss.
  std::vector<LcNotRead> Take();

 private:
  // What a statement reads.
  struct Asked {
    std::string kind;
    std::u16string owner;
    std::u16string name;
  };
  [[nodiscard]] Asked AskedBy(const platform::DriverCall& call) const;
  void Lose(const Asked& asked, const std::string& reason);

  enumImpItemType phase_ = iiNone;
  std::unordered_map<void*, Asked> statements_;
  std::vector<LcNotRead> lost_;
  std::size_t more_ = 0;  // beyond those that are kept
};

}  // namespace wbhost
