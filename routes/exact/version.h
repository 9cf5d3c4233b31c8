// A server's version, and the bounds that a dialect sets.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace odbcimport::exact {

// Numbers parted by dots. `10.11.6-MariaDB` is 10.11.6; a text without a number in front is empty,
// which is below every other version.
class Version {
 public:
  Version() = default;
  explicit Version(std::string_view text);

  [[nodiscard]] bool IsKnown() const { return !numbers_.empty(); }
  // Compared number by number; one that is missing counts as 0, so that 12 is 12.0.
  [[nodiscard]] bool IsBefore(const Version& other) const;

 private:
  std::vector<long> numbers_;
};

struct VersionBounds {
  std::optional<Version> since;
  std::optional<Version> before;

  [[nodiscard]] bool Fit(const Version& version) const {
    return (!since || !version.IsBefore(*since)) && (!before || version.IsBefore(*before));
  }
};

}  // namespace odbcimport::exact
