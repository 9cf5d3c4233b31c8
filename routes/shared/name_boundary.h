// A change of name starts a table: rows of one table, synonym or function follow one another.
#pragma once

#include <string>
#include <string_view>

namespace odbcimport {

// Tells in rows that are ordered by owner and name where the next one begins. Names are compared in
// exact case.
class NameBoundary {
 public:
  // Whether a first row without owner and name begins something, as a row with a name does.
  enum class Nameless { kBegins, kBelongsToNothing };
  explicit NameBoundary(Nameless nameless) : nothing_yet_(nameless == Nameless::kBegins) {}

  // True when the row begins something; owner() and name() are its own then.
  [[nodiscard]] bool Next(std::u16string_view owner, std::u16string_view name) {
    if (!nothing_yet_ && owner == owner_ && name == name_) return false;
    nothing_yet_ = false;
    owner_.assign(owner);
    name_.assign(name);
    return true;
  }
  [[nodiscard]] const std::u16string& owner() const { return owner_; }
  [[nodiscard]] const std::u16string& name() const { return name_; }

 private:
  bool nothing_yet_;
  std::u16string owner_;
  std::u16string name_;
};

}  // namespace odbcimport
