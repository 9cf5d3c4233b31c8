// What the exact reading knows beyond the prescribed objects: one pointer on a table, a column or a
// foreign key, and lists beside the workbook's own. Absent where nothing was read: a schema of
// plain columns pays nothing for it.
//
// Texts are UTF-16 as the server has them; an absent text was not there or not read. Columns are
// borrowed from their table, which also owns the details that name them.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "importer/workbook/export.h"
#include "importer/workbook/pool.h"
#include "importer/workbook/text.h"

class LcWorkbookColumn;

// The more exact kind of a table; enumTableType says what hosts tell apart.
enum LeTableKind : std::uint8_t {
  tkUnknown = 0,  // not read: the table's type is all that is known
  tkTable,
  tkView,
  tkMaterializedView,
  tkPartitionedTable,
  tkPartition,
  tkForeignTable,
  tkTemporaryTable,
  tkSystemTable,
  tkSynonym,
};
enum LeGenerated : std::uint8_t { gnNone = 0, gnStored, gnVirtual };
enum LeIdentity : std::uint8_t { idNone = 0, idAlways, idByDefault, idAutoIncrement };
enum LeKeyKind : std::uint8_t { kkPrimary = 0, kkUnique };
// When a constraint is checked: at each statement; deferrable but at each statement unless a
// transaction says otherwise; at the end of the transaction.
enum LeDeferrable : std::uint8_t { dfNot = 0, dfImmediate, dfDeferred };
enum LeTypeKind : std::uint8_t { tyEnum = 0, tyDomain, tyComposite, tyRange, tyDistinct };
enum LeRoutineKind : std::uint8_t { rkFunction = 0, rkProcedure, rkAggregate, rkWindow };

// The names that the workbook file and the dialects of the exact reading use for these values:
// "materialized view", "by default", ... Null for a value that has none.
[[nodiscard]] LC_WORKBOOK_EXPORT const char16_t* LcNameOf(LeTableKind kind);
[[nodiscard]] LC_WORKBOOK_EXPORT const char16_t* LcNameOf(LeGenerated generated);
[[nodiscard]] LC_WORKBOOK_EXPORT const char16_t* LcNameOf(LeIdentity identity);
[[nodiscard]] LC_WORKBOOK_EXPORT const char16_t* LcNameOf(LeKeyKind kind);
[[nodiscard]] LC_WORKBOOK_EXPORT const char16_t* LcNameOf(LeDeferrable deferrable);
[[nodiscard]] LC_WORKBOOK_EXPORT const char16_t* LcNameOf(LeTypeKind kind);
[[nodiscard]] LC_WORKBOOK_EXPORT const char16_t* LcNameOf(LeRoutineKind kind);
// The value of that name. False, with `value` as it was, where there is none.
LC_WORKBOOK_EXPORT bool LcFindByName(std::u16string_view name, LeTableKind& value);
LC_WORKBOOK_EXPORT bool LcFindByName(std::u16string_view name, LeGenerated& value);
LC_WORKBOOK_EXPORT bool LcFindByName(std::u16string_view name, LeIdentity& value);
LC_WORKBOOK_EXPORT bool LcFindByName(std::u16string_view name, LeKeyKind& value);
LC_WORKBOOK_EXPORT bool LcFindByName(std::u16string_view name, LeDeferrable& value);
LC_WORKBOOK_EXPORT bool LcFindByName(std::u16string_view name, LeTypeKind& value);
LC_WORKBOOK_EXPORT bool LcFindByName(std::u16string_view name, LeRoutineKind& value);

// What only this server has (engine, character set, operator class, ...), by name. Kept in the
// order of the names, each once; the room of one pointer where there are none.
class LC_WORKBOOK_EXPORT LcOptions {
 public:
  struct Option {
    LcText name;
    LcText value;
    friend bool operator==(const Option&, const Option&) = default;
  };
  struct List : std::vector<Option, LcPoolAllocator<Option>> {
    LC_POOLED
  };
  LcOptions() = default;
  LcOptions(const LcOptions& other);
  LcOptions(LcOptions&&) noexcept = default;
  LcOptions& operator=(LcOptions other) noexcept;

  // Replaces the value of an option that is there already.
  void Set(const LcText& name, const LcText& value);
  [[nodiscard]] LcText Find(
      std::u16string_view name) const;  // absent where there is no such option
  [[nodiscard]] const List& All() const;
  [[nodiscard]] bool IsEmpty() const { return options_ == nullptr; }
  friend bool operator==(const LcOptions& a, const LcOptions& b) { return a.All() == b.All(); }

 private:
  std::unique_ptr<List> options_;  // never an empty list
};

// The type of a column as the server spells it is the database type of its data type object.
struct LcColumnDetails {
  LC_POOLED
  LcText default_text;  // the expression, as SQL
  LcText expression;    // of a generated column
  LcText collation;     // where it is not the type's or the table's own
  LcText comment;
  LcOptions options;
  LeGenerated generated = gnNone;
  LeIdentity identity = idNone;
};

