// A change as texts, for the formats. UTF-8.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "compare/changes.h"

namespace wbcompare {

struct Line {
  std::string owner;  // of the table, or of what stands at the top; of the old side if it is there
  std::string table;  // empty at the top
  std::string new_owner;
  std::string new_table;
  std::string name;  // of the object; empty for a table's own properties, and where it has none
  std::string new_name;
  std::string property;  // "data-type", "option fillfactor"; empty for the object itself
  std::optional<std::string> from;
  std::optional<std::string> to;
  std::vector<std::string> because;  // what speaks for a rename
  bool is_text = false;              // `from` and `to` are texts of several lines
};

// Makes the lines of one comparison; keeps what the next change of the same table needs again.
class Lines {
 public:
  [[nodiscard]] Line Describe(const Change& change);

 private:
  using Places = std::unordered_map<const LcWorkbookColumn*, int>;
  [[nodiscard]] static std::string PlaceOf(const LcWorkbookColumn& column,
                                           const LcWorkbookTable*& table, Places& places);

  const LcWorkbookTable* old_table_ = nullptr;
  const LcWorkbookTable* new_table_ = nullptr;
  Places old_places_;
  Places new_places_;
};

// "columns", "foreign keys".
[[nodiscard]] std::string Plural(std::string word);
// "column", "foreign key", for people.
[[nodiscard]] std::string Spoken(std::string word);
// "column name", "view", "primary key customer_pkey".
[[nodiscard]] std::string Subject(const Change& change, const Line& line);
// "perhaps renamed to mail: the same type, the same place".
[[nodiscard]] std::string RenameText(const Change& change, const Line& line);
// The change without its subject: "added: varchar(40)", "data type int -> bigint".
[[nodiscard]] std::string Predicate(const Change& change, const Line& line);
// "sales.customer", with " -> sales.buyer" behind it where it is called so now; what the changes of
// a group without a table are about.
[[nodiscard]] std::string Heading(const Group& group, const Comparison& comparison);
// "2 breaking, 1 careful and 3 harmless changes in 2 tables"; of two readings, their lead.
[[nodiscard]] std::string Summary(const Comparison& comparison);
// "3 indexes not known on the old side (t.a, t.b, u.c): no right".
[[nodiscard]] std::string UnknownText(const Unknown& unknown);
// "PostgreSQL 15, exact reading".
[[nodiscard]] std::string SourceText(const LcWorkbookFileInfo& info);

}  // namespace wbcompare
