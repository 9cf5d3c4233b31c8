// A workbook as the rules look at it: the tables with their keys, indexes and references, each
// found once.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "lint/lint.h"

namespace wblint {

using Columns = std::vector<const LcWorkbookColumn*>;

struct Key {
  std::string name;
  Columns columns;
  bool primary = false;
  bool nulls_equal = false;  // a NULL counts as a value
};

// A foreign key that a table holds.
struct Reference {
  std::string name;
  const LcWorkbookTable* target = nullptr;  // null: outside of the workbook
  Columns columns;
  Columns target_columns;
  const LcForeignKeyDetails* details = nullptr;
};

struct Table {
  const LcWorkbookTable* table = nullptr;
  std::vector<Key> keys;                       // primary and unique constraints
  std::vector<const LcIndexDetails*> indexes;  // those that no key made
  std::vector<Reference> references;
  bool referred = false;  // by another table
};

// What the workbook knows; where it does not, rules that need it are not checked.
enum Knowledge : unsigned {
  knKeys = 1,
  knUniqueKeys = 2,
  knForeignKeys = 4,
  knIndexes = 8,
  knComments = 16,
};

struct Schema {
  Schema(const LcWorkbook& workbook, const LcWorkbookFileInfo& info, const Options& options);

  const LcWorkbook& workbook;
  const LcWorkbookFileInfo& info;
  // Tables whose rows are their own; no partitions, which are as their whole is.
  std::vector<Table> tables;
  std::unordered_map<const LcWorkbookTable*, std::size_t> places;  // in `tables`
  std::vector<const LcWorkbookTable*> named;                       // tables and views, for names
  unsigned known = 0;

  [[nodiscard]] const Table* Find(const LcWorkbookTable* table) const;
  [[nodiscard]] bool IsDialect(std::u16string_view name) const { return info.dialect == name; }
};

// A name for people: control characters as their pictures, on one line.
[[nodiscard]] std::string Shown(std::u16string_view name);
[[nodiscard]] std::string Shown(const LcWorkbookTable& table);  // with its owner
[[nodiscard]] std::string Shown(const Columns& columns);        // "a, b"
// "a, b, c and 4 more", of the first `most`.
[[nodiscard]] std::string Some(const std::vector<std::string>& names, std::size_t most = 5);

// The columns of an index where it is on plain columns of all rows, in the server's usual way;
// empty for any other, which no other index can stand for.
[[nodiscard]] Columns PlainColumns(const LcIndexDetails& index);
[[nodiscard]] bool BeginsWith(const Columns& columns, const Columns& first);
// Whether the first of `columns` are those of `wanted`, in any order.
[[nodiscard]] bool BeginsWithAll(const Columns& columns, const Columns& wanted);

}  // namespace wblint