// A primary or unique key.
struct LcKeyDetails {
  LC_POOLED
  LcText name;
  std::vector<LcWorkbookColumn*> columns;  // in the order of the key
  LcText comment;
  LcOptions options;
  LeKeyKind kind = kkPrimary;
  LeDeferrable deferrable = dfNot;
};

struct LcIndexPart {
  LcWorkbookColumn* column = nullptr;  // null: an expression
  LcText expression;
  LcOptions options;  // prefix, collation, operator class, null order, ...
  bool descending = false;
  bool included = false;  // carried along, not part of the order
};
struct LcIndexDetails {
  LcText name;
  LcText method;     // absent where the server has one kind only
  LcText predicate;  // of a partial index
  LcText comment;
  LcOptions options;
  std::vector<LcIndexPart> parts;
  bool unique = false;
};

struct LcCheckDetails {
  LcText name;
  LcText expression;  // without CHECK; an exclusion constraint's whole text, with EXCLUDE
  LcText comment;
  LcOptions options;
};

struct LcTriggerDetails {
  LcText name;
  LcText timing;  // "before", "after", "instead of"
  LcText events;  // "insert, update of a, b"
  LcText text;
  LcText comment;
  LcOptions options;
};

// Shared by the two keys of a relationship.
struct LcForeignKeyDetails {
  LcText name;
  LcText on_update;  // "no action", "restrict", "cascade", "set null", "set default"
  LcText on_delete;
  LcText match;  // "simple", "full", "partial"
  LcText comment;
  LcOptions options;
  LeDeferrable deferrable = dfNot;
  bool enforced = true;
};

// A foreign key to a table that the workbook does not hold, because it was not selected: its names
// are kept, so that the relationship is not lost.
struct LcOutsideKey {
  LcForeignKeyDetails details;
  std::vector<LcWorkbookColumn*> columns;  // in the order of the key
  LcText target_owner;
  LcText target_table;
  std::vector<LcText> target_columns;
};

struct LcTableDetails {
  LC_POOLED
  LeTableKind kind = tkUnknown;
  LcText comment;
  LcText view_text;     // the query of a view
  LcText parent_owner;  // of a partition: the table that it is part of
  LcText parent_table;
  std::unique_ptr<LcKeyDetails> primary_key;  // null: none, or not read
  std::vector<LcKeyDetails> unique_keys;
  std::vector<LcIndexDetails>
      indexes;  // those that no key made, and where the server keeps them apart the others
  std::vector<LcCheckDetails> checks;
  std::vector<LcTriggerDetails> triggers;
  std::vector<LcOutsideKey> outside_keys;
  LcOptions options;
};

struct LcSchemaDetails {
  LcText name;
  LcText comment;
  LcOptions options;
  bool is_default = false;  // names without an owner are looked for here
};

struct LcTypeAttribute {
  LcText name;
  LcText type;  // as the server spells it
};
struct LcTypeDetails {
  LcText schema;
  LcText name;
  LeTypeKind kind = tyEnum;
  LcText base_type;  // of a domain, a distinct type or a range
  LcText default_text;
  LcText comment;
  std::vector<LcCheckDetails> checks;       // of a domain
  std::vector<LcText> labels;               // of an enum, in order
  std::vector<LcTypeAttribute> attributes;  // of a composite type
  LcOptions options;
  bool nullable = true;
};

// Numbers are texts: servers have them larger than any integer type.
struct LcSequenceDetails {
  LcText schema;
  LcText name;
  LcText type;
  LcText start;
  LcText increment;
  LcText minimum;
  LcText maximum;
  LcText owner_table;  // of the same schema; absent: owned by no column
  LcText owner_column;
  LcText comment;
  LcOptions options;
  bool cycle = false;
};

struct LcParameterDetails {
  LcText name;  // absent: without a name
  LcText mode;  // "in", "out", "inout", "variadic", "table"
  LcText type;
  LcText default_text;
};
// A routine of the user; each overload is one.
struct LcRoutineDetails {
  LcText schema;
  LcText name;
  LcText id;  // tells overloads apart in this workbook
  LeRoutineKind kind = rkFunction;
  LcText result;  // a type; absent for a procedure
  LcText language;
  LcText text;
  LcText comment;
  std::vector<LcParameterDetails> parameters;
  LcOptions options;
};

// What an import did not read, and why. On every route.
struct LcNotRead {
  LcText kind;   // "views", "indexes", "columns", ...: a kind of the exact reading or an item
  LcText owner;  // both absent: the whole kind
  LcText name;
  LcText reason;          // the server's own message, or a sentence
  bool withheld = false;  // kept from this user by design: no failure
};

struct LcWorkbookDetails {
  std::vector<LcSchemaDetails> schemas;
  std::vector<LcTypeDetails> types;
  std::vector<LcSequenceDetails> sequences;
  std::vector<LcRoutineDetails> routines;
  std::vector<LcNotRead> not_read;
  LcOptions options;  // of the database
};
