// How names are spelled where two sides are compared: without case where the server ignores it,
// and on the old side with the names that renamed things have now.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "importer/workbook/workbook.h"

namespace wbcompare {

struct OwnedName {
  std::string owner;
  std::string name;
};

class Names {
 public:
  // As they stand, for people.
  Names() = default;
  Names(bool ignore_case, bool with_owners)
      : comparing_(true), ignore_case_(ignore_case), with_owners_(with_owners) {}

  [[nodiscard]] bool ignores_case() const { return ignore_case_; }
  void RenameOwner(const std::string& from, const std::string& to) { owners_[from] = to; }
  void RenameTable(const LcWorkbookTable& from, const LcWorkbookTable& to);
  void RenameColumn(const LcWorkbookColumn& from, const LcWorkbookColumn& to);

  [[nodiscard]] std::string Name(std::u16string_view name) const;
  [[nodiscard]] std::string Owner(std::u16string_view owner) const;
  [[nodiscard]] std::string Column(const LcWorkbookColumn& column) const;
  // "owner.name"; no two names give the same text where they are compared.
  [[nodiscard]] std::string Table(std::u16string_view owner, std::u16string_view name) const;
  [[nodiscard]] std::string Table(const LcWorkbookTable& table) const {
    return Table(table.GetOwner(false), table.GetName());
  }
  // An expression over the columns of the table in hand, with the names that they have now.
  [[nodiscard]] std::string Expression(std::u16string_view text) const;
  void TakeInHand(const LcWorkbookTable* table);
  // A statement with the names that owners have now.
  [[nodiscard]] std::string Statement(std::u16string_view text) const;

 private:
  using ByName = std::unordered_map<std::string, std::string>;
  [[nodiscard]] std::string Key(std::string_view owner, std::string_view name) const;
  [[nodiscard]] std::string Rewrite(const std::string& text, const ByName& renamed,
                                    bool before_dot) const;
  [[nodiscard]] std::string PlainOwner(std::u16string_view owner) const;

  bool comparing_ = false;
  bool ignore_case_ = false;
  bool with_owners_ = true;
  ByName owners_;
  ByName tables_;
  std::unordered_map<const LcWorkbookColumn*, std::string> columns_;
  // The renamed columns of every table that has some, and of the table in hand.
  std::unordered_map<const LcWorkbookTable*, ByName> inside_;
  const ByName* in_hand_ = nullptr;
};

// The names of the one side that are there to be shown.
[[nodiscard]] const Names& ShownNames();

}  // namespace wbcompare
