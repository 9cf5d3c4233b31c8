// What an import has read so far, as its readers find it again: schemas, tables and columns by the
// server's numbers or by names. The workbook's objects themselves are the workbook's, once their
// tables are whole.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "importer/workbook/workbook.h"
#include "routes/exact/catalog.h"
#include "routes/exact/column_types.h"
#include "routes/exact/definition.h"
#include "routes/exact/flat_map.h"
#include "routes/exact/row.h"

namespace odbcimport::exact {

constexpr std::uint32_t kNoTable = NumberMap::kNone;

struct TableEntry {
  std::unique_ptr<LcWorkbookTable> made;  // until it is in the workbook
  LcWorkbookTable* table = nullptr;
  std::string schema;  // UTF-8
  std::string name;
  std::int64_t id = 0;
  std::int64_t column_count = -1;  // as `tables` says; below 0: it does not say
  std::uint32_t columns_seen = 0;
  std::uint32_t first_column = 0;  // in Model::columns, once they are in order
  std::uint32_t columns = 0;
  bool has_id = false;
  bool wanted = false;  // chosen, and of a kind that is asked for
  LeTableKind kind = tkTable;
  LcText collation;                             // of its columns as a rule
  std::unique_ptr<TableDefinition> definition;  // null: its text says no more than rows do
};

struct ColumnEntry {
  std::unique_ptr<LcWorkbookColumn> made;  // until it is in its table
  LcWorkbookColumn* column = nullptr;
  std::int64_t collation_id = 0;
  std::uint32_t table = kNoTable;
  std::int32_t position = 0;  // the server's number of the column
  std::uint32_t type = ColumnTypes::kNone;
  std::int32_t key_position = 0;
};

// Comments by what they are of and its number.
class Comments {
 public:
  enum class Of : std::uint8_t { kSchema, kRelation, kType, kRoutine, kConstraint, kTrigger };

  void Add(Of of, std::int64_t id, std::int64_t position, LcText text);
  [[nodiscard]] LcText Find(Of of, std::int64_t id, std::int64_t position = 0) const;

 private:
  [[nodiscard]] static std::int64_t KeyOf(std::int64_t id, std::int64_t position);
  static constexpr std::size_t kSorts = 6;
  std::array<NumberMap, kSorts> places_;
  std::vector<LcText> texts_;
};

// What `names` says of the numbers that stand for names.
class KnownNames {
 public:
  struct Name {
    LcText name;
    bool is_default = false;
  };
  void Add(std::string_view of, std::int64_t id, Name name);
  // Null for a number that was not told.
  [[nodiscard]] const Name* Find(std::string_view of, std::int64_t id) const;

 private:
  std::unordered_map<std::string, std::unordered_map<std::int64_t, Name>> names_;
};

class Model {
 public:
  explicit Model(Catalog& asked) : catalog(asked), types(asked) {}

  Catalog& catalog;
  std::vector<std::string> schemas;
  NumberMap schemas_by_id;
  std::vector<TableEntry> tables;
  std::vector<ColumnEntry> columns;
  ColumnTypes types;
  Comments comments;
  KnownNames names;

  // Makes the tables findable; they stay where they are from now on.
  void IndexTables();
  // The table that a row is about, by number or by names; kNoTable for one that was not read.
  [[nodiscard]] std::uint32_t FindTable(const Row& row);
  [[nodiscard]] std::uint32_t FindTable(std::int64_t id) const { return tables_by_id_.Get(id); }
  [[nodiscard]] std::uint32_t FindTable(std::string_view schema, std::string_view name) const;
  // FindTable, but only for tables of the workbook; null elsewhere.
  [[nodiscard]] LcWorkbookTable* FindWanted(const Row& row);

  // Puts the columns in order and makes them findable. `whole` false: reading them ended early, and
  // tables of which some may be missing are left out.
  void OrderColumns();
  // Null for a column that was not read.
  [[nodiscard]] LcWorkbookColumn* FindColumn(std::uint32_t table, std::int64_t position) const;
  [[nodiscard]] const ColumnEntry* FindEntry(std::uint32_t table, std::int64_t position) const;
  [[nodiscard]] LcWorkbookColumn* FindColumn(std::uint32_t table, std::string_view name);

  // The text of a column that may be given by number: `collation` or `collation_id`.
  [[nodiscard]] LcText NameOf(const Row& row, Field text_field, Field id_field,
                              std::string_view of);
  void TakeOptions(const Row& row, LcOptions& options);
  // The schema of a row that may give it by number. False for a number that is not known.
  [[nodiscard]] bool FindSchema(const Row& row, std::string_view& schema) const;

 private:
  [[nodiscard]] std::uint32_t FindTable(std::string_view schema, std::string_view name,
                                        const HashedPlaces& places, bool folded) const;

  NumberMap tables_by_id_;
  HashedPlaces tables_by_name_;
  HashedPlaces tables_by_folded_name_;
  std::int64_t last_id_ = 0;
  std::uint32_t last_table_ = kNoTable;
};

// The text in lower case, as far as it is ASCII.
[[nodiscard]] std::string FoldCase(std::string_view text);

}  // namespace odbcimport::exact
