// What the text of a CREATE statement says that the rows of a catalog do not: names of constraints,
// checks, collations, expressions, when a key is checked. Knows the statements of SQLite, which
// keeps such facts nowhere else, and tables as MariaDB shows them; what it does not understand is
// left out.
//
// Pure functions of UTF-8 texts. Names come without their quotes, expressions as they are written.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "importer/workbook/details.h"

namespace odbcimport::exact {

struct DefinedColumn {
  std::string name;
  std::string collation;      // empty: none is written
  std::string expression;     // of a generated column
  std::string not_null_name;  // of the constraint NOT NULL
  std::string on_null;        // what NOT NULL does about a conflict: "replace", ...
  bool auto_increment = false;
  bool is_rowid = false;  // another name for the number of the row
};

struct DefinedKey {
  std::string name;
  std::vector<std::string> columns;
  std::string on_conflict;  // "replace", "ignore", ...
  bool primary = false;
};

struct DefinedForeignKey {
  std::string name;
  std::vector<std::string> columns;
  std::string target_table;
  std::vector<std::string> target_columns;  // empty: the primary key of the target
  std::string on_update;                    // empty: nothing is written
  std::string on_delete;
  LeDeferrable deferrable = dfNot;
};

struct DefinedCheck {
  std::string name;
  std::string expression;
  std::string column;  // of the column that it stands behind; empty: of the table
};

struct TableDefinition {
  std::vector<DefinedColumn> columns;  // of which there is something to say
  std::vector<DefinedKey> keys;        // in the order of the text, as all lists here
  std::vector<DefinedForeignKey> foreign_keys;
  std::vector<DefinedCheck> checks;
  std::string module;  // of a virtual table, with its arguments
  bool without_rowid = false;
  bool strict = false;
};

struct IndexDefinition {
  struct Part {
    std::string expression;  // a column's name where it is no more than that
    std::string collation;   // empty: none is written
    bool is_column = false;
  };
  std::vector<Part> parts;
  std::string predicate;  // empty: the index is of all rows
};

struct TriggerDefinition {
  std::string timing;  // "before", "after", "instead of"
  std::string events;  // "insert", "update of a, b"
};

// A text that is none of a table (an index, a trigger) gives what is there of it: as a rule
// nothing.
// `backslash_escapes`: in quotes a backslash takes the next character out of its meaning.
[[nodiscard]] TableDefinition ReadTableDefinition(std::string_view text,
                                                  bool backslash_escapes = false);
[[nodiscard]] IndexDefinition ReadIndexDefinition(std::string_view text);
[[nodiscard]] TriggerDefinition ReadTriggerDefinition(std::string_view text);
// The query of a view, as it is written.
[[nodiscard]] std::string_view ReadViewQuery(std::string_view text);

}  // namespace odbcimport::exact
