// The kinds of rows as a table of texts, and what is read from it.
#include "routes/exact/kinds.h"

#include <algorithm>
#include <array>

namespace odbcimport::exact {
namespace {

// clang-format off
constexpr std::array<std::string_view, kFields> kFieldNames = {
    "arguments", "attribute", "attribute_type", "base_type", "base_type_id", "base_type_modifier", "cache",
    "catalog", "category", "check", "collation", "collation_id", "collation_ids", "column", "column_count",
    "column_positions", "comment", "constraint_id", "cycle", "default", "deferrable", "definition",
    "descending", "dimensions", "dropped", "enforced", "events", "expression", "expressions", "failed",
    "generated", "id", "identity", "in_transaction", "included", "increment", "index_id", "is_default", "key",
    "key_count", "key_id", "key_position", "kind", "label", "language", "length", "match", "maximum", "method",
    "method_id", "minimum", "mode", "name", "not_null", "nullable", "of", "on_delete", "on_update",
    "operator_class", "operator_class_ids", "orders", "owner_column", "owner_position", "owner_schema",
    "owner_table", "owner_table_id", "parent_id", "parent_schema", "parent_table", "part", "position", "precision",
    "predicate", "prefix", "reason", "result", "sample", "scale", "schema", "schema_id", "sequence_id",
    "set_positions", "start", "table", "table_id", "target_column", "target_database", "target_id",
    "target_positions", "target_schema", "target_server", "target_table", "text", "timing", "trigger_id",
    "type", "type_id", "type_modifier", "type_schema", "unique", "version",
};
// clang-format on
static_assert(std::is_sorted(kFieldNames.begin(), kFieldNames.end()));
static_assert(!kFieldNames.back().empty());

// Columns parted by blanks: `a` may be there, `a*` has to, `a+b/c*` either a and b or c. `option:`
// stands for facts that only this server has, `...` for anything.
struct KindRow {
  std::string_view name;
  std::string_view columns;
};

// clang-format off
constexpr std::array<KindRow, kKinds> kKindRows = {{
    {"probe", "..."},
    {"server", "version schema catalog sample in_transaction option:"},
    {"schemas", "schema* schema_id is_default comment option:"},
    {"names", "of* id* name* is_default"},
    {"tables",
     "schema/schema_id* table* table_id kind* column_count collation comment text definition parent_id parent_schema "
     "parent_table target_server target_database target_schema target_table reason option:"},
    {"table_options", "table_id/schema+table* kind comment option:"},
    {"view_texts", "table_id/schema+table* text/definition* part reason option:"},
    {"definitions", "table_id/schema+table* definition* part"},
    {"columns",
     "table_id/schema+table* position* column* type_id/type+base_type* type_modifier type_schema length precision "
     "scale dimensions nullable not_null default generated expression identity collation collation_id key_position "
     "dropped comment option:"},
    {"view_columns",
     "table_id/schema+table* position* column* type_id/type+base_type* type_modifier type_schema length precision "
     "scale dimensions nullable not_null default generated expression identity collation collation_id key_position "
     "dropped comment option:"},
    {"column_types",
     "type_id* type_modifier type* base_type* type_schema length precision scale collation collation_id "
     "category base_type_id base_type_modifier"},
    {"column_defaults", "table_id/schema+table* position/column* default*"},
    {"constraints",
     "table_id/type_id/schema+table* kind* name* column_positions/position+column* deferrable enforced target_id "
     "target_positions target_schema target_table target_column key_id on_update on_delete match set_positions "
     "expression constraint_id index_id comment option:"},
    {"keys",
     "table_id/schema+table* name* kind* column_positions/position+column* deferrable constraint_id index_id comment "
     "option:"},
    {"foreign_keys",
     "table_id/schema+table* name* column_positions/position+column* target_id+target_positions/target_table* "
     "target_schema target_column key_id on_update on_delete match deferrable enforced set_positions constraint_id "
     "comment option:"},
    {"foreign_key_rules",
     "table_id/schema+table* name* on_update on_delete match deferrable enforced comment option:"},
    {"checks", "table_id/type_id/schema+table* name* expression* part column kind enforced constraint_id comment option:"},
    {"indexes",
     "table_id/schema+table* name* unique* column_positions/position* column expression descending included prefix "
     "operator_class collation key_count orders operator_class_ids collation_ids expressions index_id method method_id "
     "predicate key definition comment option:"},
    {"triggers", "table_id/schema+table* name* timing events text definition part trigger_id comment option:"},
    {"types",
     "schema/schema_id* name* kind* type_id base_type nullable not_null default check collation collation_id "
     "position label attribute attribute_type comment option:"},
    {"sequences",
     "schema/schema_id* name* sequence_id type start increment minimum maximum cycle cache owner_schema owner_table "
     "owner_column owner_table_id owner_position comment option:"},
    {"routines", "schema/schema_id* name* id* kind* arguments result language text part comment reason option:"},
    {"parameters", "id* position* type* mode name default option:"},
    {"comments", "of* id* position comment*"},
    {"not_read", "kind* schema name reason* failed"},
}};
// clang-format on

// The parts of a text between separators.
std::vector<std::string_view> Split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (;;) {
    const std::size_t end = text.find(separator);
    parts.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

constexpr bool IsKnown(std::string_view name) {
  return std::binary_search(kFieldNames.begin(), kFieldNames.end(), name);
}

// Every name of the table of kinds is a field's; a misspelt one does not compile.
constexpr bool NamesAreKnown() {
  for (const KindRow& row : kKindRows) {
    std::size_t begin = 0;
    for (std::size_t i = 0; i <= row.columns.size(); ++i) {
      const char c = i < row.columns.size() ? row.columns[i] : ' ';
      if (c != ' ' && c != '*' && c != '+' && c != '/') continue;
      const std::string_view name = row.columns.substr(begin, i - begin);
      begin = i + 1;
      if (!name.empty() && name != "option:" && name != "..." && !IsKnown(name)) return false;
    }
  }
  return true;
}
static_assert(NamesAreKnown());

void AddItem(std::string_view item, bool owners, RowShape& shape) {
  if (item == "option:") {
    shape.options = true;
    return;
  }
  if (item == "...") {
    shape.any = true;
    return;
  }
  const bool needed = item.ends_with('*');
  if (needed) item.remove_suffix(1);
  RowShape::Need need;
  for (const std::string_view names : Split(item, '/')) {
    RowShape::Alternative alternative;
    for (const std::string_view name : Split(names, '+')) {
      const Field field = *FindField(name);
      if (!shape.Has(field)) shape.fields.push_back(field);
      if (owners || field != Field::kSchema) alternative.push_back(field);
    }
    need.alternatives.push_back(std::move(alternative));
  }
  if (needed) shape.needs.push_back(std::move(need));
}

}  // namespace

std::string_view NameOf(Kind kind) { return kKindRows[static_cast<std::size_t>(kind)].name; }

std::string_view NameOf(Field field) { return kFieldNames[static_cast<std::size_t>(field)]; }

std::optional<Kind> FindKind(std::string_view name) {
  for (std::size_t i = 0; i < kKinds; ++i) {
    if (kKindRows[i].name == name) return static_cast<Kind>(i);
  }
  return std::nullopt;
}

std::optional<Field> FindField(std::string_view name) {
  const auto* found = std::lower_bound(kFieldNames.begin(), kFieldNames.end(), name);
  if (found == kFieldNames.end() || *found != name) return std::nullopt;
  return static_cast<Field>(found - kFieldNames.begin());
}

bool RowShape::Has(Field field) const {
  return std::find(fields.begin(), fields.end(), field) != fields.end();
}

RowShape ShapeOf(Kind kind, bool owners) {
  RowShape shape;
  for (const std::string_view item :
       Split(kKindRows[static_cast<std::size_t>(kind)].columns, ' ')) {
    if (!item.empty()) AddItem(item, owners, shape);
  }
  return shape;
}

std::string Describe(const RowShape::Need& need) {
  std::string text;
  for (const RowShape::Alternative& alternative : need.alternatives) {
    if (alternative.empty()) continue;
    if (!text.empty()) text += ", or ";
    for (std::size_t i = 0; i < alternative.size(); ++i) {
      if (i != 0) text += " and ";
      text += NameOf(alternative[i]);
    }
  }
  return text;
}

}  // namespace odbcimport::exact
