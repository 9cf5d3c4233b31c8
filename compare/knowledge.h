// What one side can know: how it was read, what was chosen, and what was not read. An object that
// is missing there may still be in the database.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "compare/changes.h"

namespace wbcompare {

class Knowledge {
 public:
  explicit Knowledge(const Side& side);

  [[nodiscard]] bool IsExact() const { return exact_; }
  // Why this side may have an object that it does not show; null: it has none. `owner` and `name`
  // are those of the object, or those of the table that it is part of; with a property, an object
  // is there and that property of it is missing.
  [[nodiscard]] const std::string* WhyMissing(Object object, std::u16string_view owner,
                                              std::u16string_view name,
                                              Property property = Property::kNone) const;
  // The same for a table, view or synonym of which the other side has this much.
  [[nodiscard]] const std::string* WhyMissing(const LcWorkbookTable& table,
                                              bool other_reads_system) const;
  [[nodiscard]] bool ReadsSystem() const { return reads_system_; }

 private:
  void ReadChoices(const std::string& json);
  void ReadNotRead(const LcWorkbookDetails& details);
  [[nodiscard]] bool IsWanted(const char* item) const {
    return items_.empty() || items_.count(item) != 0;
  }
  [[nodiscard]] const std::string* FindNotRead(std::string_view kind, std::u16string_view owner,
                                               std::u16string_view name) const;
  [[nodiscard]] const std::string* WhyNotChosen(Object object) const;

  bool exact_ = false;
  bool complete_ = false;
  bool reads_system_ = false;
  bool keys_ = true;
  bool foreign_keys_ = true;
  std::unordered_set<std::string> items_;  // empty: not told
  std::u16string owner_restriction_;
  bool selects_ = false;
  std::unordered_set<std::u16string> selected_owners_;
  std::unordered_set<std::u16string> selected_tables_;  // keys of Key()
  std::unordered_set<std::u16string> named_tables_;     // names were read, the rest was not
  std::unordered_map<std::u16string, std::string> not_read_;
  std::string why_incomplete_;
};

}  // namespace wbcompare
