// What differs between two workbooks: a list of changes, what could not be compared, and how much
// each matters. The list borrows from both workbooks, which have to outlive it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "importer/workbook/workbook.h"
#include "importer/workbook/workbook_file.h"

namespace wbcompare {

// What a change is about. A partition, a foreign table and the like are tables.
enum class Object : std::uint8_t {
  kDatabase,
  kOwner,
  kType,
  kSequence,
  kRoutine,
  kTable,
  kView,
  kSynonym,
  kColumn,
  kPrimaryKey,
  kUniqueKey,
  kForeignKey,
  kIndex,
  kCheck,
  kTrigger,
};

enum class Property : std::uint8_t {
  kNone,  // the object itself: added, removed, renamed
  kKind,
  kText,
  kTarget,
  kPartitionOf,
  kDataType,
  kNullable,
  kDefault,
  kIdentity,
  kGenerated,
  kExpression,
  kCollation,
  kReadOnly,
  kPlace,
  kColumns,
  kOnUpdate,
  kOnDelete,
  kMatch,
  kDeferrable,
  kEnforced,
  kUnique,
  kMethod,
  kPredicate,
  kTiming,
  kEvents,
  kBaseType,
  kLabels,
  kAttributes,
  kChecks,
  kStart,
  kIncrement,
  kMinimum,
  kMaximum,
  kCycle,
  kOwnedBy,
  kParameters,
  kResult,
  kLanguage,
  kComment,
  kOption,  // what only this server has; Change::option names it
};

enum class Action : std::uint8_t { kAdded, kRemoved, kChanged, kRenamed };

// Whether programs that use the schema can break.
enum class Severity : std::uint8_t {
  kHarmless,  // no statement that worked before is refused now
  kCareful,   // statements work, and may do or cost something else
  kBreaking,  // statements that worked before can be refused
};

// The words that outputs and options use: "foreign-key", "on-delete", "renamed", "breaking".
[[nodiscard]] const char* NameOf(Object object);
[[nodiscard]] const char* NameOf(Property property);
[[nodiscard]] const char* NameOf(Action action);
[[nodiscard]] const char* NameOf(Severity severity);

// What the compatible reading knows of a primary key: the columns of its table.
struct PlainKey {
  const LcWorkbookTable* table = nullptr;
};
// A key that the referencing table holds, or one to a table that the workbook does not hold; of the
// generic route's keys, which come as a pair of columns each, `pair` tells which is meant.
struct ForeignKeyRef {
  const LcWorkbookForeignKey* key = nullptr;
  const LcOutsideKey* outside = nullptr;
  int pair = -1;  // below 0: all of them
};
// A function of the compatible reading.
struct PlainRoutine {
  const LcWorkbookFunction* function = nullptr;
  const LcWorkbookFunctionOverload* overload = nullptr;
};
using ObjectRef =
    std::variant<std::monostate, const LcWorkbookDetails*, const LcSchemaDetails*,
                 const LcOwnerInfo*, const LcTypeDetails*, const LcWorkbookDatatype*,
                 const LcSequenceDetails*, const LcRoutineDetails*, PlainRoutine,
                 const LcWorkbookProcedure*, const LcWorkbookTable*, const LcWorkbookColumn*,
                 const LcKeyDetails*, PlainKey, ForeignKeyRef, const LcIndexDetails*,
                 const LcCheckDetails*, const LcTriggerDetails*>;

// What speaks for a rename; bits of Change::evidence.
enum Evidence : std::uint16_t {
  evAsked = 1,       // the caller said so
  evCase = 2,        // the names differ in upper and lower case only
  evDefinition = 4,  // everything but the name is equal
  evColumns = 8,     // `shared` of `all` columns are equal
  evTables = 16,     // `shared` of `all` tables have the same name
  evName = 32,       // the names resemble one another
  evType = 64,       // the same data type
  evPlace = 128,     // the same place among the columns
  evComment = 256,   // the same comment
  evMoved = 512,     // the same name under another owner
  evText = 1024,     // the same text of a view
};

struct Change {
  Action action = Action::kChanged;
  Object object = Object::kTable;
  Property property = Property::kNone;
  Severity severity = Severity::kHarmless;
  bool guess = false;  // of a rename
  std::uint16_t evidence = 0;
  std::uint32_t shared = 0;
  std::uint32_t all = 0;
  LcText option;
  // The table that the object is part of, or is; null at the top and on the side without it.
  const LcWorkbookTable* old_table = nullptr;
  const LcWorkbookTable* new_table = nullptr;
  ObjectRef before;  // nothing for what was added
  ObjectRef after;   // nothing for what was removed
};

// Changes that stand together: those of one table, or those of one kind at the top.
struct Group {
  std::size_t first = 0;  // positions in Comparison::changes
  std::size_t end = 0;
  const LcWorkbookTable* old_table = nullptr;  // both null at the top
  const LcWorkbookTable* new_table = nullptr;
};

// Objects of one kind that one side has and the other did not read, for one reason. They are no
// changes.
struct Unknown {
  static constexpr std::size_t kMostNames = 1000;
  Object object = Object::kTable;
  bool old_side = false;  // the old workbook is the one that does not know
  std::string reason;
  std::size_t count = 0;
  std::vector<std::string> names;  // the first of them, with the names of their tables
};

struct Comparison {
  std::vector<Change> changes;
  std::vector<Group> groups;  // in the order in which people look for them
  std::vector<Unknown> unknown;
  std::vector<std::string> notes;  // sentences: what is compared and what is not
  std::vector<std::string> lead;   // of two readings: sentences that say it in short
  std::size_t tables = 0;          // that have changes

  [[nodiscard]] std::size_t Count(Severity severity) const;
  // Whether there is a change of this severity or a worse one.
  [[nodiscard]] bool HasAtLeast(Severity severity) const;
};

struct Side {
  const LcWorkbook& workbook;
  const LcWorkbookFileInfo& info;
};

// Two readings of one schema, as sentences name them: "the compatible reading".
struct Readings {
  std::string old_name;
  std::string new_name;
};

struct Options {
  // Things with another name now, as a user writes them (UTF-8): an owner, `[OWNER.]TABLE` or
  // `[OWNER.]TABLE.COLUMN`, double quotes around a part that has dots.
  struct Rename {
    std::string from;
    std::string to;
  };
  std::vector<Rename> renames;
  bool guess_renames = true;
  bool server_names = false;        // count the names that a server makes itself
  bool spellings = false;           // count what is only spelled differently by a server's versions
  std::vector<std::string> ignore;  // words that IsIgnorable() knows
  // Whether something is left out: what has an owner by owner and name, what is part of a table by
  // the names of both. May be empty.
  using LeavesOut = std::function<bool(std::u16string_view, std::u16string_view)>;
  LeavesOut leaves_out;
  LeavesOut leaves_out_part;
  // What only one of the readings can know is missing on the other side, not unknown there; no
  // change is worse than another. Names of keys are not compared.
  std::optional<Readings> readings;
};

// A kind of object ("index"), a property ("comment"), both ("column.default"), or an object with an
// action ("table.added"). "key" stands for primary and unique keys.
[[nodiscard]] bool IsIgnorable(std::string_view word);
// Those words as a list, for people.
[[nodiscard]] std::string IgnorableWords();

// Compares. The time is that of a few walks over both workbooks. False, with a sentence in `why`,
// where a rename names something that is not there.
[[nodiscard]] bool Compare(const Side& before, const Side& after, const Options& options,
                           Comparison& result, std::string& why);

}  // namespace wbcompare
