// The kinds of rows that a dialect's statements give, and the columns that each kind has. What the
// columns mean is told in docs/dialects.md; this is the same as data, for the reader of dialect
// files and for the readers of rows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace odbcimport::exact {

enum class Kind : std::uint8_t {
  kProbe,
  kServer,
  kSchemas,
  kNames,
  kTables,
  kTableOptions,
  kViewTexts,
  kDefinitions,
  kColumns,
  kViewColumns,
  kColumnTypes,
  kColumnDefaults,
  kConstraints,
  kKeys,
  kForeignKeys,
  kForeignKeyRules,
  kChecks,
  kIndexes,
  kTriggers,
  kTypes,
  kSequences,
  kRoutines,
  kParameters,
  kComments,
  kNotRead,
};
inline constexpr std::size_t kKinds = static_cast<std::size_t>(Kind::kNotRead) + 1;

// A column of a row, in the order of their names.
enum class Field : std::uint8_t {
  kArguments,
  kAttribute,
  kAttributeType,
  kBaseType,
  kBaseTypeId,
  kBaseTypeModifier,
  kCache,
  kCatalog,
  kCategory,
  kCheck,
  kCollation,
  kCollationId,
  kCollationIds,
  kColumn,
  kColumnCount,
  kColumnPositions,
  kComment,
  kConstraintId,
  kCycle,
  kDefault,
  kDeferrable,
  kDefinition,
  kDescending,
  kDimensions,
  kDropped,
  kEnforced,
  kEvents,
  kExpression,
  kExpressions,
  kFailed,
  kGenerated,
  kId,
  kIdentity,
  kInTransaction,
  kIncluded,
  kIncrement,
  kIndexId,
  kIsDefault,
  kKey,
  kKeyCount,
  kKeyId,
  kKeyPosition,
  kKind,
  kLabel,
  kLanguage,
  kLength,
  kMatch,
  kMaximum,
  kMethod,
  kMethodId,
  kMinimum,
  kMode,
  kName,
  kNotNull,
  kNullable,
  kOf,
  kOnDelete,
  kOnUpdate,
  kOperatorClass,
  kOperatorClassIds,
  kOrders,
  kOwnerColumn,
  kOwnerPosition,
  kOwnerSchema,
  kOwnerTable,
  kOwnerTableId,
  kParentId,
  kParentSchema,
  kParentTable,
  kPart,
  kPosition,
  kPrecision,
  kPredicate,
  kPrefix,
  kReason,
  kResult,
  kSample,
  kScale,
  kSchema,
  kSchemaId,
  kSequenceId,
  kSetPositions,
  kStart,
  kTable,
  kTableId,
  kTargetColumn,
  kTargetDatabase,
  kTargetId,
  kTargetPositions,
  kTargetSchema,
  kTargetServer,
  kTargetTable,
  kText,
  kTiming,
  kTriggerId,
  kType,
  kTypeId,
  kTypeModifier,
  kTypeSchema,
  kUnique,
  kVersion,
};
inline constexpr std::size_t kFields = static_cast<std::size_t>(Field::kVersion) + 1;

// The names that dialect files use.
[[nodiscard]] std::string_view NameOf(Kind kind);
[[nodiscard]] std::string_view NameOf(Field field);
[[nodiscard]] std::optional<Kind> FindKind(std::string_view name);
[[nodiscard]] std::optional<Field> FindField(std::string_view name);

// The columns of a kind. Every alternative of a need is a list of columns; one alternative has to
// be there whole.
struct RowShape {
  using Alternative = std::vector<Field>;
  struct Need {
    std::vector<Alternative> alternatives;
  };
  bool any = false;      // whatever columns the statement has
  bool options = false;  // takes option:NAME
  std::vector<Field> fields;
  std::vector<Need> needs;

  [[nodiscard]] bool Has(Field field) const;
};
// `owners` false: the server has no owners, so that no row needs a schema.
[[nodiscard]] RowShape ShapeOf(Kind kind, bool owners);

// "table_id, or schema and table": a need as a text for messages.
[[nodiscard]] std::string Describe(const RowShape::Need& need);

}  // namespace odbcimport::exact
