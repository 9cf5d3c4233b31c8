// What a recording tells about the run that was recorded, so that a replay does the same: the
// choices, the settings that counted, and when somebody interrupted it.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/choices.h"
#include "host/interrupt.h"

namespace wbhost {

struct ReplayNotes {
  // Empty without a file. Throws a Failure where the file cannot be read.
  [[nodiscard]] static std::optional<ReplayNotes> Read(const std::string& file);

  // What was wanted when the n-th notification of an import of the run came; both count from 1.
  [[nodiscard]] InterruptWish WishAt(unsigned import_number, unsigned notification) const;

  struct Interrupt {
    InterruptWish wish;
    unsigned import_number;
    unsigned notification;
  };
  std::optional<Choices> choices;
  std::map<std::u16string, std::uint32_t> settings;
  std::u16string catalog_schema;  // DB2's, of the data source
  std::vector<Interrupt> interrupts;
  bool whole = false;  // the recorded run came to its end
};

}  // namespace wbhost
